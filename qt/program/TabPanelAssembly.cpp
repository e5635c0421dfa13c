#include "qt/program/TabPanelAssembly.h"

#include "commands/BarGestures.h"
#include "qt/engine/Engine.h"
#include "qt/tiles/TileArea.h"
#include "tabs/TabKeys.h"
#include "window/frmMain.h"

namespace tessa::qt {

TabPanelAssembly::TabPanelAssembly(frmMain& main, Engine& engine, QMainWindow& window, TileArea& area)
    : m_main(main), m_engine(engine), m_panel(main.TabPanel(), *this, window) {
    m_connections += m_engine.Told().IconChanged.Connect([this](std::int32_t) { m_panel.RefreshFaces(); });
    m_panel.FocusPage.ConnectForLife([this] { m_main.FocusPage(); });
    FollowMenus();
    FollowDrags(area);
}

QIcon TabPanelAssembly::IconOf(const Tab& tab) const { return m_engine.Icon(tab.Tag); }

void TabPanelAssembly::FollowMenus() {
    m_panel.PanelMenuRequested.ConnectForLife([this] { BarGestures::TabPanelMenu(m_main.actBar); });
    m_panel.GroupMenuRequested.ConnectForLife(
        [this](std::int32_t group) { m_main.StripInput().OpenGroupPopup(group); });
    m_panel.MenuRequested.ConnectForLife([this](std::int32_t view) {
        m_main.StripInput().OpenPopup(m_main.pcPage.PositionOf(TabOfView(m_main.pcPage, view)));
    });
}

void TabPanelAssembly::FollowDrags(TileArea& area) {
    m_panel.DraggedOut.ConnectForLife(
        [&area](const TabPanelView::Views& views, QPoint at) { area.ShowDrop(views.front(), at); });
    m_panel.DraggedBack.ConnectForLife([&area] { area.HideDrop(); });
    m_panel.DroppedOut.ConnectForLife([&area](const TabPanelView::Views& views, QPoint at) { area.Drop(views, at); });
}

} // namespace tessa::qt
