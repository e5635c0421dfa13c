#include "app/UnseenWindow.h"

namespace tessa {

UnseenWindow::UnseenWindow(SettingsStorageFactory& settings, InstanceChannel& instances, LayoutFile& layout,
                           Text groupFolder)
    : m_settings(settings),
      m_instances(instances),
      m_main({.window = m_window,
              .views = m_views,
              .settings = settings,
              .messages = m_messages,
              .files = m_files,
              .splash = m_splash,
              .sessions = m_sessions,
              .layout = layout,
              .defaultBrowser = m_defaultBrowser,
              .shell = m_shell,
              .folderWatch = m_folderWatch,
              .trash = m_trash,
              .downloads = m_downloads,
              .forms = m_forms,
              .clock = m_clock,
              .steady = m_steady,
              .memory = m_memory,
              .offer = m_offer,
              .engineOptions = m_engineOptions,
              .report = m_report,
              .tools = m_tools,
              .input = m_input,
              .visits = m_visits,
              .probe = m_probe,
              .programPath = {},
              .groupFolder = std::move(groupFolder)}) {}

} // namespace tessa
