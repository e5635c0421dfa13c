#pragma once
#include "pages/SitePermissions.h"
#include "qt/desktop/Dictionaries.h"
#include "qt/desktop/MediaKeys.h"
#include "qt/engine/Engine.h"
#include "qt/engine/Requests.h"
#include "qt/engine/StoredBrowsingData.h"
#include "qt/page/DevTools.h"
#include "qt/program/EngineSurroundings.h"
#include "qt/program/LiveEngineOptions.h"
#include "qt/questions/Notifications.h"
#include "settings/SiteChoice.h"

#include <optional>

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class DesktopAssembly;
class BlockingAssembly;
class PageBarsAssembly;
class TileArea;

/// The engine, and what goes with all its pages.
class EngineAssembly {
public:
    /// All outlive it.
    EngineAssembly(DesktopAssembly& desktop, MainWindowFrame& window, PageBarsAssembly& bars, TileArea& tiles,
                   BlockingAssembly& blocking);

    /// What pages ask of the program goes there; outlives the views.
    void Serve(frmMain& main);
    /// Has the engine begin. The window is on the screen by now.
    void Start();
    /// Ends the profiles; no view may be left. False when that cannot be: then the process has to end before the
    /// engine.
    [[nodiscard]] bool Shutdown();
    /// What was decided for sites.
    [[nodiscard]] SiteChoices Sites();

private:
    DesktopAssembly& m_desktop;
    SitePermissions m_permissions;
    MediaKeys m_mediaKeys;
    std::optional<Dictionaries> m_dictionaries; ///< once the engine is to start
    Requests m_requests;
    StoredBrowsingData m_browsingData;
    Notifications m_notifications;
    EngineSurroundings m_surroundings;

public:
    DevTools devTools;
    Engine engine;
    LiveEngineOptions options;
};

} // namespace tessa::qt
