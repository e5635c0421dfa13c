// Tests: GroupList, GroupPlanMenu
#include "qt/dialogs/GroupEditor.h"

#include "groups/TessaGroups.h"
#include "qt/base/Strings.h"
#include "qt/dialogs/GroupList.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/TemporaryFolder.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

constexpr int kCollapsed = 274, kExpanded = 321;

/// An open editor of a group, used by keyboard.
struct GroupEditorTest : testing::Test, TemporaryFolder {
    void Open(std::size_t count) {
        std::string bytes = "[TessaGroup]\r\n";
        for (std::size_t i = 0; i < count; ++i) bytes += "url" + std::to_string(i) + "=" + NameOf(i) + "\r\n";
        Write("News.tvg", bytes);
        form.EditTessaGroup(PathText("News.tvg"));
        editor = std::make_unique<GroupEditor>(form);
        form.Form.Visible = true;
        editor->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(editor.get()));
    }
    static std::string NameOf(std::size_t i) { return std::string(1, static_cast<char>('a' + i % 26)); }

    void Press(int key, Qt::KeyboardModifiers held = Qt::NoModifier) const {
        QWidget* focus = editor->focusWidget();
        QTest::keyClick(focus ? focus : editor.get(), static_cast<Qt::Key>(key), held);
    }
    void Type(const char* text) const { QTest::keyClicks(editor->focusWidget(), QString::fromUtf8(text)); }
    [[nodiscard]] QString Focus() const {
        return editor->focusWidget() ? editor->focusWidget()->objectName() : QString();
    }
    template<typename T>
    [[nodiscard]] T& Find(const char* name) const {
        return *editor->findChild<T*>(QString::fromLatin1(name));
    }
    /// What the list shows, the selected entry in brackets.
    [[nodiscard]] std::string List() const {
        const auto& list = Find<GroupList>("lstUrls");
        std::string all;
        for (int row = 0; row < list.model()->rowCount(); ++row) {
            const QModelIndex index = list.model()->index(row, 0);
            const std::string item = index.data().toString().toStdString();
            const bool selected = list.selectionModel()->isSelected(index);
            all += (row == 0 ? "" : " ") + (selected ? "[" + item + "]" : item);
        }
        return all;
    }
    /// What the columns behind the address say of a row.
    [[nodiscard]] std::string Columns(int row) const {
        const auto* model = Find<GroupList>("lstUrls").model();
        const auto text = [&](int column) { return model->index(row, column).data().toString().toStdString(); };
        const auto mark = [&](int column) {
            return model->index(row, column).data(Qt::CheckStateRole).toInt() == Qt::Checked ? "x" : "-";
        };
        return text(GroupList::Place) + "|" + mark(GroupList::Asleep) + "|" + mark(GroupList::Muted) + "|" +
               text(GroupList::TextSize);
    }
    void ClickCell(int row, int column) const {
        auto& list = Find<GroupList>("lstUrls");
        const QPoint cell = list.visualRect(list.model()->index(row, column)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, cell);
    }
    /// Picks an entry of the menu that a column has.
    void Choose(std::size_t row, GroupList::Column column, const char* caption) const {
        QMenu menu;
        Find<GroupList>("lstUrls").FillMenu(menu, row, column);
        for (auto* action : menu.actions()) {
            if (action->text() == QLatin1String(caption)) return action->trigger();
        }
        FAIL() << caption;
    }
    [[nodiscard]] static std::string Checked(const QMenu& menu) {
        std::string all;
        for (const auto* action : menu.actions()) all += action->isChecked() ? action->text().toStdString() + " " : "";
        return all;
    }
    FakeMessages messages;
    FakeForms forms;
    frmTessaGroup form{messages, forms};
    std::unique_ptr<GroupEditor> editor;
};

TEST_F(GroupEditorTest, ShowsTheGroupLowWithTheKeyboardInTheList) {
    Open(3);
    EXPECT_EQ(editor->windowTitle(), QStringLiteral("Organize TessaGroup"));
    EXPECT_EQ(Find<QLabel>("lblTessaGroupName").text(), QStringLiteral("News.tvg"));
    EXPECT_EQ(List(), "[a] b c");
    EXPECT_EQ(Focus(), QStringLiteral("lstUrls"));
    EXPECT_EQ(editor->height(), kCollapsed);
    EXPECT_FALSE(Find<QFrame>("Frame1").isVisible());
}

TEST_F(GroupEditorTest, EveryControlHasItsNameAndAnAccessibleOne) {
    Open(1);
    for (const char* name : {"cmdUp", "cmdDown", "cmdInsert", "cmdUpdate", "cmdDelete", "cmdOK", "cmdCancel",
                             "cmdUrlInsert", "Cancel", "lstUrls", "txtUrl", "Label1", "Label2", "cmdCheck",
                             "cmdCompare", "cboColour", "chkBehind", "chkCloseOthers", "chkKeepPanes"}) {
        auto* widget = editor->findChild<QWidget*>(QString::fromLatin1(name));
        ASSERT_NE(widget, nullptr) << name;
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << name;
    }
    EXPECT_EQ(Find<QPushButton>("cmdUp").accessibleName(), QStringLiteral("Move Up"));
}

TEST_F(GroupEditorTest, EntriesAreMovedAndDeletedFromTheList) {
    Open(4);
    Press(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(List(), "b [a] c d");
    Press(Qt::Key_Down);
    EXPECT_EQ(List(), "b a [c] d");
    Press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(List(), "b [c] a d");
    Press(Qt::Key_Delete);
    EXPECT_EQ(List(), "b [a] d");
    Press(Qt::Key_End);
    Press(Qt::Key_Delete);
    EXPECT_EQ(List(), "b [a]");
    EXPECT_EQ(Focus(), QStringLiteral("lstUrls"));
}

TEST_F(GroupEditorTest, EveryButtonHasAnAccessKey) {
    Open(3);
    // A button is seen going down before it acts.
    const auto lists = [&](const char* expected) { return QTest::qWaitFor([&] { return List() == expected; }); };
    const auto focuses = [&](const char* name) {
        return QTest::qWaitFor([&] { return Focus() == QLatin1String(name); });
    };
    Press(Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(lists("b [a] c"));
    Press(Qt::Key_U, Qt::AltModifier);
    EXPECT_TRUE(lists("[a] b c"));
    Press(Qt::Key_L, Qt::AltModifier);
    EXPECT_TRUE(lists("[b] c"));
    Press(Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(focuses("txtUrl"));
    Press(Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(focuses("lstUrls"));
    Press(Qt::Key_I, Qt::AltModifier);
    EXPECT_TRUE(focuses("txtUrl"));
    Type("x");
    Press(Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(lists("[b] c x"));
    Find<QPushButton>("cmdUp").setFocus();
    Press(Qt::Key_G, Qt::AltModifier);
    EXPECT_TRUE(focuses("lstUrls"));
    Press(Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !editor->isVisible(); }));
    EXPECT_EQ(Read("News.tvg"), "[TessaGroup]\r\nurl0=b\r\nurl1=c\r\nurl2=x\r\n");
}

TEST_F(GroupEditorTest, InsertOpensTheEntryAndEnterAddsTheAddress) {
    Open(2);
    Press(Qt::Key_Insert);
    EXPECT_EQ(editor->height(), kExpanded);
    EXPECT_TRUE(Find<QFrame>("Frame1").isVisible());
    EXPECT_EQ(Focus(), QStringLiteral("txtUrl"));
    EXPECT_EQ(Find<QPushButton>("cmdUrlInsert").text(), QStringLiteral("Inser&t"));
    for (const char* resting : {"lstUrls", "cmdInsert", "cmdUpdate", "cmdDelete"})
        EXPECT_FALSE(Find<QWidget>(resting).isEnabled()) << resting;
    Type("about:blank");
    Press(Qt::Key_Return);
    EXPECT_EQ(List(), "[a] b about:blank");
    EXPECT_EQ(editor->height(), kCollapsed);
    EXPECT_EQ(Focus(), QStringLiteral("lstUrls"));
    for (const char* again : {"lstUrls", "cmdInsert", "cmdUpdate", "cmdDelete"})
        EXPECT_TRUE(Find<QWidget>(again).isEnabled()) << again;
    EXPECT_TRUE(editor->isVisible());
}

TEST_F(GroupEditorTest, UpdateShowsTheAddressSelectedToBeTypedOver) {
    Open(2);
    Press(Qt::Key_Down);
    Press(Qt::Key_F2);
    EXPECT_EQ(Find<QPushButton>("cmdUrlInsert").text(), QStringLiteral("Upda&te"));
    EXPECT_EQ(Find<QLineEdit>("txtUrl").selectedText(), QStringLiteral("b"));
    Type("new");
    Press(Qt::Key_Return);
    EXPECT_EQ(List(), "a [new]");
}

TEST_F(GroupEditorTest, EscapeClosesTheEntryFirstAndThenTheWindow) {
    Open(2);
    Press(Qt::Key_Insert);
    Type("x");
    Press(Qt::Key_Escape);
    EXPECT_EQ(List(), "[a] b");
    EXPECT_EQ(editor->height(), kCollapsed);
    EXPECT_TRUE(editor->isVisible());
    Press(Qt::Key_Delete);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(editor->isVisible());
    EXPECT_FALSE(form.Form.Visible());
    EXPECT_EQ(Read("News.tvg"), "[TessaGroup]\r\nurl0=a\r\nurl1=b\r\n");
}

TEST_F(GroupEditorTest, EnterInTheListSaves) {
    Open(2);
    Press(Qt::Key_Delete);
    Press(Qt::Key_Return);
    EXPECT_FALSE(editor->isVisible());
    EXPECT_EQ(Read("News.tvg"), "[TessaGroup]\r\nurl0=b\r\n");
}

TEST_F(GroupEditorTest, LinesThatArePastedBecomeAnAddressEach) {
    Open(1);
    QApplication::clipboard()->setText(QStringLiteral("http://b/\nhttp://c/\r\nhttp://d/\n"));
    Press(Qt::Key_Insert);
    Press(Qt::Key_V, Qt::ControlModifier);
    Press(Qt::Key_Return);
    EXPECT_EQ(List(), "[a] http://b/ http://c/ http://d/");
}

TEST_F(GroupEditorTest, ADoubleClickOpensUpdate) {
    Open(3);
    auto& list = Find<GroupList>("lstUrls");
    const QPoint third = list.visualRect(list.model()->index(2, 0)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, third);
    EXPECT_EQ(List(), "a b [c]");
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, third);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, third);
    EXPECT_EQ(Focus(), QStringLiteral("txtUrl"));
    EXPECT_EQ(Find<QLineEdit>("txtUrl").text(), QStringLiteral("c"));
}

TEST_F(GroupEditorTest, AClickBesideTheEntriesLeavesTheSelection) {
    Open(2);
    auto& list = Find<GroupList>("lstUrls");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.viewport()->rect().bottomLeft() - QPoint(-5, 5));
    EXPECT_EQ(List(), "[a] b");
}

TEST_F(GroupEditorTest, AnEntryIsDraggedToAnotherPlace) {
    Open(4);
    auto& list = Find<GroupList>("lstUrls");
    const auto upper = [&](int row) { return list.visualRect(list.model()->index(row, 0)).topLeft() + QPoint(5, 2); };
    const auto lower = [&](int row) {
        return list.visualRect(list.model()->index(row, 0)).bottomLeft() + QPoint(5, -2);
    };
    list.MoveTo(lower(2));
    EXPECT_EQ(List(), "b c [a] d");
    list.MoveTo(upper(0));
    EXPECT_EQ(List(), "[a] b c d");
    list.MoveTo(list.viewport()->rect().bottomLeft());
    EXPECT_EQ(List(), "b c d [a]");
    list.MoveTo(upper(3));
    EXPECT_EQ(List(), "b c d [a]") << "onto itself";
}

TEST_F(GroupEditorTest, AClickPlansAPageAndOkWritesIt) {
    Open(3);
    EXPECT_EQ(Columns(1), "As listed|-|-|As usual");
    ClickCell(1, GroupList::Asleep);
    ClickCell(1, GroupList::Muted);
    EXPECT_EQ(Columns(1), "As listed|x|x|As usual");
    EXPECT_EQ(List(), "a [b] c");
    ClickCell(1, GroupList::Asleep);
    EXPECT_EQ(Columns(1), "As listed|-|x|As usual");
    Press(Qt::Key_Return);
    EXPECT_EQ(Read("News.tvg"), "[TessaGroup]\r\nurl0=a\r\nurl1=b\r\nurl2=c\r\n[TessaView]\r\npage1=muted b\r\n");
}

TEST_F(GroupEditorTest, AMenuPlansWhatHasMoreThanTwoWays) {
    Open(2);
    Choose(1, GroupList::Place, "&First");
    Choose(1, GroupList::TextSize, "Largest");
    EXPECT_EQ(Columns(1), "First|-|-|Largest");
    Choose(1, GroupList::Address, "&Last");
    Choose(1, GroupList::Address, "Asl&eep");
    EXPECT_EQ(Columns(1), "Last|x|-|Largest");
    QMenu menu;
    Find<GroupList>("lstUrls").FillMenu(menu, 1, GroupList::Address);
    EXPECT_EQ(Checked(menu), "&Last Asl&eep ");
    Choose(1, GroupList::TextSize, "As usual");
    Choose(1, GroupList::Place, "&As Listed");
    EXPECT_EQ(Columns(1), "As listed|x|-|As usual");
}

TEST_F(GroupEditorTest, TheMenuKeyPopsUpThePlanOfTheEntry) {
    Open(2);
    auto& list = Find<GroupList>("lstUrls");
    QContextMenuEvent key(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(list.viewport(), &key);
    auto* menu = list.findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(Checked(*menu), "&As Listed ");
    menu->close();
}

TEST_F(GroupEditorTest, ADoubleClickOnAPlanOpensNoEntry) {
    Open(2);
    auto& list = Find<GroupList>("lstUrls");
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {},
                       list.visualRect(list.model()->index(0, GroupList::Muted)).center());
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {},
                        list.visualRect(list.model()->index(0, GroupList::Muted)).center());
    EXPECT_FALSE(Find<QFrame>("Frame1").isVisible());
}

TEST_F(GroupEditorTest, WhatHoldsForTheWholeGroupIsWritten) {
    Open(1);
    Find<QComboBox>("cboColour").setCurrentIndex(Find<QComboBox>("cboColour").findText(QStringLiteral("Purple")));
    Press(Qt::Key_N, Qt::AltModifier);
    Press(Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.chkBehind.Ticked() && form.chkCloseOthers.Ticked(); }));
    form.cmdOK.Click();
    EXPECT_EQ(Read("News.tvg"),
              "[TessaGroup]\r\nurl0=a\r\n[TessaView]\r\ncolour=purple\r\nbehind=1\r\ncloseothers=1\r\n");
}

TEST_F(GroupEditorTest, ThePlanMovesWithItsEntry) {
    Open(2);
    ClickCell(0, GroupList::Muted);
    Press(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(List() + " " + Columns(0) + " " + Columns(1), "b [a] As listed|-|-|As usual As listed|-|x|As usual");
}

TEST_F(GroupEditorTest, WhatTheUserHasAddedToTheHeightStays) {
    Open(2);
    editor->resize(700, kCollapsed + 200);
    Press(Qt::Key_Insert);
    EXPECT_EQ(editor->size(), QSize(700, kExpanded + 200));
    Press(Qt::Key_Escape);
    EXPECT_EQ(editor->size(), QSize(700, kCollapsed + 200));
}

TEST_F(GroupEditorTest, TheLastAddressStaysAndTheUserIsTold) {
    Open(1);
    Press(Qt::Key_Delete);
    EXPECT_EQ(List(), "[a]");
    EXPECT_EQ(messages.told.size(), 1u);
}

TEST_F(GroupEditorTest, TwoThousandAddressesAreShownMovedAndSaved) {
    Open(2000);
    auto& list = Find<GroupList>("lstUrls");
    EXPECT_EQ(list.model()->rowCount(), 2000);
    Press(Qt::Key_End);
    EXPECT_EQ(form.lstUrls.ListIndex(), 1999);
    for (int i = 0; i < 100; ++i) Press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(form.lstUrls.ListIndex(), 1899);
    EXPECT_TRUE(list.viewport()->rect().contains(list.visualRect(list.currentIndex()))) << "it stays in sight";
    Press(Qt::Key_Return);
    const CStrings saved = TessaGroups::Load(PathText("News.tvg"));
    EXPECT_EQ(saved.Count(), 2000u);
    EXPECT_EQ(std::next(saved.begin(), 1899)->Key, FromBytes(NameOf(1999)));
}

TEST_F(GroupEditorTest, ALongNameDoesNotWidenTheWindow) {
    form.lblTessaGroupName.Caption = Text(255, u'W');
    GroupEditor wide(form);
    EXPECT_LE(wide.width(), 680);
    EXPECT_LE(wide.minimumSizeHint().width(), 680);
}

} // namespace

} // namespace tessa::qt
