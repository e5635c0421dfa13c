// Tests: TabGroupsReturn
#include "tabs/TabGroups.h"

#include "base/os/AtomicFile.h"
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

/// The user has opened the group "News" of three pages beside his own tab.
class TabGroupsTest : public testing::Test {
protected:
    void SetUp() override {
        groups.Write("News.tvg", "[TessaGroup]\r\nurl1=http://a/\r\nurl2=http://b/\r\nurl3=c.example\r\n");
        desk.StartWithTabs(1);
        Open("News.tvg");
        for (const auto& [index, address] : {std::pair(2, u"http://a/"), {3, u"http://b/"}, {4, u"https://c.example/"}})
            desk.PageLoads(index, address, u"t");
    }
    void Open(const std::string& name) { desk.OpenGroup(groups.PathText(name)); }
    TabGroups& Model() { return desk.main.TabGroups(); }
    std::int32_t GroupOf(std::int32_t index) { return Model().Of(index)->Id(); }
    /// The user goes on to another page there, from where he can come back.
    void GoOn(int index, TextView address) {
        desk.PageMayGo(index, HistoryCommand::NavigateBack, true);
        desk.PageLoads(index, address, u"t");
    }
    /// What would be written of a group.
    std::string Saves(std::int32_t group) {
        std::string all;
        for (const GroupTab& each : Model().TabsToSave(group)) all += ToUtf8(each.Address) + " ";
        return all;
    }

    TemporaryFolder groups;
    Desk desk{{.groupFolder = groups.PathText("")}};
};

TEST_F(TabGroupsTest, TheTabsOfAnOpeningAreAGroup) {
    EXPECT_EQ(desk.Units(), "1 News(2 3 [4*])");
    EXPECT_EQ(Model().PathOf(3), groups.PathText("News.tvg"));
    EXPECT_EQ(Model().PathOf(1), u"");
    Open("News.tvg");
    EXPECT_EQ(desk.Units(), "1 News(2 3 4) News3(5 6 [7*])") << "each opening has a group of its own";
}

TEST_F(TabGroupsTest, WhatWaitsToLoadIsCounted) {
    Open("News.tvg");
    EXPECT_EQ(desk.Units(), "1 News(2 3 4) News3(5 6 [7*])");
    desk.PageLoads(6, u"http://b/", u"t");
    EXPECT_EQ(desk.Units(), "1 News(2 3 4) News2(5 6 [7*])");
    desk.StopAll();
    EXPECT_EQ(desk.Units(), "1 News(2 3 4) News(5 6 [7*])");
}

TEST_F(TabGroupsTest, ATabThatIsOpenedFromAGroupIsOfNone) {
    desk.ClickTab(2);
    desk.NewTab(InFront::Yes);
    EXPECT_EQ(desk.Units(), "1 News(2) [5*] News(3 4)") << "it stands where new tabs come";
    EXPECT_TRUE(Model().Add(5, GroupOf(2)));
    EXPECT_EQ(desk.Units(), "1 News(2 [5*] 3 4)") << "a blank page would not be written";
    desk.PageLoads(5, u"http://new/", u"t");
    EXPECT_EQ(desk.Units(), "1 News!(2 [5*] 3 4)");
    EXPECT_EQ(Saves(GroupOf(2)), "http://a/ http://new/ http://b/ c.example ");
    Model().TakeOut(5);
    EXPECT_EQ(desk.Units(), "1 News(2) [5*] News(3 4)");
}

TEST_F(TabGroupsTest, SeveralTabsArePutIntoAGroupOrIntoNone) {
    groups.Write("Mail.tvg", "[TessaGroup]\r\nurl1=http://m/\r\nurl2=http://n/\r\n");
    Open("Mail.tvg");
    desk.StopAll();
    EXPECT_EQ(desk.Units(), "1 News(2 3 4) Mail(5 [6*])");
    const std::int32_t news = GroupOf(2);
    Model().Put({1, 5, 3, 99}, news);
    EXPECT_EQ(desk.Units(), "News!(1 2 3 4 5) Mail!([6*])");
    Model().Put({5, 6}, 0);
    EXPECT_EQ(desk.Units(), "News!(1 2 3 4) 5 Mail!([6*])") << "all of one together stay one";
    Model().Put({1, 2}, 99);
    EXPECT_EQ(desk.Units(), "News!(1 2 3 4) 5 Mail!([6*])") << "that group has gone";
    Model().Put({6}, news);
    EXPECT_EQ(desk.Units(), "News!(1 2 3 4) 5 News!([6*])");
}

TEST_F(TabGroupsTest, AClosedTabAMovedOneAndAnotherPageAreChanges) {
    desk.MoveTab(2, 3);
    EXPECT_EQ(desk.Units(), "1 News!(3 2 [4*])");
    desk.MoveTab(3, 2);
    EXPECT_EQ(desk.Units(), "1 News(2 3 [4*])");
    GoOn(3, u"http://b/more");
    EXPECT_EQ(desk.Units(), "1 News!(2 3 [4*])");
    EXPECT_EQ(Saves(GroupOf(2)), "http://a/ http://b/more c.example ");
    GoOn(3, u"http://www.b/#top");
    EXPECT_EQ(desk.Units(), "1 News(2 3 [4*])") << "the same page, written in another way";
    EXPECT_EQ(Saves(GroupOf(2)), "http://a/ http://b/ c.example ") << "the file keeps its address";
    desk.Close(3);
    EXPECT_EQ(desk.Units(), "1 News!(2 [4*])");
}

TEST_F(TabGroupsTest, WhereTheSiteLeadsOnIsNoChange) {
    Open("News.tvg");
    desk.PageBegins(5, u"http://a/");
    desk.PageLoads(5, u"https://login.a/start", u"t");
    EXPECT_EQ(desk.Units(), "1 News(2 3 4) News2(5 6 [7*])");
    GoOn(5, u"https://login.a/next");
    EXPECT_EQ(desk.Units(), "1 News(2 3 4) News!2(5 6 [7*])");
    GoOn(5, u"https://login.a/start");
    EXPECT_EQ(desk.Units(), "1 News(2 3 4) News2(5 6 [7*])") << "back where its address led to";
    // By itself, once it was there, which leaves no way back.
    desk.PageLoads(6, u"http://b/", u"t");
    desk.PageLoads(6, u"http://elsewhere/", u"t");
    EXPECT_EQ(desk.Units(), "1 News(2 3 4) News1(5 6 [7*])");
}

TEST_F(TabGroupsTest, WhatIsTypedBeforeThePageHasComeIsAChange) {
    Open("News.tvg");
    desk.Bar().NoteTyped();
    desk.PageLoads(7, u"http://typed/", u"t");
    EXPECT_EQ(desk.Units(), "1 News(2 3 4) News!2(5 6 [7*])");
    desk.PageLoads(7, u"https://c.example/", u"t");
    desk.PageBegins(6, u"http://b/");
    desk.PageLoads(6, u"http://led.on/", u"t");
    EXPECT_EQ(desk.Units(), "1 News(2 3 4) News1(5 6 [7*])") << "it was not typed for a tab behind";
}

TEST_F(TabGroupsTest, PinningTakesATabOutAndTheLastOneEndsTheGroup) {
    desk.Pin(3);
    EXPECT_EQ(desk.Units(), "^3 1 News!(2 [4*])");
    const std::int32_t group = GroupOf(2);
    Model().TakeOut(2);
    Model().TakeOut(4);
    EXPECT_EQ(desk.Units(), "^3 1 2 [4*]");
    EXPECT_EQ(Model().FileOf(group), nullptr);
    EXPECT_FALSE(Model().IsChanged(group));
    EXPECT_FALSE(Model().Add(1, group));
    EXPECT_EQ(Model().Begin(99, u"x", {}), 0);
}

TEST_F(TabGroupsTest, EachOpenGroupHasAColourOfItsOwn) {
    std::string colours;
    for (int i = 0; i < 8; ++i) Open("News.tvg");
    for (const TabGroup* each : desk.main.pcPage.Groups()) colours += std::to_string(static_cast<int>(each->Colour()));
    EXPECT_EQ(colours, "542631754") << "each colour once before one comes again, blue and green first";
    EXPECT_FALSE(Model().ColourChosen(GroupOf(2)));
    EXPECT_EQ(desk.Units().substr(0, 13), "1 News(2 3 4)") << "such a colour is no change";
    Model().ChooseColour(GroupOf(2), TabColour::Grey);
    EXPECT_EQ(desk.Units().substr(0, 14), "1 News!(2 3 4)");
    EXPECT_EQ(desk.TabOf(3).Colour(), TabColour::Grey);
}

TEST_F(TabGroupsTest, AFileThatHasGoneOrChangedIsAChange) {
    const std::int32_t group = GroupOf(2);
    GroupSource file = *Model().FileOf(group);
    file.IsThere = false;
    Model().SetFile(group, file);
    EXPECT_EQ(desk.Units(), "1 News!(2 3 [4*])");
    file.IsThere = true;
    file.All.pop_back();
    Model().SetFile(group, file);
    EXPECT_EQ(desk.Units(), "1 News!(2 3 [4*])");
    desk.Close(4);
    EXPECT_EQ(desk.Units(), "1 News(2 [3*])");
}

TEST_F(TabGroupsTest, WhatIsSavedIsWhatTheFileSays) {
    GoOn(3, u"http://b/more");
    const std::int32_t group = GroupOf(2);
    const auto tabs = Model().TabsToSave(group);
    GroupSource file = *Model().FileOf(group);
    file.All = {u"http://a/", u"http://b/more", u"c.example"};
    Model().SetFile(group, file);
    Model().NoteSaved(group, tabs);
    EXPECT_EQ(desk.Units(), "1 News(2 3 [4*])");
    GoOn(3, u"http://b/");
    EXPECT_EQ(desk.Units(), "1 News!(2 3 [4*])");
}

TEST_F(TabGroupsTest, GroupsMoveToTheEndInTheirOrder) {
    desk.ClickTab(3);
    desk.NewTab(InFront::No);
    EXPECT_EQ(desk.Units(), "1 News(2 [3*]) 5 News(4)");
    Model().MoveToEnd(GroupOf(2));
    EXPECT_EQ(desk.Units(), "1 5 News(2 [3*] 4)");
    Model().MoveToEnd(99);
}

TEST_F(TabGroupsTest, OfAVisitTheGroupIsKnownThatItsAddressStandsIn) {
    desk.PageBegins(2, u"http://b/");
    EXPECT_EQ(Model().NameOfVisit(2), u"News") << "another page of the same group";
    desk.PageBegins(2, u"http://led.on/");
    EXPECT_EQ(Model().NameOfVisit(2), u"News");
    desk.PageLoads(2, u"http://led.on/", u"t");
    desk.PageBegins(2, u"http://x/");
    EXPECT_EQ(Model().NameOfVisit(2), u"");
    desk.PageBegins(1, u"http://a/");
    EXPECT_EQ(Model().NameOfVisit(1), u"") << "a tab of no group";
}

TEST_F(TabGroupsTest, WhatIsWrittenDownComesBack) {
    GoOn(3, u"http://b/more");
    desk.Pin(1);
    desk.FoldGroup(2);
    EXPECT_EQ(desk.Units(), "^1 News-!(2 3 [4*])");
    const auto kept = Model().Kept([](std::int32_t index) { return index; });
    EXPECT_EQ(ToUtf8(KeptGroupsText(kept)),
              "[Group]\nColour=blue\nEntries=\"=http://a/\", \"\", \"=c.example\"\nFile=" +
                  ToUtf8(groups.PathText("News.tvg")) +
                  "\nFolded=1\nName=News\nTabs=\"2\", \"3\", \"4\"\n[Pins]\nTabs=\"1\"\n");
    EXPECT_TRUE(Model().Kept([](std::int32_t) { return 0; }).Empty());

    Desk again{{.groupFolder = groups.PathText("")}};
    again.StartWithTabs(5);
    for (const auto& [index, address] :
         {std::pair(5, u"http://a/"), {4, u"http://b/more"}, {3, u"https://c.example/"}, {2, u"http://one/"}})
        again.views.At(index).location = address;
    again.main.Groups().Restore(kept, {2, 5, 4, 3});
    EXPECT_EQ(again.Units(), "^2 [1*] News-!(3 4 5)") << "whatever order the tabs are in by now";
    again.MoveTab(3, 5);
    again.MoveTab(3, 4);
    EXPECT_EQ(again.Units(), "^2 [1*] News-!(5 4 3)");
    EXPECT_EQ(again.main.TabGroups().TabsToSave(again.GroupAt(3).Id())[1].Address, u"http://b/more");
    EXPECT_EQ(again.main.TabGroups().TabsToSave(again.GroupAt(3).Id())[2].Address, u"c.example");
}

TEST_F(TabGroupsTest, OfAGroupWhoseFileIsGoneTheTabsComeBackTogether) {
    const auto kept = Model().Kept([](std::int32_t index) { return index - 1; });
    Desk again;
    again.StartWithTabs(3);
    again.main.Groups().Restore(kept, {1, 0, 3});
    EXPECT_EQ(again.Units(), "News!([1*]) 2 News!(3)") << "only those that are there";
    EXPECT_TRUE(again.main.TabGroups().FileOf(1)->IsThere);
    ASSERT_EQ(RemoveFile(groups.Path("News.tvg")), Outcome::Done);
    Desk third;
    third.StartWithTabs(3);
    third.main.Groups().Restore(kept, {1, 2, 3});
    EXPECT_EQ(third.Units(), "News!([1*] 2 3)");
}

} // namespace

} // namespace tessa
