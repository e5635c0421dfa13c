#include "base/Records.h"

#include <gtest/gtest.h>
#include <random>

namespace tessa {

namespace {

using List = std::vector<Text>;

Record Whole(TextView name, Fields values) { return {.Name = Text(name), .Values = std::move(values)}; }

TEST(Records, AreLinesUnderTheirNames) {
    const std::vector<Record> records{Whole(u"Session", {{u"Time", u"17"}, {u"Ended", u"1"}}), Whole(u"Page", {}),
                                      Whole(u"Page", {{u"Tags", List{u"a", u"b"}}})};
    const std::string bytes = "[Session]\nEnded=1\nTime=17\n[Page]\n[Page]\nTags=\"a\", \"b\"\n";
    EXPECT_EQ(RecordBytes(records), bytes);
    EXPECT_EQ(ParseRecords(bytes), records);
    EXPECT_EQ(RecordBytes({}), "");
    EXPECT_TRUE(ParseRecords("").empty());
}

TEST(Records, BringBackEveryText) {
    Text everyUnit;
    for (unsigned unit = 0; unit < 0x10000; ++unit) everyUnit += static_cast<char16_t>(unit);
    for (const Text& text :
         {Text(), Text(u" a "), Text(u"[Page]"), Text(u"\"a\", \"b\""), Text(u"a\n[b]\r\n"), everyUnit}) {
        const std::vector<Record> records{Whole(u"R", {{u"L", List{text, u"", text}}, {u"T", text}})};
        EXPECT_EQ(ParseRecords(RecordBytes(records)), records) << ToUtf8(text.substr(0, 20));
    }
}

TEST(Records, ADamagedLineCostsItsOwnRecordAlone) {
    using namespace std::string_view_literals;
    for (const std::string_view line :
         {"nonsense"sv, "=1"sv, "A B=1"sv, "A=\\q"sv, "A=\\x12G4"sv, "A=\"a"sv, "A=\"a\","sv, "A=\xFF"sv, "\0"sv}) {
        const auto records = ParseRecords("[One]\nB=1\n" + std::string(line) + "\nC=2\n[Two]\nD=3\n");
        ASSERT_EQ(records.size(), 2U) << line;
        EXPECT_EQ(records[0], (Record{u"One", {{u"B", u"1"}, {u"C", u"2"}}, false})) << line;
        EXPECT_EQ(records[1], Whole(u"Two", {{u"D", u"3"}})) << line;
    }
}

TEST(Records, AnUnreadableNameBeginsARecordOfItsOwn) {
    for (const std::string_view name : {"[]", "[A B]", "[A", "[A]]", "[\xC3\xA4]"}) {
        const auto records = ParseRecords("[One]\nA=1\n" + std::string(name) + "\nA=2\n");
        ASSERT_EQ(records.size(), 2U) << name;
        EXPECT_EQ(*records[0].FindText(u"A"), u"1") << name;
        EXPECT_TRUE(records[0].Whole) << name;
        EXPECT_TRUE(records[1].Name.empty() && !records[1].Whole) << name;
    }
}

TEST(Records, TakeWhatAnEditorLeaves) {
    const auto records = ParseRecords("\xEF\xBB\xBF; note\r\nA=1\r\n\r\n[B]\r\n# note\r\nC=2\r\nC=3");
    EXPECT_EQ(records, (std::vector{Whole(u"", {{u"A", u"1"}}), Whole(u"B", {{u"C", u"3"}})}));
}

TEST(Records, AFieldIsAskedForWhatItHolds) {
    const auto record =
        ParseRecords("[A]\nText=a\nList=\"a\"\nEmpty=\nNumber=-12\nLong=9223372036854775808\nOne=1\n")[0];
    EXPECT_EQ(*record.FindText(u"Text"), u"a");
    EXPECT_EQ(record.FindText(u"List"), nullptr);
    EXPECT_EQ(record.FindText(u"Other"), nullptr);
    EXPECT_EQ(ListIn(record.Values, u"List"), List{u"a"});
    EXPECT_EQ(ListIn(record.Values, u"Empty"), List{});
    EXPECT_EQ(ListIn(record.Values, u"Text"), std::nullopt);
    EXPECT_EQ(ListIn(record.Values, u"Other"), std::nullopt);
    EXPECT_EQ(record.FindNumber(u"Number"), -12);
    for (const TextView none : {u"Long", u"Text", u"Empty", u"List", u"Other"})
        EXPECT_EQ(record.FindNumber(none), std::nullopt) << ToUtf8(none);
    EXPECT_TRUE(record.Says(u"One"));
    for (const TextView none : {u"Number", u"Empty", u"List", u"Other"}) EXPECT_FALSE(record.Says(none));
}

TEST(Records, ALineWithoutAnEndWasCutOff) {
    EXPECT_EQ(WholeLines("a\nb\nc"), "a\nb\n");
    EXPECT_EQ(WholeLines("a\nb\n"), "a\nb\n");
    EXPECT_EQ(WholeLines("a"), "");
    EXPECT_EQ(WholeLines(""), "");
}

TEST(Records, AnyBytesAreReadAndWhatIsWholeComesBack) {
    std::minstd_rand random(4711);
    const std::string_view pieces[] = {"[A]\n",
                                       "A=",
                                       "[A]\nB=",
                                       "[",
                                       "]",
                                       "A",
                                       "=",
                                       "\"",
                                       ", ",
                                       "\\",
                                       "n",
                                       "x00E4",
                                       "\n",
                                       "\r\n",
                                       ";",
                                       " ",
                                       std::string_view("\0", 1),
                                       "\xC3\xA4",
                                       "\xFF",
                                       "\xEF\xBB\xBF",
                                       "\xED\xA0\x80"};
    std::size_t whole = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string bytes;
        for (auto i = random() % 40; i > 0; --i) bytes += pieces[random() % std::size(pieces)];
        std::vector<Record> kept;
        for (Record& record : ParseRecords(bytes)) {
            if (record.Whole && !record.Name.empty()) kept.push_back(std::move(record));
        }
        ASSERT_EQ(ParseRecords(RecordBytes(kept)), kept) << bytes;
        whole += kept.size();
    }
    EXPECT_GT(whole, 1000U) << "the bytes are to hit something";
}

} // namespace

} // namespace tessa
