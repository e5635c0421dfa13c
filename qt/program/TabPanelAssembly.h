#pragma once
#include "qt/tabpanel/TabPanel.h"

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class Engine;
class TileArea;

/// The list of tabs at the side, and what it does in the program.
class TabPanelAssembly final : private TabIcons {
public:
    /// Lines can be dragged to the panes of `area`. All outlive it.
    TabPanelAssembly(frmMain& main, Engine& engine, QMainWindow& window, TileArea& area);

private:
    [[nodiscard]] QIcon IconOf(const Tab& tab) const override;
    void FollowMenus();
    void FollowDrags(TileArea& area);

    frmMain& m_main;
    Engine& m_engine;
    TabPanel m_panel;
    Connections m_connections;
};

} // namespace tessa::qt
