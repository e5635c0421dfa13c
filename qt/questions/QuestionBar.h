#pragma once
#include "base/Signal.h"
#include "pages/PageQuestions.h"
#include "qt/base/AnswerGuard.h"
#include "qt/base/PageBar.h"

#include <vector>

class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;

namespace tessa::qt {

/// The bar above a page that shows what the page wants and takes the user's answer. It never takes the keyboard from
/// the page by itself: F6 brings it there, Escape dismisses the question. What is held down or clicked when a question
/// comes up does not answer it. Few pages ever ask, so its parts are made for the first question.
class QuestionBar final : public PageBar {
    Q_OBJECT

public:
    /// The questions outlive the bar. The clock is the guard's.
    QuestionBar(PageQuestions& questions, QWidget* parent, AnswerGuard::Clock clock = {});

    /// Shows the question that is to be shown now.
    void ShowCurrent();
    /// The question that is shown has other words: its answers stay as they are.
    void ShowWords();
    /// Whether there is something to show.
    [[nodiscard]] bool Asks() const { return m_questions.Current() != nullptr; }
    /// How high the bar is at that width.
    [[nodiscard]] int HeightFor(int width) const;
    /// Takes the keyboard for the answers, if there are any.
    void TakeFocus();
    /// Gives the keyboard back to the page.
    Signal<void()> FocusPage;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    void MakeParts();
    void MakeChoices();
    void FillChoices();
    void ShowAnswers(const PageQuestion& question);
    void Answer(std::size_t answer);

    PageQuestions& m_questions;
    AnswerGuard::Clock m_clock;
    QLabel* m_words = nullptr;
    QComboBox* m_choices = nullptr;
    QCheckBox* m_remember = nullptr;
    QHBoxLayout* m_row = nullptr; // last of all: with it, all parts are there
    std::vector<QPushButton*> m_buttons;
    AnswerGuard* m_guard = nullptr;
};

} // namespace tessa::qt
