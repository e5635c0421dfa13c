#include "tabpanel/frmTabPanel.h"

#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

/// The panel of a window with tabs that are named "1", "2", ...
class frmTabPanelTest : public testing::Test {
protected:
    void Start(int tabs) {
        desk.StartWithTabs(tabs);
        for (int i = 1; i <= tabs; ++i) desk.views.At(i).location = u"http://host" + Decimal(i) + u"/";
        panel.Form.Visible = true;
    }
    /// The lines: tabs by their views, those of groups in brackets behind the group's name.
    [[nodiscard]] std::string Lines() {
        panel.Show();
        std::string all;
        for (const TabPanelEntry& each : panel.Entries()) {
            const auto* group = panel.FindGroup(each.Index);
            all += all.empty() ? "" : " ";
            if (group)
                all += ToUtf8(group->Name()) + ":";
            else
                all += (each.Group != 0 ? "-" : "") + std::to_string(each.Index);
        }
        return all;
    }
    [[nodiscard]] std::string Chosen() {
        std::string all;
        for (const std::int32_t each : desk.main.Choice().Indexes())
            all += (all.empty() ? "" : " ") + std::to_string(each);
        return all;
    }
    void OpenGroup(const char* name, const char* addresses) {
        folder.Write(std::string(name) + ".tvg", std::string("[TessaGroup]\r\n") + addresses);
        desk.OpenGroup(folder.PathText(std::string(name) + ".tvg"));
    }

    TemporaryFolder folder;
    Desk desk;
    frmTabPanel& panel = desk.main.TabPanel();
};

TEST_F(frmTabPanelTest, ListsTheTabsInTheOrderOfTheStrip) {
    Start(3);
    EXPECT_EQ(Lines(), "1 2 3");
    desk.MoveTab(3, 1);
    EXPECT_EQ(Lines(), "3 1 2");
    desk.Close(1);
    EXPECT_EQ(Lines(), "3 2");
}

TEST_F(frmTabPanelTest, TheFilterKnowsNamesTitlesAndAddresses) {
    Start(4);
    desk.views.At(2).name = u"A very long title about gardens";
    panel.Rename(3, u"My garden");
    panel.txtFilter.Value = u"garden";
    EXPECT_EQ(Lines(), "2 3");
    panel.txtFilter.Value = u"host4";
    EXPECT_EQ(Lines(), "4");
    EXPECT_EQ(panel.lblNone.Caption(), u"");
    panel.txtFilter.Value = u"nowhere";
    EXPECT_EQ(Lines(), "");
    EXPECT_NE(panel.lblNone.Caption(), u"");
    panel.Form.Visible = false;
    EXPECT_EQ(panel.txtFilter.Value(), u"") << "another time something else is looked for";
}

TEST_F(frmTabPanelTest, AClickBringsToTheFrontAndEndsTheChoice) {
    Start(4);
    panel.CtrlClick(3);
    EXPECT_EQ(Chosen(), "1 3");
    EXPECT_EQ(desk.Strip(), "[1*] 2 3 4");
    panel.Click(4);
    EXPECT_EQ(desk.Strip(), "1 2 3 [4*]");
    EXPECT_EQ(Chosen(), "");
    panel.Click(99);
    panel.CtrlClick(99);
    panel.ShiftClick(99);
    EXPECT_EQ(desk.Strip(), "1 2 3 [4*]");
}

TEST_F(frmTabPanelTest, ARangeTakesOnlyWhatIsListed) {
    Start(6);
    for (const int index : {1, 3, 5, 6}) panel.Rename(index, u"Listed " + Decimal(index));
    panel.txtFilter.Value = u"listed";
    EXPECT_EQ(Lines(), "1 3 5 6");
    panel.ShiftClick(5);
    EXPECT_EQ(Chosen(), "1 3 5");
    panel.ChooseAll();
    EXPECT_EQ(Chosen(), "1 3 5 6");
}

TEST_F(frmTabPanelTest, ClosesAllChosenAsOneCommand) {
    Start(5);
    panel.ShiftClick(3);
    EXPECT_EQ(Chosen(), "1 2 3");
    panel.Close(2);
    EXPECT_EQ(desk.Strip(), "[4*] 5");
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.CountTabs(), 5u);
    panel.Close(5);
    EXPECT_EQ(desk.CountTabs(), 4u) << "one that is not chosen closes alone";
}

TEST_F(frmTabPanelTest, MovesTabsTogether) {
    Start(5);
    EXPECT_EQ(Lines(), "1 2 3 4 5");
    panel.Move({2, 4}, {5});
    EXPECT_EQ(Lines(), "1 3 5 2 4");
    panel.Move({2, 4}, {0});
    EXPECT_EQ(Lines(), "2 4 1 3 5");
    panel.Move({1, 77, 5}, {1});
    EXPECT_EQ(Lines(), "2 1 5 4 3") << "what has closed meanwhile is left out";
    panel.Move({4, 3}, {4});
    EXPECT_EQ(Lines(), "2 1 5 4 3") << "where they are already";
    panel.Move({3}, {99});
    EXPECT_EQ(Lines(), "2 1 5 4 3");
    EXPECT_EQ(desk.Strip(), "2 [1*] 5 4 3");
}

TEST_F(frmTabPanelTest, ANameStaysUntilItIsTakenAway) {
    Start(2);
    panel.Rename(2, u" Mail ");
    EXPECT_EQ(panel.TitleOf(desk.TabOf(2)), u"Mail");
    desk.PageLoads(2, u"http://other/", u"Another title");
    EXPECT_EQ(panel.TitleOf(desk.TabOf(2)), u"Mail");
    EXPECT_EQ(desk.TabOf(2).Caption(), u"Another title") << "the caption is the page's all the same";
    panel.Rename(2, u"");
    EXPECT_EQ(panel.TitleOf(desk.TabOf(2)), u"Another title");
}

TEST_F(frmTabPanelTest, ATabThatWasNeverLoadedSleepsUnderItsWholeTitle) {
    Start(3);
    const Text address = u"http://a-host-with-a-long-name/and/a/path";
    desk.views.At(2).location = address;
    desk.views.At(2).progress = PageProgress::PutOff;
    desk.views.At(2).events.TitleChange(2, address);
    ASSERT_NE(panel.FindTab(2)->Caption(), address);
    EXPECT_EQ(panel.TitleOf(*panel.FindTab(2)), address);
    EXPECT_TRUE(panel.IsAsleep(*panel.FindTab(2)));
    EXPECT_FALSE(panel.IsAsleep(*panel.FindTab(3)));
    desk.views.At(2).events.TitleChange(2, u"short");
    EXPECT_EQ(panel.TitleOf(*panel.FindTab(2)), u"short");
}

TEST_F(frmTabPanelTest, TabsThatComeBackStandUnderTheirWholeTitles) {
    Start(8);
    const Text title = u"A title that is much longer than what a tab of the strip shows of one";
    for (int i = 2; i <= 8; ++i) desk.PageLoads(i, u"http://host" + Decimal(i) + u"/", title);
    desk.CloseRightOf(1);
    // Twice, because what is kept then was never loaded.
    for (const int last : {15, 22}) {
        desk.Click(u"xtrReopenTab");
        const Tab& tab = desk.TabOf(last);
        EXPECT_TRUE(desk.views.At(last).name.empty()) << "it is not loaded";
        EXPECT_LT(tab.Caption().size(), title.size());
        EXPECT_EQ(panel.TitleOf(tab), title);
        EXPECT_EQ(panel.TipOf(tab), title + u"\nhttp://host8/");
        panel.txtFilter.Value = u"shows of one";
        EXPECT_NE(Lines().find(std::to_string(last)), std::string::npos);
        panel.txtFilter.Value = u"";
        desk.CloseRightOf(1);
    }
}

TEST_F(frmTabPanelTest, ATitleOfAnyLengthIsKeptAsFarAsAnybodyReadsIt) {
    Start(2);
    desk.PageIsCalled(2, Text(5000, u'x'));
    EXPECT_EQ(panel.TitleOf(desk.TabOf(2)), Text(300, u'x'));
    desk.PageIsCalled(2, u"short");
    EXPECT_EQ(panel.TitleOf(desk.TabOf(2)), u"short");
}

TEST_F(frmTabPanelTest, HidesTheStripOnlyWhileItIsOpen) {
    Start(1);
    desk.Click(u"xtrTabStripHidden");
    EXPECT_TRUE(panel.HidesStrip());
    EXPECT_FALSE(desk.window.showsStrip);
    desk.Click(u"xtrTabPanel");
    EXPECT_FALSE(panel.Form.Visible());
    EXPECT_TRUE(desk.window.showsStrip);
    EXPECT_FALSE(desk.Tool(u"xtrTabStripHidden").Enabled());
    desk.Click(u"xtrTabPanel");
    EXPECT_FALSE(desk.window.showsStrip) << "as it was before";
    EXPECT_TRUE(desk.Tool(u"xtrTabPanel").Checked());
}

TEST_F(frmTabPanelTest, IsAsItWasAtTheNextStart) {
    FakeSettings& kept = desk.settings;
    Start(1);
    desk.Click(u"xtrTabStripHidden");
    desk.Click(u"xtrTabPanelRight");
    panel.Width = 333;
    desk.Unload();
    Desk next(&kept);
    next.Start();
    frmTabPanel& again = next.main.TabPanel();
    EXPECT_TRUE(again.Form.Visible());
    EXPECT_TRUE(again.OnRight());
    EXPECT_TRUE(again.HidesStrip());
    EXPECT_EQ(again.Width, 333);
}

TEST_F(frmTabPanelTest, GroupsStandAboveTheirTabs) {
    Start(2);
    OpenGroup("News", "url1=http://a/\r\nurl2=http://b/\r\n");
    EXPECT_EQ(Lines(), "1 News: -3 -4 2");
    const std::int32_t news = desk.TabOf(3).Group()->Id();
    EXPECT_NE(panel.WordsOf(*desk.TabOf(3).Group()).find(u"2 tabs"), Text::npos);
    panel.Click(-news);
    EXPECT_TRUE(desk.TabOf(3).Group()->Folded()) << "the strip folds with it";
    EXPECT_EQ(Lines(), "1 News: -4 2") << "what is in front is always shown";
    panel.txtFilter.Value = u"news";
    EXPECT_EQ(Lines(), "News: -3 -4") << "what is looked for is seen";
    panel.txtFilter.Value = u"";
    panel.Click(-news);
    panel.CtrlClick(-news);
    EXPECT_EQ(Chosen(), "3 4");
}

TEST_F(frmTabPanelTest, TabsAreDraggedIntoGroupsAndOutOfThem) {
    Start(3);
    OpenGroup("News", "url1=http://a/\r\nurl2=http://b/\r\n");
    EXPECT_EQ(Lines(), "1 News: -4 -5 2 3");
    const std::int32_t news = desk.TabOf(4).Group()->Id();
    panel.Move({3}, {3, news});
    EXPECT_EQ(Lines(), "1 News: -4 -3 -5 2");
    panel.Move({4}, {6});
    EXPECT_EQ(Lines(), "1 News: -3 -5 2 4");
    EXPECT_EQ(panel.Dragged(-news), (std::vector<std::int32_t>{3, 5}));
    panel.Move(panel.Dragged(-news), {6});
    EXPECT_EQ(Lines(), "1 2 4 News: -3 -5") << "a whole group stays one";
    panel.Move({2}, {4, news});
    EXPECT_EQ(Lines(), "1 4 News: -2 -3 -5");
    panel.Move({1}, {6, news});
    EXPECT_EQ(Lines(), "4 News: -2 -3 -5 -1") << "behind the last one";
    panel.Move({3}, {5});
    EXPECT_EQ(Lines(), "4 News: -2 -5 -1 3") << "and behind the group";
    panel.Move({3, 4}, {2, news, true});
    EXPECT_EQ(Lines(), "News: -3 -4 -2 -5 -1");
    panel.Move({5, 99}, {1, news, true});
    EXPECT_EQ(Lines(), "News: -5 -3 -4 -2 -1");
    panel.Move({1}, {77, 99});
    EXPECT_EQ(Lines(), "News: -5 -3 -4 -2 -1") << "that group has gone";
}

/// Where a tab would come that is dragged over an entry, and where a group.
struct OverEntry {
    std::size_t entry;
    double part;
    TabPanelPlace tab, group;
};

TEST_F(frmTabPanelTest, ThePartOfTheLineSaysWhatIsMeant) {
    Start(2);
    OpenGroup("News", "url1=http://a/\r\nurl2=http://b/\r\n");
    OpenGroup("Mail", "url1=http://c/\r\n");
    EXPECT_EQ(Lines(), "1 News: -3 -4 Mail: -5 2");
    const std::int32_t news = desk.TabOf(3).Group()->Id(), mail = desk.TabOf(5).Group()->Id();
    const std::vector<OverEntry> table{
        {0, 0.1, {0}, {0}},
        {0, 0.9, {1}, {1}},
        {1, 0.1, {1}, {1}},
        {1, 0.5, {2, news, true}, {1}},
        {1, 0.9, {2, news, true}, {1}},
        {2, 0.1, {2, news}, {1}},
        {2, 0.9, {3, news}, {4}},
        {3, 0.4, {3, news}, {4}},
        {3, 0.6, {4, news}, {4}},
        {4, 0.2, {4}, {4}},
        {5, 0.9, {6, mail}, {6}},
        {6, 0.1, {6}, {6}},
        {6, 0.9, {7}, {7}},
        {7, 0, {7}, {7}},
        {99, 0.5, {7}, {7}},
    };
    const auto expect = [&](std::int32_t dragged, auto wanted) {
        for (const OverEntry& each : table) {
            const TabPanelPlace place = panel.PlaceOver(each.entry, each.part, dragged);
            const TabPanelPlace& other = each.*wanted;
            EXPECT_TRUE(place == other) << each.entry << " " << each.part << ": " << place.Entry << " " << place.Group
                                        << " " << place.OnGroup;
        }
    };
    expect(1, &OverEntry::tab);
    expect(-mail, &OverEntry::group);
    desk.ClickTab(1);
    panel.Click(-mail);
    panel.Click(-news);
    EXPECT_EQ(Lines(), "1 News: Mail: 2");
    EXPECT_TRUE(panel.PlaceOver(1, 0.5, 1) == (TabPanelPlace{2, news, true}));
    EXPECT_TRUE(panel.PlaceOver(1, 0.9, 1) == TabPanelPlace{2}) << "behind a folded group";
    panel.Move({1}, panel.PlaceOver(1, 0.5, 1));
    EXPECT_EQ(Lines(), "News: -1 Mail: 2") << "what is in front is always shown";
    EXPECT_EQ(desk.Units(), "News-!2([1*] 3 4) Mail-1(5) 2");
}

} // namespace

} // namespace tessa
