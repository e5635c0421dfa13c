#pragma once
#include "pages/SitePermissions.h"
#include "qt/desktop/QtMediaKeys.h"
#include "qt/engine/QtBrowsingData.h"
#include "qt/engine/QtDictionaries.h"
#include "qt/engine/QtEngine.h"
#include "qt/engine/QtNotifications.h"
#include "qt/engine/QtRequests.h"
#include "qt/page/QtDevTools.h"
#include "qt/program/QtEngineOptions.h"
#include "qt/program/QtEngineSurroundings.h"
#include "settings/SiteChoice.h"

#include <optional>

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class QtDesktopAssembly;
class QtPageBarsAssembly;

/// The engine, and what goes with all its pages.
class QtEngineAssembly {
public:
    /// All outlive it.
    QtEngineAssembly(QtDesktopAssembly& desktop, QtMainWindow& window, QtPageBarsAssembly& bars);

    /// What pages ask of the program goes there; outlives the views.
    void Serve(frmMain& main);
    /// Has the engine begin. The window is on the screen by now.
    void Start();
    /// Ends the profiles; no view may be left.
    void Shutdown();
    /// What was decided for sites.
    [[nodiscard]] SiteChoices Sites();

private:
    QtDesktopAssembly& m_desktop;
    SitePermissions m_permissions;
    QtMediaKeys m_mediaKeys;
    std::optional<QtDictionaries> m_dictionaries; ///< once the engine is to start
    QtRequests m_requests;
    QtBrowsingData m_browsingData;
    QtNotifications m_notifications;
    QtEngineSurroundings m_surroundings;

public:
    QtDevTools devTools;
    QtEngine engine;
    QtEngineOptions options;
};

} // namespace tessa::qt
