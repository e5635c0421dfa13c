#pragma once
#include "base/Signal.h"
#include "platform/SettingsStorage.h"
#include "qt/engine/EngineHost.h"
#include "startpage/StartPage.h"

namespace tessa::qt {

class MainWindowFrame;
class PageBars;
class TileArea;

/// What the engine's pages have around them: the settings, the bars beside the page, the window.
class EngineSurroundings final : public EngineHost {
public:
    /// What stands in the groups' and the Favorites' folder is listed on the home page.
    struct Folders {
        Text groups, favorites;
    };
    /// All outlive it.
    EngineSurroundings(SettingsStorageFactory& settings, SitePermissions& permissions, MainWindowFrame& window,
                       const PageBars& bars, TileArea& tiles, Folders folders);

    [[nodiscard]] Text HomeAddress() override;
    [[nodiscard]] std::string StartPage() override;
    [[nodiscard]] QRect PageRect(const QRect& whole, std::int32_t index) override;
    [[nodiscard]] SitePermissions* Permissions() override { return &m_permissions; }
    [[nodiscard]] bool WindowIsFull() const override;
    void SetWindowFull(bool full) override;

    /// The home page is about to be made of that; whoever knows more adds it.
    Signal<void(StartContent& content)> AddFacts;
    /// The home page's folders are about to be read.
    Signal<void()> ReadsFolders;

private:
    SettingsStorageFactory& m_settings;
    SitePermissions& m_permissions;
    MainWindowFrame& m_window;
    const PageBars& m_bars;
    TileArea& m_tiles;
    const Folders m_folders;
};

} // namespace tessa::qt
