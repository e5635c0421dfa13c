#pragma once
#include "qt/downloads/DownloadsPanel.h"
#include "qt/downloads/EngineDownloads.h"

#include <QMainWindow>
#include <optional>

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class Engine;

/// The engine's pages, as downloads see them.
class PagesForDownloads final : public DownloadSource {
public:
    /// The engine outlives it.
    explicit PagesForDownloads(Engine& engine) : m_engine(engine) {}

    [[nodiscard]] QWebEngineProfile* Profile() override;
    [[nodiscard]] bool MaySave(QWebEnginePage* page, const QUrl& address) override;
    [[nodiscard]] PageDocuments& Documents() override;

private:
    Engine& m_engine;
};

/// Downloads: the engine's side of them, and the panel that lists them.
class DownloadAssembly {
public:
    /// Takes the downloads of the engine's pages, which outlives it.
    explicit DownloadAssembly(Engine& engine);

    /// Brings them to the main window's list, and shows that. Both outlive the engine's views.
    void Serve(frmMain& main, QMainWindow& window);
    /// Before the engine's profiles end.
    void Shutdown() { downloads.Shutdown(); }

private:
    PagesForDownloads m_pages;

public:
    EngineDownloads downloads{m_pages};

private:
    std::optional<DownloadsPanel> m_panel; ///< once there is a list
};

} // namespace tessa::qt
