#include "qt/base/AnswerGuard.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <utility>

namespace tessa::qt {

namespace {

std::chrono::milliseconds SteadyNow() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now().time_since_epoch());
}

} // namespace

AnswerGuard::AnswerGuard(QWidget& question, Clock clock)
    : QObject(&question), m_question(question), m_now(clock ? std::move(clock) : Clock(SteadyNow)), m_since(m_now()) {
    Watch(question);
    for (QWidget* each : question.findChildren<QWidget*>()) Watch(*each);
}

void AnswerGuard::Watch(QWidget& part) { part.installEventFilter(this); }

bool AnswerGuard::IsAnswer(const QObject& watched, const QKeyEvent& key) const {
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) return true;
    const bool presses = key.key() == Qt::Key_Space || key.key() == Qt::Key_Select;
    return presses && qobject_cast<const QAbstractButton*>(&watched);
}

bool AnswerGuard::Stops(const QObject& watched, const QEvent& event) const {
    switch (event.type()) {
    case QEvent::KeyPress: {
        const auto& key = static_cast<const QKeyEvent&>(event);
        return IsAnswer(watched, key) && (key.isAutoRepeat() || !Ready());
    }
    case QEvent::ShortcutOverride: {
        // The letter of a caption, held down.
        const auto& key = static_cast<const QKeyEvent&>(event);
        return key.isAutoRepeat() && (key.modifiers() & Qt::AltModifier);
    }
    case QEvent::Shortcut:
        return !Ready();
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return qobject_cast<const QAbstractButton*>(&watched) && !Ready();
    default:
        return false;
    }
}

bool AnswerGuard::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && watched == &m_question) Restart();
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        NoteFocus(static_cast<const QFocusEvent&>(*event));
    if (!Stops(*watched, *event)) return QObject::eventFilter(watched, event);
    // Else the question around it would get it next.
    event->accept();
    return true;
}

// From one part of the question to the next the focus is not new. A click brings it along and is no surprise.
void AnswerGuard::NoteFocus(const QFocusEvent& event) {
    if (event.reason() == Qt::PopupFocusReason) return;
    const QWidget* focus = QApplication::focusWidget();
    const bool has = event.gotFocus() || (focus && (focus == &m_question || m_question.isAncestorOf(focus)));
    const bool had = std::exchange(m_hasFocus, has);
    if (has && !had && event.reason() != Qt::MouseFocusReason) Restart();
}

} // namespace tessa::qt
