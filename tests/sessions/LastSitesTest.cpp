#include "sessions/LastSites.h"

#include "tests/Desk.h"

namespace tessa {

namespace {

TEST(LastSites, TheFirstActivationReopensTheLastSitesInOrder) {
    Desk desk;
    desk.settings.PutList(u"LastSites", {u"http://one/", u"", u"http://three/"});
    desk.Start();
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, home, stop, go http://one/");
    EXPECT_EQ(desk.Strip(), "1 [2*]");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go http://three/");
    desk.Activate();
    EXPECT_EQ(desk.Strip(), "1 [2*]") << "later activations open nothing";
}

TEST(LastSites, AnEmptyFirstSiteKeepsTheHomePage) {
    Desk desk;
    desk.settings.PutList(u"LastSites", {u"", u"http://two/"});
    desk.Start();
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, home");
    EXPECT_EQ(desk.Strip(), "1 [2*]");
}

TEST(LastSites, ASessionOfOneTabIsNotReopened_Deliberate) {
    Desk desk;
    desk.settings.PutList(u"LastSites", {u"http://one/"});
    desk.Start();
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, home");
}

TEST(LastSites, NothingIsReopenedWhenTheUserDoesNotWantItOrNamedAnAddress) {
    for (const bool wanted : {false, true}) {
        Desk desk;
        desk.settings.Put(u"RememberLastSites", wanted ? u"true" : u"false");
        desk.settings.PutList(u"LastSites", {u"http://one/", u"http://two/"});
        desk.Start(wanted ? u"http://named/" : u"");
        EXPECT_EQ(desk.Strip(), "[1*]");
    }
}

TEST(LastSites, SavesTheAddressesInTheOrderOfTheTabs) {
    Desk desk;
    desk.StartWithTabs(2);
    desk.PageLoads(2, u"http://two/", u"Two");
    desk.views.At(1).location = u"";
    desk.Unload();
    EXPECT_EQ(desk.settings.StoredList(u"LastSites"), u"[][http://two/]");
}

TEST(LastSites, APrintPreviewGoesWithTheWindow) {
    Desk desk;
    desk.StartWithTabs(3);
    desk.views.At(1).location = u"http://one/";
    desk.views.At(2).location = u"tessaview:preview/1/One";
    desk.views.At(3).location = u"tessaview:help";
    desk.Unload();
    EXPECT_EQ(desk.settings.StoredList(u"LastSites"), u"[http://one/][tessaview:help]");
}

TEST(LastSites, SavesTabsThatWereMovedInTheirNewOrder) {
    Desk desk;
    desk.StartWithTabs(3);
    desk.views.At(1).location = u"http://one/";
    desk.views.At(2).location = u"http://two/";
    desk.views.At(3).location = u"http://three/";
    desk.MoveTab(3, 1);
    EXPECT_EQ(desk.Strip(), "3 [1*] 2");
    desk.Unload();
    EXPECT_EQ(desk.settings.StoredList(u"LastSites"), u"[http://three/][http://one/][http://two/]");
}

TEST(LastSites, TheSitesAreSavedWhetherOrNotTheyWillBeReopened) {
    Desk desk;
    desk.settings.Put(u"RememberLastSites", u"false");
    desk.StartWithTabs(2);
    desk.PageLoads(1, u"http://one/", u"One");
    desk.PageLoads(2, u"http://two/", u"Two");
    desk.Unload();
    EXPECT_EQ(desk.settings.StoredList(u"LastSites"), u"[http://one/][http://two/]");
}

} // namespace

} // namespace tessa
