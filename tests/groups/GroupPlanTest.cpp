#include "groups/GroupPlan.h"

#include "tiles/TileText.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace tessa {

namespace {

GroupPlan PlanOf(const std::string& lines) { return GroupPlan::Read(IniFile(lines)); }

TEST(GroupPlan, AFileWithoutTheSectionPlansNothing) {
    EXPECT_EQ(PlanOf("[TessaGroup]\r\nurl1=http://a/\r\n"), GroupPlan());
    EXPECT_EQ(PlanOf(""), GroupPlan());
    EXPECT_EQ(GroupPlan::In(u"/nowhere.tvg"), GroupPlan());
}

TEST(GroupPlan, WhatTheSectionSaysOfTheGroup) {
    const GroupPlan plan = PlanOf("[TessaView]\ncolour=Blue\nbehind=1\ncloseothers=1\n");
    EXPECT_EQ(plan.colour, u"blue");
    EXPECT_TRUE(plan.behind && plan.closeOthers);
    const GroupPlan strange = PlanOf("[TessaView]\ncolour=ultraviolet\nbehind=yes\ncloseothers=\n");
    EXPECT_EQ(strange, GroupPlan());
}

TEST(GroupPlan, WhatItSaysOfPanes) {
    const GroupPlan plan = PlanOf("[TessaView]\npanes=h(1 v(2 3)) linked; v(4 5)\n");
    EXPECT_TRUE(plan.keepsPanes);
    EXPECT_EQ(plan.panes, (std::vector<Text>{u"h(1 v(2 3)) linked", u"v(4 5)"}));
    EXPECT_TRUE(PlanOf("[TessaView]\npanes=none\n").keepsPanes);
    for (const char* each : {"", "x", "h(1", ";;", "1"})
        EXPECT_EQ(PlanOf("[TessaView]\npanes=" + std::string(each)), GroupPlan());
    IniFile file("[TessaView]\r\npanes=h(1 2)\r\nx=1\r\n");
    GroupPlan changed = GroupPlan::Read(file);
    changed.panes.clear();
    changed.Write(file);
    EXPECT_EQ(file.Bytes(), "[TessaView]\r\npanes=none\r\nx=1\r\n");
    changed.keepsPanes = false;
    changed.Write(file);
    EXPECT_EQ(file.Bytes(), "[TessaView]\r\nx=1\r\n");
}

TEST(GroupPlan, PanesOfAnyBytesAreLayoutsThatComeBackOrNone) {
    std::mt19937 random(21);
    const std::string units = "hv((()) 123:9;; linked";
    std::size_t read = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::string value = round % 2 == 0 ? "h(1 2); v(3 " : "";
        for (std::size_t length = random() % 14; length > 0; --length) {
            const char any = static_cast<char>(random() % 256);
            const bool ends = any == '\n' || any == '\r' || any == '\0';
            value += random() % 8 == 0 && !ends ? any : units[random() % units.size()];
        }
        const GroupPlan plan = PlanOf("[TessaView]\npanes=" + value + "\n");
        for (const Text& each : plan.panes) ASSERT_TRUE(TileLayoutIn(each)) << value;
        read += plan.panes.empty() ? 0 : 1;
        IniFile file("");
        plan.Write(file);
        ASSERT_EQ(GroupPlan::Read(file).panes, plan.panes) << value;
    }
    EXPECT_GT(read, 1000U) << "some of them are layouts";
}

TEST(GroupPlan, PanesMoveWithTheirPages) {
    GroupPlan plan;
    plan.keepsPanes = true;
    plan.panes = {u"h(1 v(2 3))"};
    plan.MovePanes({u"a", u"b", u"b"}, {u"x", u"b", u"a", u"b"});
    EXPECT_EQ(plan.panes, std::vector<Text>{u"h(3 v(2 4))"});
    plan.MovePanes({u"x", u"b", u"a", u"b"}, {u"x", u"b", u"new", u"b"});
    EXPECT_EQ(plan.panes, std::vector<Text>{u"h(3 v(2 4))"}) << "what takes the place of an address has its pane";
    plan.MovePanes({u"x", u"b", u"new", u"b"}, {u"b"});
    EXPECT_TRUE(plan.panes.empty());
}

TEST(GroupPlan, WhatItSaysOfPages) {
    const GroupPlan plan =
        PlanOf("[TessaView]\npage1=first,muted http://a/?q=1&b=2\npage7=last,asleep,size4 two words\n");
    EXPECT_EQ(plan.For(u"http://a/?q=1&b=2"), (PagePlan{.place = PagePlan::Place::First, .muted = true}));
    EXPECT_EQ(plan.For(u"two words"), (PagePlan{.place = PagePlan::Place::Last, .asleep = true, .textSize = 4}));
    EXPECT_EQ(plan.For(u"http://other/"), PagePlan());
}

TEST(GroupPlan, WhatCannotBeUnderstoodIsPassedOver) {
    EXPECT_EQ(PlanOf("[TessaView]\npage1=muted\npage2=\npage3=loud http://a/\npagex=muted http://b/\n"
                     "page=muted http://c/\npage4=size5,size-1,sizex http://d/\n"),
              GroupPlan());
}

TEST(GroupPlan, WordsComeBackAsTheyWere) {
    for (const TextView words : {u"", u"first", u"last,asleep", u"asleep,muted", u"first,asleep,muted,size0"})
        EXPECT_EQ(WordsOf(PlanIn(words)), words);
}

TEST(GroupPlan, FirstAndLastKeepTheOrderAmongThemselves) {
    const GroupPlan plan = PlanOf("[TessaView]\npage1=last a\npage2=first c\npage3=first d\n");
    EXPECT_EQ(plan.Ordered({u"a", u"b", u"c", u"d", u"e"}), (std::vector<Text>{u"c", u"d", u"b", u"e", u"a"}));
}

TEST(GroupPlan, WritingLeavesWhatBelongsToOthers) {
    const std::string before = "; mine\r\n[TessaGroup]\r\nurl1=http://a/\r\n[Other]\r\nkey=value\r\n"
                               "[TessaView]\r\n; note\r\nzoom=9\r\ncolour=red\r\npage1=muted http://gone/\r\n";
    IniFile file(before);
    GroupPlan plan = GroupPlan::Read(file);
    plan.colour = u"green";
    plan.pages = {{u"http://a/", PagePlan{.asleep = true}}, {u"http://b/", PagePlan()}};
    plan.Write(file);
    EXPECT_EQ(file.Bytes(), "; mine\r\n[TessaGroup]\r\nurl1=http://a/\r\n[Other]\r\nkey=value\r\n"
                            "[TessaView]\r\n; note\r\nzoom=9\r\ncolour=green\r\npage1=asleep http://a/\r\n");
    EXPECT_EQ(GroupPlan::Read(file).pages, (std::map<Text, PagePlan>{{u"http://a/", PagePlan{.asleep = true}}}));
}

TEST(GroupPlan, AGroupWithoutAPlanGetsNoSection) {
    const std::string before = "[TessaGroup]\r\nurl1=http://a/\r\n";
    IniFile file(before);
    GroupPlan().Write(file);
    EXPECT_EQ(file.Bytes(), before);
}

} // namespace

} // namespace tessa
