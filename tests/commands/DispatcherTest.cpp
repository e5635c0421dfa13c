// Tests: CollectionCommands, PageCommands, TabCommands
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

#include "address/Endpoints.h"
#include "commands/CommandTable.h"
#include "favorites/Favorites.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

/// Clicks a tool that was made for the occasion. It has the number of a Favorite, whatever it is made from.
void ClickMade(Desk& desk, ToolSource source, TextView name, TextView description = u"") {
    Tool tool(std::move(source), 50000, Text(name));
    tool.Description = description;
    desk.ClickMade(tool);
}

/// Clicks the link of a Favorite.
void ClickLink(Desk& desk, TextView address) { ClickMade(desk, MadeFrom::FavoriteLink{Text(address)}, address); }

class DispatcherTest : public testing::Test {
protected:
    void Start(int tabs) {
        desk.StartWithTabs(tabs);
        for (int i = 1; i <= tabs; ++i) desk.views.Calls(i);
    }
    Desk desk;
};

TEST_F(DispatcherTest, AShopLinkGoesToTheAdServerWithItsKeyword) {
    Start(1);
    desk.Click(u"shpHomesLoans");
    EXPECT_EQ(desk.views.Calls(1), "go https://ads.tessaview.example/ad.asp?id=homesloans");
}

TEST_F(DispatcherTest, AFindLinkGoesToTheFindServerWithItsKeyword) {
    Start(1);
    desk.Click(u"fndStockQuotes");
    EXPECT_EQ(desk.views.Calls(1), "go https://find.tessaview.example/find.asp?id=stockquotes");
}

TEST_F(DispatcherTest, ThePrefixDecidesWhateverTheToolIsMadeFrom) {
    Start(1);
    ClickMade(desk, MadeFrom::FavoriteLink{u"http://a/"}, u"shpMine", u"a b&c");
    ClickMade(desk, MadeFrom::Group{u"/x.tvg"}, u"fndMine", u"x#y");
    EXPECT_EQ(desk.views.Calls(1),
              "go https://ads.tessaview.example/ad.asp?id=a b&c, go https://find.tessaview.example/find.asp?id=x#y");
}

TEST_F(DispatcherTest, NamesAreToldApartByCase) {
    Start(2);
    ClickMade(desk, {}, u"MNUCLOSE");
    ClickMade(desk, {}, u"SHPBooks");
    EXPECT_EQ(desk.Strip(), "[1*] 2");
    EXPECT_EQ(desk.views.Calls(1), "");
}

TEST_F(DispatcherTest, NewTabsComeToTheFront) {
    Start(1);
    desk.views.At(1).location = u"http://a/?x=1 2#%";
    desk.Click(u"mnuNewBlank");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go about:blank");
    desk.Click(u"tbNew");
    EXPECT_EQ(desk.views.Calls(3), "go about:blank, go about:blank") << "deliberately not the home page";
    desk.Click(u"mnuNewHome");
    EXPECT_EQ(desk.views.Calls(4), "go about:blank, home");
    desk.Click(u"mnuNewSearch");
    EXPECT_EQ(desk.views.Calls(5),
              "go about:blank, go https://search.tessaview.example/d/redirect?Partner=tessaview&url="
              "http%3a%2f%2fsearch.tessaview.example%2fd%2fhome%2fp%2ftessaview%2f");
    desk.ClickTab(1);
    desk.Click(u"mnuNewCurrent");
    EXPECT_EQ(desk.views.Calls(6), "go about:blank, go http://a/?x=1 2#%") << "without any encoding";
    EXPECT_EQ(desk.Strip(), "1 [6*] 2 3 4 5");
}

TEST_F(DispatcherTest, TheNextTabOfTheLastIsTheFirst) {
    Start(3);
    desk.Click(u"mnuNextBrowserTab");
    EXPECT_EQ(desk.Strip(), "1 [2*] 3");
    desk.Click(u"mnuNextBrowserTab");
    desk.Click(u"mnuNextBrowserTab");
    EXPECT_EQ(desk.Strip(), "[1*] 2 3");
    desk.Click(u"mnuPreviousBrowserTab");
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
    desk.Click(u"mnuPreviousBrowserTab");
    EXPECT_EQ(desk.Strip(), "1 [2*] 3");
    EXPECT_EQ(desk.views.front, 2) << "the selected tab's page is shown";
}

TEST_F(DispatcherTest, TheOnlyTabHasNoNext) {
    Start(1);
    desk.Click(u"mnuNextBrowserTab");
    desk.Click(u"mnuPreviousBrowserTab");
    EXPECT_EQ(desk.Strip(), "[1*]");
}

TEST_F(DispatcherTest, PageCommandsReachTheCurrentView) {
    Start(2);
    desk.PageSaysWhetherItLoads();
    desk.ClickTab(2);
    for (const TextView tool : {u"mnuHome", u"mnuSearch", u"mnuSaveAs", u"mnuPageSetup", u"mnuPrint", u"mnuCut",
                                u"mnuCopy", u"mnuPaste", u"mnuSelectAll", u"xtrPrintPreview"})
        desk.Click(tool);
    EXPECT_EQ(desk.views.Calls(2),
              "home, go " + ToUtf8(Endpoints::kSearchStart) +
                  ", command 4, command 8, command 6, command 11, command 12, command 13, command 17, command 7");
    EXPECT_EQ(desk.views.Calls(1), "");
    EXPECT_EQ(desk.views.focused, 2) << "selecting all needs the keyboard";
}

TEST_F(DispatcherTest, StopAndRefreshFollowTheViewsBusyState) {
    Start(1);
    desk.Click(u"mnuRefresh");
    EXPECT_EQ(desk.Enabled(), "Stop");
    desk.Click(u"mnuStop");
    EXPECT_EQ(desk.Enabled(), "Refresh");
    EXPECT_EQ(desk.views.Calls(1), "refresh, stop");
}

TEST_F(DispatcherTest, OpenAsksForAFileAndCancelDoesNothing) {
    Start(1);
    desk.Click(u"mnuOpen");
    EXPECT_EQ(desk.files.last.DialogTitle, u"Open");
    EXPECT_EQ(desk.files.last.Filter, u"HTML Files (*.htm, *.html)|*.htm; *.html|All Files (*.*)|*.*");
    EXPECT_EQ(desk.views.Calls(1), "");
    desk.files.chosen = u"/pages/a b.html";
    desk.Click(u"mnuOpen");
    EXPECT_EQ(desk.views.Calls(1), "go /pages/a b.html");
}

TEST_F(DispatcherTest, TheSourceComesInANewTabInFront) {
    Start(1);
    desk.views.At(1).location = u"http://a/b";
    desk.Click(u"mnuViewSource");
    EXPECT_EQ(desk.Strip(), "1 [2*]");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go view-source:http://a/b");
}

TEST_F(DispatcherTest, ClearingEmptiesTheListOfOneBox) {
    Start(1);
    auto* address = desk.Bar().FindCombo(u"cboAddress");
    auto* search = desk.Bar().FindCombo(u"cboSearch");
    address->InsertFirst(u"http://a/");
    search->InsertFirst(u"words");
    desk.Click(u"mnuClearAddresses");
    EXPECT_EQ(address->ListCount(), 0u);
    EXPECT_EQ(search->ListCount(), 1u);
    desk.Click(u"mnuClearSearches");
    EXPECT_EQ(search->ListCount(), 0u);
}

TEST_F(DispatcherTest, ALoadSwitchIsTurnedAndKept) {
    Start(1);
    const std::vector<TextView> tools{u"mnuLoadImages", u"mnuLoadVideos", u"mnuLoadSounds", u"mnuLoadAnimations"};
    const auto shown = [&] {
        std::string all;
        for (const TextView tool : tools) all += desk.Tool(tool).Checked() ? '1' : '0';
        return all;
    };
    const auto kept = [&] {
        const SettingsStore store(desk.settings);
        std::string all;
        for (const auto* each : {&store.LoadImages, &store.LoadVideos, &store.LoadSounds, &store.LoadAnimations})
            all += each->Get() ? '1' : '0';
        return all;
    };
    EXPECT_EQ(shown() + kept(), "11111111");
    for (std::size_t i = 0; i < tools.size(); ++i) {
        std::string turned = "1111";
        turned[i] = '0';
        desk.Click(tools[i]);
        EXPECT_EQ(shown() + kept(), turned + turned) << ToUtf8(tools[i]);
        desk.Click(tools[i]);
        EXPECT_EQ(shown() + kept(), "11111111") << ToUtf8(tools[i]);
    }
}

TEST_F(DispatcherTest, TheStatusBarIsToggled) {
    Start(1);
    EXPECT_TRUE(desk.Tool(u"mnuViewStatusbar").Checked());
    desk.Click(u"mnuViewStatusbar");
    EXPECT_FALSE(desk.ShowsStatusBar());
    EXPECT_FALSE(desk.Tool(u"mnuViewStatusbar").Checked());
}

TEST_F(DispatcherTest, AFavoriteReplacesThePageOrOpensATabWithShift) {
    Start(1);
    ClickLink(desk, u"http://fav/a b");
    EXPECT_EQ(desk.views.Calls(1), "go http://fav/a b");
    desk.input.shift = true;
    ClickLink(desk, u"http://fav/2");
    EXPECT_EQ(desk.Strip(), "1 [2*]");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go http://fav/2");
}

TEST_F(DispatcherTest, WhatIsMadeFromNoFileOpensNone) {
    Start(1);
    for (const ToolSource& source :
         {ToolSource(MadeFrom::Design{}), ToolSource(MadeFrom::FavoriteFolder{u"/x"}), ToolSource(MadeFrom::Page{})})
        ClickMade(desk, source, u"http://x/", u"/x.tvg");
    EXPECT_EQ(desk.views.Calls(1), "");
    EXPECT_EQ(desk.Strip(), "[1*]");
}

TEST_F(DispatcherTest, WhatAToolIsMadeFromCountsBehindANamedCommandToo) {
    Start(1);
    desk.Click(u"mnuRefresh");
    EXPECT_EQ(desk.views.Calls(1), "refresh") << "a designed tool is made from no address";
    desk.Combo(u"cboAddress").InsertFirst(u"http://a/");
    ClickLink(desk, u"mnuClearAddresses");
    EXPECT_EQ(desk.Combo(u"cboAddress").ListCount(), 0U);
    EXPECT_EQ(desk.views.Calls(1), "go mnuClearAddresses");
}

TEST_F(DispatcherTest, AFavoriteThatIsCalledLikeACommandOfOursIsOnlyALink) {
    Start(3);
    desk.OpenTabMenu(1);
    ClickLink(desk, u"xtrTabCloseOthers");
    EXPECT_EQ(desk.Strip(), "[1*] 2 3");
    EXPECT_EQ(desk.views.Calls(1), "go xtrTabCloseOthers");
    ClickMade(desk, {}, u"xtrTabCloseOthers");
    EXPECT_EQ(desk.Strip(), "[1*]") << "the command itself";
}

TEST_F(DispatcherTest, NoFavoriteOfTheMenuRunsACommandWhateverItsAddressIs) {
    const TemporaryFolder folder;
    std::vector<std::string> names{"mnuResizeAddress", "mnuResAnything"};
    for (const Command& command : CommandTable()) {
        if (command.Runs()) names.push_back(ToUtf8(command.tool));
    }
    for (std::size_t i = 0; i < names.size(); ++i)
        folder.Write(std::to_string(i) + ".url", "[InternetShortcut]\r\nURL=" + names[i] + "\r\n");
    Start(3);
    Band& band = *desk.Bar().AddBand(u"bndMade", u"Made", BandKind::Popup);
    Favorites::Menu menu(desk.Bar());
    auto first = BeginGroup::Yes;
    menu.ScanFolder(folder.PathText(""), band, first);
    ASSERT_EQ(band.Entries().size(), names.size());
    desk.log.Take();
    for (const BandEntry& entry : band.Entries()) {
        desk.views.Calls(1);
        desk.ClickMade(*entry.Item);
        const std::string name = ToUtf8(entry.Item->Description);
        EXPECT_EQ(desk.views.Calls(1), "go  " + name);
        EXPECT_EQ(desk.Strip(), "[1*] 2 3") << name;
        EXPECT_EQ(desk.log.Take(), "") << name;
        EXPECT_EQ(desk.messages.asked.size(), 0U) << name;
    }
}

TEST_F(DispatcherTest, AFavoriteThatIsCalledLikeACommandOfTheProductRunsIt_Deliberate) {
    Start(1);
    desk.log.Take();
    ClickLink(desk, u"mnuExit");
    EXPECT_EQ(desk.log.Take(), "close");
}

TEST_F(DispatcherTest, ALinkMayBeRefused) {
    Start(1);
    desk.messages.answer = Answer::No;
    ClickLink(desk, u"file:///secret");
    EXPECT_EQ(desk.views.Calls(1), "");
    ClickLink(desk, u"http://a/");
    EXPECT_EQ(desk.views.Calls(1), "go http://a/");
}

TEST_F(DispatcherTest, ThePopupsCommandsActOnItsTabOnly) {
    Start(3);
    desk.OpenTabMenu(2);
    desk.Click(u"mnuTabRefresh");
    desk.OpenTabMenu(2);
    desk.Click(u"mnuTabStop");
    EXPECT_EQ(desk.views.Calls(2), "refresh, stop");
    EXPECT_EQ(desk.views.Calls(1), "");
    desk.Click(u"mnuTabClose");
    EXPECT_EQ(desk.Strip(), "[1*] 3");
    desk.OpenTabMenu(7);
    desk.Click(u"mnuTabStop");
    desk.Click(u"mnuTabClose");
    EXPECT_EQ(desk.Strip(), "[1*] 3");
}

TEST_F(DispatcherTest, FavoritesThatCannotBeAddedAskTheRepairQuestion) {
    const TemporaryFolder folder;
    folder.Write("file", "in their place");
    Desk desk({.favoritesFolder = folder.PathText("file")});
    desk.StartWithTabs(1);
    int asked = 0;
    desk.inAddFavorite = [&](frmAddFavorite&) { ++asked; };
    desk.messages.answer = Answer::No;
    ClickMade(desk, {}, u"mnuAddToFavorites");
    EXPECT_EQ(desk.Said(), "");
    EXPECT_EQ(desk.messages.asked.back(),
              u"You cannot add new Favorites because of a bug in the way Microsoft installs Internet Explorer 4.0.\n\n"
              u"TessaView can make some changes to the system registry to allow you to add Favorites.\n\n"
              u"Would you like TessaView to make these changes?");
    desk.messages.answer = Answer::Cancel;
    ClickMade(desk, {}, u"mnuAddToFavorites");
    EXPECT_EQ(desk.Said(), "");
    EXPECT_EQ(desk.messages.asked.size(), 2U);
    EXPECT_EQ(asked, 0);
    desk.messages.answer = Answer::Yes;
    ClickMade(desk, {}, u"mnuAddToFavorites");
    EXPECT_TRUE(desk.Said().starts_with("The Favorites folder was made.")) << desk.Said();
    ClickMade(desk, {}, u"mnuAddToFavorites");
    EXPECT_EQ(asked, 1) << "now it works";
}

TEST_F(DispatcherTest, AddingAFavoriteMakesTheMenuStale) {
    const TemporaryFolder folder;
    Desk desk({.favoritesFolder = Favorites::FolderOf(folder.PathText("x"))});
    desk.StartWithTabs(1);
    desk.views.At(1).location = u"http://a/";
    desk.views.At(1).name = u"A";
    std::string added;
    desk.inAddFavorite = [&](frmAddFavorite& form) { added = ToUtf8(form.txtName.Value()); };
    desk.OpenMenu(u"bndFavorites");
    ClickMade(desk, {}, u"mnuAddToFavorites");
    EXPECT_EQ(added, "A");
    EXPECT_TRUE(desk.Renews(u"bndFavorites"));
}

TEST_F(DispatcherTest, GroupCommandsAskForTheFileAndMakeTheMenuStale) {
    Start(1);
    const TemporaryFolder folder;
    desk.views.At(1).location = u"http://a/";
    desk.OpenMenu(u"bndTessaGroupsMenu");
    ClickMade(desk, {}, u"mnuAddToTessaGroup");
    EXPECT_EQ(desk.files.last.DialogTitle, u"Add to TessaGroup");
    EXPECT_EQ(desk.files.last.InitDir, u"/groups/");
    EXPECT_EQ(desk.files.last.Filter, u"TessaGroup File (*.tvg)|*.tvg");
    EXPECT_FALSE(desk.Renews(u"bndTessaGroupsMenu")) << "cancelled";
    desk.files.chosen = folder.PathText("a.tvg");
    ClickMade(desk, {}, u"mnuAddToTessaGroup");
    EXPECT_EQ(folder.Read("a.tvg"), "[TessaGroup]\r\nurl1=http://a/\r\n");
    desk.files.chosen = folder.PathText("b.tvg");
    ClickMade(desk, {}, u"mnuSaveAsTessaGroup");
    EXPECT_EQ(desk.files.last.DialogTitle, u"Save as TessaGroup");
    EXPECT_EQ(folder.Read("b.tvg"), folder.Read("a.tvg"));
    EXPECT_TRUE(desk.Renews(u"bndTessaGroupsMenu"));
}

} // namespace

} // namespace tessa
