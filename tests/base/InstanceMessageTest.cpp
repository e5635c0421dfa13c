#include "base/InstanceMessage.h"

#include <gtest/gtest.h>

#include <random>

namespace tessa {

namespace {

using InstanceMessage::Kind;
using InstanceMessage::Read;
using InstanceMessage::Standing;

TEST(InstanceMessage, ATextComesBackAsItWas) {
    for (const Text& text :
         {Text(), Text(u"http://a.example/"), Text(u"\"/a path/page.html\""), Text(u"line\nline\r\n\0end", 16),
          Text(u"message 5\nhello"), Text(u"\u00E4\u4E2D\U0001F600"), PathFromBytes("/tmp/\xFF\xC3.tvg"),
          Text(InstanceMessage::kLongestText, u'x')}) {
        const auto reading = Read(InstanceMessage::HandOver(text));
        ASSERT_EQ(reading.How, Standing::Whole);
        EXPECT_EQ(reading.What.What, Kind::HandOver);
        EXPECT_TRUE(reading.What.Text == text) << ToUtf8(TextView(text).substr(0, 40));
    }
}

TEST(InstanceMessage, ATextThatIsTooLongIsNotCut) {
    EXPECT_EQ(InstanceMessage::HandOver(Text(InstanceMessage::kLongestText + 1, u'x')), "");
}

TEST(InstanceMessage, IsIncompleteUntilItsLastByte) {
    const std::string whole = InstanceMessage::HandOver(u"http://a.example/");
    for (std::size_t have = 0; have < whole.size(); ++have)
        EXPECT_EQ(Read(std::string_view(whole).substr(0, have)).How, Standing::Incomplete) << have;
    EXPECT_EQ(Read(whole + "message 3\nmore").What.Text, u"http://a.example/");
}

TEST(InstanceMessage, ThePermissionGoesAlongOnOneLine) {
    EXPECT_EQ(Read(InstanceMessage::Foreground("a b\nmessage 1\nx")).What.Token, "a b message 1 x");
    EXPECT_EQ(Read(InstanceMessage::Foreground("")).What.Token, "");
    EXPECT_EQ(Read("foreground\n").How, Standing::Whole);
    const auto reading = Read(InstanceMessage::Foreground(std::string(100000, 'x')));
    EXPECT_EQ(reading.How, Standing::Whole);
    EXPECT_LT(reading.What.Token.size(), InstanceMessage::kLongestLine);
}

TEST(InstanceMessage, WhatIsNoneIsRefused) {
    for (const std::string& bytes :
         {std::string("\n"), std::string("message\n"), std::string("message \n"), std::string("message x\n"),
          std::string("message -1\n"), std::string("message +1\nx"), std::string("message 01\nx"),
          std::string("message 1 \nx"), std::string("message 2097153\n"), std::string("message 18446744073709551617\n"),
          std::string("MESSAGE 1\nx"), std::string("foregroundx\n"), std::string("message 1\r\nx"),
          std::string("\0message 1\nx", 12), std::string(InstanceMessage::kLongestLine, 'm')})
        EXPECT_EQ(Read(bytes).How, Standing::Refused) << bytes.substr(0, 40);
}

// Anybody of the same user can say anything. Whatever it is, the answer is the same however it is cut into pieces.
TEST(InstanceMessage, AnyBytesAreUnderstoodOrRefused) {
    std::minstd_rand random(20260101);
    const std::string_view pieces[] = {"message ",
                                       "foreground",
                                       " ",
                                       "\n",
                                       "0",
                                       "7",
                                       "99999999999999999999",
                                       "http://a/",
                                       "\xC3",
                                       "\xFF",
                                       "-",
                                       "+",
                                       std::string_view("\0", 1)};
    int whole = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string bytes = random() % 4 == 0 ? "message 7\n" : random() % 4 == 0 ? "foreground" : "";
        for (std::size_t count = random() % 8; count > 0; --count) {
            if (random() % 4 == 0)
                bytes += static_cast<char>(random() % 256);
            else
                bytes += pieces[random() % std::size(pieces)];
        }
        const auto all = Read(bytes);
        bool refused = false;
        for (std::size_t have = 0; have < bytes.size(); ++have) {
            const Standing how = Read(std::string_view(bytes).substr(0, have)).How;
            EXPECT_FALSE(refused && how != Standing::Refused) << "refused is for ever";
            EXPECT_FALSE(how == Standing::Whole && all.How != Standing::Whole);
            refused = how == Standing::Refused;
        }
        EXPECT_FALSE(refused && all.How != Standing::Refused);
        if (all.How != Standing::Whole) continue;
        ++whole;
        EXPECT_LE(all.What.Text.size(), bytes.size());
        EXPECT_EQ(all.What.Token.find('\n'), std::string::npos);
        if (all.What.What == Kind::HandOver) {
            EXPECT_EQ(Read(InstanceMessage::HandOver(all.What.Text)).What.Text, all.What.Text);
        }
    }
    EXPECT_GT(whole, 100) << "the bytes are to hit something";
}

} // namespace

} // namespace tessa
