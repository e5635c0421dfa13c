#include "settings/frmSettings.h"
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace {

TEST(MainLoad, WithoutACommandLineOneTabShowsTheHomePage) {
    Desk desk;
    desk.Start();
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, home");
    EXPECT_EQ(desk.Enabled(), "");
}

TEST(MainLoad, AnAddressOpensInTheFirstTab) {
    Desk desk;
    desk.Start(u"http://one/");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, go http://one/");
}

TEST(MainLoad, ACapitalExtensionIsAnAddress) {
    Desk desk;
    desk.Start(u"/nowhere/news.TVG");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, go /nowhere/news.TVG");
}

TEST(MainLoad, AGroupThatCannotBeReadLeavesABlankTab) {
    Desk desk;
    desk.Start(u"/nowhere/news.tvg");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, go about:blank");
    EXPECT_EQ(desk.Strip(), "[1*]");
}

TEST(MainLoad, AGroupOpensAndTheLastSitesBesideIt) {
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

TEST(MainLoad, AGroupOnTheCommandLineOpensBesideTheFirstTabAndLaterOnesCloseTheOthers) {
    const TemporaryFolder folder;
    const Text group = FromBytes(folder.Write("news.tvg", "[TessaGroup]\nurl1=http://a/\nurl2=http://b/\n"));
    Desk desk;
    desk.settings.Put(u"TGCloseOthersFirst", u"true");
    desk.Start(group);
    // The live setting is read after the command line.
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, go about:blank");
    desk.main.OpenTessaGroup(group);
    EXPECT_EQ(desk.Strip(), "1 [4*]");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, go http://a/");
}

TEST(MainLoad, WhatIsStoredOfNewTabsAndGroupsHoldsFromTheStart) {
    for (const bool stored : {false, true}) {
        Desk desk;
        for (const TextView name : {u"OpenNewInFront", u"TGCloseOthersFirst"})
            desk.settings.Put(name, stored ? u"true" : u"false");
        desk.Start();
        EXPECT_EQ(desk.main.OpenNewInFront, stored);
        EXPECT_EQ(desk.main.TGCloseOthersFirst, stored);
        desk.views.At(1).events.NewWindow2(1, NewWindowPlace::AsSet);
        EXPECT_EQ(desk.Strip(), stored ? "1 [2*]" : "[1*] 2");
        desk.main.OpenTessaGroup(u"/nowhere/news.tvg");
        EXPECT_EQ(desk.Strip(), stored ? "[1*]" : "[1*] 2");
    }
}

TEST(MainLoad, TheTabsAreWhereTheyWere) {
    for (const bool up : {false, true}) {
        Desk desk;
        desk.settings.Put(u"TabsUp", up ? u"true" : u"false");
        desk.Start();
        EXPECT_EQ(desk.main.pcPage.Placement(), up ? TabPlacement::Top : TabPlacement::Bottom);
        EXPECT_EQ(desk.views.At(1).place.top, Pixels{up ? 22 : 0});
    }
}

TEST(MainLoad, TheStatusBarIsAsItWas) {
    for (const bool shown : {false, true}) {
        Desk desk;
        desk.settings.Put(u"ShowStatusBar", shown ? u"true" : u"false");
        desk.Start();
        EXPECT_EQ(desk.main.sbStatus.Visible(), shown);
        EXPECT_EQ(desk.main.actBar.Find(u"mnuViewStatusbar")->Checked(), shown);
    }
}

TEST(MainLoad, AVeryWideWindowComesBackAsWideAsSixteenBitsAllow) {
    Desk desk;
    desk.settings.Put(u"WindowWidth", u"60000");
    desk.settings.Put(u"WindowHeight", u"9000");
    desk.settings.Put(u"WindowLeft", u"0");
    desk.Start();
    EXPECT_EQ(desk.window.place, (Placement{{0}, {0}, {32767}, {9000}}));
}

TEST(MainLoad, ADamagedPlacementComesBackUsable) {
    Desk desk;
    desk.settings.Put(u"WindowWidth", u"100");
    desk.settings.Put(u"WindowHeight", u"100");
    desk.settings.Put(u"WindowTop", u"-50");
    desk.settings.Put(u"WindowLeft", u"-1");
    desk.Start();
    EXPECT_EQ(desk.window.place, (Placement{{0}, {0}, {6000}, {4000}}));
}

TEST(MainLoad, APlaceOutsideTheScreenComesBackAtItsEdge) {
    Desk desk;
    desk.settings.Put(u"WindowWidth", u"9000");
    desk.settings.Put(u"WindowHeight", u"9000");
    desk.settings.Put(u"WindowTop", u"16201");
    desk.settings.Put(u"WindowLeft", u"28801");
    desk.Start();
    EXPECT_EQ(desk.window.place, (Placement{{0}, {0}, {9000}, {9000}}));
}

TEST(MainLoad, ATopEqualToTheScreensHeightIsKept_Deliberate) {
    Desk desk;
    desk.settings.Put(u"WindowTop", u"16200");
    desk.settings.Put(u"WindowLeft", u"28800");
    desk.Start();
    EXPECT_EQ(desk.window.place.top, Twips{16200});
    EXPECT_EQ(desk.window.place.left, Twips{28800});
}

TEST(MainLoad, AWindowThatWasNeverPlacedIsPlacedByTheDesktop) {
    Desk desk;
    desk.Start();
    EXPECT_EQ(desk.window.place, (Placement{{-1}, {-1}, {15360}, {11520}}));
}

TEST(MainLoad, AMaximizedWindowReadsNoPlacement) {
    Desk desk;
    desk.settings.Put(u"WindowMaximized", u"true");
    desk.settings.Put(u"WindowWidth", u"9000");
    desk.Start();
    EXPECT_EQ(desk.window.state, WindowState::Maximized);
    EXPECT_EQ(desk.window.place, (Placement{{-1}, {-1}, {-1}, {-1}}));
}

TEST(MainLoad, TheFirstActivationReopensTheLastSitesInOrder) {
    Desk desk;
    desk.settings.PutList(u"LastSites", {u"http://one/", u"", u"http://three/"});
    desk.Start();
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, home, stop, go http://one/");
    EXPECT_EQ(desk.Strip(), "1 [2*]");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go http://three/");
    desk.main.Form_Activate();
    EXPECT_EQ(desk.Strip(), "1 [2*]") << "later activations open nothing";
}

TEST(MainLoad, AnEmptyFirstSiteKeepsTheHomePage) {
    Desk desk;
    desk.settings.PutList(u"LastSites", {u"", u"http://two/"});
    desk.Start();
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, home");
    EXPECT_EQ(desk.Strip(), "1 [2*]");
}

TEST(MainLoad, ASessionOfOneTabIsNotReopened_Deliberate) {
    Desk desk;
    desk.settings.PutList(u"LastSites", {u"http://one/"});
    desk.Start();
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, home");
}

TEST(MainLoad, NothingIsReopenedWhenTheUserDoesNotWantItOrNamedAnAddress) {
    for (const bool wanted : {false, true}) {
        Desk desk;
        desk.settings.Put(u"RememberLastSites", wanted ? u"true" : u"false");
        desk.settings.PutList(u"LastSites", {u"http://one/", u"http://two/"});
        desk.Start(wanted ? u"http://named/" : u"");
        EXPECT_EQ(desk.Strip(), "[1*]");
    }
}

TEST(MainLoad, TheHistoriesComeBackInTheirOrder) {
    Desk desk;
    desk.settings.PutList(u"AddressHistory", {u"http://one/", u"", u"http://two/"});
    desk.settings.PutList(u"SearchHistory", {u"cats", u"", u"dogs & birds"});
    desk.Start();
    EXPECT_EQ(desk.List(u"cboAddress"), "[http://one/][][http://two/]");
    EXPECT_EQ(desk.List(u"cboSearch"), "[cats][dogs & birds]") << "empty searches are left out";
}

TEST(MainLoad, AHistoryOfOneEntryIsNotShown_Deliberate) {
    Desk desk;
    desk.settings.PutList(u"AddressHistory", {u"http://one/"});
    desk.settings.PutList(u"SearchHistory", {u"cats"});
    desk.Start();
    EXPECT_EQ(desk.List(u"cboAddress") + desk.List(u"cboSearch"), "");
}

TEST(MainLoad, WhatWasStoredDecidesWhetherAHistoryIsShown) {
    Desk desk;
    desk.settings.PutList(u"SearchHistory", {u"", u"cats"});
    desk.Start();
    EXPECT_EQ(desk.List(u"cboSearch"), "[cats]");
}

TEST(MainLoad, TheSettingsDialogComesIntoEffectAtOnce) {
    Desk desk;
    desk.Start();
    desk.inSettings = [](frmSettings& form) {
        form.chkTabsUp.Tick(false);
        form.chkOpenNew.Tick(false);
        form.chkCloseTessaGroups.Tick(true);
        form.chkRememberAndOpenLastSites.Tick(false);
        form.Text1.Value = u"7";
        form.cmdOK.Click();
    };
    desk.Click(u"mnuSettings");
    EXPECT_EQ(desk.main.pcPage.Placement(), TabPlacement::Bottom);
    EXPECT_EQ(desk.views.At(1).place.top, Pixels{0});
    EXPECT_FALSE(desk.main.RememberLastSites);
    EXPECT_FALSE(desk.main.OpenNewInFront);
    EXPECT_TRUE(desk.main.TGCloseOthersFirst);
    EXPECT_EQ(desk.main.Tabs.TitleLengthLimit, 7);
    desk.views.At(1).events.NewWindow2(1, NewWindowPlace::AsSet);
    EXPECT_EQ(desk.Strip(), "[1*] 2") << "a new tab stays behind";
    desk.main.OpenTessaGroup(u"/nowhere/news.tvg");
    EXPECT_EQ(desk.Strip(), "[1*]") << "a group closes the others";
}

TEST(MainLoad, ACancelledSettingsDialogChangesNothing) {
    Desk desk;
    desk.Start();
    desk.inSettings = [](frmSettings& form) {
        form.chkTabsUp.Tick(false);
        form.chkOpenNew.Tick(false);
        form.chkCloseTessaGroups.Tick(true);
        form.cmdCancel.Click();
    };
    desk.Click(u"mnuSettings");
    EXPECT_EQ(desk.main.pcPage.Placement(), TabPlacement::Top);
    EXPECT_TRUE(desk.main.OpenNewInFront);
    EXPECT_FALSE(desk.main.TGCloseOthersFirst);
}

} // namespace
