#include "qt/base/Typing.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWebEngineView>
#include <QWidget>

namespace tessa::qt {

namespace {

bool IsInPage(const QWidget& widget) {
    for (const QWidget* each = &widget; each && !each->isWindow(); each = each->parentWidget()) {
        if (qobject_cast<const QWebEngineView*>(each)) return true;
    }
    return false;
}

bool Types(const QKeyEvent& event) {
    constexpr Qt::KeyboardModifiers kCommands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (event.matches(QKeySequence::Paste)) return true;
    const bool letter = !event.text().isEmpty() && event.text().front().isPrint();
    return letter && !(event.modifiers() & kCommands);
}

} // namespace

Typing::Typing(QWidget& window) : m_window(window) { qApp->installEventFilter(this); }

bool Typing::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || watched != QApplication::focusWidget()) return false;
    const auto& widget = *static_cast<QWidget*>(watched);
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (widget.window() != &m_window || QApplication::activePopupWidget() || !IsInPage(widget) || !Types(key))
        return false;
    OverPage();
    QWidget* focus = QApplication::focusWidget();
    if (!focus || focus == watched) return false;
    QKeyEvent same(key.type(), key.key(), key.modifiers(), key.text(), key.isAutoRepeat(),
                   static_cast<quint16>(key.count()));
    QApplication::sendEvent(focus, &same);
    return true;
}

} // namespace tessa::qt
