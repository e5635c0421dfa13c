#pragma once
#include "qt/downloads/QtDownloads.h"
#include "qt/downloads/QtDownloadsPanel.h"

#include <QMainWindow>
#include <optional>

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class QtEngine;

/// Downloads: the engine's side of them, and the panel that lists them.
class QtDownloadAssembly {
public:
    /// Takes the downloads of the engine's pages, which outlives it.
    explicit QtDownloadAssembly(QtEngine& engine);

    /// Brings them to the main window's list, and shows that. Both outlive the engine's views.
    void Serve(frmMain& main, QMainWindow& window);
    /// Before the engine's profiles end.
    void Shutdown() { downloads.Shutdown(); }

    QtDownloads downloads;

private:
    std::optional<QtDownloadsPanel> m_panel; ///< once there is a list
};

} // namespace tessa::qt
