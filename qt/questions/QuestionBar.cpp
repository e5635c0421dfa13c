#include "qt/questions/QuestionBar.h"

#include "qt/base/Strings.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <algorithm>
#include <utility>

namespace tessa::qt {

namespace {

constexpr int kChoiceLength = 24; // characters that a choice shows at least

/// A list that asks for its entries anew before it opens.
class FreshChoices final : public QComboBox {
public:
    using QComboBox::QComboBox;
    std::function<void()> Fill;
    void showPopup() override {
        Fill();
        QComboBox::showPopup();
    }
};

} // namespace

QuestionBar::QuestionBar(PageQuestions& questions, QWidget* parent, AnswerGuard::Clock clock)
    : PageBar(QStringLiteral("questionBar"), parent), m_questions(questions), m_clock(std::move(clock)) {
    hide();
}

void QuestionBar::MakeParts() {
    if (m_row) return;
    m_words = new QLabel(this);
    m_words->setObjectName(QStringLiteral("lblQuestion"));
    m_words->setTextFormat(Qt::PlainText);
    m_words->setWordWrap(true);
    m_words->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    MakeChoices();
    m_remember = new QCheckBox(this);
    m_remember->setObjectName(QStringLiteral("chkRemember"));
    m_row = new QHBoxLayout(this);
    m_row->setContentsMargins(8, 4, 8, 4);
    m_row->addWidget(m_words, 1);
    m_row->addWidget(m_choices);
    m_row->addWidget(m_remember);
    m_guard = new AnswerGuard(*this, std::move(m_clock));
}

void QuestionBar::MakeChoices() {
    auto* choices = new FreshChoices(this);
    m_choices = choices;
    choices->setObjectName(QStringLiteral("cboChoices"));
    choices->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choices->setMinimumContentsLength(kChoiceLength);
    choices->Fill = [this] { FillChoices(); };
    connect(choices, &QComboBox::activated, this, [this](int choice) {
        const auto* question = m_questions.Current();
        if (question && question->Choose) question->Choose(static_cast<std::size_t>(choice));
    });
}

void QuestionBar::TakeFocus() {
    if (m_buttons.empty()) return;
    QWidget* first = m_choices->isHidden() ? static_cast<QWidget*>(m_buttons.front()) : m_choices;
    first->setFocus(Qt::ShortcutFocusReason);
}

void QuestionBar::ShowCurrent() {
    const auto* question = m_questions.Current();
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    for (QPushButton* each : std::exchange(m_buttons, {})) each->deleteLater();
    if (!question) {
        hide();
        if (hadFocus) FocusPage();
        return;
    }
    MakeParts();
    ShowWords();
    FillChoices();
    m_remember->setText(ToQt(question->Remember));
    m_remember->setChecked(false);
    m_remember->setVisible(!question->Remember.empty());
    ShowAnswers(*question);
    m_guard->Restart();
    // Whoever is answering goes on to the next question, and allows nothing by going on.
    if (hadFocus) m_buttons[PageQuestion::kRefused]->setFocus(Qt::OtherFocusReason);
}

void QuestionBar::ShowWords() {
    if (!m_row) return;
    const auto* question = m_questions.Current();
    m_words->setText(question ? ToQt(question->Words) : QString());
    setAccessibleName(m_words->text());
}

void QuestionBar::FillChoices() {
    const auto* question = m_questions.Current();
    const PageChoices choices = question && question->Choices ? question->Choices() : PageChoices{};
    m_choices->clear();
    for (const Text& name : choices.Names) m_choices->addItem(ToQt(name));
    m_choices->setCurrentIndex(static_cast<int>(choices.Chosen));
    m_choices->setAccessibleName(m_words->text());
    m_choices->setVisible(!choices.Names.empty());
}

void QuestionBar::ShowAnswers(const PageQuestion& question) {
    for (std::size_t i = 0; i < question.Answers.size(); ++i) {
        auto* button = new QPushButton(ToQt(question.Answers[i]), this);
        button->setObjectName(QStringLiteral("cmdAnswer%1").arg(i + 1));
        button->setAutoDefault(true);
        m_row->addWidget(button);
        m_guard->Watch(*button);
        connect(button, &QPushButton::clicked, this, [this, i] { Answer(i); });
        button->show();
        m_buttons.push_back(button);
    }
}

int QuestionBar::HeightFor(int width) const {
    if (!m_row) return 0;
    m_row->invalidate();
    return std::max(m_row->hasHeightForWidth() ? m_row->totalHeightForWidth(width) : 0,
                    m_row->totalMinimumSize().height());
}

void QuestionBar::Answer(std::size_t answer) { m_questions.Answer(answer, m_remember && m_remember->isChecked()); }

// Escape is the bar's before it is anybody's shortcut.
bool QuestionBar::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
        event->accept();
    return QWidget::event(event);
}

void QuestionBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return Answer(PageQuestion::kDismissed);
    QWidget::keyPressEvent(event);
}

} // namespace tessa::qt
