#include "commands/FavoriteCommands.h"

#include "groups/TessaGroups.h"
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

class FavoriteCommandsTest : public testing::Test {
protected:
    TemporaryFolder m_folder;
    Text m_root = Favorites::FolderOf(m_folder.PathText("x"));
    Desk m_desk;

    void SetUp() override {
        m_desk.main.Commands.favoritesFolder = m_root;
        m_desk.StartWithTabs(1);
        m_desk.views.Calls(1);
    }
    void Add(const Text& title, const Text& address) const {
        ASSERT_TRUE(Favorites::AddShortcut(m_root, title, address));
    }
    /// Opens the Favorites menu and clicks its shortcut at a position from 1.
    void ClickFavorite(std::size_t position) {
        Band& band = *m_desk.main.actBar.FindBand(u"bndFavorites");
        m_desk.main.actBar.OpenBand(band);
        m_desk.main.actBar.UserClick(*band.Entries().at(position + 1).Item);
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
    m_desk.inAddFavorite = [&](frmAddFavorite&) { shown = true; };
    m_desk.main.Commands.favoritesFolder.clear();
    m_desk.messages.answer = Answer::Yes;
    m_desk.Click(u"mnuAddToFavorites");
    EXPECT_EQ(m_desk.messages.asked.size(), 1U);
    EXPECT_EQ(m_desk.Said(), "The Favorites folder can still not be written to.");
    EXPECT_FALSE(shown);
}

TEST_F(FavoriteCommandsTest, WhereAFileLiesInTheirPlaceFavoritesAreRepairedOnlyAfterYes) {
    m_folder.Write("Favorites", "mine");
    m_desk.main.Commands.favoritesFolder = m_folder.PathText("Favorites");
    for (const Answer refusal : {Answer::No, Answer::Cancel}) {
        m_desk.messages.answer = refusal;
        m_desk.Click(u"mnuAddToFavorites");
        EXPECT_EQ(m_folder.Read("Favorites"), "mine");
        EXPECT_EQ(m_desk.Status(), "");
    }
    m_desk.main.Commands.favoritesMenuStale = false;
    m_desk.messages.answer = Answer::Yes;
    m_desk.Click(u"mnuAddToFavorites");
    EXPECT_EQ(m_desk.Said(),
              "The Favorites folder was made. What lay in its place is now called \"Favorites set aside\".");
    EXPECT_TRUE(m_desk.main.Commands.favoritesMenuStale);
    EXPECT_EQ(m_folder.Read("Favorites set aside"), "mine");

    m_desk.inAddFavorite = [](frmAddFavorite& form) { form.cmdOK.Click(); };
    m_desk.Click(u"mnuAddToFavorites");
    EXPECT_EQ(m_desk.messages.asked.size(), 3U) << "now it works without a question";
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
    Add(u"1", u"http://1/");
    Add(u"2", u"javascript:x");
    Add(u"3", u"file:///x");
    Add(u"4", u"http://4/");
    m_desk.main.Favorite.OpenAll(m_root);
    EXPECT_EQ(m_desk.Strip(), "1 2 [3*]");
    EXPECT_EQ(m_desk.views.Calls(2), "go about:blank, go http://1/");
    EXPECT_EQ(m_desk.views.Calls(3), "go about:blank, go http://4/");
    EXPECT_EQ(m_desk.Said(), "Favorites that do not lead to the web were not opened.");
}

TEST_F(FavoriteCommandsTest, TheStatusBarCountsThePagesOfAFolderToo) {
    for (int i = 0; i < 6; ++i) Add(Decimal(i), u"http://a/");
    m_desk.main.Favorite.OpenAll(m_root);
    EXPECT_EQ(m_desk.Status(), "0 of 6 pages loaded");
    m_desk.PageLoads(2, u"http://a/", u"A");
    EXPECT_EQ(m_desk.Status(), "1 of 6 pages loaded");
}

TEST_F(FavoriteCommandsTest, VeryManyTabsAreAskedAbout) {
    for (int i = 0; i < 31; ++i) Add(Decimal(i), u"http://a/");
    m_desk.messages.answer = Answer::No;
    m_desk.main.Favorite.OpenAll(m_root);
    EXPECT_EQ(m_desk.Strip(), "[1*]");
    EXPECT_EQ(m_desk.messages.asked.back(), u"Open 31 tabs?");
    m_desk.messages.answer = Answer::Yes;
    m_desk.main.Favorite.OpenAll(m_root);
    EXPECT_EQ(m_desk.main.pcPage.Count(), 32U);
}

TEST_F(FavoriteCommandsTest, AFolderIsSavedAsAGroup) {
    Add(u"a", u"http://a/");
    Add(u"b", u"http://b/");
    m_desk.main.Commands.groupsMenuStale = false;
    EXPECT_EQ(m_desk.main.Favorite.SaveAsGroup(m_root), u"") << "cancelled";
    m_desk.files.chosen = m_folder.PathText("g");
    EXPECT_EQ(m_desk.main.Favorite.SaveAsGroup(m_root), u"The TessaGroup has been saved.");
    EXPECT_EQ(m_desk.files.last.InitDir, u"/groups/");
    EXPECT_TRUE(m_desk.main.Commands.groupsMenuStale);
    CStrings saved = TessaGroups::Load(m_folder.PathText("g.tvg"));
    ASSERT_EQ(saved.Count(), 2U);
    EXPECT_EQ(saved.FindItem(2U)->Key, u"http://b/");
    m_desk.messages.answer = Answer::No;
    EXPECT_EQ(m_desk.main.Favorite.SaveAsGroup(m_root), u"");
    EXPECT_EQ(m_desk.messages.asked.back(),
              u"A TessaGroup with this name already exists. Do you want to overwrite the existing TessaGroup?");
    EXPECT_EQ(TessaGroups::Load(m_folder.PathText("g.tvg")).Count(), 2U);
    m_desk.files.chosen = u"/nowhere/g.tvg";
    EXPECT_EQ(m_desk.main.Favorite.SaveAsGroup(m_root), u"The TessaGroup could not be saved.");
}

TEST_F(FavoriteCommandsTest, AGroupIsMadeOfThePagesThatOpenWithoutAQuestionAlone) {
    Add(u"1", u"http://1/");
    Add(u"2", u"javascript:x");
    Add(u"3", u"file:///etc/passwd");
    Add(u"4", u"");
    Add(u"5", u"example.com");
    m_desk.files.chosen = m_folder.PathText("g.tvg");
    EXPECT_EQ(m_desk.main.Favorite.SaveAsGroup(m_root),
              u"The TessaGroup has been saved, without the Favorites that do not lead to the web.");
    EXPECT_EQ(m_folder.Read("g.tvg"), "[TessaGroup]\r\nurl1=http://1/\r\nurl2=example.com\r\n");
}

TEST_F(FavoriteCommandsTest, AFolderWithoutAPageOfTheWebMakesNoGroup) {
    EXPECT_EQ(m_desk.main.Favorite.SaveAsGroup(m_root), u"There are no pages in that folder.");
    Add(u"a", u"javascript:x");
    m_folder.Write("g.tvg", "old");
    m_desk.files.chosen = m_folder.PathText("g.tvg");
    EXPECT_EQ(m_desk.main.Favorite.SaveAsGroup(m_root), u"No Favorite in that folder leads to the web.");
    EXPECT_EQ(m_folder.Read("g.tvg"), "old");
    EXPECT_TRUE(m_desk.messages.asked.empty());
}

} // namespace
