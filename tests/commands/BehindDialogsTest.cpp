// What a command is about is fixed when it begins, whatever happens behind its dialog: a later start of the program
// brings its own tab to the front, or a page closes its tab.
#include "favorites/Favorites.h"
#include "groups/TessaGroups.h"
#include "settings/frmInternetOptions.h"
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

class BehindDialogsTest : public testing::Test {
protected:
    /// Tabs that show "http://1/", "http://2/" and so on; the given one is selected.
    void Start(int tabs, std::size_t selected = 1) {
        desk.StartWithTabs(tabs);
        for (int i = 1; i <= tabs; ++i) {
            desk.views.At(i).location = u"http://" + Decimal(i) + u"/";
            desk.views.At(i).name = u"Page " + Decimal(i);
        }
        desk.ClickTab(selected);
        for (int i = 1; i <= tabs; ++i) desk.views.Calls(i);
    }
    /// A later start of the program, with an address of its own.
    void LaterStart() {
        auto* view = desk.NewTab(InFront::Yes);
        ASSERT_NE(view, nullptr);
        ResumeNext(view->Navigate(u"http://later/"));
    }
    /// The same, and the file is the group of `Added()`.
    void BehindGroups(const std::function<void()>& happens) {
        BehindFiles(happens);
        desk.files.chosen = folder.PathText("a.tvg");
    }
    /// What was added to the group: "http://1/;".
    [[nodiscard]] std::string Added() const {
        std::string all;
        for (const auto& each : TessaGroups::Load(folder.PathText("a.tvg"))) all += ToUtf8(each.Key) + ";";
        return all;
    }
    /// Behind the next file dialog; a file is chosen there.
    void BehindFiles(const std::function<void()>& happens) {
        desk.files.chosen = u"/files/a";
        desk.files.whileOpen = happens;
    }
    void Run(TextView tool) { desk.ClickMade(Tool(1, Text(tool))); }
    void AskForPageMenu(const PageContext& page) { desk.views.At(1).events.ContextMenu(1, page); }

    const std::function<void()> laterStart = [this] { LaterStart(); };
    const std::function<void()> closesTab1 = [this] { desk.Close(1); };
    const std::function<void()> closesTab2 = [this] { desk.Close(2); };
    TemporaryFolder folder, favorites;
    Desk desk{{.favoritesFolder = Favorites::FolderOf(favorites.PathText("x"))}};
};

TEST_F(BehindDialogsTest, AFileIsOpenedWhereItWasAskedFor) {
    Start(1);
    BehindFiles(laterStart);
    Run(u"mnuOpen");
    EXPECT_EQ(desk.Strip(), "1 [2*]");
    EXPECT_EQ(desk.views.Calls(1), "go /files/a");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go http://later/");
}

TEST_F(BehindDialogsTest, AFileIsOpenedNowhereWhenTheTabHasGone) {
    Start(3, 2);
    BehindFiles(closesTab2);
    Run(u"mnuOpen");
    EXPECT_EQ(desk.views.Calls(1) + desk.views.Calls(3), "");
}

TEST_F(BehindDialogsTest, TheFirstViewOutlivesItsTabAndOpensNoFileThen) {
    Start(2);
    BehindFiles(closesTab1);
    Run(u"mnuOpen");
    EXPECT_EQ(desk.Strip(), "[2*]");
    EXPECT_EQ(desk.views.Calls(1), "stop");
    EXPECT_EQ(desk.views.Calls(2), "");
}

TEST_F(BehindDialogsTest, ThePageThatWasAskedForIsAddedToAGroupAsItIsByThen) {
    Start(1);
    BehindGroups([this] {
        desk.views.At(1).location = u"http://1/next";
        LaterStart();
    });
    Run(u"mnuAddToTessaGroup");
    EXPECT_EQ(Added(), "http://1/next;");
}

TEST_F(BehindDialogsTest, APageThatHasGoneIsAddedToNoGroupAndThatIsSaid) {
    for (const int tab : {1, 2}) {
        Desk other;
        other.StartWithTabs(2);
        other.ClickTab(static_cast<std::size_t>(tab));
        other.files.chosen = folder.PathText("a.tvg");
        other.files.whileOpen = [&] { other.Close(tab); };
        other.OpenMenu(u"bndTessaGroupsMenu");
        other.ClickMade(Tool(1, u"mnuAddToTessaGroup"));
        EXPECT_EQ(Added(), "") << tab;
        EXPECT_EQ(other.Said(), "The page is no longer open. Nothing was added.");
        EXPECT_TRUE(other.Renews(u"bndTessaGroupsMenu"));
    }
}

TEST_F(BehindDialogsTest, AQuestionAboutAPrivatePageIsAboutThatPage) {
    Start(1);
    Run(u"xtrPrivateTab");
    desk.views.At(2).location = u"http://secret/";
    desk.messages.answer = Answer::Yes;
    desk.messages.whileOpen = laterStart;
    desk.files.chosen = folder.PathText("a.tvg");
    Run(u"mnuAddToTessaGroup");
    EXPECT_EQ(desk.messages.asked.size(), 1U);
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
    EXPECT_EQ(Added(), "http://secret/;");
}

TEST_F(BehindDialogsTest, ThePopupsTabIsAddedAlthoughAnotherStandsInItsPlaceByThen) {
    Start(3);
    desk.OpenTabMenu(2);
    BehindGroups(laterStart);
    Run(u"xtrTabAddToTessaGroup");
    EXPECT_EQ(desk.Strip(), "1 [4*] 2 3");
    EXPECT_EQ(Added(), "http://2/;");
}

TEST_F(BehindDialogsTest, TheFavoriteIsThePageThatWasAskedFor) {
    Start(1);
    desk.inAddFavorite = [this](frmAddFavorite& form) {
        LaterStart();
        form.cmdOK.Click();
    };
    Run(u"mnuAddToFavorites");
    const auto items = Favorites::Items(desk.favoritesFolder);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].Title, u"Page 1");
    EXPECT_EQ(items[0].Address, u"http://1/");
}

TEST_F(BehindDialogsTest, AFavoriteThatIsAskedAboutOpensWhereItWasClicked) {
    Start(1);
    desk.messages.answer = Answer::Yes;
    desk.messages.whileOpen = laterStart;
    desk.ClickMade(Tool(MadeFrom::FavoriteLink{u"file:///a"}, 50000, u"file:///a"));
    EXPECT_EQ(desk.messages.asked.size(), 1U);
    EXPECT_EQ(desk.views.Calls(1), "go file:///a");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go http://later/");
}

TEST_F(BehindDialogsTest, AFavoriteThatIsAskedAboutOpensNowhereWhenTheTabHasGone) {
    Start(2);
    desk.messages.answer = Answer::Yes;
    desk.messages.whileOpen = closesTab1;
    desk.ClickMade(Tool(MadeFrom::FavoriteLink{u"file:///a"}, 50000, u"file:///a"));
    EXPECT_EQ(desk.views.Calls(1), "stop");
    EXPECT_EQ(desk.views.Calls(2), "");
}

TEST_F(BehindDialogsTest, AFavoriteCalledLikeACommandThatOpensATabOpensWhereItWasClicked) {
    Start(1);
    desk.ClickMade(Tool(MadeFrom::FavoriteLink{u"mnuNewBlank"}, 50000, u"mnuNewBlank"));
    EXPECT_EQ(desk.Strip(), "1 [2*]");
    EXPECT_EQ(desk.views.Calls(1), "go mnuNewBlank");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go about:blank");
}

TEST_F(BehindDialogsTest, InternetOptionsOfferThePageThatWasInFrontWhenTheyOpened) {
    Start(1);
    desk.inInternetOptions = [this](frmInternetOptions& form) {
        LaterStart();
        form.cmdUseCurrent.Click();
        form.cmdOK.Click();
    };
    Run(u"mnuViewInternetOptions");
    EXPECT_EQ(desk.settings.Stored(u"InternetHomePage"), u"http://1/");
}

TEST_F(BehindDialogsTest, ALinkOfAPageIsSavedByThatPage) {
    Start(1);
    PageContext page;
    page.LinkURL = u"http://1/a.zip";
    AskForPageMenu(page);
    BehindFiles(laterStart);
    Run(u"xtrLinkSave");
    EXPECT_EQ(desk.views.Calls(1), "save http://1/a.zip in /files/a");
}

TEST_F(BehindDialogsTest, LinksOfAPageAreOpenedForThatPage) {
    Start(1);
    Run(u"xtrPrivateTab");
    desk.views.At(2).location = u"http://2/";
    desk.views.At(2).selectedLinks.assign(16, u"http://2/next");
    PageContext page;
    page.SelectedText = u"x";
    desk.views.At(2).events.ContextMenu(2, page);
    desk.messages.answer = Answer::Yes;
    desk.messages.whileOpen = laterStart;
    Run(u"xtrOpenSelectedLinks");
    ASSERT_EQ(desk.CountTabs(), 19U);
    EXPECT_EQ(desk.views.At(19).location, u"http://2/next");
    EXPECT_EQ(desk.views.At(19).privacy, Privacy::Private) << "a private page's links stay private";
}

} // namespace

} // namespace tessa
