#include "base/Percent.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(Percent, LettersDigitsAndFourSignsStay) {
    EXPECT_EQ(PercentEncoded("aZ09-._~"), "aZ09-._~");
    EXPECT_EQ(PercentEncoded("a b&\xFF/"), "a%20b%26%FF%2F");
}

TEST(Percent, OfATextTheUtf8IsEncoded) {
    EXPECT_EQ(PercentEncodedText(u"\u0436 \U0001F600"), u"%D0%B6%20%F0%9F%98%80");
    EXPECT_EQ(PercentEncodedText(u"a\xD800z\xDC00"), u"a%3Fz%3F");
}

TEST(Percent, WhatIsNoEscapeStays) {
    EXPECT_EQ(PercentDecoded("a%20b%FF%"), "a b\xFF%");
    EXPECT_EQ(PercentDecoded("%4%4g%g4%-1"), "%4%4g%g4%-1");
}

} // namespace

} // namespace tessa
