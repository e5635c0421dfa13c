// Tests: QuotedTitle
#include "favorites/frmOrganizeFavorites.h"

#include "favorites/Favorites.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

namespace fs = std::filesystem;

class frmOrganizeFavoritesTest : public testing::Test {
protected:
    TemporaryFolder m_folder;
    FakeMessages m_messages;
    FakeTrash m_trash;
    Text m_root = Favorites::FolderOf(m_folder.PathText("x"));
    Text m_opened, m_saved;
    std::string m_told;
    std::unique_ptr<frmOrganizeFavorites> m_form;

    void SetUp() override {
        fs::create_directory(m_folder.Path("Work"));
        ASSERT_TRUE(Favorites::AddShortcut(m_root, u"A", u"http://a/"));
        m_form = std::make_unique<frmOrganizeFavorites>(
            m_root, frmOrganizeFavorites::Outside{m_messages, m_trash, [this](TextView folder) { m_opened = folder; },
                                                  [this](TextView folder) {
                                                      m_saved = folder;
                                                      return Text(u"Saved.");
                                                  }});
        m_form->FolderChanged.ConnectForLife([this](const Text& folder) { m_told += "changed " + Name(folder) + ";"; });
        m_form->EditName.ConnectForLife([this](const Text& path) { m_told += "edit " + Name(path) + ";"; });
        m_form->Form.Visible = true;
    }
    std::string Name(const Text& path) const {
        return path == m_root ? "root" : fs::path(ToUtf8(path)).filename().string();
    }
    /// The buttons that can be pressed.
    std::string Enabled() const {
        std::string all;
        for (const auto& [button, name] : {std::pair{&m_form->cmdNewFolder, "new "},
                                           {&m_form->cmdRename, "rename "},
                                           {&m_form->cmdMove, "move "},
                                           {&m_form->cmdDelete, "delete "},
                                           {&m_form->cmdOpenAll, "open "},
                                           {&m_form->cmdSaveGroup, "save "}})
            all += button->Enabled() ? name : "";
        return all;
    }
};

TEST_F(frmOrganizeFavoritesTest, OnlyWhatTheLineAllowsCanBeDone) {
    EXPECT_EQ(Enabled(), "new open save ");
    m_form->Selected = m_folder.PathText("Work");
    EXPECT_EQ(Enabled(), "new rename move delete ");
    m_form->Selected = m_folder.PathText("A.url");
    EXPECT_EQ(Enabled(), "new rename move delete open save ");
    EXPECT_EQ(m_form->txtAddress.Value(), u"http://a/");
    m_form->Selected = m_folder.PathText("gone.url");
    EXPECT_EQ(Enabled(), "new open save ");
}

TEST_F(frmOrganizeFavoritesTest, ANewFolderStandsWhereTheSelectionIs) {
    m_form->Selected = m_folder.PathText("Work");
    m_form->cmdNewFolder.Click();
    EXPECT_TRUE(fs::is_directory(m_folder.Path("Work/New Folder")));
    EXPECT_EQ(m_told, "changed Work;edit New Folder;");
    m_form->Selected = m_folder.PathText("A.url");
    m_form->cmdNewFolder.Click();
    EXPECT_TRUE(fs::is_directory(m_folder.Path("New Folder")));
}

TEST_F(frmOrganizeFavoritesTest, RenamingSelectsTheNewName) {
    m_form->Selected = m_folder.PathText("A.url");
    m_form->cmdRename.Click();
    EXPECT_EQ(m_told, "edit A.url;");
    EXPECT_EQ(m_form->treFavorites_AfterLabelEdit(m_form->Selected(), u"B"), m_folder.PathText("B.url"));
    EXPECT_EQ(m_form->Selected(), m_folder.PathText("B.url"));
    EXPECT_FALSE(m_form->treFavorites_AfterLabelEdit(m_root, u"B"));
    EXPECT_EQ(m_form->lblMessage.Caption(), u"The Favorite could not be renamed.");
}

TEST_F(frmOrganizeFavoritesTest, MovingAsksForTheFolder) {
    m_form->Selected = m_folder.PathText("A.url");
    m_form->cmdMove.Click();
    EXPECT_TRUE(fs::exists(m_folder.Path("A.url"))) << "nobody has said where to";
    m_form->AskFolder.ConnectForLife([this](const Text& path) { m_form->MoveTo(path, m_folder.PathText("Work")); });
    m_form->cmdMove.Click();
    EXPECT_TRUE(fs::exists(m_folder.Path("Work/A.url")));
    EXPECT_EQ(m_told, "changed root;changed Work;");
    EXPECT_EQ(m_form->Selected(), m_folder.PathText("Work/A.url"));
    m_form->MoveTo(m_folder.PathText("Work"), m_folder.PathText("Work"));
    EXPECT_EQ(m_form->lblMessage.Caption(), u"The Favorite could not be moved.");
}

TEST_F(frmOrganizeFavoritesTest, DeletingGoesToTheTrashWithoutAQuestion) {
    m_form->Selected = m_folder.PathText("A.url");
    m_trash.take = [](TextView path) { return Favorites::Delete(path); };
    m_form->cmdDelete.Click();
    EXPECT_TRUE(m_messages.asked.empty());
    EXPECT_EQ(m_told, "changed root;");
    EXPECT_EQ(m_form->lblMessage.Caption(), u"\"A\" is in the trash.");
    m_form->Selected = m_root;
    m_form->cmdDelete.Click();
    EXPECT_TRUE(fs::exists(m_folder.Path(""))) << "the Favorites folder itself stays";
}

TEST_F(frmOrganizeFavoritesTest, DeletingSelectsTheLineBesideNeverTheFolderAbove) {
    for (const TextView title : {u"B", u"C"}) ASSERT_TRUE(Favorites::AddShortcut(m_root, title, u"http://b/"));
    ASSERT_TRUE(Favorites::AddShortcut(m_folder.PathText("Work"), u"only", u"http://c/"));
    m_trash.take = [](TextView path) { return Favorites::Delete(path); };
    const auto afterDeletingOf = [&](const char* name) {
        m_form->Selected = m_folder.PathText(name);
        m_form->cmdDelete.Click();
        return Name(m_form->Selected());
    };
    EXPECT_EQ(afterDeletingOf("B.url"), "C.url");
    EXPECT_EQ(afterDeletingOf("C.url"), "A.url");
    EXPECT_EQ(afterDeletingOf("Work/only.url"), "root");
    m_form->cmdDelete.Click();
    EXPECT_TRUE(fs::exists(m_folder.Path("Work"))) << "pressed once more";
    EXPECT_EQ(afterDeletingOf("Work"), "A.url");
    EXPECT_EQ(afterDeletingOf("A.url"), "root");
}

TEST_F(frmOrganizeFavoritesTest, WhatWasDeletedComesBackOneByOne) {
    ASSERT_TRUE(Favorites::AddShortcut(m_root, u"B", u"http://b/"));
    std::map<Text, Text> trash;
    m_trash.take = [&](TextView path) {
        trash[Text(path)] = Favorites::ReadAddress(PathToBytes(path));
        return Favorites::Delete(path);
    };
    m_trash.restore = [&](TextView path) {
        return Favorites::AddShortcut(m_root, Favorites::TitleOf(path.substr(m_root.size() + 1)), trash[Text(path)])
                   ? Outcome::Done
                   : Outcome::Failed;
    };
    EXPECT_FALSE(m_form->cmdUndo.Enabled());
    for (const char* name : {"A.url", "B.url"}) {
        m_form->Selected = m_folder.PathText(name);
        m_form->cmdDelete.Click();
    }
    m_form->Selected = m_folder.PathText("Work");
    EXPECT_TRUE(m_form->cmdUndo.Enabled()) << "another line does not take the offer away";
    m_told.clear();
    m_form->cmdUndo.Click();
    EXPECT_EQ(m_told, "changed root;");
    EXPECT_EQ(m_form->Selected(), m_folder.PathText("B.url"));
    EXPECT_EQ(m_form->lblMessage.Caption(), u"\"B\" is back.");
    m_form->cmdUndo.Click();
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("A.url")), u"http://a/");
    EXPECT_FALSE(m_form->cmdUndo.Enabled());
    m_form->cmdUndo.Click();
}

TEST_F(frmOrganizeFavoritesTest, WhatCannotComeBackIsSaidToBeInTheTrash) {
    m_trash.take = [](TextView path) { return Favorites::Delete(path); };
    m_form->Selected = m_folder.PathText("A.url");
    m_form->cmdDelete.Click();
    m_form->cmdUndo.Click();
    EXPECT_EQ(m_form->lblMessage.Caption(), u"\"A\" could not be brought back. It is still in the trash.");
    EXPECT_FALSE(m_form->cmdUndo.Enabled());
}

TEST_F(frmOrganizeFavoritesTest, AVeryLongNameIsQuotedShort) {
    ASSERT_TRUE(Favorites::AddShortcut(m_root, Text(200, u'x'), u"http://b/"));
    m_trash.take = [](TextView path) { return Favorites::Delete(path); };
    m_form->Selected = m_folder.PathText(std::string(200, 'x') + ".url");
    m_form->cmdDelete.Click();
    EXPECT_EQ(m_form->lblMessage.Caption(), u"\"" + Text(60, u'x') + u"...\" is in the trash.");
}

TEST_F(frmOrganizeFavoritesTest, AnAddressIsChangedWhenTheUserHasDoneWithIt) {
    EXPECT_FALSE(m_form->txtAddress.Enabled()) << "a folder has none";
    m_form->Selected = m_folder.PathText("A.url");
    m_form->txtAddress.Value = u"http://b/";
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("A.url")), u"http://a/");
    m_form->txtAddress_LostFocus();
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("A.url")), u"http://b/");
    EXPECT_EQ(m_form->lblMessage.Caption(), u"The address has been changed.");
    m_form->txtAddress.Value = u"http://c/";
    m_form->cmdClose.Click();
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("A.url")), u"http://c/");
}

TEST_F(frmOrganizeFavoritesTest, WhatIsNoAddressIsNotWritten) {
    m_form->Selected = m_folder.PathText("A.url");
    for (const auto& [typed, why] :
         {std::pair<Text, Text>{u"  ", u"A Favorite needs an address."},
          {Text(600, u'x'), u"The address was not changed: it is too long, or the file cannot be written."}}) {
        m_form->txtAddress.Value = typed;
        m_form->txtAddress_LostFocus();
        EXPECT_EQ(m_form->lblMessage.Caption(), why);
        EXPECT_EQ(m_form->txtAddress.Value(), u"http://a/");
    }
    m_form->txtAddress.Value = u"http://b/";
    EXPECT_TRUE(m_form->txtAddress_Escape());
    EXPECT_FALSE(m_form->txtAddress_Escape()) << "now it may close the dialog";
    m_form->txtAddress_LostFocus();
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("A.url")), u"http://a/");
}

TEST_F(frmOrganizeFavoritesTest, WithoutATrashDeletingAsksFirst) {
    m_form->Selected = m_folder.PathText("Work");
    m_messages.answer = Answer::No;
    m_form->cmdDelete.Click();
    EXPECT_TRUE(fs::exists(m_folder.Path("Work")));
    EXPECT_EQ(m_form->Selected(), m_folder.PathText("Work"));
    m_messages.answer = Answer::Yes;
    m_form->cmdDelete.Click();
    EXPECT_FALSE(fs::exists(m_folder.Path("Work")));
    EXPECT_EQ(m_messages.asked.size(), 2U);
    EXPECT_EQ(m_form->lblMessage.Caption(), u"\"Work\" has been deleted.");
    EXPECT_FALSE(m_form->cmdUndo.Enabled()) << "what is gone for good cannot come back";
}

TEST_F(frmOrganizeFavoritesTest, WhatHasANameThatIsNoTextCanBeSelectedAndDeleted) {
    m_folder.Write("\xE4.url", "[InternetShortcut]\r\nURL=http://latin/\r\n");
    m_form->Selected = PathFromBytes(m_folder.Path("\xE4.url"));
    EXPECT_EQ(Enabled(), "new rename move delete open save ");
    EXPECT_EQ(m_form->txtAddress.Value(), u"http://latin/");
    m_messages.answer = Answer::Yes;
    m_form->cmdDelete.Click();
    EXPECT_FALSE(fs::exists(m_folder.Path("\xE4.url")));
    EXPECT_EQ(m_form->Selected(), m_folder.PathText("A.url"));
}

TEST_F(frmOrganizeFavoritesTest, AFoldersShortcutsOpenOrBecomeAGroup) {
    m_form->cmdSaveGroup.Click();
    EXPECT_EQ(m_saved, m_root);
    EXPECT_EQ(m_form->lblMessage.Caption(), u"Saved.");
    m_form->Selected = m_folder.PathText("A.url");
    m_form->cmdOpenAll.Click();
    EXPECT_EQ(m_opened, m_root);
    EXPECT_FALSE(m_form->Form.Visible()) << "the pages are to be seen";
}

} // namespace

} // namespace tessa
