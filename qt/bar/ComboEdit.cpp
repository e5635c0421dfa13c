#include "qt/bar/ComboEdit.h"

#include "qt/base/Palette.h"

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QMouseEvent>
#include <QPixmap>
#include <QTextCharFormat>
#include <utility>

namespace tessa::qt {

namespace {
/// How far less important text goes from the text's colour to the background's. It stays easy to read.
constexpr double kFaint = 0.38;
/// Logical pixels that a field's frame takes at its edge.
constexpr int kEdge = 4;
} // namespace

void ComboEdit::Show(const QString& text) {
    const QString present = this->text();
    if (text == present) return;
    const bool goesOn = !hasSelectedText() && cursorPosition() == present.size() && text.startsWith(present);
    if (goesOn)
        insert(text.sliced(present.size()));
    else
        setText(text);
}

void ComboEdit::ShowWeight(int start, int length, bool subdued) {
    m_weightStart = start;
    m_weightLength = length;
    m_subdued = subdued;
    Paint();
}

// An input method may colour the text, and nobody else may.
void ComboEdit::Paint() {
    QList<QInputMethodEvent::Attribute> colours;
    const auto paint = [&](int start, int length, const QColor& colour) {
        if (length <= 0) return;
        QTextCharFormat format;
        format.setForeground(colour);
        colours.append({QInputMethodEvent::TextFormat, start - cursorPosition(), length, format});
    };
    const auto size = static_cast<int>(text().size());
    const QColor full = palette().color(QPalette::Text), ground = palette().color(QPalette::Base);
    const QColor faint = Palette::Mix(full, ground, kFaint);
    const int end = m_weightStart + m_weightLength;
    if (m_subdued) {
        paint(0, size, faint);
    } else if (m_weightLength > 0) {
        paint(0, m_weightStart, faint);
        paint(end, size - end, faint);
    }
    // It would end what an input method is at work on.
    if (m_composing) return;
    QInputMethodEvent event(QString(), colours);
    QLineEdit::inputMethodEvent(&event);
}

void ComboEdit::ShowWeighty() {
    home(false);
    const int end = m_weightStart + m_weightLength;
    if (!isVisible() || m_weightLength == 0 || end > text().size()) return;
    // The field learns by how much it is scrolled when it is drawn.
    QPixmap unseen(1, 1);
    render(&unseen);
    setCursorPosition(end);
    const bool seen = cursorRect().right() < width() - textMargins().right() - kEdge;
    if (seen) home(false);
}

void ComboEdit::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) Paint();
}

void ComboEdit::showEvent(QShowEvent* event) {
    QLineEdit::showEvent(event);
    if (!hasFocus()) ShowWeighty();
}

void ComboEdit::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    if (!hasFocus()) ShowWeighty();
}

void ComboEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    m_selectOnRelease = event->reason() == Qt::MouseFocusReason;
}

void ComboEdit::focusOutEvent(QFocusEvent* event) {
    m_selectOnRelease = false;
    QLineEdit::focusOutEvent(event);
}

void ComboEdit::inputMethodEvent(QInputMethodEvent* event) {
    m_composing = !event->preeditString().isEmpty();
    QLineEdit::inputMethodEvent(event);
}

void ComboEdit::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (std::exchange(m_selectOnRelease, false) && !hasSelectedText()) selectAll();
}

} // namespace tessa::qt
