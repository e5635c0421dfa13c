#include "qt/QtComboEdit.h"

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QMouseEvent>
#include <utility>

void QtComboEdit::Show(const QString& text) {
    const QString present = this->text();
    if (text == present) return;
    const bool goesOn = !hasSelectedText() && cursorPosition() == present.size() && text.startsWith(present);
    if (goesOn)
        insert(text.sliced(present.size()));
    else
        setText(text);
}

void QtComboEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    m_selectOnRelease = event->reason() == Qt::MouseFocusReason;
}

void QtComboEdit::focusOutEvent(QFocusEvent* event) {
    m_selectOnRelease = false;
    QLineEdit::focusOutEvent(event);
}

void QtComboEdit::inputMethodEvent(QInputMethodEvent* event) {
    m_composing = !event->preeditString().isEmpty();
    QLineEdit::inputMethodEvent(event);
}

void QtComboEdit::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (std::exchange(m_selectOnRelease, false) && !hasSelectedText()) selectAll();
}
