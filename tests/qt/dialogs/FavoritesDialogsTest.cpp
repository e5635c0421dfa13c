// Tests: AddFavorite, FavoriteTree, OrganizeFavorites
#include "favorites/Favorites.h"
#include "qt/base/Icons.h"
#include "qt/dialogs/AddFavorite.h"
#include "qt/dialogs/FavoriteTree.h"
#include "qt/dialogs/OrganizeFavorites.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/TemporaryFolder.h"
#include "tests/qt/dialogs/UseDialog.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

namespace fs = std::filesystem;

class FavoritesDialogsTest : public testing::Test {
protected:
    TemporaryFolder m_folder;
    Text m_root = Favorites::FolderOf(m_folder.PathText("x"));
    FakeMessages m_messages;
    FakeTrash m_trash;

    void SetUp() override {
        fs::create_directories(m_folder.Path("Work/deep"));
        ASSERT_TRUE(Favorites::AddShortcut(m_root, u"A", u"http://a/"));
    }

    /// What the user does in the open dialog, which must be closed at the end.
    template<typename Form>
    void Use(Form& form, const std::function<void(QDialog&)>& user) {
        UseDialog([&] { ShowModal(form, nullptr); }, user);
    }
    static FavoriteTree& Tree(QDialog& dialog, const char* name) {
        return dynamic_cast<FavoriteTree&>(*dialog.findChild<QTreeWidget*>(QString::fromLatin1(name)));
    }
    /// The editor of a tree's line.
    static QLineEdit* Editor(QTreeWidget& tree) { return tree.viewport()->findChild<QLineEdit*>(); }
    static void Type(QTreeWidget& tree, const QString& name) {
        // A button that is pressed by its access key acts a moment later.
        ASSERT_TRUE(QTest::qWaitFor([&] { return Editor(tree) != nullptr; }));
        Editor(tree)->setText(name);
        QTest::keyClick(Editor(tree), Qt::Key_Return);
    }
};

TEST_F(FavoritesDialogsTest, EnterAddsThePageUnderTheTypedName) {
    frmAddFavorite form(m_root, u"http://b/", u"Old title");
    Use(form, [](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Add to Favorites"));
        EXPECT_EQ(dialog.focusWidget()->objectName(), QStringLiteral("txtName"));
        // The name is selected, so typing replaces it.
        QTest::keyClicks(dialog.focusWidget(), QStringLiteral("New"));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("New.url")), u"http://b/");
}

TEST_F(FavoritesDialogsTest, EscapeAddsNothing) {
    frmAddFavorite form(m_root, u"http://b/", u"B");
    Use(form, [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_FALSE(fs::exists(m_folder.Path("B.url")));
}

TEST_F(FavoritesDialogsTest, ANewFolderIsNamedAtOnceAndTakesThePage) {
    frmAddFavorite form(m_root, u"http://b/", u"B");
    Use(form, [&](QDialog& dialog) {
        auto& tree = Tree(dialog, "treFolders");
        dialog.findChild<QPushButton*>(QStringLiteral("cmdNewFolder"))->click();
        Type(tree, QStringLiteral("Recipes"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return form.Folder() == m_folder.PathText("Recipes"); }));
        EXPECT_EQ(tree.SelectedPath(), m_folder.PathText("Recipes"));
        dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    });
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("Recipes/B.url")), u"http://b/");
}

TEST_F(FavoritesDialogsTest, FoldersAreReadWhenTheyOpenAndALoopDoesNoHarm) {
    fs::create_directory_symlink(m_folder.Path(""), m_folder.Path("Work/loop"));
    frmAddFavorite form(m_root, u"http://b/", u"B");
    Use(form, [&](QDialog& dialog) {
        auto& tree = Tree(dialog, "treFolders");
        EXPECT_EQ(tree.topLevelItem(0)->childCount(), 1) << "folders alone";
        EXPECT_EQ(tree.topLevelItem(0)->child(0)->childCount(), 0);
        tree.Select(m_folder.PathText("Work/loop/"
                                      "Work/deep"));
        EXPECT_EQ(form.Folder(), m_folder.PathText("Work/loop/"
                                                   "Work/deep"));
        tree.Select(u"/nowhere");
        EXPECT_EQ(form.Folder(), m_root);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

TEST_F(FavoritesDialogsTest, FavoritesAreRenamedMovedAndDeletedByKeyboard) {
    frmOrganizeFavorites form(m_root, {m_messages, m_trash});
    Use(form, [&](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Organize Favorites"));
        auto& tree = Tree(dialog, "treFavorites");
        EXPECT_TRUE(tree.hasFocus());
        QTest::keyClick(&tree, Qt::Key_End);
        EXPECT_EQ(tree.SelectedPath(), m_folder.PathText("A.url"));
        EXPECT_EQ(dialog.findChild<QLineEdit*>(QStringLiteral("txtAddress"))->text(), QStringLiteral("http://a/"));
        QTest::keyClick(&dialog, Qt::Key_R, Qt::AltModifier);
        Type(tree, QStringLiteral("Z"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return tree.SelectedPath() == m_folder.PathText("Z.url"); }));
        tree.Dropped(m_folder.PathText("Z.url"), m_folder.PathText("Work"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return tree.SelectedPath() == m_folder.PathText("Work/Z.url"); }));
        m_messages.answer = Answer::Yes;
        QTest::keyClick(&tree, Qt::Key_Delete);
        EXPECT_EQ(tree.SelectedPath(), m_folder.PathText("Work/deep"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(fs::exists(m_folder.Path("Work/Z.url")));
    EXPECT_EQ(m_messages.asked.size(), 1U);
}

TEST_F(FavoritesDialogsTest, WhatHasANameThatIsNoTextIsShownMarkedAndRenamedByItsBytes) {
    m_folder.Write("Work/\xE4.url", "[InternetShortcut]\r\nURL=http://latin/\r\n");
    const Text path = PathFromBytes(m_folder.Path("Work/\xE4.url"));
    frmOrganizeFavorites form(m_root, {m_messages, m_trash});
    Use(form, [&](QDialog& dialog) {
        auto& tree = Tree(dialog, "treFavorites");
        tree.Select(path);
        EXPECT_EQ(tree.SelectedPath(), path);
        EXPECT_EQ(tree.currentItem()->text(0), QStringLiteral("\uFFFD"));
        EXPECT_EQ(dialog.findChild<QLineEdit*>(QStringLiteral("txtAddress"))->text(), QStringLiteral("http://latin/"));
        QTest::keyClick(&dialog, Qt::Key_R, Qt::AltModifier);
        Type(tree, QStringLiteral("a"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return tree.SelectedPath() == m_folder.PathText("Work/a.url"); }));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("Work/a.url")), u"http://latin/");
}

TEST_F(FavoritesDialogsTest, MovingAsksForTheFolderInATree) {
    frmOrganizeFavorites form(m_root, {m_messages, m_trash});
    Use(form, [&](QDialog& dialog) {
        Tree(dialog, "treFavorites").Select(m_folder.PathText("A.url"));
        QTimer::singleShot(0, [&] {
            auto* ask = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(ask, nullptr);
            EXPECT_EQ(ask->windowTitle(), QStringLiteral("Move to Folder"));
            Tree(*ask, "treFolders").Select(m_folder.PathText("Work/deep"));
            ask->accept();
        });
        dialog.findChild<QPushButton*>(QStringLiteral("cmdMove"))->click();
        EXPECT_EQ(Tree(dialog, "treFavorites").SelectedPath(), m_folder.PathText("Work/deep/A.url"));
        dialog.findChild<QPushButton*>(QStringLiteral("cmdClose"))->click();
    });
    EXPECT_TRUE(fs::exists(m_folder.Path("Work/deep/A.url")));
}

TEST_F(FavoritesDialogsTest, ADeletedLineComesBackWithTheKeyOfUndoAndFoldersStayOpen) {
    m_trash.take = [](TextView path) { return Favorites::Delete(path); };
    m_trash.restore = [this](TextView) {
        return Favorites::AddShortcut(m_root, u"A", u"http://a/") ? Outcome::Done : Outcome::Failed;
    };
    ASSERT_TRUE(Favorites::AddShortcut(m_root, u"B", u"http://b/"));
    frmOrganizeFavorites form(m_root, {m_messages, m_trash});
    Use(form, [&](QDialog& dialog) {
        auto& tree = Tree(dialog, "treFavorites");
        tree.topLevelItem(0)->child(0)->setExpanded(true);
        tree.Select(m_folder.PathText("A.url"));
        QTest::keyClick(&tree, Qt::Key_Delete);
        EXPECT_EQ(tree.SelectedPath(), m_folder.PathText("B.url"));
        EXPECT_TRUE(tree.topLevelItem(0)->child(0)->isExpanded());
        EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("lblMessage"))->text(),
                  QStringLiteral("\"A\" is in the trash."));
        QTest::keyClick(&tree, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(tree.SelectedPath(), m_folder.PathText("A.url"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

TEST_F(FavoritesDialogsTest, AnAddressIsTypedAndEscapeGivesItUpBeforeItCloses) {
    frmOrganizeFavorites form(m_root, {m_messages, m_trash});
    Use(form, [&](QDialog& dialog) {
        Tree(dialog, "treFavorites").Select(m_folder.PathText("A.url"));
        auto* address = dialog.findChild<QLineEdit*>(QStringLiteral("txtAddress"));
        address->setFocus();
        address->selectAll();
        QTest::keyClicks(address, QStringLiteral("http://b/"));
        QTest::keyClick(address, Qt::Key_Return);
        EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("A.url")), u"http://b/");
        EXPECT_TRUE(dialog.isVisible()) << "Enter is for the address";
        QTest::keyClicks(address, QStringLiteral("c"));
        QTest::keyClick(address, Qt::Key_Escape);
        EXPECT_EQ(address->text(), QStringLiteral("http://b/"));
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClicks(address, QStringLiteral("d"));
        dialog.findChild<QTreeWidget*>()->setFocus();
        EXPECT_EQ(Favorites::ReadAddress(m_folder.Path("A.url")), u"http://b/d");
        QTest::keyClick(address, Qt::Key_Escape);
    });
}

TEST_F(FavoritesDialogsTest, ARightClickShowsWhatCanBeDoneWithTheLine) {
    frmOrganizeFavorites form(m_root, {m_messages, m_trash});
    Use(form, [&](QDialog& dialog) {
        auto& tree = Tree(dialog, "treFavorites");
        const auto entries = [&](const QPoint& place) {
            Q_EMIT tree.customContextMenuRequested(place);
            auto* menu = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
            QStringList all;
            for (const auto* action : menu ? menu->actions() : QList<QAction*>()) all << action->text();
            return all.join(QLatin1Char(';'));
        };
        tree.Select(m_folder.PathText("A.url"));
        EXPECT_EQ(entries(tree.visualItemRect(tree.currentItem()).center()),
                  QStringLiteral("&Rename;&Edit Address;&Move...;&Delete;;New &Folder;"));
        auto* menu = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        m_messages.answer = Answer::Yes;
        menu->actions().at(3)->trigger();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !fs::exists(m_folder.Path("A.url")); }));
        menu->close();
        EXPECT_EQ(entries(tree.viewport()->rect().bottomRight()), QStringLiteral("New &Folder;"));
        EXPECT_EQ(tree.SelectedPath(), m_root) << "beside the lines it is about none of them";
        QApplication::activePopupWidget()->close();
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

TEST_F(FavoritesDialogsTest, EveryWidgetHasANameToBeCalledBy) {
    frmOrganizeFavorites organize(m_root, {m_messages, m_trash});
    const OrganizeFavorites dialog(organize);
    frmAddFavorite add(m_root, u"http://b/", u"B");
    const AddFavorite other(add);
    for (const QDialog* each : {static_cast<const QDialog*>(&dialog), static_cast<const QDialog*>(&other)}) {
        for (const auto* button : each->findChildren<QPushButton*>())
            EXPECT_FALSE(button->accessibleName().isEmpty()) << button->objectName().toStdString();
        for (const auto* tree : each->findChildren<QTreeWidget*>()) EXPECT_FALSE(tree->accessibleName().isEmpty());
    }
}

} // namespace

} // namespace tessa::qt
