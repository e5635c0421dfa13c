#include "qt/base/KeyFilter.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QVBoxLayout>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
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

class KeyFilterTest : public testing::Test, private KeyTaker {
protected:
    void SetUp() override {
        auto* rows = new QVBoxLayout(&m_window);
        m_taker = new Taker;
        rows->addWidget(m_taker);
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

    KeyUsed KeyDown(KeyStroke key) override { return m_down(key); }
    KeyUsed KeyUp(KeyStroke key) override { return m_up(key); }
    [[nodiscard]] bool BeforeAccessKeys(KeyStroke key) const override { return key == m_goesFirst; }

    static KeyUsed UseNone(KeyStroke) { return KeyUsed::No; }
    QWidget m_window;
    Taker* m_taker = nullptr;
    KeyFilter m_keys{m_window, *this};
    std::function<KeyUsed(KeyStroke)> m_down = [this](KeyStroke key) { return Ask("down ", key); };
    std::function<KeyUsed(KeyStroke)> m_up = [this](KeyStroke key) { return Ask("up ", key); };
    std::optional<KeyStroke> m_goesFirst;
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
    m_up = UseNone;
    QTest::keyClick(m_taker, Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(m_taker->seen, "up T;");
    m_up = [](KeyStroke) { return KeyUsed::Yes; };
    m_down = UseNone;
    QTest::keyClick(m_taker, Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(m_taker->seen, "up T;down T;");
}

TEST_F(KeyFilterTest, AKeyThatLeadsTheKeyboardElsewhereIsTypedNowhere) {
    auto* other = new Taker;
    m_window.layout()->addWidget(other);
    other->show();
    m_down = [other](KeyStroke key) {
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

TEST_F(KeyFilterTest, WhatGoesFirstIsToldOfInPlaceOfALabelsAccessKey) {
    auto* label = new QLabel(QStringLiteral("&Address"));
    auto* box = new QLineEdit;
    label->setBuddy(box);
    m_window.layout()->addWidget(label);
    m_window.layout()->addWidget(box);
    label->show();
    box->show();
    QTest::keyClick(m_taker, Qt::Key_A, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return box->hasFocus(); })) << "the label answers it";
    EXPECT_EQ(m_asked.find("down 4A;"), std::string::npos) << m_asked;
    m_goesFirst = KeyStroke{'A', Keys::kAlt};
    m_taker->setFocus();
    QTest::keyClick(m_taker, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(m_taker->hasFocus());
    EXPECT_NE(m_asked.find("down 4A;"), std::string::npos) << m_asked;
}

TEST_F(KeyFilterTest, EveryKeyHasOneNameHereAndInQt) {
    std::size_t named = 0;
    for (std::int32_t code = 1; code < 300; ++code) {
        for (std::int32_t held = 0; held < 8; ++held) {
            const KeyStroke key{code, held};
            const QKeySequence keys = KeyFilter::Sequence(key);
            EXPECT_EQ(ToUtf8(KeyWords::Shown(key)), keys.toString(QKeySequence::NativeText).toStdString());
            if (keys.isEmpty()) continue;
            ++named;
            const QKeyCombination pressed = keys[0];
            const QKeyEvent event(QEvent::KeyPress, pressed.key(), pressed.keyboardModifiers());
            EXPECT_EQ(KeyFilter::Of(event), key) << keys.toString().toStdString();
        }
    }
    EXPECT_EQ(named, (26U + 10U + 12U + 20U) * 8U);
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
