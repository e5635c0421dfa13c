#include "commands/effects/BookmarkCommands.h"

#include "favorites/FavoriteFiles.h"
#include "groups/TessaGroups.h"
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

class BookmarkCommandsTest : public testing::Test {
protected:
    TemporaryFolder m_favorites, m_groups, m_files;
    Desk m_desk{
        {.groupFolder = m_groups.PathText(""), .favoritesFolder = Favorites::FolderOf(m_favorites.PathText("x"))}};

    void SetUp() override {
        m_desk.StartWithTabs(1);
        m_desk.OpenMenu(u"bndFavorites");
        m_desk.OpenMenu(u"bndTessaGroupsMenu");
    }
    void Choose(const std::string& html) { m_desk.files.chosen = FromBytes(m_files.Write("bookmarks.html", html)); }
    std::string Group(const std::string& name) const {
        std::string all;
        for (const CString& each : TessaGroups::Load(m_groups.PathText(name + ".tvg"))) all += ToUtf8(each.Key) + " ";
        return all;
    }
};

constexpr const char* kFile = "<DL><DT><A HREF='http://a/'>A</A><DT><H3>News</H3><DL><DT><A HREF='http://b/'>B</A>"
                              "<DT><A HREF='http://c/'>C</A><DT><A HREF='file:///x'>X</A></DL></DL>";

TEST_F(BookmarkCommandsTest, FavoritesComeInWithTheirFolders) {
    Choose(kFile);
    m_desk.Click(u"xtrImportFavorites");
    EXPECT_EQ(m_desk.Said(), "4 Favorites were added.");
    EXPECT_TRUE(m_desk.Renews(u"bndFavorites"));
    EXPECT_EQ(Favorites::Items(m_favorites.PathText("News")).size(), 3U);
    EXPECT_TRUE(m_desk.files.last.MustExist);
}

TEST_F(BookmarkCommandsTest, AFolderBecomesAGroupAndReplacesNone) {
    m_groups.Write("News.tvg", "[TessaGroup]\r\nurl1=http://old/\r\n");
    Choose(kFile);
    m_desk.Click(u"xtrImportTessaGroups");
    EXPECT_EQ(m_desk.Said(), "2 TessaGroups were made.");
    EXPECT_EQ(Group("Bookmarks"), "http://a/ ");
    EXPECT_EQ(Group("News (2)"), "http://b/ http://c/ ") << "a group opens without a question, so not files";
    EXPECT_EQ(Group("News"), "http://old/ ");
    EXPECT_TRUE(m_desk.Renews(u"bndTessaGroupsMenu"));
}

TEST_F(BookmarkCommandsTest, NamesAndAddressesOfAHostileFileStayWithinTheirFiles) {
    Choose("<DL><DT><H3>../../evil</H3><DL><DT><A HREF='http://a/&#13;&#10;url9=http://b/\n[x]'>A\n/../B</A></DL>"
           "<DT><H3>..</H3><DL><DT><A HREF='http://c/'>..</A></DL></DL>");
    m_desk.Click(u"xtrImportTessaGroups");
    EXPECT_EQ(Group("-..-evil"), "http://a/url9=http://b/[x] ");
    EXPECT_EQ(Group("Page"), "http://c/ ");
    m_desk.Click(u"xtrImportFavorites");
    EXPECT_EQ(Favorites::Items(m_favorites.PathText("-..-evil")).at(0).Title, u"A -..-B");
    EXPECT_EQ(Favorites::Items(m_favorites.PathText("Page")).at(0).Path, m_favorites.PathText("Page/Page.url"));
}

TEST_F(BookmarkCommandsTest, AFileWithoutBookmarksChangesNothingAndSaysSo) {
    Choose("<html>nothing");
    m_desk.Click(u"xtrImportFavorites");
    EXPECT_EQ(m_desk.Said(), "There are no bookmarks in that file.");
    m_desk.Click(u"xtrImportTessaGroups");
    EXPECT_EQ(m_groups.Files() + m_favorites.Files(), 0U);
    EXPECT_FALSE(m_desk.Renews(u"bndFavorites"));
}

TEST_F(BookmarkCommandsTest, CancellingDoesNothing) {
    for (const TextView tool :
         {u"xtrImportFavorites", u"xtrImportTessaGroups", u"xtrExportFavorites", u"xtrExportTessaGroups"})
        m_desk.Click(tool);
    EXPECT_EQ(m_desk.Status(), "");
    EXPECT_EQ(m_groups.Files() + m_favorites.Files(), 0U);
}

TEST_F(BookmarkCommandsTest, GroupsGoOutAndComeInUnchanged) {
    m_groups.Write("News.tvg", "[TessaGroup]\r\nurl1=http://a/?x&y\r\nurl2=http://b/\r\n");
    m_desk.files.chosen = m_files.PathText("out");
    m_desk.Click(u"xtrExportTessaGroups");
    EXPECT_EQ(m_desk.Said(), "1 TessaGroup was written.");
    std::filesystem::remove(m_groups.Path("News.tvg"));
    m_desk.files.chosen = m_files.PathText("out.html");
    m_desk.Click(u"xtrImportTessaGroups");
    EXPECT_EQ(Group("News"), "http://a/?x&y http://b/ ");
}

TEST_F(BookmarkCommandsTest, FavoritesGoOutAfterAQuestionWhereTheFileExists) {
    ASSERT_TRUE(Favorites::AddShortcut(m_favorites.PathText("Work"), u"A", u"http://a/"));
    Choose("old");
    m_desk.messages.answer = Answer::No;
    m_desk.Click(u"xtrExportFavorites");
    EXPECT_EQ(m_files.Read("bookmarks.html"), "old");
    m_desk.messages.answer = Answer::Yes;
    m_desk.Click(u"xtrExportFavorites");
    EXPECT_EQ(m_desk.Said(), "1 Favorite was written.");
    EXPECT_NE(m_files.Read("bookmarks.html").find("<DT><A HREF=\"http://a/\">A</A>"), std::string::npos);
    m_desk.files.chosen = u"/nowhere/x.html";
    m_desk.Click(u"xtrExportFavorites");
    EXPECT_EQ(m_desk.Said(), "The file could not be written.");
}

} // namespace

} // namespace tessa
