// Tests: frmMainWiring
#include "window/frmMain.h"

#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

TEST(frmMain, WithoutACommandLineOneTabShowsTheHomePage) {
    Desk desk;
    desk.Start();
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, home");
    EXPECT_EQ(desk.Enabled(), "");
}

TEST(frmMain, AnAddressOpensInTheFirstTab) {
    Desk desk;
    desk.Start(u"http://one/");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, go http://one/");
}

TEST(frmMain, ACapitalExtensionIsAnAddress) {
    Desk desk;
    desk.Start(u"/nowhere/news.TVG");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, go /nowhere/news.TVG");
}

TEST(frmMain, AGroupThatCannotBeReadLeavesABlankTab) {
    Desk desk;
    desk.Start(u"/nowhere/news.tvg");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, go about:blank");
    EXPECT_EQ(desk.Strip(), "[1*]");
}

TEST(frmMain, AGroupOpensAndTheLastSitesBesideIt) {
    const TemporaryFolder folder;
    const std::string group = folder.Write("news.tvg", "[TessaGroup]\nurl1=http://group/\n");
    Desk desk;
    desk.settings.PutList(u"LastSites", {u"http://one/", u"http://two/"});
    desk.Start(FromBytes(group));
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, go about:blank, stop, go http://one/");
    EXPECT_EQ(desk.views.At(2).location, u"http://group/");
    EXPECT_EQ(desk.views.At(3).location, u"http://two/");
}

TEST(frmMain, AGroupOnTheCommandLineOpensBesideTheFirstTabAndLaterOnesCloseTheOthers) {
    const TemporaryFolder folder;
    const Text group = FromBytes(folder.Write("news.tvg", "[TessaGroup]\nurl1=http://a/\nurl2=http://b/\n"));
    Desk desk;
    desk.settings.Put(u"TGCloseOthersFirst", u"true");
    desk.Start(group);
    // The live setting is read after the command line.
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, go about:blank");
    desk.OpenGroup(group);
    EXPECT_EQ(desk.Strip(), "1 [4*]");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, go http://a/");
}

TEST(frmMain, TheTabsAreWhereTheyWere) {
    for (const bool up : {false, true}) {
        Desk desk;
        desk.settings.Put(u"TabsUp", up ? u"true" : u"false");
        desk.Start();
        EXPECT_EQ(desk.PlaceOfTabs(), up ? TabPlacement::Top : TabPlacement::Bottom);
        EXPECT_EQ(desk.views.At(1).place.top, Pixels{up ? 22 : 0});
    }
}

TEST(frmMain, TheStatusBarIsAsItWas) {
    for (const bool shown : {false, true}) {
        Desk desk;
        desk.settings.Put(u"ShowStatusBar", shown ? u"true" : u"false");
        desk.Start();
        EXPECT_EQ(desk.ShowsStatusBar(), shown);
        EXPECT_EQ(desk.Tool(u"mnuViewStatusbar").Checked(), shown);
    }
}

TEST(frmMain, AValueThatCannotBeWrittenIsSkipped) {
    Desk desk;
    desk.Start();
    desk.settings.refuse.insert(u"LastSites");
    desk.ExpectSkipped(1);
    desk.Unload();
    EXPECT_EQ(desk.settings.Stored(u"ShowStatusBar"), u"true");
}

TEST(frmMain, SavesEverythingInItsOrder) {
    Desk desk;
    desk.Start();
    desk.settings.written.clear();
    desk.Unload();
    const std::vector<Text> order{u"WindowMaximized", u"WindowTop",      u"WindowLeft",       u"WindowWidth",
                                  u"WindowHeight",    u"OpenNewInFront", u"TitleLengthLimit", u"RememberLastSites",
                                  u"TabsUp",          u"LastSites",      u"SearchHistory",    u"AddressHistory",
                                  u"ShowStatusBar"};
    EXPECT_EQ(desk.settings.written, order);
}

TEST(frmMain, NothingThatComesLateOpensAPageInAWindowThatHasEnded) {
    Desk desk;
    desk.StartWithTabs(2);
    desk.Unload();
    EXPECT_EQ(desk.NewTab(InFront::Yes), nullptr);
    desk.FollowStartLink("http://a/");
    EXPECT_TRUE(desk.views.living.empty());
}

TEST(frmMain, RunsOnceAndEndsTheViews) {
    Desk desk;
    desk.StartWithTabs(3);
    desk.Unload();
    EXPECT_TRUE(desk.views.living.empty());
    const auto written = desk.settings.written.size();
    desk.Unload();
    EXPECT_EQ(desk.settings.written.size(), written);
}

} // namespace

} // namespace tessa
