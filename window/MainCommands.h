#pragma once
#include "commands/effects/CommandContext.h"
#include "downloads/frmDownloads.h"
#include "history/frmOpenPages.h"
#include "sessions/SessionJournal.h"
#include "settings/InternetSettings.h"
#include "startpage/HistoryPages.h"
#include "tabpanel/frmTabPanel.h"
#include "tabs/frmTaskView.h"
#include "window/LiveSettings.h"
#include "window/MainWindowPlatform.h"

namespace tessa {

class frmResize;

/// What commands have the main window do. Owned by it.
class MainCommands final : public WindowCommands {
public:
    /// What the commands work on; all of it outlives them.
    struct Parts {
        TabSet& tabs;
        TabStrip& pcPage;
        ViewArray& Browser;
        CommandBar& actBar;
        CommandContext& context;
        SessionJournal& sessions;
        LiveSettings& settings;
        ReadPages& reads;
        frmTaskView& taskView;
        frmDownloads& downloads;
        HistoryPages& history;
        frmOpenPages& openPages;
        frmTabPanel& tabPanel;
    };
    /// `platform` outlives this object.
    MainCommands(Parts parts, const MainWindowPlatform& platform) : m_parts(parts), m_platform(platform) {}

    void ShowSettings() override;
    void ShowInternetOptions() override;
    void ShowAbout() override;
    void ShowHelp() override;
    void ShowSessions() override;
    void ShowTaskView() override;
    void ToggleDownloads() override;
    void ToggleTabPanel() override;
    void ToggleTabStrip() override;
    void MoveTabPanel() override;
    void ShowHistory() override;
    void SearchOpenPages() override;
    void ToggleFullScreen() override;
    void ResizeAddress() override;
    void ResizeSearch() override;
    void CopyReport() override;
    void Exit() override;

    /// What was read was cleared.
    Signal<void()> HistoryForgotten;

private:
    void KeepTabPanel();
    void ForgetHistory(std::int64_t seconds);
    void Resize(void (frmResize::*mode)());
    void Clear(const BrowsingData& data, const Forgotten& done);

    Parts m_parts;
    const MainWindowPlatform& m_platform;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace tessa
