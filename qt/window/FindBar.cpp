#include "qt/window/FindBar.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QToolButton>
#include <QWebEngineFindTextResult>
#include <QWebEnginePage>
#include <array>

namespace tessa::qt {

namespace {

constexpr char16_t kPrivateUse = u'\uE000'; // stands on no page

struct ButtonIcon {
    const char* button;
    const char* icon;
};

constexpr std::array kIcons{ButtonIcon{"cmdPrevious", "go-up"}, ButtonIcon{"cmdNext", "go-down"},
                            ButtonIcon{"cmdClose", "window-close"}};

QToolButton* NewToolButton(const QString& name, const QString& tip, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

} // namespace

FindBar::FindBar(QWidget* parent)
    : QWidget(parent),
      m_text(new QLineEdit(this)),
      m_matchCase(new QCheckBox(QStringLiteral("Match &case"), this)),
      m_found(new QLabel(this)) {
    setObjectName(QStringLiteral("findBar"));
    setAutoFillBackground(true);
    m_text->setObjectName(QStringLiteral("txtFind"));
    m_text->setAccessibleName(QStringLiteral("Find on this page"));
    m_text->setPlaceholderText(QStringLiteral("Find on this page"));
    m_text->setMaximumWidth(360);
    auto* previous = NewToolButton(QStringLiteral("cmdPrevious"), QStringLiteral("Previous"), this);
    auto* next = NewToolButton(QStringLiteral("cmdNext"), QStringLiteral("Next"), this);
    auto* close = NewToolButton(QStringLiteral("cmdClose"), QStringLiteral("Close"), this);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 3, 6, 3);
    for (QWidget* each : std::initializer_list<QWidget*>{m_text, previous, next, m_matchCase, m_found})
        row->addWidget(each, each == m_text ? 1 : 0);
    row->addStretch(1);
    row->addWidget(close);
    connect(m_text, &QLineEdit::textChanged, this, [this] { Find(Direction::Forward); });
    connect(m_text, &QLineEdit::textEdited, this, [this] { Typed(); });
    connect(m_matchCase, &QCheckBox::toggled, this, &FindBar::FindAnew);
    connect(previous, &QToolButton::clicked, this, [this] { Find(Direction::Backward); });
    connect(next, &QToolButton::clicked, this, [this] { Find(Direction::Forward); });
    connect(close, &QToolButton::clicked, this, &FindBar::Close);
    hide();
}

// Only now, because the theme is not chosen before the window is shown.
void FindBar::ShowIcons() {
    m_text->setClearButtonEnabled(true);
    for (const auto& [name, icon] : kIcons) {
        if (auto* button = findChild<QToolButton*>(QLatin1String(name)))
            button->setIcon(QIcon::fromTheme(QLatin1String(icon)));
    }
}

void FindBar::Open() {
    ShowIcons();
    show();
    Changed();
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
    FindAnew();
}

// The engine goes on with the search before, without counting, as long as the text is the same.
void FindBar::FindAnew() {
    if (!m_text->text().isEmpty()) {
        for (auto* page : AllPages()) page->findText(QString(QChar(kPrivateUse)));
    }
    Find(Direction::Forward);
}

std::vector<QWebEnginePage*> FindBar::AllPages() const {
    return m_pages ? m_pages->PagesToSearch() : std::vector<QWebEnginePage*>();
}

void FindBar::Close() {
    hide();
    Changed();
    for (auto* page : AllPages()) page->findText(QString());
    m_found->clear();
    FocusPage();
}

void FindBar::OnPageChanged() { m_found->clear(); }

void FindBar::Find(Direction direction) {
    const auto pages = AllPages();
    if (pages.empty()) return;
    QWebEnginePage::FindFlags flags;
    if (direction == Direction::Backward) flags |= QWebEnginePage::FindBackward;
    if (m_matchCase->isChecked()) flags |= QWebEnginePage::FindCaseSensitively;
    const QPointer<FindBar> self(this);
    for (std::size_t i = 1; i < pages.size(); ++i) pages[i]->findText(m_text->text(), flags);
    pages.front()->findText(m_text->text(), flags, [self](const QWebEngineFindTextResult& result) {
        if (self) self->Tell(result);
    });
}

void FindBar::Tell(const QWebEngineFindTextResult& result) {
    if (m_text->text().isEmpty() || isHidden()) return m_found->clear();
    m_found->setText(result.numberOfMatches() == 0
                         ? QStringLiteral("Not found")
                         : QStringLiteral("%1 of %2").arg(result.activeMatch()).arg(result.numberOfMatches()));
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return Close();
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) return QWidget::keyPressEvent(event);
    Find(event->modifiers() & Qt::ShiftModifier ? Direction::Backward : Direction::Forward);
}

} // namespace tessa::qt
