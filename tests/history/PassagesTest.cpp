#include "history/Passages.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

/// The passages in a row: "p:One|h:Two".
Text InARow(const std::vector<Passage>& passages) {
    Text all;
    for (const Passage& each : passages) {
        all += all.empty() ? u"" : u"|";
        all += each.Kind == PassageKind::Words ? u"p:" : each.Kind == PassageKind::Heading ? u"h:" : u"a:";
        all += each.Words;
    }
    return all;
}

struct GatheredRow {
    Text gathered;
    Text passages;
    bool asksPassword = false;
};

TEST(Passages, AreTheLinesThatTheReaderHasGathered) {
    const GatheredRow rows[]{
        {u"", u""},
        {u"pOne\nhTwo\naThree", u"p:One|h:Two|a:Three"},
        {u"pOne\n", u"p:One"},
        {u"p  much   room\there ", u"p:much room here"},
        {u"pOne\n!\npTwo", u"p:One|p:Two", true},
        {u"!", u"", true},
        {u"!x\npOne", u"p:One"},
        {u"xUnknown\npKnown", u"p:Known"},
        {u"p\np \nh", u""},
        {u"\n\npOne\n\n", u"p:One"},
        {Text(u"pA\0B", 4), u"p:A B"},
        {u"p\u202Eturned", u"p:turned"},
        {u"p\u0645\u0631\u062D\u0628\u0627", u"p:\u0645\u0631\u062D\u0628\u0627"},
        {u"p\u4E2D\u6587", u"p:\u4E2D\u6587"},
    };
    for (const GatheredRow& row : rows) {
        const GatheredText read = Passages::Read(row.gathered);
        EXPECT_EQ(InARow(read.Passages), row.passages) << ToUtf8(row.gathered);
        EXPECT_EQ(read.AsksPassword, row.asksPassword) << ToUtf8(row.gathered);
    }
}

TEST(Passages, NoMoreIsReadThanIsKept) {
    Text gathered;
    for (int i = 0; i < 500'000; ++i) gathered += u"pTwenty units of text.\n";
    const auto passages = Passages::Read(gathered).Passages;
    const std::size_t bytes = Passages::ToBytes(passages).size();
    EXPECT_LE(bytes, Passages::kMostBytes);
    EXPECT_GT(bytes, Passages::kMostBytes - 100);
}

TEST(Passages, ASingleLineOfTenMegabytesIsNoPassage) {
    EXPECT_LE(Passages::ToBytes(Passages::Read(u"p" + Text(10'000'000, u'x')).Passages).size(), Passages::kMostBytes);
    EXPECT_LE(Passages::ToBytes(Passages::Read(u"p" + Text(10'000'000, u'\u4E2D')).Passages).size(),
              Passages::kMostBytes);
}

TEST(Passages, ComeBackAsTheyWereKept) {
    for (const Text gathered : {u"", u"pOne\nhTwo\naThree", u"p\u4E2D\u6587\nh\U00020000", u"p\xD800 half"}) {
        const auto passages = Passages::Read(gathered).Passages;
        const auto back = Passages::FromBytes(Passages::ToBytes(passages));
        EXPECT_EQ(back.size(), passages.size());
        EXPECT_EQ(Passages::ToBytes(back), Passages::ToBytes(passages));
    }
}

TEST(Passages, DamagedBytesCostTheLinesThatTheyHit) {
    EXPECT_EQ(InARow(Passages::FromBytes("pOne\n\xFF\xFE\npTwo")), u"p:One|p:Two");
    EXPECT_EQ(InARow(Passages::FromBytes(std::string("\0\0pOne\npTwo", 11))), u"p:Two");
}

} // namespace

} // namespace tessa
