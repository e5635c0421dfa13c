#include "qt/base/KeyFilter.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>
#include <string>

namespace tessa::qt {

namespace {

/// Something in the window that takes every key it gets.
class Taker final : public QWidget {
public:
    Taker() { setFocusPolicy(Qt::StrongFocus); }
    std::string seen;

protected:
    void keyPressEvent(QKeyEvent* event) override { Note("down ", *event); }
    void keyReleaseEvent(QKeyEvent* event) override { Note("up ", *event); }

private:
    void Note(const char* way, const QKeyEvent& event) {
        if (event.key() != Qt::Key_Control && event.key() != Qt::Key_Alt)
            seen += way + QKeySequence(event.key()).toString().toStdString() + ";";
    }
};

class KeyFilterTest : public testing::Test {
protected:
    void SetUp() override {
        auto* rows = new QVBoxLayout(&m_window);
        m_taker = new Taker;
        rows->addWidget(m_taker);
        m_keys.Down = [this](KeyStroke key) { return Ask("down ", key); };
        m_keys.Up = [this](KeyStroke key) { return Ask("up ", key); };
        m_window.show();
        m_window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
        m_taker->setFocus();
    }

    /// The program uses T, whatever is held, and no other key.
    KeyUsed Ask(const char* way, KeyStroke key) {
        const bool alt = key.KeyCode == Keys::kAltAlone;
        m_asked +=
            way + std::to_string(key.Shift) + (alt ? "Alt" : std::string(1, static_cast<char>(key.KeyCode))) + ";";
        return key.KeyCode == 'T' ? KeyUsed::Yes : KeyUsed::No;
    }

    QWidget m_window;
    Taker* m_taker = nullptr;
    KeyFilter m_keys{m_window};
    std::string m_asked;
};

TEST_F(KeyFilterTest, TheProgramIsAskedFirstAndWhatItUsesGoesNoFurther) {
    QTest::keyClick(m_taker, Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(m_asked, "down 2T;up 2T;");
    EXPECT_EQ(m_taker->seen, "");
    QTest::keyClick(m_taker, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(m_asked, "down 2T;up 2T;down 2A;up 2A;");
    EXPECT_EQ(m_taker->seen, "down A;up A;");
}

TEST_F(KeyFilterTest, AKeyThatIsUsedOnOneWayOnlyGoesOnOnTheOther) {
    m_keys.Up = {};
    QTest::keyClick(m_taker, Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(m_taker->seen, "up T;");
    m_keys.Up = [](KeyStroke) { return KeyUsed::Yes; };
    m_keys.Down = {};
    QTest::keyClick(m_taker, Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(m_taker->seen, "up T;down T;");
}

TEST_F(KeyFilterTest, AKeyThatLeadsTheKeyboardElsewhereIsTypedNowhere) {
    auto* other = new Taker;
    m_window.layout()->addWidget(other);
    other->show();
    m_keys.Down = [other](KeyStroke key) {
        if (key.KeyCode == 'D') other->setFocus();
        return KeyUsed::No;
    };
    QTest::keyPress(m_taker, Qt::Key_D, Qt::AltModifier);
    ASSERT_TRUE(other->hasFocus());
    EXPECT_EQ(m_taker->seen + other->seen, "");
    QTest::keyPress(other, Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(other->seen, "down A;");
}

TEST_F(KeyFilterTest, AltIsToldOfWhenItGoesUpAgainAlone) {
    QTest::keyPress(m_taker, Qt::Key_Alt, Qt::AltModifier);
    EXPECT_EQ(m_asked, "") << "it may still become a combination";
    QTest::keyRelease(m_taker, Qt::Key_Alt);
    EXPECT_EQ(m_asked, "up 0Alt;");
    QTest::keyRelease(m_taker, Qt::Key_Alt);
    EXPECT_EQ(m_asked, "up 0Alt;") << "it was pressed elsewhere";
}

TEST_F(KeyFilterTest, AltWithAnythingElseIsACombination) {
    QTest::keyPress(m_taker, Qt::Key_Alt, Qt::AltModifier);
    QTest::keyClick(m_taker, Qt::Key_A, Qt::AltModifier);
    QTest::keyRelease(m_taker, Qt::Key_Alt);
    EXPECT_EQ(m_asked, "down 4A;up 4A;");
    m_asked.clear();
    QTest::keyPress(m_taker, Qt::Key_Alt, Qt::AltModifier);
    QTest::mouseClick(m_taker, Qt::LeftButton, Qt::AltModifier);
    QTest::keyRelease(m_taker, Qt::Key_Alt);
    QTest::keyPress(m_taker, Qt::Key_Shift, Qt::ShiftModifier);
    QTest::keyPress(m_taker, Qt::Key_Alt, Qt::ShiftModifier | Qt::AltModifier);
    QTest::keyRelease(m_taker, Qt::Key_Alt, Qt::ShiftModifier);
    EXPECT_EQ(m_asked, "");
    QTest::keyPress(m_taker, Qt::Key_Alt, Qt::AltModifier);
    QEvent away(QEvent::WindowDeactivate);
    QApplication::sendEvent(&m_window, &away);
    QTest::keyRelease(m_taker, Qt::Key_Alt);
    EXPECT_EQ(m_asked, "") << "it has led to another window";
}

TEST_F(KeyFilterTest, AltWithAnAccessKeyIsACombinationToo) {
    QTest::keyPress(m_taker, Qt::Key_Alt, Qt::AltModifier);
    QKeyEvent asked(QEvent::ShortcutOverride, Qt::Key_D, Qt::AltModifier);
    QApplication::sendEvent(m_taker, &asked);
    QTest::keyRelease(m_taker, Qt::Key_Alt);
    EXPECT_EQ(m_asked, "") << "a label has answered the key before it was pressed";
}

TEST_F(KeyFilterTest, KeysOfAnotherWindowOrAnOpenMenuAreNotTheWindows) {
    QWidget other;
    other.show();
    QTest::keyClick(&other, Qt::Key_T, Qt::ControlModifier);
    QMenu menu;
    menu.addAction(QStringLiteral("Entry"));
    menu.popup({});
    QTest::keyClick(&menu, Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(m_asked, "");
}

} // namespace

} // namespace tessa::qt
