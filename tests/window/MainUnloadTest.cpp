#include "tests/Desk.h"

namespace {

TEST(MainUnload, SavesTheAddressesInTheOrderOfTheTabs) {
    Desk desk;
    desk.StartWithTabs(2);
    desk.PageLoads(2, u"http://two/", u"Two");
    desk.views.At(1).location = u"";
    desk.main.Form_Unload();
    EXPECT_EQ(desk.settings.StoredList(u"LastSites"), u"[][http://two/]");
}

TEST(MainUnload, APrintPreviewGoesWithTheWindow) {
    Desk desk;
    desk.StartWithTabs(3);
    desk.views.At(1).location = u"http://one/";
    desk.views.At(2).location = u"tessaview:preview/1/One";
    desk.views.At(3).location = u"tessaview:help";
    desk.main.Form_Unload();
    EXPECT_EQ(desk.settings.StoredList(u"LastSites"), u"[http://one/][tessaview:help]");
}

TEST(MainUnload, SavesTabsThatWereMovedInTheirNewOrder) {
    Desk desk;
    desk.StartWithTabs(3);
    desk.views.At(1).location = u"http://one/";
    desk.views.At(2).location = u"http://two/";
    desk.views.At(3).location = u"http://three/";
    desk.main.pcPage.Move(desk.main.pcPage.FindAt(3), 1);
    EXPECT_EQ(desk.Strip(), "3 [1*] 2");
    desk.main.Form_Unload();
    EXPECT_EQ(desk.settings.StoredList(u"LastSites"), u"[http://three/][http://one/][http://two/]");
}

TEST(MainUnload, SavesThePlacementAndTheOptions) {
    Desk desk;
    desk.Start();
    desk.window.place = {{150}, {300}, {9000}, {8000}};
    desk.main.Tabs.TitleLengthLimit = 12;
    desk.Click(u"mnuViewStatusbar");
    desk.main.Form_Unload();
    EXPECT_EQ(desk.settings.Stored(u"WindowLeft"), u"150");
    EXPECT_EQ(desk.settings.Stored(u"WindowTop"), u"300");
    EXPECT_EQ(desk.settings.Stored(u"WindowWidth"), u"9000");
    EXPECT_EQ(desk.settings.Stored(u"WindowHeight"), u"8000");
    EXPECT_EQ(desk.settings.Stored(u"WindowMaximized"), u"false");
    EXPECT_EQ(desk.settings.Stored(u"TitleLengthLimit"), u"12");
    EXPECT_EQ(desk.settings.Stored(u"ShowStatusBar"), u"false");
}

TEST(MainUnload, SavesEverySwitchAsItIsAtTheEnd) {
    for (const bool on : {false, true}) {
        const Text value = on ? u"true" : u"false";
        Desk desk;
        for (const TextView name : {u"OpenNewInFront", u"RememberLastSites", u"TabsUp", u"ShowStatusBar"})
            desk.settings.Put(name, on ? u"false" : u"true");
        desk.Start();
        desk.main.OpenNewInFront = desk.main.RememberLastSites = on;
        desk.main.pcPage.SetPlacement(on ? TabPlacement::Top : TabPlacement::Bottom);
        desk.Click(u"mnuViewStatusbar");
        desk.window.state = on ? WindowState::Maximized : WindowState::Normal;
        desk.main.Form_Unload();
        for (const TextView name :
             {u"OpenNewInFront", u"RememberLastSites", u"TabsUp", u"ShowStatusBar", u"WindowMaximized"})
            EXPECT_EQ(desk.settings.Stored(name), value) << ToUtf8(name);
    }
}

TEST(MainUnload, SavesThePlaceOfAMaximizedWindowToo) {
    Desk desk;
    desk.Start();
    desk.window.state = WindowState::Maximized;
    desk.window.place = {{150}, {300}, {9000}, {8000}};
    desk.main.Form_Unload();
    EXPECT_EQ(desk.settings.Stored(u"WindowLeft"), u"150");
    EXPECT_EQ(desk.settings.Stored(u"WindowHeight"), u"8000");
}

TEST(MainUnload, TheSitesAreSavedWhetherOrNotTheyWillBeReopened) {
    Desk desk;
    desk.settings.Put(u"RememberLastSites", u"false");
    desk.StartWithTabs(2);
    desk.PageLoads(1, u"http://one/", u"One");
    desk.PageLoads(2, u"http://two/", u"Two");
    desk.main.Form_Unload();
    EXPECT_EQ(desk.settings.StoredList(u"LastSites"), u"[http://one/][http://two/]");
}

TEST(MainUnload, AMinimizedWindowKeepsThePlacementOfTheSessionBefore) {
    Desk desk;
    desk.settings.Put(u"WindowLeft", u"450");
    desk.Start();
    desk.window.state = WindowState::Minimized;
    desk.window.place = {{1}, {2}, {3}, {4}};
    desk.main.Form_Unload();
    EXPECT_EQ(desk.settings.Stored(u"WindowLeft"), u"450");
    EXPECT_EQ(desk.settings.Stored(u"WindowWidth"), u"(none)");
    EXPECT_EQ(desk.settings.Stored(u"WindowMaximized"), u"false");
}

TEST(MainUnload, AValueThatCannotBeWrittenIsSkipped) {
    Desk desk;
    desk.Start();
    desk.settings.refuse.insert(u"LastSites");
    desk.ExpectSkipped(1);
    desk.main.Form_Unload();
    EXPECT_EQ(desk.settings.Stored(u"ShowStatusBar"), u"true");
}

TEST(MainUnload, SavesTheHistoriesForTheNextRun) {
    FakeSettings settings;
    {
        Desk desk(&settings);
        desk.Start();
        for (const TextView each : {u"one", u"two"}) desk.TypeAddress(each);
        desk.main.SearchCombo()->List = {u"cats & dogs"};
        desk.main.Form_Unload();
    }
    EXPECT_EQ(settings.StoredList(u"AddressHistory"), u"[two][one]");
    EXPECT_EQ(settings.StoredList(u"SearchHistory"), u"[cats & dogs]");
    Desk next(&settings);
    next.Start();
    EXPECT_EQ(next.List(u"cboAddress"), "[two][one]");
    EXPECT_EQ(next.List(u"cboSearch"), "") << "a single entry is not restored";
}

TEST(MainUnload, AClearedHistoryStaysCleared) {
    Desk desk;
    desk.settings.PutList(u"AddressHistory", {u"one", u"two"});
    desk.Start();
    desk.Click(u"mnuClearAddresses");
    desk.main.Form_Unload();
    EXPECT_EQ(desk.settings.StoredList(u"AddressHistory"), u"");
}

TEST(MainUnload, SavesEverythingInItsOrder) {
    Desk desk;
    desk.Start();
    desk.settings.written.clear();
    desk.main.Form_Unload();
    const std::vector<Text> order{u"WindowMaximized", u"WindowTop",      u"WindowLeft",       u"WindowWidth",
                                  u"WindowHeight",    u"OpenNewInFront", u"TitleLengthLimit", u"RememberLastSites",
                                  u"TabsUp",          u"LastSites",      u"SearchHistory",    u"AddressHistory",
                                  u"ShowStatusBar"};
    EXPECT_EQ(desk.settings.written, order);
}

TEST(MainUnload, NothingThatComesLateOpensAPageInAWindowThatHasEnded) {
    Desk desk;
    desk.StartWithTabs(2);
    desk.main.Form_Unload();
    EXPECT_EQ(desk.main.GetNewBrowser(InFront::Yes), nullptr);
    desk.main.OpenStartLink("http://a/");
    EXPECT_TRUE(desk.views.living.empty());
}

TEST(MainUnload, RunsOnceAndEndsTheViews) {
    Desk desk;
    desk.StartWithTabs(3);
    desk.main.Form_Unload();
    EXPECT_TRUE(desk.views.living.empty());
    const auto written = desk.settings.written.size();
    desk.main.Form_Unload();
    EXPECT_EQ(desk.settings.written.size(), written);
}

} // namespace
