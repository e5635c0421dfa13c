#include "commands/effects/FavoriteCommands.h"

#include "groups/TessaGroups.h"
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tessa {

namespace {

class FavoriteCommandsTest : public testing::Test {
protected:
    TemporaryFolder m_folder;
    Text m_root = Favorites::FolderOf(m_folder.PathText("x"));
    Text m_news = m_folder.PathText("news"); ///< a folder in it
    Desk m_desk{{.favoritesFolder = m_root}};

    void SetUp() override {
        m_desk.StartWithTabs(1);
        m_desk.views.Calls(1);
    }
    void Add(const Text& title, const Text& address) const {
        ASSERT_TRUE(Favorites::AddShortcut(m_root, title, address));
    }
    void AddNews(const Text& title, const Text& address) const {
        std::filesystem::create_directories(m_folder.Path("news"));
        ASSERT_TRUE(Favorites::AddShortcut(m_news, title, address));
    }
    /// Chooses from the pop-up of that folder's entry; what the status bar says then.
    std::string ClickNews(TextView tool) {
        std::filesystem::create_directories(m_folder.Path("news"));
        m_desk.ReadNotice();
        m_desk.OpenMenu(u"bndFavorites");
        EXPECT_TRUE(m_desk.PopUp(*m_desk.Band(u"bndFavorites").Entries().at(2).Item));
        m_desk.Click(tool);
        return m_desk.Said();
    }
    /// Opens the Favorites menu and clicks its shortcut at a position from 1.
    void ClickFavorite(std::size_t position) {
        Band& band = m_desk.Band(u"bndFavorites");
        m_desk.Bar().OpenBand(band);
        m_desk.Bar().UserClick(*band.Entries().at(position + 1).Item);
    }
};

TEST_F(FavoriteCommandsTest, ThePageIsAddedAndShowsInTheMenu) {
    m_desk.PageLoads(1, u"http://a/", u"A & B");
    m_desk.inAddFavorite = [](frmAddFavorite& form) { form.cmdOK.Click(); };
    m_desk.Click(u"mnuAddToFavorites");
    ClickFavorite(1);
    EXPECT_EQ(m_desk.views.Calls(1), "go http://a/");
    EXPECT_EQ(Favorites::Items(m_root).at(0).Title, u"A & B");
}

TEST_F(FavoriteCommandsTest, ThePageThatIsAddedAgainIsNotAddedAndTheStatusBarSaysSo) {
    m_desk.PageLoads(1, u"http://a/", u"A");
    m_desk.inAddFavorite = [](frmAddFavorite& form) { form.cmdOK.Click(); };
    m_desk.Click(u"mnuAddToFavorites");
    EXPECT_EQ(m_desk.Said(), "Added to Favorites: \"A\".");
    m_desk.Click(u"mnuAddToFavorites");
    EXPECT_EQ(m_desk.Said(), "This page is a Favorite already. Nothing was added.");
    EXPECT_EQ(Favorites::Items(m_root).size(), 1U);
    EXPECT_TRUE(m_desk.messages.asked.empty());
}

TEST_F(FavoriteCommandsTest, WithoutAFolderTheRepairQuestionIsAskedAndNothingIsAdded) {
    bool shown = false;
    Desk desk({.favoritesFolder = {}});
    desk.StartWithTabs(1);
    desk.inAddFavorite = [&](frmAddFavorite&) { shown = true; };
    desk.messages.answer = Answer::Yes;
    desk.Click(u"mnuAddToFavorites");
    EXPECT_EQ(desk.messages.asked.size(), 1U);
    EXPECT_EQ(desk.Said(), "The Favorites folder can still not be written to.");
    EXPECT_FALSE(shown);
}

TEST_F(FavoriteCommandsTest, WhereAFileLiesInTheirPlaceFavoritesAreRepairedOnlyAfterYes) {
    m_folder.Write("Favorites", "mine");
    Desk desk({.favoritesFolder = m_folder.PathText("Favorites")});
    desk.StartWithTabs(1);
    for (const Answer refusal : {Answer::No, Answer::Cancel}) {
        desk.messages.answer = refusal;
        desk.Click(u"mnuAddToFavorites");
        EXPECT_EQ(m_folder.Read("Favorites"), "mine");
        EXPECT_EQ(desk.Status(), "");
    }
    desk.OpenMenu(u"bndFavorites");
    desk.messages.answer = Answer::Yes;
    desk.Click(u"mnuAddToFavorites");
    EXPECT_EQ(desk.Said(),
              "The Favorites folder was made. What lay in its place is now called \"Favorites set aside\".");
    EXPECT_TRUE(desk.Renews(u"bndFavorites"));
    EXPECT_EQ(m_folder.Read("Favorites set aside"), "mine");

    desk.inAddFavorite = [](frmAddFavorite& form) { form.cmdOK.Click(); };
    desk.Click(u"mnuAddToFavorites");
    EXPECT_EQ(desk.messages.asked.size(), 3U) << "now it works without a question";
    EXPECT_EQ(Favorites::Items(m_folder.PathText("Favorites")).size(), 1U);
}

TEST_F(FavoriteCommandsTest, OrganizingShowsTheFolder) {
    Text shown;
    m_desk.inOrganizeFavorites = [&](frmOrganizeFavorites& form) { shown = form.Root(); };
    m_desk.Click(u"mnuOrganizeFavorites");
    EXPECT_EQ(shown, m_root);
}

TEST_F(FavoriteCommandsTest, AScriptIsNotOpenedAndTheStatusBarSaysSo) {
    Add(u"a", u"javascript:alert(1)");
    ClickFavorite(1);
    EXPECT_EQ(m_desk.views.Calls(1), "");
    EXPECT_EQ(m_desk.Said(), "This Favorite is a script, or leads into the program. It was not opened.");
    EXPECT_TRUE(m_desk.messages.asked.empty());
}

TEST_F(FavoriteCommandsTest, AFileIsOpenedOnlyAfterAQuestion) {
    Add(u"a", u"file:///etc/passwd");
    m_desk.messages.answer = Answer::No;
    ClickFavorite(1);
    EXPECT_EQ(m_desk.views.Calls(1), "");
    EXPECT_EQ(m_desk.messages.asked.back(), u"This Favorite does not lead to the web but to\nfile:///etc/passwd");
    m_desk.messages.answer = Answer::Yes;
    ClickFavorite(1);
    EXPECT_EQ(m_desk.views.Calls(1), "go file:///etc/passwd");
}

TEST_F(FavoriteCommandsTest, AWholeFolderOpensButForWhatAsksOrRuns) {
    AddNews(u"1", u"http://1/");
    AddNews(u"2", u"javascript:x");
    AddNews(u"3", u"file:///x");
    AddNews(u"4", u"http://4/");
    ClickNews(u"xtrFolderOpen");
    EXPECT_EQ(m_desk.Strip(), "1 2 [3*]");
    EXPECT_EQ(m_desk.views.Calls(2), "go about:blank, go http://1/");
    EXPECT_EQ(m_desk.views.Calls(3), "go about:blank, go http://4/");
    EXPECT_EQ(m_desk.Said(), "Favorites that do not lead to the web were not opened.");
}

TEST_F(FavoriteCommandsTest, TheStatusBarCountsThePagesOfAFolderToo) {
    for (int i = 0; i < 6; ++i) AddNews(Decimal(i), u"http://a/");
    ClickNews(u"xtrFolderOpen");
    EXPECT_EQ(m_desk.Status(), "0 of 6 pages loaded");
    m_desk.PageLoads(2, u"http://a/", u"A");
    EXPECT_EQ(m_desk.Status(), "1 of 6 pages loaded");
}

TEST_F(FavoriteCommandsTest, VeryManyTabsAreAskedAbout) {
    for (int i = 0; i < 31; ++i) AddNews(Decimal(i), u"http://a/");
    m_desk.messages.answer = Answer::No;
    ClickNews(u"xtrFolderOpen");
    EXPECT_EQ(m_desk.Strip(), "[1*]");
    EXPECT_EQ(m_desk.messages.asked.back(), u"Open 31 tabs?");
    m_desk.messages.answer = Answer::Yes;
    ClickNews(u"xtrFolderOpen");
    EXPECT_EQ(m_desk.CountTabs(), 32U);
}

TEST_F(FavoriteCommandsTest, AFolderIsSavedAsAGroup) {
    AddNews(u"a", u"http://a/");
    AddNews(u"b", u"http://b/");
    m_desk.OpenMenu(u"bndTessaGroupsMenu");
    EXPECT_EQ(ClickNews(u"xtrFolderSave"), "") << "cancelled";
    m_desk.files.chosen = m_folder.PathText("g");
    EXPECT_EQ(ClickNews(u"xtrFolderSave"), "The TessaGroup has been saved.");
    EXPECT_EQ(m_desk.files.last.InitDir, u"/groups/");
    EXPECT_TRUE(m_desk.Renews(u"bndTessaGroupsMenu"));
    CStrings saved = TessaGroups::Load(m_folder.PathText("g.tvg"));
    ASSERT_EQ(saved.Count(), 2U);
    EXPECT_EQ(saved.FindItem(2U)->Key, u"http://b/");
    m_desk.messages.answer = Answer::No;
    EXPECT_EQ(ClickNews(u"xtrFolderSave"), "");
    EXPECT_EQ(m_desk.messages.asked.back(),
              u"A TessaGroup with this name already exists. Do you want to overwrite the existing TessaGroup?");
    EXPECT_EQ(TessaGroups::Load(m_folder.PathText("g.tvg")).Count(), 2U);
    m_desk.files.chosen = u"/nowhere/g.tvg";
    EXPECT_EQ(ClickNews(u"xtrFolderSave"), "The TessaGroup could not be saved.");
}

TEST_F(FavoriteCommandsTest, AGroupIsMadeOfThePagesThatOpenWithoutAQuestionAlone) {
    AddNews(u"1", u"http://1/");
    AddNews(u"2", u"javascript:x");
    AddNews(u"3", u"file:///etc/passwd");
    AddNews(u"4", u"");
    AddNews(u"5", u"example.com");
    m_desk.files.chosen = m_folder.PathText("g.tvg");
    EXPECT_EQ(ClickNews(u"xtrFolderSave"),
              "The TessaGroup has been saved, without the Favorites that do not lead to the web.");
    EXPECT_EQ(m_folder.Read("g.tvg"), "[TessaGroup]\r\nurl1=http://1/\r\nurl2=example.com\r\n");
}

TEST_F(FavoriteCommandsTest, AFolderWithoutAPageOfTheWebMakesNoGroup) {
    EXPECT_EQ(ClickNews(u"xtrFolderSave"), "There are no pages in that folder.");
    AddNews(u"a", u"javascript:x");
    m_folder.Write("g.tvg", "old");
    m_desk.files.chosen = m_folder.PathText("g.tvg");
    EXPECT_EQ(ClickNews(u"xtrFolderSave"), "No Favorite in that folder leads to the web.");
    EXPECT_EQ(m_folder.Read("g.tvg"), "old");
    EXPECT_TRUE(m_desk.messages.asked.empty());
}

} // namespace

} // namespace tessa
