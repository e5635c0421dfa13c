#include "qt/page/DialogCover.h"

#include "qt/base/AddressLabel.h"

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace tessa::qt {

namespace {
constexpr int kPanelWidth = 480;
constexpr QColor kDark(0, 0, 0, 110);
} // namespace

DialogCover::DialogCover(AnswerGuard::Clock clock)
    : m_panel(new QFrame(this)), m_column(new QVBoxLayout(m_panel)), m_clock(std::move(clock)) {
    setFocusPolicy(Qt::StrongFocus);
    m_panel->setFrameShape(QFrame::StyledPanel);
    m_panel->setAutoFillBackground(true);
    m_panel->setMaximumWidth(kPanelWidth);
    m_panel->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
    m_column->setContentsMargins(16, 14, 16, 14);
    m_column->setSpacing(10);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(8, 0, 8, 8);
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(m_panel, 20);
    row->addStretch(1);
    lines->addLayout(row);
    lines->addStretch(1);
}

QLabel* DialogCover::AddWords(const QString& text, const char* name) {
    auto* label = new QLabel(text, m_panel);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_column->addWidget(label);
    return label;
}

void DialogCover::AddAddress(const QString& address) {
    auto* label = new AddressLabel(address, m_panel);
    label->setObjectName(QStringLiteral("lblAddress"));
    m_column->addWidget(label);
}

QLabel* DialogCover::AddHeading(const QString& text) {
    auto* label = AddWords(text, "lblHeading");
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    setAccessibleName(text);
    return label;
}

QPushButton* DialogCover::AddButton(const QString& caption, const char* name, const Signal<void()>& answer) {
    auto* button = new QPushButton(caption, m_panel);
    button->setObjectName(QLatin1String(name));
    m_buttons->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, &answer] { Answer(answer); });
    return button;
}

void DialogCover::AddButtons(const QString& accept, const QString& cancel, DefaultAnswer byDefault) {
    m_buttons = new QHBoxLayout;
    m_buttons->addStretch(1);
    m_canCancel = !cancel.isEmpty();
    // The answer that Enter gives stands first.
    const bool cancelFirst = m_canCancel && byDefault == DefaultAnswer::Cancel;
    if (cancelFirst) m_default = AddButton(cancel, "cmdCancel", Cancelled);
    auto* accepts = AddButton(accept, "cmdOK", Accepted);
    if (!cancelFirst) m_default = accepts;
    if (m_canCancel && !cancelFirst) AddButton(cancel, "cmdCancel", Cancelled);
    m_default->setDefault(true);
    m_column->addLayout(m_buttons);
    if (!focusProxy()) setFocusProxy(m_default);
    new AnswerGuard(*this, m_clock);
}

void DialogCover::Answer(const Signal<void()>& answer) {
    if (std::exchange(m_answered, true)) return;
    answer();
}

// Escape and Return are the dialog's before they are anybody's shortcut.
bool DialogCover::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter) event->accept();
    }
    return QWidget::event(event);
}

void DialogCover::paintEvent(QPaintEvent*) { QPainter(this).fillRect(rect(), kDark); }

void DialogCover::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return Answer(m_canCancel ? Cancelled : Accepted);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        auto* button = qobject_cast<QPushButton*>(focusWidget());
        return (button ? button : m_default)->click();
    }
    QWidget::keyPressEvent(event);
}

// The page below is not to be reached through its dialog.
void DialogCover::mousePressEvent(QMouseEvent*) { setFocus(Qt::MouseFocusReason); }

void DialogCover::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    update();
}

bool DialogCover::focusNextPrevChild(bool next) {
    QWidget* const first = focusWidget() ? focusWidget() : this;
    QWidget* each = first;
    do {
        each = next ? each->nextInFocusChain() : each->previousInFocusChain();
        const bool takesFocus = (each->focusPolicy() & Qt::TabFocus) && each->isEnabled() && each->isVisible();
        if (each != this && isAncestorOf(each) && takesFocus && !each->focusProxy()) {
            each->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    } while (each != first);
    return true;
}

} // namespace tessa::qt
