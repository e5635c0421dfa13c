#include "groups/TessaGroups.h"
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

/// Six tabs, of which some are saved as a group.
class GroupOfTabs : public testing::Test {
protected:
    GroupOfTabs() {
        desk.StartWithTabs(6);
        for (int i = 1; i <= 6; ++i) desk.PageLoads(i, u"http://" + Decimal(i) + u"/", u"t");
    }
    void Save(const char* name, const std::vector<std::int32_t>& indexes) {
        desk.main.Groups().SaveTabs(groups.PathText(name), indexes);
    }
    void Group(const char* name, const std::vector<std::int32_t>& indexes) {
        Save((std::string(name) + ".tvg").c_str(), indexes);
    }

    TemporaryFolder groups;
    Desk desk{{.groupFolder = groups.PathText("")}};
};

TEST_F(GroupOfTabs, TheTabsThatAreSavedAreTheGroupWhereTheFirstOfThemStands) {
    Group("News", {5, 2, 4});
    EXPECT_EQ(desk.Units(), "[1*] News(2 4 5) 3 6");
    EXPECT_EQ(desk.Said(), "Saved as the TessaGroup News.");
    desk.Close(4);
    EXPECT_EQ(desk.Units(), "[1*] News!(2 5) 3 6");
    desk.SaveGroupBack(2);
    EXPECT_EQ(groups.Read("News.tvg"), "[TessaGroup]\r\nurl1=http://2/\r\nurl3=http://5/\r\n");
    EXPECT_EQ(desk.Units(), "[1*] News(2 5) 3 6");
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.Units(), "1 News!(2 [7*] 5) 3 6") << "a tab that is reopened comes back into it";
}

TEST_F(GroupOfTabs, TheFirstTabOfTheStripMayBeOne) {
    Group("News", {1, 6});
    EXPECT_EQ(desk.Units(), "News([1*] 6) 2 3 4 5");
}

TEST_F(GroupOfTabs, AnotherPageIsAChangeAndTheSavedOneIsNone) {
    Group("News", {2, 3});
    desk.PageMayGo(3, HistoryCommand::NavigateBack, true);
    desk.PageLoads(3, u"http://3/more", u"t");
    EXPECT_EQ(desk.Units(), "[1*] News!(2 3) 4 5 6");
    desk.PageLoads(3, u"http://3/", u"t");
    EXPECT_EQ(desk.Units(), "[1*] News(2 3) 4 5 6");
}

TEST_F(GroupOfTabs, TabsLeaveTheGroupThatTheyWereOf) {
    Group("News", {2, 3, 4, 5});
    Group("Sport", {3, 4});
    EXPECT_EQ(desk.Units(), "[1*] News!(2 5) Sport(3 4) 6") << "it comes between no other's tabs";
    Group("All", {2, 3, 4, 5});
    EXPECT_EQ(desk.Units(), "[1*] All(2 5 3 4) 6");
    EXPECT_EQ(groups.Read("News.tvg").size(), groups.Read("All.tvg").size()) << "the files stay";
}

TEST_F(GroupOfTabs, SavedOverItsOwnFileAGroupStaysTheSame) {
    Group("News", {2, 3});
    const std::int32_t id = desk.GroupAt(2).Id();
    desk.messages.answer = Answer::Yes;
    Group("News", {2, 3, 5});
    EXPECT_EQ(desk.Units(), "[1*] News(2 3 5) 4 6");
    EXPECT_EQ(desk.GroupAt(2).Id(), id);
    EXPECT_FALSE(desk.main.TabGroups().IsOvertaken(id));
    desk.main.TabGroups().ChooseColour(id, TabColour::Red);
    Group("News", {2, 3, 5});
    EXPECT_EQ(desk.Units(), "[1*] News!(2 3 5) 4 6") << "a colour that was chosen is not in the file";
    Group("News", {3, 4});
    EXPECT_EQ(desk.Units(), "[1*] News!(2 5) News(3 4) 6") << "what is left of it is held against the file";
}

TEST_F(GroupOfTabs, PinnedTabsStayWhereTheyAreAndTheirPagesInTheFile) {
    desk.Pin(desk.TabAt(6).Tag);
    Group("News", {6, 2});
    EXPECT_EQ(desk.Units(), "^6 [1*] News(2) 3 4 5");
    desk.Close(2);
    Group("Pins", {6});
    EXPECT_EQ(desk.Units(), "^6 [1*] 3 4 5");
    EXPECT_EQ(groups.Read("Pins.tvg"), "[TessaGroup]\r\nurl1=http://6/\r\n");
}

TEST_F(GroupOfTabs, WhatWasNotSavedIsOfNoGroup) {
    desk.messages.answer = Answer::No;
    groups.Write("Old.tvg", "[TessaGroup]\r\nurl1=http://old/\r\n");
    Group("Old", {2, 3});
    EXPECT_EQ(desk.Units(), "[1*] 2 3 4 5 6");
    Group("missing/News", {2, 3});
    EXPECT_EQ(desk.Units(), "[1*] 2 3 4 5 6");
    Group("Gone", {77});
    EXPECT_EQ(desk.Units(), "[1*] 2 3 4 5 6");
}

TEST_F(GroupOfTabs, TheyStandInTheOrderInWhichTheFileOpensThem) {
    groups.Write("News.tvg", "[TessaGroup]\r\nurl1=http://old/\r\n[TessaView]\r\npage1=first http://4/\r\n");
    desk.messages.answer = Answer::Yes;
    Group("News", {2, 3, 4});
    EXPECT_EQ(desk.Units(), "[1*] News(4 2 3) 5 6");
}

TEST_F(GroupOfTabs, ALongAddressThatTheFileCutsIsNoChange) {
    const Text address = u"http://2/" + Text(600, u'a');
    desk.PageLoads(2, address, u"t");
    Group("News", {2, 3});
    EXPECT_EQ(desk.Units(), "[1*] News(2 3) 4 5 6");
}

} // namespace

} // namespace tessa
