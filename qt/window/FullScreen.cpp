#include "qt/window/FullScreen.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QTimer>
#include <QToolBar>
#include <algorithm>
#include <chrono>
#include <utility>

namespace tessa::qt {

namespace {
constexpr std::chrono::seconds kHintTime{4};
constexpr std::chrono::milliseconds kEdgeRest{350};

bool BarContains(const QWidget& bar, QPoint at) {
    return QRect(bar.mapToGlobal(QPoint(0, 0)), bar.size()).contains(at);
}
} // namespace

FullScreen::FullScreen(QMainWindow& window, QWidget& hintArea) : m_window(window), m_hintArea(hintArea) {
    m_window.installEventFilter(this);
    m_hintArea.installEventFilter(this);
    m_look.setInterval(kEdgeRest);
    m_look.callOnTimeout([this] { Look(); });
}

void FullScreen::Set(bool on) {
    const Qt::WindowStates state = m_window.windowState();
    m_window.setWindowState(on ? state | Qt::WindowFullScreen : state & ~Qt::WindowFullScreen);
}

bool FullScreen::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_window && event->type() == QEvent::WindowStateChange) Follow(m_window.isFullScreen());
    if (watched == &m_hintArea && event->type() == QEvent::Resize) PlaceHint();
    if (event->type() == QEvent::MouseMove || event->type() == QEvent::HoverMove) WatchPointer();
    return QObject::eventFilter(watched, event);
}

void FullScreen::Follow(bool on) {
    if (std::exchange(m_on, on) == on) return;
    if (on) {
        HideBars();
        ShowHint();
        // The pages have the pointer, and it is not for the window to see.
        qApp->installEventFilter(this);
    } else {
        qApp->removeEventFilter(this);
        m_look.stop();
        m_revealed = false;
        ShowBars();
        delete m_hint;
    }
    Changed(on);
}

void FullScreen::HideBars() {
    std::vector<QWidget*> bars;
    if (QWidget* menuBar = m_window.menuWidget()) bars.push_back(menuBar);
    for (QToolBar* bar : m_window.findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly)) bars.push_back(bar);
    for (QWidget* bar : bars) {
        if (bar->isHidden()) continue;
        m_hidden.emplace_back(bar);
        bar->hide();
    }
}

void FullScreen::ShowBars() {
    for (const QPointer<QWidget>& bar : std::exchange(m_hidden, {})) {
        if (bar) bar->show();
    }
}

void FullScreen::Reveal() {
    if (!m_on || m_revealed || (m_facts && m_facts->PageFills())) return;
    m_revealed = true;
    for (const QPointer<QWidget>& bar : m_hidden) {
        if (bar) bar->show();
    }
    m_look.start();
}

void FullScreen::WatchPointer() {
    if (m_on && !m_revealed && !m_look.isActive() && AtEdge(QCursor::pos())) m_look.start();
}

void FullScreen::Look() {
    const bool atEdge = AtEdge(QCursor::pos());
    if (!m_revealed) {
        m_look.stop();
        if (atEdge && m_window.isActiveWindow()) Reveal();
        return;
    }
    if (atEdge || BarsInUse()) return;
    m_look.stop();
    m_revealed = false;
    for (const QPointer<QWidget>& bar : m_hidden) {
        if (bar) bar->hide();
    }
}

// The edges where the bars are that were taken away.
bool FullScreen::AtEdge(QPoint at) const {
    const QRect window(m_window.mapToGlobal(QPoint(0, 0)), m_window.size());
    if (!window.contains(at)) return false;
    for (const QPointer<QWidget>& bar : m_hidden) {
        const auto* tools = qobject_cast<QToolBar*>(bar.data());
        const Qt::ToolBarArea area = tools ? m_window.toolBarArea(tools) : Qt::TopToolBarArea;
        if (area == Qt::TopToolBarArea && at.y() == window.top()) return true;
        if (area == Qt::BottomToolBarArea && at.y() == window.bottom()) return true;
        if (area == Qt::LeftToolBarArea && at.x() == window.left()) return true;
        if (area == Qt::RightToolBarArea && at.x() == window.right()) return true;
    }
    return false;
}

bool FullScreen::BarsInUse() const {
    if (QApplication::activePopupWidget() || QApplication::activeModalWidget()) return true;
    const QWidget* focus = QApplication::focusWidget();
    const QPoint pointer = QCursor::pos();
    return std::ranges::any_of(m_hidden, [&](const QPointer<QWidget>& bar) {
        if (!bar) return false;
        return bar == focus || bar->isAncestorOf(focus) || BarContains(*bar, pointer);
    });
}

void FullScreen::ShowHint() {
    const QString keys = m_facts ? m_facts->Keys() : QString();
    m_hint = new QLabel(keys.isEmpty() ? tr("Rest the pointer at the upper edge to see the menus")
                                       : tr("Press %1 to leave full screen").arg(keys),
                        &m_hintArea);
    m_hint->setObjectName(QStringLiteral("fullScreenHint"));
    // Above pages of any colour.
    m_hint->setStyleSheet(
        QStringLiteral("background: rgba(20, 24, 30, 220); color: white; padding: 10px 18px; border-radius: 8px;"));
    m_hint->adjustSize();
    PlaceHint();
    m_hint->raise();
    m_hint->show();
    QTimer::singleShot(kHintTime, m_hint, &QObject::deleteLater);
}

void FullScreen::PlaceHint() {
    if (m_hint) m_hint->move((m_hintArea.width() - m_hint->width()) / 2, m_hintArea.height() / 12);
}

} // namespace tessa::qt
