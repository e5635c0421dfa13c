#include "sessions/LastSites.h"

#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

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

TEST(LastSites, NamesComeBackWithTheirTabs) {
    FakeSettings kept;
    {
        Desk desk(&kept);
        desk.StartWithTabs(3);
        for (int i = 1; i <= 3; ++i) desk.views.At(i).location = u"http://" + Decimal(i) + u"/";
        desk.NameTab(2, u"Mail");
        desk.Unload();
    }
    Desk desk(&kept);
    desk.Start();
    ASSERT_EQ(desk.CountTabs(), 3u);
    EXPECT_EQ(desk.TabAt(2).Name(), u"Mail");
    EXPECT_EQ(desk.TabAt(3).Name(), u"");
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

TEST(LastSites, PagesThatLieSideBySideDoSoAtTheNextStart) {
    Desk desk;
    desk.StartWithTabs(4);
    desk.PageLoads(1, u"tessaview:preview/1", u"");
    for (const int index : {2, 3, 4}) desk.PageLoads(index, u"http://" + Decimal(index) + u"/", u"t");
    desk.LaySideBySide(u"h(4:300 v(1 2))");
    desk.Unload();
    EXPECT_EQ(ToUtf8(desk.settings.StoredList(u"LastTiles")), "[h(3:300 1)]");

    Desk later(&desk.settings);
    later.Start();
    EXPECT_EQ(later.Strip(), "1 2 [3*]");
    ASSERT_TRUE(later.main.Tiles().Shown());
    EXPECT_EQ(later.SideBySide(), "h(3:300 1)");
    EXPECT_EQ(later.views.Shown(), "1 3*");
}

TEST(LastSites, GroupsAndPinnedTabsAreThereAtTheNextStart) {
    TemporaryFolder folder;
    folder.Write("News.tvg", "[TessaGroup]\r\nurl1=http://a/\r\nurl2=http://b/\r\n[TessaView]\r\ncolour=red\r\n");
    Desk desk;
    desk.StartWithTabs(2);
    desk.PageLoads(1, u"http://1/", u"1");
    desk.PageLoads(2, u"http://2/", u"2");
    desk.OpenGroup(folder.PathText("News.tvg"));
    desk.FoldGroup(2);
    desk.Pin(1);
    EXPECT_EQ(desk.Units(), "^1 News-2(3 [4*]) 2");
    desk.Unload();

    Desk later(&desk.settings);
    later.Start();
    EXPECT_EQ(later.Units(), "^1 News-(2 3) [4*]");
    EXPECT_EQ(later.TabAt(2).Colour(), TabColour::Red);
    later.Pin(1, false);
    for (const int index : {2, 3}) later.main.TabGroups().TakeOut(index);
    later.Unload();
    EXPECT_EQ(later.settings.Stored(u"LastGroups"), u"");
}

TEST(LastSites, LayoutsOfWhatDoesNotComeBackAreForgotten) {
    Desk desk;
    desk.settings.PutList(u"LastSites", {u"http://1/", u"chrome://kill"});
    desk.settings.PutList(u"LastTiles", {u"h(1 2)", u"x", u"h(1 99)"});
    desk.Start();
    EXPECT_EQ(desk.SideBySide(), "alone");
    EXPECT_EQ(desk.Strip(), "[1*]");
}

} // namespace

} // namespace tessa
