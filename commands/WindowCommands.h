#pragma once

namespace tessa {

/// What commands have the main window do. Owned by it.
class WindowCommands {
public:
    virtual ~WindowCommands() = default;

    virtual void ShowSettings() = 0;
    virtual void ShowInternetOptions() = 0;
    virtual void ShowAbout() = 0;
    virtual void ShowHelp() = 0;
    /// Shows the earlier sessions.
    virtual void ShowSessions() = 0;
    /// Shows what each tab uses of the machine.
    virtual void ShowTaskView() = 0;
    /// Shows the panel of downloads, or hides it.
    virtual void ToggleDownloads() = 0;
    /// Shows the tabs as a list at the side, or hides it.
    virtual void ToggleTabPanel() = 0;
    /// Hides the strip of tabs as long as that list is shown, or shows it again.
    virtual void ToggleTabStrip() = 0;
    /// Moves that list to the other side.
    virtual void MoveTabPanel() = 0;
    /// Shows what was read.
    virtual void ShowHistory() = 0;
    /// Shows the panel that searches in all open pages.
    virtual void SearchOpenPages() = 0;
    virtual void ToggleFullScreen() = 0;
    virtual void ResizeAddress() = 0;
    virtual void ResizeSearch() = 0;
    /// Copies what the user sends along with a report of an error.
    virtual void CopyReport() = 0;
    virtual void Exit() = 0;
};

} // namespace tessa
