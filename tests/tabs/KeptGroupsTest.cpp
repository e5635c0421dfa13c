#include "tabs/KeptGroups.h"

#include <gtest/gtest.h>
#include <random>

namespace tessa {

namespace {

KeptGroups Some() {
    return {.Groups = {{.Path = u"/g/Nachrichten \u05d0\n\"x\", y=.tvg",
                        .Name = u"Nachrichten \u05d0",
                        .Colour = u"blue",
                        .ColourChosen = true,
                        .Folded = true,
                        .Members = {{2, u"http://a/"}, {4, std::nullopt}, {5, u""}}},
                       {.Path = u"b.tvg", .Name = u"", .Colour = u"", .Members = {{6, u"c"}}}},
            .Pins = {1, 3}};
}

TEST(KeptGroups, ComeBackAsTheyWere) {
    EXPECT_EQ(KeptGroupsIn(RecordsOf(Some()), 6), Some());
    EXPECT_EQ(KeptGroupsIn(KeptGroupsText(Some()), 6), Some());
    EXPECT_EQ(KeptGroupsText({}), u"");
    EXPECT_TRUE(KeptGroupsIn(TextView(), 6).Empty());
}

TEST(KeptGroups, AreRecords) {
    EXPECT_EQ(ToUtf8(KeptGroupsText({.Groups = {{.Path = u"/a.tvg",
                                                 .Name = u"a",
                                                 .Colour = u"red",
                                                 .Members = {{2, u"http://x/"}, {3, std::nullopt}}}},
                                     .Pins = {1}})),
              "[Group]\nColour=red\nEntries=\"=http://x/\", \"\"\nFile=/a.tvg\nName=a\nTabs=\"2\", \"3\"\n"
              "[Pins]\nTabs=\"1\"\n");
}

TEST(KeptGroups, APageIsInOnePlaceAndThere) {
    const auto read = [](TextView text) { return ToUtf8(KeptGroupsText(KeptGroupsIn(text, 4))); };
    EXPECT_EQ(read(u"[Pins]\nTabs=\"2\",\"2\",\"5\",\"0\",\"-1\",\"x\",\"99999999999\"\n"), "[Pins]\nTabs=\"2\"\n");
    EXPECT_EQ(read(u"[Group]\nFile=a\nTabs=\"1\",\"2\",\"1\"\nEntries=\"=x\"\n[Group]\nFile=b\nTabs=\"2\", \"3\"\n"
                   u"[Pins]\nTabs=\"3\"\n"),
              "[Group]\nEntries=\"=x\", \"\"\nFile=a\nName=\nTabs=\"1\", \"2\"\n[Pins]\nTabs=\"3\"\n")
        << "a group without pages is none";
    EXPECT_EQ(read(u"[Group]\nTabs=\"1\"\n"), "") << "nor is one without a file";
    EXPECT_EQ(read(u"[Group]\nFile=a\nColour=mauve\nChosen=1\nFolded=yes\nTabs=\"1\"\n"),
              "[Group]\nEntries=\"\"\nFile=a\nName=\nTabs=\"1\"\n");
}

TEST(KeptGroups, GetOtherNumbers) {
    const KeptGroups kept = Renumbered(Some(), [](std::int32_t number) { return number % 2 == 0 ? number / 2 : 0; });
    ASSERT_EQ(kept.Groups.size(), 2U);
    EXPECT_EQ(kept.Groups[0].Members, (std::vector<KeptMember>{{1, u"http://a/"}, {2, std::nullopt}}));
    EXPECT_EQ(kept.Groups[1].Members, (std::vector<KeptMember>{{3, u"c"}}));
    EXPECT_TRUE(kept.Pins.empty());
}

// What the fuzzer does, for everybody: texts of what these records are made of.
TEST(KeptGroups, AnyTextGivesGroupsThatComeBack) {
    const std::vector<TextView> parts{
        u"[Group]\n",    u"[Pins]\n", u"Tabs=",  u"Entries=", u"File=a\n", u"Name=\\x05D0\n",
        u"Colour=red\n", u"\"1\",",   u"\"2\"",  u"\"=\"",    u"\n",       u"Folded=1\n",
        u"\"999\"",      u"\\",       u"\u202e", u"\"",       u",",        u"Chosen=1\n"};
    std::mt19937 random(20);
    std::size_t any = 0;
    for (int round = 0; round < 50'000; ++round) {
        Text text = round % 2 == 0 ? Text() : Text(u"[Group]\nFile=a\nTabs=\"1\"");
        for (std::size_t length = random() % 16; length > 0; --length) text += parts[random() % parts.size()];
        const KeptGroups read = KeptGroupsIn(text, 5);
        ASSERT_EQ(KeptGroupsIn(KeptGroupsText(read), 5), read) << ToUtf8(text);
        any += read.Empty() ? 0 : 1;
    }
    EXPECT_GT(any, 100U);
}

} // namespace

} // namespace tessa
