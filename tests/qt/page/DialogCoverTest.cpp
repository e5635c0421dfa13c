// Tests: AnswerGuard
#include "qt/page/DialogCover.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>
#include <memory>

namespace tessa::qt {

namespace {

/// A question over a page, with a line to type in if wanted.
class AskingCover final : public DialogCover {
public:
    AskingCover(AnswerGuard::Clock clock, DefaultAnswer byDefault, bool withLine) : DialogCover(std::move(clock)) {
        AddHeading(QStringLiteral("Open?"));
        if (withLine) {
            auto* line = new QLineEdit(this);
            Column()->addWidget(line);
            setFocusProxy(line);
        }
        AddButtons(QStringLiteral("&Open"), QStringLiteral("&Cancel"), byDefault);
    }
};

class DialogCoverTest : public testing::Test {
protected:
    void Show(DefaultAnswer byDefault, bool withLine = false) {
        cover = new AskingCover([this] { return now; }, byDefault, withLine);
        cover->Accepted.ConnectForLife([this] { answers += "open "; });
        cover->Cancelled.ConnectForLife([this] { answers += "cancel "; });
        cover->setParent(&window);
        cover->setGeometry(window.rect());
        window.resize(600, 300);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        cover->show();
        cover->setFocus(Qt::OtherFocusReason);
    }
    void Later() { now += AnswerGuard::kQuiet; }
    static void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    static void Repeat(Qt::Key key, const QString& text) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text, true);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
    }
    [[nodiscard]] QPushButton* Button(const char* name) const {
        return cover->findChild<QPushButton*>(QLatin1String(name));
    }

    std::chrono::milliseconds now{0};
    QWidget window;
    AskingCover* cover = nullptr;
    std::string answers;
};

TEST_F(DialogCoverTest, AKeyThatIsHeldDownAnswersNothing) {
    Show(DefaultAnswer::Accept);
    EXPECT_EQ(QApplication::focusWidget(), Button("cmdOK"));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        Repeat(key, QStringLiteral("\r"));
        Press(key);
    }
    EXPECT_EQ(answers, "") << "the question has only just come up";
    Later();
    Repeat(Qt::Key_Return, QStringLiteral("\r"));
    EXPECT_EQ(answers, "") << "however long it is held down";
    Press(Qt::Key_Return);
    EXPECT_EQ(answers, "open ");
}

TEST_F(DialogCoverTest, AKeyThatIsHeldDownSendsNoLineEither) {
    Show(DefaultAnswer::Accept, true);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("a b"));
    EXPECT_EQ(cover->findChild<QLineEdit*>()->text(), u"a b") << "whoever types at once loses nothing";
    Press(Qt::Key_Return);
    Later();
    Repeat(Qt::Key_Return, QStringLiteral("\r"));
    EXPECT_EQ(answers, "");
    Press(Qt::Key_Return);
    EXPECT_EQ(answers, "open ");
}

TEST_F(DialogCoverTest, TheSecondClickOfTwoAnswersNothing) {
    Show(DefaultAnswer::Accept);
    QTest::mouseDClick(Button("cmdOK"), Qt::LeftButton);
    EXPECT_EQ(answers, "");
    Later();
    QTest::mouseClick(Button("cmdOK"), Qt::LeftButton);
    EXPECT_EQ(answers, "open ");
}

TEST_F(DialogCoverTest, TheLetterOfACaptionAnswersNothingAtOnce) {
    Show(DefaultAnswer::Accept);
    const auto open = [this] {
        QShortcutEvent event(QKeySequence(Qt::ALT | Qt::Key_O), 1);
        QApplication::sendEvent(Button("cmdOK"), &event);
    };
    open();
    QKeyEvent held(QEvent::ShortcutOverride, Qt::Key_O, Qt::AltModifier, QStringLiteral("o"), true);
    held.ignore();
    QApplication::sendEvent(Button("cmdOK"), &held);
    EXPECT_TRUE(held.isAccepted()) << "held down it is no shortcut";
    EXPECT_EQ(answers, "");
}

TEST_F(DialogCoverTest, WhatComesToTheFrontAgainIsReadFirst) {
    auto* elsewhere = new QLineEdit(&window);
    Show(DefaultAnswer::Accept);
    Later();
    elsewhere->setFocus();
    cover->setFocus(Qt::OtherFocusReason);
    Press(Qt::Key_Return);
    EXPECT_EQ(answers, "") << "the keyboard came back from elsewhere";
    Later();
    Press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), Button("cmdCancel"));
    Press(Qt::Key_Return);
    EXPECT_EQ(answers, "cancel ") << "from one button to the next nothing is new";
}

TEST_F(DialogCoverTest, WhoIsShownAgainIsReadFirst) {
    Show(DefaultAnswer::Accept);
    Later();
    cover->hide();
    cover->show();
    QTest::mouseClick(Button("cmdOK"), Qt::LeftButton);
    EXPECT_EQ(answers, "");
}

TEST_F(DialogCoverTest, EscapeRefusesAtOnce) {
    Show(DefaultAnswer::Accept);
    Press(Qt::Key_Escape);
    EXPECT_EQ(answers, "cancel ");
}

TEST_F(DialogCoverTest, ReturnMayStandForRefusing) {
    Show(DefaultAnswer::Cancel);
    EXPECT_EQ(QApplication::focusWidget(), Button("cmdCancel"));
    EXPECT_TRUE(Button("cmdCancel")->isDefault());
    EXPECT_FALSE(Button("cmdOK")->isDefault());
    Later();
    Press(Qt::Key_Return);
    EXPECT_EQ(answers, "cancel ");
}

} // namespace

} // namespace tessa::qt
