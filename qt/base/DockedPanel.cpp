#include "qt/base/DockedPanel.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMainWindow>
#include <utility>

namespace tessa::qt {

DockedPanel::DockedPanel(QMainWindow& window, QString name) : m_window(window), m_name(std::move(name)) {}

DockedPanel::~DockedPanel() { Close(); }

void DockedPanel::Open(const QString& caption, QWidget& contents) {
    if (m_panel) return;
    m_panel = new QDockWidget(caption, &m_window);
    m_panel->setObjectName(m_name);
    m_panel->setWidget(&contents);
    m_panel->installEventFilter(this);
    m_window.addDockWidget(Qt::RightDockWidgetArea, m_panel);
    m_panel->show();
}

void DockedPanel::SetWidth(int width) {
    if (m_panel) m_window.resizeDocks({m_panel}, {width}, Qt::Horizontal);
}

void DockedPanel::Close() {
    if (!m_panel) return;
    const bool hadFocus = m_panel->isAncestorOf(QApplication::focusWidget());
    m_panel->removeEventFilter(this);
    m_panel->hide();
    // It may be in the middle of telling that it was closed. Until it is gone, another may open under its name.
    m_panel->setObjectName({});
    m_panel->deleteLater();
    m_panel.clear();
    if (hadFocus) KeyboardFree();
}

bool DockedPanel::eventFilter(QObject* watched, QEvent* event) {
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
