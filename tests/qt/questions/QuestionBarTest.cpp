#include "qt/questions/QuestionBar.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

/// A page, played by a line to type in, with the bar above it.
class QuestionBarTest : public testing::Test {
protected:
    QuestionBarTest() {
        following = questions.Changed.Connect([this] {
            bar.ShowCurrent();
            bar.setVisible(bar.Asks());
            bar.setGeometry(0, 0, window.width(), bar.HeightFor(window.width()));
        });
        bar.FocusPage.ConnectForLife([this] { page->setFocus(); });
        page->setGeometry(0, 200, 600, 30);
        window.resize(600, 300);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        page->setFocus();
    }
    void Ask(const Text& words, const Text& remember = u"&Remember for this site") {
        questions.Ask({.Key = words,
                       .Words = words,
                       .Answers = {u"A&llow", u"&Block"},
                       .Remember = remember,
                       .Answered = [this](std::size_t answer, bool remembers) {
                           answers << (answer == PageQuestion::kDismissed ? QStringLiteral("none")
                                                                          : QString::number(answer)) +
                                          (remembers ? QStringLiteral("!") : QString());
                       }});
    }
    /// The time in which nothing is answered is over.
    void Later() { now += AnswerGuard::kQuiet; }
    void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    [[nodiscard]] QString Words() const { return bar.findChild<QLabel*>()->text(); }

    /// Outlives the questions, which are dismissed when they go.
    QStringList answers;
    QWidget window;
    QLineEdit* page = new QLineEdit(&window);
    PageQuestions questions;
    std::chrono::milliseconds now{0};
    QuestionBar bar{questions, &window, [this] { return now; }};
    Connection following;
};

TEST_F(QuestionBarTest, LeavesTheKeyboardToThePage) {
    Ask(u"a.example wants to know where you are.");
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(Words(), u"a.example wants to know where you are.");
    EXPECT_TRUE(page->hasFocus());
    Press(Qt::Key_Return);
    EXPECT_TRUE(answers.isEmpty()) << "what is typed into the page answers nothing";
}

TEST_F(QuestionBarTest, OtherWordsLeaveItsAnswersAsTheyAre) {
    questions.Reworded.ConnectForLife([this] { bar.ShowWords(); });
    Ask(u"a.example wants to open a window.");
    bar.TakeFocus();
    Later();
    const QWidget* button = QApplication::focusWidget();
    questions.Reword(u"a.example wants to open a window.", u"a.example wants to open 2 windows.");
    EXPECT_EQ(Words(), u"a.example wants to open 2 windows.");
    EXPECT_EQ(bar.accessibleName(), Words());
    EXPECT_EQ(QApplication::focusWidget(), button);
    Press(Qt::Key_Return);
    EXPECT_EQ(answers.join(u' '), u"0") << "a page that goes on wanting cannot put the answer off";
}

TEST_F(QuestionBarTest, IsAnsweredByKeyboard) {
    Ask(u"a?");
    bar.TakeFocus();
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"cmdAnswer1");
    Later();
    Press(Qt::Key_Return);
    EXPECT_EQ(answers.join(u' '), u"0");
    EXPECT_FALSE(bar.isVisible());
    EXPECT_TRUE(page->hasFocus());
}

TEST_F(QuestionBarTest, RemembersWhenItsBoxIsTicked) {
    Ask(u"a?");
    Ask(u"b?", {});
    auto* remember = bar.findChild<QCheckBox*>();
    EXPECT_TRUE(remember->isVisible());
    remember->setFocus();
    Later();
    Press(Qt::Key_Space);
    Press(Qt::Key_Tab);
    Press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"cmdAnswer2");
    Press(Qt::Key_Space);
    EXPECT_EQ(answers.join(u' '), u"1!");
    EXPECT_EQ(Words(), u"b?");
    EXPECT_FALSE(remember->isVisible());
    EXPECT_FALSE(remember->isChecked()) << "a tick is for one question";
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"cmdAnswer2")
        << "whoever answers goes on, and allows nothing by going on";
}

TEST_F(QuestionBarTest, IsNotAnsweredByAKeyThatIsHeldDown) {
    Ask(u"a?");
    Ask(u"b?");
    bar.TakeFocus();
    Press(Qt::Key_Return);
    EXPECT_TRUE(answers.isEmpty()) << "the keyboard has only just come to the question";
    Later();
    Press(Qt::Key_Return);
    EXPECT_EQ(answers.join(u' '), u"0");
    Press(Qt::Key_Return);
    EXPECT_EQ(answers.join(u' '), u"0") << "the next question is another one";
    Later();
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
    QApplication::sendEvent(QApplication::focusWidget(), &repeated);
    EXPECT_EQ(answers.join(u' '), u"0");
}

TEST_F(QuestionBarTest, IsNotAnsweredByTheSecondClickOfTwo) {
    Ask(u"a?");
    auto* allow = bar.findChild<QPushButton*>(QStringLiteral("cmdAnswer1"));
    QTest::mouseDClick(allow, Qt::LeftButton);
    QTest::mouseClick(allow, Qt::LeftButton);
    EXPECT_TRUE(answers.isEmpty());
    Later();
    QTest::mouseClick(allow, Qt::LeftButton);
    EXPECT_EQ(answers.join(u' '), u"0") << "the focus that a click brings along is no surprise";
}

TEST_F(QuestionBarTest, TakesNoAnswerAtOnceWhenItsTabComesBack) {
    Ask(u"a?");
    Later();
    bar.hide();
    bar.show();
    QTest::mouseClick(bar.findChild<QPushButton*>(QStringLiteral("cmdAnswer1")), Qt::LeftButton);
    EXPECT_TRUE(answers.isEmpty());
}

TEST_F(QuestionBarTest, IsDismissedWithEscape) {
    Ask(u"a?");
    bar.TakeFocus();
    Press(Qt::Key_Escape);
    EXPECT_EQ(answers.join(u' '), u"none");
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(QuestionBarTest, OffersWhatThereIsToChooseWhenItIsLookedAt) {
    PageChoices choices{{u"Screen: 1", u"Window: News"}, 1};
    std::vector<std::size_t> chosen;
    questions.Ask({.Key = u"a",
                   .Words = u"a?",
                   .Answers = {u"&Share", u"&Block"},
                   .Remember = {},
                   .Choices = [&] { return choices; },
                   .Choose =
                       [&](std::size_t choice) {
                           chosen.push_back(choice);
                           choices.Chosen = choice;
                       },
                   .Answered = [this](std::size_t answer, bool) { answers << QString::number(answer); }});
    auto* list = bar.findChild<QComboBox*>();
    ASSERT_TRUE(list->isVisible());
    EXPECT_EQ(list->currentText(), u"Window: News");
    bar.TakeFocus();
    EXPECT_TRUE(list->hasFocus()) << "what is chosen comes before the answer";
    choices = {{u"Screen: 1", u"Window: Mail", u"Window: News"}, 2};
    list->showPopup();
    EXPECT_EQ(list->count(), 3) << "a window that was opened meanwhile";
    EXPECT_EQ(list->currentText(), u"Window: News");
    list->hidePopup();
    Press(Qt::Key_Up);
    EXPECT_EQ(chosen, (std::vector<std::size_t>{1}));
    bar.findChild<QPushButton*>(QStringLiteral("cmdAnswer1"))->click();
    EXPECT_EQ(answers.join(u' '), u"0");
    Ask(u"b?");
    EXPECT_FALSE(list->isVisible()) << "there is nothing to choose";
}

TEST_F(QuestionBarTest, ShowsWordsAsTextAndGrowsWithThem) {
    Ask(u"<img src=x> & <b>b</b>");
    EXPECT_EQ(bar.findChild<QLabel*>()->textFormat(), Qt::PlainText);
    const int low = bar.HeightFor(600);
    questions.DismissAll();
    Ask(Text(600, u'x') + u" " + Text(600, u'y') + u" y y y y y y y y y y y y y y y y y y y y y y y y y y y y y y");
    EXPECT_GE(bar.HeightFor(600), low);
}

} // namespace

} // namespace tessa::qt
