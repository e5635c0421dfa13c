#include "qt/base/KeyFilter.h"

#include "qt/base/KeyPlaces.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <algorithm>
#include <array>
#include <utility>

namespace tessa::qt {

namespace {

struct KeyName {
    int qt;
    std::int32_t code;
};

constexpr std::array kKeys{
    KeyName{Qt::Key_Tab, Keys::kTab},
    KeyName{Qt::Key_Backtab, Keys::kTab},
    KeyName{Qt::Key_Return, Keys::kEnter},
    KeyName{Qt::Key_Enter, Keys::kEnter},
    KeyName{Qt::Key_Escape, Keys::kEscape},
    KeyName{Qt::Key_Backspace, Keys::kBackspace},
    KeyName{Qt::Key_Space, Keys::kSpace},
    KeyName{Qt::Key_PageUp, Keys::kPageUp},
    KeyName{Qt::Key_PageDown, Keys::kPageDown},
    KeyName{Qt::Key_End, Keys::kEnd},
    KeyName{Qt::Key_Home, Keys::kHome},
    KeyName{Qt::Key_Left, Keys::kLeft},
    KeyName{Qt::Key_Up, Keys::kUp},
    KeyName{Qt::Key_Right, Keys::kRight},
    KeyName{Qt::Key_Down, Keys::kDown},
    KeyName{Qt::Key_Insert, Keys::kInsert},
    KeyName{Qt::Key_Delete, Keys::kDelete},
    KeyName{Qt::Key_Plus, Keys::kPlus},
    KeyName{Qt::Key_Equal, Keys::kPlus},
    KeyName{Qt::Key_Comma, Keys::kComma},
    KeyName{Qt::Key_Minus, Keys::kMinus},
    KeyName{Qt::Key_Period, Keys::kPeriod},
    KeyName{Qt::Key_Slash, Keys::kSlash},
};

std::int32_t CodeOf(int key) {
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return Keys::kF1 + (key - Qt::Key_F1);
    const auto* found = std::ranges::find(kKeys, key, &KeyName::qt);
    return found == kKeys.end() ? 0 : found->code;
}

} // namespace

KeyFilter::KeyFilter(QWidget& window, KeyTaker& taker) : m_window(window), m_taker(taker) {
    qApp->installEventFilter(this);
}

KeyStroke KeyFilter::Of(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers();
    std::int32_t shift = 0;
    if (held & Qt::ShiftModifier) shift += Keys::kShift;
    if (held & Qt::ControlModifier) shift += Keys::kCtrl;
    if (held & Qt::AltModifier) shift += Keys::kAlt;
    return {CodeOf(KeyPlaces::KeyOf(event)), shift};
}

QKeySequence KeyFilter::Sequence(KeyStroke key) {
    const auto* found = std::ranges::find(kKeys, key.KeyCode, &KeyName::code);
    int code = found == kKeys.end() ? key.KeyCode : found->qt;
    if (key.KeyCode >= Keys::kF1 && key.KeyCode <= Keys::kF12) code = Qt::Key_F1 + (key.KeyCode - Keys::kF1);
    if (CodeOf(code) != key.KeyCode) return {};
    Qt::KeyboardModifiers held;
    held.setFlag(Qt::ShiftModifier, key.Shift & Keys::kShift);
    held.setFlag(Qt::ControlModifier, key.Shift & Keys::kCtrl);
    held.setFlag(Qt::AltModifier, key.Shift & Keys::kAlt);
    return QKeySequence(QKeyCombination(held, static_cast<Qt::Key>(code)));
}

// An event that its widget ignores is shown to the parents in turn; only the first time counts.
bool KeyFilter::IsFor(const QObject* watched) const {
    if (!watched->isWidgetType() || QApplication::activePopupWidget()) return false;
    const auto* widget = static_cast<const QWidget*>(watched);
    if (widget->window() != &m_window) return false;
    const QWidget* focus = QApplication::focusWidget();
    return widget == (focus ? focus : &m_window);
}

// Alt with a button or the wheel is a combination too, and so is one that takes the window away.
void KeyFilter::FollowAlt(const QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
    case QEvent::WindowDeactivate:
        m_altAlone = false;
        break;
    // An access key is never told of as pressed: it is answered before that.
    case QEvent::ShortcutOverride:
        if (static_cast<const QKeyEvent&>(event).key() != Qt::Key_Alt) m_altAlone = false;
        break;
    default:
        break;
    }
}

KeyStroke KeyFilter::Told(const QKeyEvent& event, bool down) {
    const bool alt = event.key() == Qt::Key_Alt;
    if (down) m_altAlone = alt && (event.modifiers() & ~Qt::AltModifier) == Qt::NoModifier;
    if (alt && !down && std::exchange(m_altAlone, false)) return {Keys::kAltAlone, 0};
    return Of(event);
}

bool KeyFilter::GoesFirst(const QEvent& event) const {
    if (event.type() != QEvent::ShortcutOverride) return false;
    if (QApplication::activePopupWidget() || QApplication::activeWindow() != &m_window) return false;
    return m_taker.BeforeAccessKeys(Of(static_cast<const QKeyEvent&>(event)));
}

bool KeyFilter::eventFilter(QObject* watched, QEvent* event) {
    FollowAlt(*event);
    if (GoesFirst(*event)) {
        // Then it is told of as pressed.
        event->accept();
        return true;
    }
    const bool down = event->type() == QEvent::KeyPress;
    if ((!down && event->type() != QEvent::KeyRelease) || !IsFor(watched)) return false;
    const KeyStroke key = Told(*static_cast<QKeyEvent*>(event), down);
    if (key.KeyCode == 0) return false;
    const QWidget* const focused = QApplication::focusWidget();
    const KeyUsed used = down ? m_taker.KeyDown(key) : m_taker.KeyUp(key);
    // A key that has led the keyboard elsewhere is typed neither here nor there.
    if (used == KeyUsed::No && QApplication::focusWidget() == focused) return false;
    event->accept();
    return true;
}

} // namespace tessa::qt
