#include "favorites/frmAddFavorite.h"

#include "favorites/Favorites.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

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
    m_form.NewFolder = [&](const Text& folder, const Text& made) { told = folder + u">" + made; };
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
