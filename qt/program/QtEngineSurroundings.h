#pragma once
#include "base/Signal.h"
#include "platform/SettingsStorage.h"
#include "qt/engine/QtEngineHost.h"

namespace tessa::qt {

class QtMainWindow;
class QtPageBars;

/// What the engine's pages have around them: the settings, the bars beside the page, the window.
class QtEngineSurroundings final : public QtEngineHost {
public:
    /// What stands in the groups' and the Favorites' folder is listed on the home page.
    struct Folders {
        Text groups, favorites;
    };
    /// All outlive it.
    QtEngineSurroundings(SettingsStorageFactory& settings, SitePermissions& permissions, QtMainWindow& window,
                         const QtPageBars& bars, Folders folders);

    [[nodiscard]] Text HomeAddress() override;
    [[nodiscard]] std::string StartPage() override;
    [[nodiscard]] QRect PageRect(const QRect& whole) override;
    [[nodiscard]] SitePermissions* Permissions() override { return &m_permissions; }
    [[nodiscard]] bool WindowIsFull() const override;
    void SetWindowFull(bool full) override;

    /// The home page's folders are about to be read.
    Signal<void()> ReadsFolders;

private:
    SettingsStorageFactory& m_settings;
    SitePermissions& m_permissions;
    QtMainWindow& m_window;
    const QtPageBars& m_bars;
    const Folders m_folders;
};

} // namespace tessa::qt
