#include "base/Base64.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(Base64, WritesBytesInLetters) {
    const struct {
        std::string bytes, letters;
    } rows[]{{"", ""},
             {"f", "Zg=="},
             {"fo", "Zm8="},
             {"foo", "Zm9v"},
             {"foob", "Zm9vYg=="},
             {"fooba", "Zm9vYmE="},
             {"foobar", "Zm9vYmFy"},
             {std::string("\0\xFF\x10", 3), "AP8Q"}};
    for (const auto& row : rows) EXPECT_EQ(Base64(row.bytes), row.letters);
}

} // namespace

} // namespace tessa
