#include "qt/program/QtEngineSurroundings.h"

#include "qt/base/QtBuildInfo.h"
#include "qt/base/QtPalette.h"
#include "qt/window/QtMainWindow.h"
#include "qt/window/QtPageBars.h"
#include "settings/InternetSettings.h"
#include "startpage/StartPage.h"

#include <utility>

namespace tessa::qt {

QtEngineSurroundings::QtEngineSurroundings(SettingsStorageFactory& settings, SitePermissions& permissions,
                                           QtMainWindow& window, const QtPageBars& bars, Folders folders)
    : m_settings(settings), m_permissions(permissions), m_window(window), m_bars(bars), m_folders(std::move(folders)) {}

Text QtEngineSurroundings::HomeAddress() { return InternetSettings(m_settings).Get().homePage; }

std::string QtEngineSurroundings::StartPage() {
    ReadsFolders();
    StartContent content = tessa::StartPage::Read(m_folders.groups, m_folders.favorites);
    content.Dark = QtPalette::IsDark(m_window.palette());
    content.Notice = QtBuildInfo::EngineNotice();
    return tessa::StartPage::Html(content);
}

QRect QtEngineSurroundings::PageRect(const QRect& whole) { return m_bars.Lay(whole); }

bool QtEngineSurroundings::WindowIsFull() const { return m_window.FullScreen(); }

void QtEngineSurroundings::SetWindowFull(bool full) { m_window.SetFullScreen(full); }

} // namespace tessa::qt
