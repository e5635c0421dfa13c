#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

/// Beside two tabs of his own, the user has opened the group "News" of three pages. He has opened the pop-up of its
/// head.
class TabGroupCommandsTest : public testing::Test {
protected:
    void SetUp() override {
        groups.Write("News.tvg", "[TessaGroup]\r\nurl1=http://a/\r\nurl2=http://b/\r\nurl3=http://c/\r\n");
        desk.StartWithTabs(2);
        for (const int index : {1, 2}) desk.PageLoads(index, u"http://" + Decimal(index) + u"/", u"own");
        desk.OpenGroup(groups.PathText("News.tvg"));
        for (const auto& [index, address] : {std::pair(3, u"http://a/"), {4, u"http://b/"}, {5, u"http://c/"}})
            desk.PageLoads(index, address, Text(address));
        PopUp(2);
    }
    /// On the head of the group of the tab there.
    void PopUp(std::size_t position) { desk.OpenGroupMenu(position); }
    /// On the tab there.
    void OnTab(std::size_t position, TextView tool) {
        desk.OpenTabMenu(position);
        desk.Click(tool);
    }
    [[nodiscard]] std::string Calls() {
        std::string all;
        for (const int index : {3, 4, 5}) all += desk.views.Calls(index) + ";";
        return all;
    }

    TemporaryFolder groups;
    Desk desk{{.groupFolder = groups.PathText("")}};
};

TEST_F(TabGroupCommandsTest, FoldsAndUnfolds) {
    EXPECT_EQ(desk.Tool(u"xtrTabGroupFold").Caption(), u"&Fold");
    desk.Click(u"xtrTabGroupFold");
    EXPECT_EQ(desk.Units(), "1 News-(3 4 [5*]) 2");
    PopUp(2);
    EXPECT_EQ(desk.Tool(u"xtrTabGroupFold").Caption(), u"Un&fold");
    desk.Click(u"xtrTabGroupFold");
    EXPECT_EQ(desk.Units(), "1 News(3 4 [5*]) 2");
}

TEST_F(TabGroupCommandsTest, OldRulesCountTheTabsOfAFoldedGroup) {
    desk.Click(u"xtrTabGroupFold");
    desk.ClickTab(1);
    desk.Click(u"mnuNextBrowserTab");
    EXPECT_EQ(desk.Units(), "1 News-([3*] 4 5) 2");
    desk.Close(3);
    EXPECT_EQ(desk.Units(), "1 News-!([4*] 5) 2");
    desk.ClickTab(4);
    desk.Click(u"mnuPreviousBrowserTab");
    EXPECT_EQ(desk.Units(), "1 News-!(4 [5*]) 2");
    desk.NewTab(InFront::Yes);
    EXPECT_EQ(desk.Units(), "1 News-!(4 5) [6*] 2");
}

TEST_F(TabGroupCommandsTest, SavesBackWhatHasChanged) {
    EXPECT_FALSE(desk.Tool(u"xtrTabGroupSave").Enabled());
    desk.Close(4);
    PopUp(2);
    EXPECT_TRUE(desk.Tool(u"xtrTabGroupSave").Enabled());
    desk.Click(u"xtrTabGroupSave");
    EXPECT_EQ(groups.Read("News.tvg"), "[TessaGroup]\r\nurl1=http://a/\r\nurl3=http://c/\r\n");
    PopUp(2);
    EXPECT_FALSE(desk.Tool(u"xtrTabGroupSave").Enabled());
}

TEST_F(TabGroupCommandsTest, LoadsAllOfItAgain) {
    (void)Calls();
    desk.Click(u"xtrTabGroupReload");
    EXPECT_EQ(Calls(), "refresh;refresh;refresh;");
}

TEST_F(TabGroupCommandsTest, PutsToSleepWhatNothingKeepsAwake) {
    desk.steady.now = std::chrono::minutes(1); // their icons have come
    desk.views.At(3).activity.HoldsInput = true;
    desk.Click(u"xtrTabGroupSleep");
    EXPECT_FALSE(desk.views.At(3).asleep);
    EXPECT_TRUE(desk.views.At(4).asleep);
    EXPECT_FALSE(desk.views.At(5).asleep) << "it is in front";
    EXPECT_EQ(desk.Said(), "One tab sleeps. What is in front, plays, loads or holds typed text stays awake.");
}

TEST_F(TabGroupCommandsTest, MutesAllAndLetsAllBeHeard) {
    desk.views.At(4).muted = true;
    desk.Click(u"xtrTabGroupMute");
    EXPECT_TRUE(desk.views.At(3).muted && desk.views.At(4).muted && desk.views.At(5).muted);
    EXPECT_FALSE(desk.views.At(1).muted);
    PopUp(2);
    EXPECT_TRUE(desk.Tool(u"xtrTabGroupMute").Checked());
    desk.Click(u"xtrTabGroupMute");
    EXPECT_FALSE(desk.views.At(3).muted || desk.views.At(4).muted || desk.views.At(5).muted);
}

TEST_F(TabGroupCommandsTest, MarksItWithAnotherColour) {
    EXPECT_TRUE(desk.Tool(u"xtrTabGroupBlue").Checked());
    desk.Click(u"xtrTabGroupGrey");
    EXPECT_EQ(desk.TabOf(4).Colour(), TabColour::Grey);
    EXPECT_EQ(desk.Units(), "1 News!(3 4 [5*]) 2");
    PopUp(2);
    EXPECT_TRUE(desk.Tool(u"xtrTabGroupGrey").Checked());
    EXPECT_FALSE(desk.Tool(u"xtrTabGroupBlue").Checked());
}

TEST_F(TabGroupCommandsTest, MovesToTheEndAndLetsItsTabsGo) {
    desk.Click(u"xtrTabGroupToEnd");
    EXPECT_EQ(desk.Units(), "1 2 News(3 4 [5*])");
    PopUp(4);
    EXPECT_TRUE(desk.Tool(u"xtrTabGroupOut").Enabled());
    desk.Click(u"xtrTabGroupOut");
    EXPECT_EQ(desk.Units(), "1 2 News!(3 4) [5*]");
    PopUp(3);
    EXPECT_FALSE(desk.Tool(u"xtrTabGroupOut").Enabled()) << "the tab in front is of another group, or none";
    desk.Click(u"xtrTabGroupDissolve");
    EXPECT_EQ(desk.Units(), "1 2 3 4 [5*]");
    desk.Click(u"xtrTabGroupFold");
    desk.Click(u"xtrTabGroupClose");
    EXPECT_EQ(desk.Units(), "1 2 3 4 [5*]") << "the group is gone";
}

TEST_F(TabGroupCommandsTest, ClosesItAndBringsItBackWhole) {
    desk.FoldGroup(2);
    desk.Click(u"xtrTabGroupClose");
    EXPECT_EQ(desk.Units(), "1 [2*]");
    EXPECT_EQ(desk.Said(), "The tabs of News were closed. [Undo]");
    desk.Undo();
    EXPECT_EQ(desk.Units(), "1 News-(7 8 [6*]) 2");
    EXPECT_EQ(desk.TabAt(2).Colour(), TabColour::Blue);
    PopUp(2);
    desk.Close(7);
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.Units(), "1 News-([9*] 8 6) 2");
}

TEST_F(TabGroupCommandsTest, AGroupOfAllTabsLeavesABlankOne) {
    desk.Close(1);
    desk.Close(2);
    PopUp(1);
    desk.Click(u"xtrTabGroupClose");
    EXPECT_EQ(desk.Strip(), "[6*]");
    EXPECT_TRUE(desk.messages.asked.empty()) << "the program does not end by that";
}

TEST_F(TabGroupCommandsTest, ATabIsTakenOutAndPutBack) {
    OnTab(3, u"xtrTabInGroup");
    EXPECT_EQ(desk.Units(), "1 News!(3) 4 News!([5*]) 2");
    desk.OpenTabMenu(3);
    EXPECT_EQ(desk.Tool(u"xtrTabInGroup").Caption(), u"In the &Group News");
    EXPECT_FALSE(desk.Tool(u"xtrTabInGroup").Checked());
    desk.Click(u"xtrTabInGroup");
    EXPECT_EQ(desk.Units(), "1 News(3 4 [5*]) 2") << "it shows a page of the group";
    OnTab(5, u"xtrTabInGroup");
    EXPECT_EQ(desk.Units(), "1 News!(3 4 [5*] 2)");
    desk.OpenTabMenu(1);
    EXPECT_TRUE(desk.Tool(u"xtrTabInGroup").Enabled());
    OnTab(5, u"xtrTabInGroup");
    PopUp(2);
    desk.Click(u"xtrTabGroupDissolve");
    desk.OpenTabMenu(1);
    EXPECT_FALSE(desk.Tool(u"xtrTabInGroup").Enabled()) << "no group is beside it";
}

TEST_F(TabGroupCommandsTest, TheMenuOfATabHasThatOfItsGroup) {
    desk.OpenTabMenu(3);
    EXPECT_TRUE(desk.Tool(u"xtrTabGroupFold").Enabled());
    desk.Click(u"xtrTabGroupFold");
    EXPECT_EQ(desk.Units(), "1 News-(3 4 [5*]) 2");
    desk.OpenTabMenu(1);
    EXPECT_FALSE(desk.Tool(u"xtrTabGroupFold").Enabled());
    EXPECT_FALSE(desk.Tool(u"xtrTabGroupColour").Enabled());
}

TEST_F(TabGroupCommandsTest, PinsATabOrNoLonger) {
    OnTab(3, u"xtrTabPin");
    EXPECT_EQ(desk.Units(), "^4 1 News!(3 [5*]) 2");
    desk.OpenTabMenu(1);
    EXPECT_TRUE(desk.Tool(u"xtrTabPin").Checked());
    desk.Click(u"xtrTabPin");
    EXPECT_EQ(desk.Units(), "4 1 News!(3 [5*]) 2");
}

TEST_F(TabGroupCommandsTest, NoCommandThatClosesOthersClosesAPinnedTab) {
    OnTab(1, u"xtrTabPin");
    OnTab(5, u"xtrTabPin");
    EXPECT_EQ(desk.Units(), "^1 ^2 News(3 4 [5*])");
    OnTab(4, u"xtrTabCloseOthers");
    EXPECT_EQ(desk.Units(), "^1 ^2 News!([4*])");
    desk.Click(u"xtrReopenTab");
    OnTab(1, u"xtrTabCloseRight");
    EXPECT_EQ(desk.Units(), "^1 [^2*]") << "what is pinned at its right stays too";
    OnTab(1, u"xtrTabCloseOthers");
    EXPECT_EQ(desk.Units(), "[^1*] ^2");
    desk.Click(u"mnuCloseAll");
    EXPECT_EQ(desk.Units(), "[^1*] ^2");
    EXPECT_EQ(desk.views.At(1).location, u"http://1/") << "nor is it blanked";
}

TEST_F(TabGroupCommandsTest, CloseAllLeavesThePinnedTabsAndTheLeftmostOther) {
    OnTab(5, u"xtrTabPin");
    EXPECT_EQ(desk.Units(), "^2 1 News(3 4 [5*])");
    desk.Click(u"mnuCloseAll");
    EXPECT_EQ(desk.Units(), "^2 [1*]");
    EXPECT_EQ(desk.views.At(1).location, u"about:blank");
    EXPECT_EQ(desk.views.At(2).location, u"http://2/");
}

TEST_F(TabGroupCommandsTest, AGroupThatClosesTheOthersFirstLeavesPinnedTabsAsTheyAre) {
    OnTab(5, u"xtrTabPin");
    desk.ClickTab(1);
    desk.Set(u"TGCloseOthersFirst", u"true");
    desk.OpenGroup(groups.PathText("News.tvg"));
    EXPECT_EQ(desk.Units(), "^2 News3(1 6 [7*])") << "its first page takes the leftmost tab that is not pinned";
    EXPECT_EQ(desk.views.At(2).location, u"http://2/");
    for (const int index : {1, 6}) desk.Close(index);
    desk.Pin(7);
    desk.OpenGroup(groups.PathText("News.tvg"));
    EXPECT_EQ(desk.Units(), "^2 ^7 News3(8 9 [10*])") << "where all are pinned it has tabs of its own";
}

TEST_F(TabGroupCommandsTest, APinnedTabClosesByItselfAndComesBackPinned) {
    OnTab(5, u"xtrTabPin");
    desk.Close(2);
    EXPECT_EQ(desk.Units(), "1 News(3 4 [5*])");
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.Units(), "[^6*] 1 News(3 4 5)");
}

TEST_F(TabGroupCommandsTest, TheEditorsChangesAreSeen) {
    desk.inTessaGroup = [this](frmTessaGroup&) { groups.Write("News.tvg", "[TessaGroup]\r\nurl1=http://a/\r\n"); };
    desk.Click(u"xtrTabGroupEdit");
    EXPECT_EQ(desk.Units(), "1 News!(3 4 [5*]) 2");
}

} // namespace

} // namespace tessa
