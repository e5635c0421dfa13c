#include "qt/base/LatinKeys.h"

#include "qt/base/KeyPlaces.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>

namespace tessa::qt {

namespace {

/// Changes an event of the keyboard in place: one that we send ourselves is not the user's any more.
class ChangeableKey : public QKeyEvent {
public:
    static void SetKey(QKeyEvent& event, int key) { event.*(&ChangeableKey::m_key) = key; }
    static void SetText(QKeyEvent& event, const QString& text) { event.*(&ChangeableKey::m_text) = text; }
};

bool IsKeyOfKeyboard(const QObject& watched, const QEvent& event) {
    // Before it goes on to one of the window's widgets.
    if (!watched.isWindowType()) return false;
    return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease ||
           event.type() == QEvent::ShortcutOverride;
}

/// The menu or menu bar in which a key chooses an entry; nothing for most of the time.
QWidget* MenuInUse() {
    if (QWidget* popup = QApplication::activePopupWidget()) return qobject_cast<QMenu*>(popup);
    return qobject_cast<QMenuBar*>(QApplication::focusWidget());
}

bool HasEntryFor(const QWidget& menu, int key) {
    const QKeySequence wanted(QKeyCombination(Qt::AltModifier, static_cast<Qt::Key>(key)));
    return std::ranges::any_of(menu.actions(),
                               [&](const QAction* action) { return QKeySequence::mnemonic(action->text()) == wanted; });
}

/// Whether that letter is underlined somewhere in the active window, where it has then done what it is there for. Qt
/// has looked for what the key gives, and found nothing. For a synthetic key it looks once more.
bool PressAccessKey(int letter, bool repeated) {
    QWidget nobody;
    QKeyEvent press(QEvent::KeyPress, letter, Qt::AltModifier, QString(QChar(letter)).toLower(), repeated);
    QCoreApplication::sendEvent(&nobody, &press);
    return press.isAccepted();
}

} // namespace

LatinKeys::LatinKeys() { qApp->installEventFilter(this); }

bool LatinKeys::eventFilter(QObject* watched, QEvent* event) {
    if (!IsKeyOfKeyboard(*watched, *event)) return false;
    auto& key = static_cast<QKeyEvent&>(*event);
    const int latin = KeyPlaces::KeyOf(key);
    if (latin == key.key()) return false;
    if (const QWidget* menu = MenuInUse()) {
        if (!HasEntryFor(*menu, key.key())) ChangeableKey::SetText(key, QString(QChar(latin)).toLower());
        return false;
    }
    if (!(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier))) return false;
    ChangeableKey::SetKey(key, latin);
    const bool access = event->type() == QEvent::KeyPress && key.modifiers() == Qt::AltModifier;
    return access && !QApplication::activePopupWidget() && PressAccessKey(latin, key.isAutoRepeat());
}

} // namespace tessa::qt
