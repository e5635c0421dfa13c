// Tests: ChosenTabs
#include "commands/effects/TileCommands.h"

#include "tests/Desk.h"

namespace tessa {

namespace {

class TileMenu : public testing::Test {
protected:
    [[nodiscard]] std::string Layout() { return desk.SideBySide() + ": " + desk.views.Shown(); }
    /// The tools of the menu that are enabled and that are marked.
    [[nodiscard]] std::string State() {
        std::string all;
        for (const TextView name : {u"xtrTileNone", u"xtrTileLink", u"xtrTileHeaders"}) {
            const auto& tool = desk.Tool(name);
            if (!tool.Enabled() && !tool.Checked()) continue;
            all += (all.empty() ? "" : " ") + ToUtf8(TextView(name).substr(7)) + (tool.Checked() ? "*" : "");
        }
        return all;
    }
    Desk desk;
};

TEST_F(TileMenu, ShowsAllTabsInEachWay) {
    desk.StartWithTabs(4);
    desk.ClickTab(3);
    desk.Click(u"xtrTileColumns");
    EXPECT_EQ(Layout(), "h(1 2 3 4): 1 2 3* 4");
    desk.Click(u"xtrTileRows");
    EXPECT_EQ(Layout(), "v(1 2 3 4): 1 2 3* 4");
    desk.Click(u"xtrTileGrid");
    EXPECT_EQ(Layout(), "v(h(1 2) h(3 4)): 1 2 3* 4");
    desk.Click(u"xtrTileMain");
    EXPECT_EQ(Layout(), "h(3:2000 v(1 2 4)): 1 2 3* 4");
    desk.Click(u"xtrTileNone");
    EXPECT_EQ(Layout(), "alone: 3*");
    EXPECT_EQ(desk.Strip(), "1 2 [3*] 4");
}

TEST_F(TileMenu, OneTabHasNothingBesideIt) {
    desk.StartWithTabs(1);
    for (const TextView name : {u"xtrTileColumns", u"xtrTileRows", u"xtrTileGrid", u"xtrTileMain"}) desk.Click(name);
    EXPECT_EQ(Layout(), "alone: 1*");
    EXPECT_EQ(desk.Said(), "There is no other tab to show beside this one.");
}

TEST_F(TileMenu, ManyAreShownAfterAQuestion) {
    desk.StartWithTabs(17);
    desk.Click(u"xtrTileColumns");
    EXPECT_EQ(Layout(), "alone: 1*");
    ASSERT_EQ(desk.messages.own.size(), 1u);
    EXPECT_EQ(ToUtf8(desk.messages.own[0].Heading), "Show 17 pages side by side?");
    EXPECT_EQ(desk.messages.Buttons(), "&Cancel|&Show Them");
    desk.messages.answer = Answer::Yes;
    desk.Click(u"xtrTileGrid");
    ASSERT_TRUE(desk.main.Tiles().Shown());
    EXPECT_EQ(desk.main.Tiles().Shown()->Numbers().size(), 17u);
    // A tab closes behind the question, by a script say.
    desk.messages.whileOpen = [this] { desk.Close(17); };
    desk.Click(u"xtrTileRows");
    EXPECT_EQ(desk.main.Tiles().Shown()->Numbers().size(), 16u);
}

TEST_F(TileMenu, MarksAndEnablesWhatCanBeDone) {
    desk.StartWithTabs(3);
    EXPECT_EQ(State(), "Headers*");
    desk.OpenTabMenu(2);
    desk.Click(u"xtrTabBeside");
    EXPECT_EQ(Layout(), "h(1 2): 1* 2");
    EXPECT_EQ(State(), "None Link Headers*");
    desk.Click(u"xtrTileLink");
    desk.Click(u"xtrTileHeaders");
    EXPECT_EQ(State(), "None Link* Headers") << "an enabled tool that is not marked is named all the same";
    desk.ClickTab(3);
    EXPECT_EQ(State(), "Headers");
    desk.ClickTab(1);
    EXPECT_EQ(State(), "None Link* Headers");
    desk.Close(2);
    EXPECT_EQ(State(), "Headers");
}

TEST_F(TileMenu, APopupShowsItsTabBesideTheOneInFrontOrNoLonger) {
    desk.StartWithTabs(3);
    desk.OpenTabMenu(1);
    EXPECT_FALSE(desk.Tool(u"xtrTabBeside").Enabled()) << "it is in front, alone";
    desk.OpenTabMenu(3);
    EXPECT_TRUE(desk.Tool(u"xtrTabBeside").Enabled());
    EXPECT_FALSE(desk.Tool(u"xtrTabBeside").Checked());
    desk.Click(u"xtrTabBeside");
    EXPECT_EQ(Layout(), "h(1 3): 1* 3");
    desk.OpenTabMenu(1);
    EXPECT_TRUE(desk.Tool(u"xtrTabBeside").Enabled());
    EXPECT_TRUE(desk.Tool(u"xtrTabBeside").Checked());
    desk.Click(u"xtrTabBeside");
    EXPECT_EQ(Layout(), "alone: 3*");
    desk.OpenTabMenu(9);
    desk.Click(u"xtrTabBeside");
    EXPECT_EQ(Layout(), "alone: 3*");
}

TEST_F(TileMenu, LinkedPanesAreLoadedAndSizedTogether) {
    desk.StartWithTabs(4);
    desk.LaySideBySide(u"h(1 2 3)");
    for (int index = 1; index <= 4; ++index) desk.views.Calls(index);
    desk.Click(u"mnuRefresh");
    desk.Click(u"xtrTextLarger");
    EXPECT_EQ(desk.views.Calls(1), "refresh, zoom 3");
    EXPECT_EQ(desk.views.Calls(2), "");
    desk.Click(u"xtrTileLink");
    desk.ClickTab(2);
    desk.Click(u"mnuRefresh");
    desk.Click(u"mnuFontLargest");
    for (const int index : {1, 2, 3}) EXPECT_EQ(desk.views.Calls(index), "refresh, zoom 4") << index;
    EXPECT_EQ(desk.views.Calls(4), "");
}

TEST_F(TileMenu, WhetherThereAreHeadersIsKept) {
    desk.StartWithTabs(1);
    desk.Click(u"xtrTileHeaders");
    EXPECT_FALSE(desk.main.Tiles().HasHeaders());
    desk.Unload();
    Desk later(&desk.settings);
    later.Start();
    EXPECT_FALSE(later.main.Tiles().HasHeaders());
    EXPECT_FALSE(later.Tool(u"xtrTileHeaders").Checked());
}

} // namespace

} // namespace tessa
