#include "pages/CookieNotes.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

/// "time domain path name" of each, "|" between them.
std::string Read(std::string_view bytes) {
    std::string all;
    for (const CookieNote& each : CookieNotes::Read(bytes)) {
        all += (all.empty() ? "" : "|") + std::to_string(each.Time) + " " + each.Domain + " " + each.Path + " " +
               each.Name;
    }
    return all;
}

TEST(CookieNotes, AnyNameComesBack) {
    std::string every;
    for (int byte = 0; byte < 256; ++byte) every += static_cast<char>(byte);
    const std::vector<CookieNote> notes{{".a.example", "/", "id", 1'700'000'000},
                                        {"b.example", "", "", 0},
                                        {"c.example", "/a b;[x]\n=\"", every, -5},
                                        {"\xC3\xA4.example", "/\xC3\xA4", "[Cookie]", 7}};
    EXPECT_EQ(CookieNotes::Read(CookieNotes::Bytes(notes)), notes);
    EXPECT_TRUE(CookieNotes::Bytes({}).empty());
}

TEST(CookieNotes, TheirTextIsRecords) {
    const std::vector<CookieNote> notes{{"a.example", "/", "id", 100}};
    EXPECT_EQ(CookieNotes::Bytes(notes), "[Cookie]\nDomain=a.example\nName=id\nPath=/\nTime=100\n");
}

TEST(CookieNotes, ReadsWhatTheFirstVersionsWrote) {
    EXPECT_EQ(Read("100 a.example %2Fshop name\n7 .b.example / a%20b%3D%FF\n5 c.example  x\n"),
              "100 a.example /shop name|7 .b.example / a b=\xFF|5 c.example  x");
    EXPECT_EQ(Read("100 a.example / name\r\n"), "100 a.example / name");
}

TEST(CookieNotes, WhatIsDamagedIsLeftOut) {
    EXPECT_EQ(Read(""), "");
    EXPECT_EQ(Read("7"), "");
    EXPECT_EQ(Read("100 a.example / name"), "") << "a line without an end was cut off";
    EXPECT_EQ(Read("nonsense\n100 a.example /\n100 a.example / b c\nsoon a.example / d\n\n8 a.example / e\n"),
              "8 a.example / e");
    const std::string whole = "Domain=a\nName=b\nPath=/\nTime=1\n";
    EXPECT_EQ(Read("[Cookie]\n" + whole), "1 a / b");
    EXPECT_EQ(Read("[Cookie]\n" + whole + "nonsense\n[Cookie]\n" + whole), "1 a / b");
    EXPECT_EQ(Read("[Other]\n" + whole + "[Cookie]\nDomain=a\n"), "");
    EXPECT_EQ(Read("[Cookie]\n" + whole + "Time=soon\n"), "");
    EXPECT_EQ(Read("[Cookie]\n" + whole + "Name=\xE2\x82\xAC\n"), "") << "no byte is so large";
    EXPECT_EQ(Read("[Cookie]\n" + whole + "[Cookie]\nDomain=c\nName="), "1 a / b");
}

} // namespace

} // namespace tessa
