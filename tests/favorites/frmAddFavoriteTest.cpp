#include "favorites/frmAddFavorite.h"

#include "favorites/Favorites.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

class frmAddFavoriteTest : public testing::Test {
protected:
    TemporaryFolder m_folder;
    Text m_root = Favorites::FolderOf(m_folder.PathText("x"));
    frmAddFavorite m_form{m_root, u"http://a/", u"A page"};

    void SetUp() override { m_form.Form.Visible = true; }
};

TEST_F(frmAddFavoriteTest, OffersThePagesTitleInTheFavoritesFolder) {
    EXPECT_EQ(m_form.txtName.Value(), u"A page");
    EXPECT_EQ(m_form.Folder(), m_root);
    m_form.cmdOK.Click();
    EXPECT_FALSE(m_form.Form.Visible());
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("A page.url")), u"http://a/");
}

TEST_F(frmAddFavoriteTest, APageWithoutATitleIsCalledByItsAddress) {
    const frmAddFavorite form(m_root, u"http://a/", u"");
    EXPECT_EQ(form.txtName.Value(), u"http://a/");
}

TEST_F(frmAddFavoriteTest, APageThatIsAFavoriteIsSaidToBeAndNotAddedTwice) {
    EXPECT_EQ(m_form.lblMessage.Caption(), u"");
    m_form.cmdOK.Click();
    EXPECT_EQ(m_form.Told, u"Added to Favorites: \"A page\".");
    frmAddFavorite again(m_root, u"http://a/", u"A page");
    again.Form.Visible = true;
    const Text notice = u"This page is a Favorite already: \"A page\".";
    EXPECT_EQ(again.lblMessage.Caption(), notice);
    again.txtName.Value = u"A page ";
    EXPECT_EQ(again.lblMessage.Caption(), notice) << "typing does not take it away";
    again.cmdOK.Click();
    EXPECT_FALSE(again.Form.Visible());
    EXPECT_EQ(again.Told, u"This page is a Favorite already. Nothing was added.");
    EXPECT_EQ(m_folder.Files(), 1U);
}

TEST_F(frmAddFavoriteTest, AFavoriteMayStandUnderAnotherNameAndInAnotherFolderToo) {
    const auto work = Favorites::MakeFolder(m_root, u"Work");
    ASSERT_TRUE(work && Favorites::AddShortcut(*work, u"A page", u"http://a/"));
    frmAddFavorite form(m_root, u"http://a/", u"A page");
    EXPECT_EQ(form.lblMessage.Caption(), u"This page is a Favorite already: \"A page\" in \"Work\".");
    form.cmdOK.Click();
    form.txtName.Value = u"B";
    form.cmdOK.Click();
    EXPECT_EQ(Favorites::Items(m_root).size(), 3U);
}

TEST_F(frmAddFavoriteTest, AnotherPageOfTheSameNameIsCounted) {
    ASSERT_TRUE(Favorites::AddShortcut(m_root, u"A page", u"http://other/"));
    m_form.cmdOK.Click();
    EXPECT_EQ(m_form.Told, u"Added to Favorites: \"A page (2)\".");
}

TEST_F(frmAddFavoriteTest, CancelAddsNothing) {
    m_form.cmdCancel.Click();
    EXPECT_FALSE(m_form.Form.Visible());
    EXPECT_EQ(m_folder.Files(), 0U);
}

TEST_F(frmAddFavoriteTest, ANameIsNeeded) {
    m_form.txtName.Value = u"  ";
    EXPECT_FALSE(m_form.cmdOK.Enabled());
    m_form.txtName.Value = u"x";
    EXPECT_TRUE(m_form.cmdOK.Enabled());
}

TEST_F(frmAddFavoriteTest, ANewFolderIsChosenAndMayBeNamed) {
    Text told;
    m_form.NewFolder.ConnectForLife([&](const Text& folder, const Text& made) { told = folder + u">" + made; });
    m_form.cmdNewFolder.Click();
    EXPECT_EQ(told, m_root + u">" + m_folder.PathText("New Folder"));
    EXPECT_EQ(m_form.Folder(), m_folder.PathText("New Folder"));
    EXPECT_EQ(m_form.treFolders_AfterLabelEdit(m_form.Folder(), u"Work"), m_folder.PathText("Work"));
    EXPECT_EQ(m_form.Folder(), m_folder.PathText("Work"));
    EXPECT_FALSE(m_form.treFolders_AfterLabelEdit(m_root, u"Other"));
    m_form.cmdOK.Click();
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("Work/A page.url")), u"http://a/");
}

TEST_F(frmAddFavoriteTest, AFolderThatCannotBeWrittenKeepsTheDialogOpen) {
    m_form.Folder = m_folder.PathText("file");
    m_folder.Write("file", "x");
    m_form.cmdOK.Click();
    EXPECT_TRUE(m_form.Form.Visible());
    EXPECT_NE(m_form.lblMessage.Caption(), u"");
    m_form.cmdNewFolder.Click();
    EXPECT_EQ(m_form.lblMessage.Caption(), u"The folder could not be made.");
    m_form.txtName.Value = u"x";
    EXPECT_EQ(m_form.lblMessage.Caption(), u"");
}

} // namespace

} // namespace tessa
