#include "qt/program/EngineSurroundings.h"

#include "qt/base/BuildInfo.h"
#include "qt/base/Palette.h"
#include "qt/tiles/TileArea.h"
#include "qt/window/MainWindowFrame.h"
#include "qt/window/PageBars.h"
#include "settings/BlockingSettings.h"
#include "settings/InternetSettings.h"
#include "startpage/StartPage.h"

#include <utility>

namespace tessa::qt {

EngineSurroundings::EngineSurroundings(SettingsStorageFactory& settings, SitePermissions& permissions,
                                       MainWindowFrame& window, const PageBars& bars, TileArea& tiles, Folders folders)
    : m_settings(settings),
      m_permissions(permissions),
      m_window(window),
      m_bars(bars),
      m_tiles(tiles),
      m_folders(std::move(folders)) {}

Text EngineSurroundings::HomeAddress() { return InternetSettings(m_settings).Get().homePage; }

std::string EngineSurroundings::StartPage() {
    ReadsFolders();
    StartContent content = tessa::StartPage::Read(m_folders.groups, m_folders.favorites);
    AddFacts(content);
    content.Dark = Palette::IsDark(m_window.palette());
    const BlockingValues blocking = BlockingSettings(m_settings).Get();
    content.AsksAboutBlocking = !blocking.on && !blocking.asked;
    content.Notice = BuildInfo::EngineNotice();
    return tessa::StartPage::Html(content);
}

QRect EngineSurroundings::PageRect(const QRect& whole, std::int32_t index) {
    return m_tiles.PageRect(m_bars.Lay(whole), index);
}

bool EngineSurroundings::WindowIsFull() const { return m_window.FullScreen(); }

void EngineSurroundings::SetWindowFull(bool full) { m_window.SetFullScreen(full); }

} // namespace tessa::qt
