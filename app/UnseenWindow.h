#pragma once
#include "app/Startup.h"
#include "app/UnseenDesktop.h"

namespace tessa {

/// The main window of a start that hands its command line over. It is loaded like any other and never shown. So it has
/// no engine, no window and nobody to ask, and costs next to nothing.
class UnseenWindow {
public:
    /// All of it outlives the window. `groupFolder` ends with its separator.
    UnseenWindow(SettingsStorageFactory& settings, InstanceChannel& instances, LayoutFile& layout, Text groupFolder);

    /// For the program's entry.
    [[nodiscard]] Startup::Program Platform() {
        return {m_application, m_settings, m_instances, m_splash, m_window, m_main};
    }

private:
    SettingsStorageFactory& m_settings;
    InstanceChannel& m_instances;
    UnseenDesktop::NoApplication m_application;
    UnseenDesktop::NoSplash m_splash;
    UnseenDesktop::NoWindow m_window;
    UnseenDesktop::UnseenViews m_views;
    UnseenDesktop::NobodyToAsk m_messages;
    UnseenDesktop::NoFileDialogs m_files;
    UnseenDesktop::NoSessions m_sessions;
    UnseenDesktop::NothingToAsk m_defaultBrowser;
    UnseenDesktop::NoShell m_shell;
    UnseenDesktop::NoFolderWatch m_folderWatch;
    UnseenDesktop::NoTrash m_trash;
    UnseenDesktop::NoDownloads m_downloads;
    UnseenDesktop::NoForms m_forms;
    UnseenDesktop::NoClock m_clock;
    UnseenDesktop::NoSteadyClock m_steady;
    UnseenDesktop::NoMemory m_memory;
    UnseenDesktop::NoOffer m_offer;
    UnseenDesktop::NoEngineOptions m_engineOptions;
    UnseenDesktop::NoReport m_report;
    UnseenDesktop::NoTools m_tools;
    UnseenDesktop::NoInput m_input;
    UnseenDesktop::NoVisits m_visits;
    UnseenDesktop::NoProbe m_probe;
    frmMain m_main;
};

} // namespace tessa
