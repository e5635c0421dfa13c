#include "qt/bar/customize/KeyBox.h"

#include "qt/base/KeyFilter.h"
#include "qt/base/Strings.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <algorithm>
#include <array>

namespace tessa::qt {

namespace {

bool IsPlain(const QKeyEvent& event) {
    return (event.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier)) == Qt::NoModifier;
}

bool IsModifier(int key) {
    constexpr std::array kModifierKeys{Qt::Key_Shift,     Qt::Key_Control,    Qt::Key_Alt,     Qt::Key_AltGr,
                                       Qt::Key_Meta,      Qt::Key_Super_L,    Qt::Key_Super_R, Qt::Key_Hyper_L,
                                       Qt::Key_Hyper_R,   Qt::Key_CapsLock,   Qt::Key_NumLock, Qt::Key_ScrollLock,
                                       Qt::Key_Multi_key, Qt::Key_Mode_switch};
    return std::ranges::count(kModifierKeys, key) > 0;
}

bool LeavesBox(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Escape) return IsPlain(event);
    const bool tab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
    return tab && !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
}

} // namespace

KeyBox::KeyBox(QWidget* parent) : QLineEdit(parent) {
    setReadOnly(true);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setPlaceholderText(QStringLiteral("Press the keys here"));
}

void KeyBox::Empty() {
    m_recorded.reset();
    clear();
    Changed();
}

void KeyBox::Record(const QKeyEvent& event) {
    // The desktop has the combinations with its own key.
    m_recorded = event.modifiers() & Qt::MetaModifier ? KeyStroke() : KeyFilter::Of(event);
    const Text shown = KeyWords::Shown(*m_recorded);
    setText(shown.empty() ? QKeySequence(event.keyCombination()).toString(QKeySequence::NativeText) : ToQt(shown));
    Changed();
}

bool KeyBox::event(QEvent* event) {
    // What is pressed here is recorded, even if it is an access key of the dialog or a combination of Qt.
    if (event->type() == QEvent::ShortcutOverride && !LeavesBox(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void KeyBox::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (LeavesBox(*event)) return event->ignore();
    event->accept();
    if (IsModifier(key)) return;
    if (IsPlain(*event) && (key == Qt::Key_Backspace || key == Qt::Key_Delete)) return Empty();
    if (IsPlain(*event) && (key == Qt::Key_Return || key == Qt::Key_Enter)) return Entered();
    Record(*event);
}

} // namespace tessa::qt
