#include "qt/base/DockedPanel.h"

#include "qt/base/paint/PanelButtons.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMainWindow>
#include <utility>

namespace tessa::qt {

DockedPanel::DockedPanel(QMainWindow& window, QString name, UsualWidth usualWidth)
    : m_window(window), m_name(std::move(name)), m_usualWidth(std::move(usualWidth)) {}

DockedPanel::~DockedPanel() { Close(); }

void DockedPanel::Open(const QString& caption, QWidget& contents, Qt::DockWidgetArea side) {
    if (m_panel) return;
    m_panel = new QDockWidget(caption, &m_window);
    m_panel->setObjectName(m_name);
    m_panel->setWidget(&contents);
    new PanelButtons(*m_panel);
    m_panel->installEventFilter(this);
    if (m_onSidesAlone) {
        m_panel->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
        m_panel->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    }
    m_window.addDockWidget(side, m_panel);
    connect(m_panel, &QDockWidget::dockLocationChanged, this, [this](Qt::DockWidgetArea area) {
        if (area != Qt::NoDockWidgetArea) Moved(area);
    });
    m_panel->show();
    if (m_usualWidth) KeepWidth();
}

void DockedPanel::MoveTo(Qt::DockWidgetArea side) {
    if (!m_panel || m_window.dockWidgetArea(m_panel) == side) return;
    m_window.addDockWidget(side, m_panel);
    Fit();
}

void DockedPanel::KeepWidth() {
    m_window.installEventFilter(this);
    Fit();
}

void DockedPanel::Fit() {
    if (m_panel && m_usualWidth) SetWidth(m_userWidth > 0 ? m_userWidth : m_usualWidth());
}

void DockedPanel::SetWidth(int width) {
    if (m_panel) m_window.resizeDocks({m_panel}, {width}, Qt::Horizontal);
}

void DockedPanel::Close() {
    if (!m_panel) return;
    const bool hadFocus = m_panel->isAncestorOf(QApplication::focusWidget());
    m_panel->removeEventFilter(this);
    m_window.removeEventFilter(this);
    m_drags = false;
    m_panel->hide();
    // It may be in the middle of telling that it was closed. Until it is gone, another may open under its name.
    m_panel->setObjectName({});
    m_panel->deleteLater();
    m_panel.clear();
    if (hadFocus) KeyboardFree();
}

// A press that reaches the window itself is on a border between its panels.
void DockedPanel::OnWindow(const QEvent& event) {
    if (event.type() == QEvent::MouseButtonPress) m_drags = true;
    if (event.type() == QEvent::MouseButtonRelease) m_drags = false;
    // Once the window has laid its panels out in its new size.
    if (event.type() == QEvent::Resize) QMetaObject::invokeMethod(this, &DockedPanel::Fit, Qt::QueuedConnection);
}

bool DockedPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_window) {
        OnWindow(*event);
        return false;
    }
    if (m_drags && event->type() == QEvent::Resize) {
        m_userWidth = m_panel->width();
        WidthChosen(m_userWidth);
    }
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
