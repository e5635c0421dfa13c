#pragma once
#include "base/os/MemoryReader.h"
#include "forms/FormHost.h"
#include "groups/GroupCheck.h"
#include "platform/BrowserView.h"
#include "platform/DefaultBrowser.h"
#include "platform/Dialogs.h"
#include "platform/Downloads.h"
#include "platform/FolderWatch.h"
#include "platform/LayoutFile.h"
#include "platform/MainWindow.h"
#include "platform/SessionFiles.h"
#include "platform/SettingsStorage.h"
#include "platform/Shell.h"
#include "platform/SteadyClock.h"
#include "platform/Trash.h"
#include "platform/UserInput.h"
#include "platform/VisitStore.h"
#include "platform/WallClock.h"
#include "platform/WindowTools.h"
#include "sessions/SessionOffer.h"
#include "settings/BlockingOutside.h"
#include "settings/EngineOptions.h"
#include "settings/SiteChoice.h"
#include "window/Report.h"

namespace tessa {

class SplashWindow;

/// What the main window needs of the world outside; all of it outlives the window.
struct MainWindowPlatform {
    MainWindow& window;
    BrowserViewFactory& views;
    SettingsStorageFactory& settings;
    MessageBoxes& messages;
    FileDialogs& files;
    SplashWindow& splash;
    SessionFiles& sessions;
    LayoutFile& layout;
    DefaultBrowser& defaultBrowser;
    Shell& shell;
    FolderWatch& folderWatch;
    Trash& trash;
    DownloadDesktop& downloads;
    FormHost& forms;
    WallClock& clock;
    SteadyClock& steady;
    MemoryReader& memory;
    SessionOffer& offer;
    EngineOptions& engineOptions;
    Report::Source& report;
    WindowTools& tools;
    UserInput& input;
    VisitStore& visits;
    AddressProbe& probe;
    /// The full path of the running program.
    Text programPath;
    /// Where TessaGroup files lie, with the separator at the end.
    Text groupFolder;
    /// Where Favorites lie, without a separator at the end. Empty when there is no such folder, which may come later.
    Text favoritesFolder{};
    /// Where the list of downloads is kept; empty for nowhere.
    Text downloadsFile{};
    /// What the user has decided for sites, as the Internet Options list it.
    SiteChoices siteChoices{};
    /// What the page about blocking needs; nothing where nothing blocks.
    BlockingOutside* blocking = nullptr;
};

} // namespace tessa
