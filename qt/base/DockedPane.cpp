#include "qt/base/DockedPane.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMainWindow>
#include <utility>

namespace tessa::qt {

DockedPane::DockedPane(QMainWindow& window, QString name) : m_window(window), m_name(std::move(name)) {}

DockedPane::~DockedPane() { Close(); }

void DockedPane::Open(const QString& caption, QWidget& contents) {
    if (m_pane) return;
    m_pane = new QDockWidget(caption, &m_window);
    m_pane->setObjectName(m_name);
    m_pane->setWidget(&contents);
    m_pane->installEventFilter(this);
    m_window.addDockWidget(Qt::RightDockWidgetArea, m_pane);
    m_pane->show();
}

void DockedPane::SetWidth(int width) {
    if (m_pane) m_window.resizeDocks({m_pane}, {width}, Qt::Horizontal);
}

void DockedPane::Close() {
    if (!m_pane) return;
    const bool hadFocus = m_pane->isAncestorOf(QApplication::focusWidget());
    m_pane->removeEventFilter(this);
    m_pane->hide();
    // It may be in the middle of telling that it was closed. Until it is gone, another may open under its name.
    m_pane->setObjectName({});
    m_pane->deleteLater();
    m_pane.clear();
    if (hadFocus) KeyboardFree();
}

bool DockedPane::eventFilter(QObject* watched, QEvent* event) {
    const auto pressed = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    const bool escape = pressed && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    // Else a shortcut of the window takes the key.
    if (escape && event->type() == QEvent::ShortcutOverride) event->accept();
    if (event->type() == QEvent::Close || (escape && event->type() == QEvent::KeyPress)) {
        // Its owner closes it.
        event->setAccepted(escape);
        Dismissed();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tessa::qt
