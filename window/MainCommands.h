#pragma once
#include "commands/WindowCommands.h"

class frmMain;

/// What commands have the main window do. A member of the window.
class MainCommands final : public WindowCommands {
public:
    explicit MainCommands(frmMain& main) : m_main(main) {}

    void ShowSettings() override;
    void ShowInternetOptions() override;
    void ShowAbout() override;
    void ShowHelp() override;
    void ShowSessions() override;
    void ShowTaskView() override;
    void ToggleDownloads() override;
    void ToggleFullScreen() override;
    void ResizeAddress() override;
    void ResizeSearch() override;
    void CopyReport() override;
    void Exit() override;

private:
    frmMain& m_main;
};
