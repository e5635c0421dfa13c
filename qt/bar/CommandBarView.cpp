#include "qt/bar/CommandBarView.h"

#include "qt/bar/OverflowArrow.h"
#include "qt/bar/ToolBarsMenu.h"
#include "qt/base/Icons.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QTimer>
#include <QToolBar>

namespace tessa::qt {

CommandBarView::CommandBarView(CommandBar& bar, QMainWindow& window, EntryGestures& gestures,
                               FocusRing::Neighbours& neighbours)
    : m_bar(bar),
      m_window(window),
      m_actions(bar),
      m_menus(bar, m_actions, window, gestures),
      m_toolBars(bar, window, m_actions, m_menus),
      m_docking(bar, window, m_toolBars),
      m_ring(window, m_toolBars, neighbours) {
    Listen();
    Follow();
    m_window.installEventFilter(this);
    m_window.menuBar()->installEventFilter(this);
    OverflowArrow::Show(*m_window.menuBar(), QStringLiteral("qt_menubar_ext_button"), QStringLiteral("More menus"));
}

void CommandBarView::Listen() {
    m_connections += m_bar.BandsChanged.Connect([this] { Follow(); });
    m_connections += m_bar.PopupWanted.Connect([this](Band& band) { m_menus.Popup(band); });
    m_connections += m_bar.FocusWanted.Connect([this](Band& band, Tool& tool) {
        Reveal();
        m_toolBars.FocusTool(band, tool);
    });
    m_connections += m_bar.MenuWanted.Connect([this](Tool& tool) {
        Reveal();
        m_toolBars.OpenMenu(tool);
    });
    m_connections += m_bar.StepWanted.Connect([this](BarStep step) {
        Reveal();
        m_ring.Step(step);
    });
    m_connections += m_bar.LayoutWanted.Connect([this] { m_docking.Flush(); });
}

void CommandBarView::Follow() {
    for (const auto& band : m_bar.Bands()) {
        if (band->Kind() == BandKind::MenuBar) ShowMenuBar(*band);
    }
    if (!m_toolBars.Follow()) return;
    m_docking.Follow();
    for (const auto& band : m_bar.Bands()) {
        if (QToolBar* bar = m_toolBars.Find(*band)) bar->installEventFilter(this);
    }
}

void CommandBarView::ShowMenuBar(Band& band) {
    m_menuBar.End();
    m_menuBar += band.Visible.Attach([this](bool visible) { m_window.menuBar()->setVisible(visible); });
    m_menuBar += band.Attach([this, &band] {
        FillMenuBar(band);
        band.Clean();
    });
}

void CommandBarView::FillMenuBar(const Band& band) {
    QMenuBar* menuBar = m_window.menuBar();
    menuBar->clear();
    for (const BandEntry& entry : band.Entries()) {
        QAction* action = m_actions.For(entry.Item);
        if (!entry.Item->SubBand.empty()) action->setMenu(m_menus.For(entry.Item->SubBand));
        menuBar->addAction(action);
    }
}

QToolBar* CommandBarView::ToolBar(TextView band) const {
    const Band* found = m_bar.FindBand(band);
    return found ? m_toolBars.Find(*found) : nullptr;
}

void CommandBarView::ShowIcons() {
    Icons::ChooseTheme(m_window.palette());
    m_actions.ShowIcons();
}

bool CommandBarView::ShowToolBarsMenu(const QObject* watched, const QContextMenuEvent& event) {
    if (watched == &m_window) return false;
    ToolBarsMenu::Show(m_bar, m_window, event.globalPos());
    return true;
}

bool CommandBarView::eventFilter(QObject* watched, QEvent* event) {
    const bool window = watched == &m_window;
    // The icons are looked up when the window is on the screen. That takes longer than all the rest of it.
    if (event->type() == QEvent::Show && window) QTimer::singleShot(0, this, &CommandBarView::ShowIcons);
    if (event->type() == QEvent::PaletteChange && window) ShowIcons();
    if (event->type() == QEvent::Leave && !window) m_actions.ReportNoPointer();
    // The keyboard has left the menu bar; with the menu that it has opened, it is still there.
    const bool left =
        event->type() == QEvent::FocusOut && static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason;
    if (left && watched == m_window.menuBar()) m_actions.ReportNoPointer();
    if (event->type() == QEvent::MouseMove && watched == m_window.menuBar())
        m_actions.ReportPointer(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
    if (event->type() == QEvent::ContextMenu) return ShowToolBarsMenu(watched, static_cast<QContextMenuEvent&>(*event));
    return QObject::eventFilter(watched, event);
}

} // namespace tessa::qt
