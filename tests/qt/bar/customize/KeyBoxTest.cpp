#include "qt/bar/customize/KeyBox.h"

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>
#include <string>

namespace tessa::qt {

namespace {

/// The box in a dialog, between two buttons.
class KeyBoxTest : public testing::Test {
protected:
    void SetUp() override {
        auto* rows = new QVBoxLayout(&dialog);
        for (QWidget* each : std::initializer_list<QWidget*>{&before, &box, &after}) rows->addWidget(each);
        QObject::connect(&after, &QPushButton::clicked, &after, [this] { ++clicked; });
        box.Changed.ConnectForLife([this] { ++changes; });
        box.Entered.ConnectForLife([this] { ++entered; });
        dialog.show();
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        box.setFocus();
    }
    std::string Press(Qt::Key key, Qt::KeyboardModifiers held = {}) {
        QTest::keyClick(&box, key, held);
        const auto recorded = box.Recorded();
        return recorded ? KeyWords::Word(*recorded) + "|" + box.text().toStdString() : "nothing";
    }

    int changes = 0, entered = 0, clicked = 0;
    QDialog dialog;
    QPushButton& before = *new QPushButton(QStringLiteral("&Before"));
    KeyBox& box = *new KeyBox;
    QPushButton& after = *new QPushButton(QStringLiteral("&After"));
};

TEST_F(KeyBoxTest, RecordsWhatIsPressedAndShowsTheLast) {
    EXPECT_EQ(Press(Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier), "Ctrl+Shift+E|Ctrl+Shift+E");
    EXPECT_EQ(Press(Qt::Key_F7), "F7|F7");
    EXPECT_EQ(Press(Qt::Key_PageDown, Qt::ControlModifier), "Ctrl+PageDown|Ctrl+PgDown");
    EXPECT_EQ(Press(Qt::Key_Tab, Qt::ControlModifier), "Ctrl+Tab|Ctrl+Tab");
    EXPECT_EQ(Press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier), "Ctrl+Shift+Tab|Ctrl+Shift+Tab");
    EXPECT_EQ(Press(Qt::Key_A), "A|A") << "whether that will do is said by others";
    EXPECT_EQ(Press(Qt::Key_Escape, Qt::ShiftModifier), "Shift+Escape|Shift+Esc");
    EXPECT_EQ(Press(Qt::Key_V, Qt::ControlModifier), "Ctrl+V|Ctrl+V") << "nothing is pasted";
    EXPECT_EQ(changes, 8);
    EXPECT_TRUE(box.hasFocus());
}

TEST_F(KeyBoxTest, ItGoesBeforeTheAccessKeysOfItsDialog) {
    EXPECT_EQ(Press(Qt::Key_A, Qt::AltModifier), "Alt+A|Alt+A");
    EXPECT_EQ(clicked, 0);
    before.setFocus();
    QTest::keyClick(&before, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return clicked == 1; })) << "elsewhere they work";
}

TEST_F(KeyBoxTest, ModifiersAloneAreNothingYet) {
    for (const Qt::Key key : {Qt::Key_Control, Qt::Key_Shift, Qt::Key_Alt, Qt::Key_Meta, Qt::Key_CapsLock})
        EXPECT_EQ(Press(key), "nothing");
    EXPECT_EQ(changes, 0);
}

TEST_F(KeyBoxTest, AKeyWithoutANameIsRecordedAsSuch) {
    EXPECT_EQ(Press(Qt::Key_Semicolon, Qt::ControlModifier), "|Ctrl+;");
    EXPECT_EQ(Press(Qt::Key_E, Qt::MetaModifier).substr(0, 1), "|") << "the desktop has those";
    EXPECT_NE(box.text(), QString());
}

TEST_F(KeyBoxTest, BackspaceAndDeleteAloneEmptyIt) {
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Delete}) {
        EXPECT_EQ(Press(Qt::Key_F7), "F7|F7");
        EXPECT_EQ(Press(key), "nothing");
        EXPECT_EQ(box.text(), QString());
        EXPECT_NE(Press(key, Qt::AltModifier), "nothing");
    }
}

TEST_F(KeyBoxTest, TabAndShiftTabLeaveItAndEscapeIsTheDialogs) {
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_TRUE(after.hasFocus());
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(before.hasFocus());
    box.setFocus();
    EXPECT_EQ(changes, 0);
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(box.Recorded());
}

TEST_F(KeyBoxTest, EnterAloneTakesWhatWasRecorded) {
    Press(Qt::Key_F7);
    EXPECT_EQ(Press(Qt::Key_Return), "F7|F7");
    EXPECT_EQ(Press(Qt::Key_Enter), "F7|F7");
    EXPECT_EQ(entered, 2);
    EXPECT_EQ(Press(Qt::Key_Return, Qt::ControlModifier), "Ctrl+Enter|Ctrl+Return");
    EXPECT_EQ(entered, 2);
    EXPECT_TRUE(dialog.isVisible()) << "no button of the dialog was pressed";
    EXPECT_EQ(clicked, 0);
}

} // namespace

} // namespace tessa::qt
