#pragma once
#include "qt/history/HistoryStore.h"
#include "qt/history/OpenPagesPanel.h"

#include <QTimer>
#include <optional>

namespace tessa {
class frmMain;
}

namespace tessa::qt {

class DesktopAssembly;
class Engine;
class EngineSurroundings;

/// What was read: its store, and what the pages and the window have to do with it.
class HistoryAssembly {
public:
    /// Outlives it.
    explicit HistoryAssembly(const DesktopAssembly& desktop);

    /// What is read in the engine's pages is told there. Both outlive it, or tell it nothing more.
    void Serve(frmMain& main, Engine& engine, QMainWindow& window);

    HistoryStore store;

private:
    std::optional<OpenPagesPanel> m_panel;
    QTimer m_look;
};

} // namespace tessa::qt
