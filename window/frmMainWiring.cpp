// What is told to whom inside the main window.
#include "base/Captions.h"
#include "base/OwnAddresses.h"
#include "commands/effects/ChosenCommands.h"
#include "commands/effects/PageMenu.h"
#include "commands/effects/ReadingCommands.h"
#include "commands/effects/TabGroupCommands.h"
#include "commands/effects/TabMoreCommands.h"
#include "commands/effects/TileCommands.h"
#include "downloads/DownloadWords.h"
#include "window/frmMain.h"

#include <utility>

namespace tessa {

void frmMain::WireParts() {
    WireBar();
    WireMenus();
    WireTabs();
    WireSaying();
    WireGroups();
    WireDownloads();
    WireSleep();
    WireReading();
    WireChoice();
    WireTabPanel();
    TabMoreCommands::ShowReopen(m_context);
}

void frmMain::WireBar() {
    actBar.Click.ConnectForLife([this](Tool& tool) { actBar_Click(tool); });
    actBar.BandOpen.ConnectForLife([this](Band& band) { m_menus.BandOpen(band); });
    actBar.MouseOver.ConnectForLife(
        [this](const Tool* tool) { m_tabs.ShowStatusText(tool ? OneLine(tool->Description) : Text()); });
    m_pages.ApplyLoadOptions.ConnectForLife([this] { m_platform.engineOptions.ApplyLoadOptions(); });
}

// What they list is put right when they open.
void frmMain::WireMenus() {
    m_stripInput.Opening.ConnectForLife([this] {
        TabMoreCommands::ShowState(m_context);
        ReadingCommands::ShowState(m_context);
        TileCommands::ShowTabState(m_context);
        TabGroupCommands::ShowTabState(m_context);
    });
    m_stripInput.GroupOpening.ConnectForLife([this] {
        m_groups.RereadAll();
        TabGroupCommands::ShowState(m_context);
    });
    m_events.ShowMenu.ConnectForLife(
        [this](std::int16_t Index, const PageContext& Context) { PageMenu::Open(m_context, Index, Context); });
}

void frmMain::WireTabs() {
    m_tiles.Changed.ConnectForLife([this] { TileCommands::ShowState(m_context); });
    pcPage.Touched.ConnectForLife([this] {
        m_sessions.Touch();
        m_sleep.Touch();
        m_reads.Touch();
    });
    m_events.Navigated.ConnectForLife([this] { m_sessions.Touch(); });
    m_tabs.PlaceView.ConnectForLife([this](ArrayView& view) { PlaceView(view); });
    m_tabs.Resize.ConnectForLife([this] { Form_Resize(); });
    m_tabs.CloseWindow.ConnectForLife([this] { m_platform.window.Close(); });
    WireClosing();
}

void frmMain::WireClosing() {
    m_closed.Returned.ConnectForLife([this](std::int32_t was, std::int32_t is) { m_tiles.Return(was, is); });
    m_closed.Changed.ConnectForLife([this] { TabMoreCommands::ShowReopen(m_context); });
    m_tabs.Closing.ConnectForLife([this](std::int32_t index) {
        m_closed.Remember(index);
        m_groups.PageDone(index);
        m_reads.Closes(index);
        m_tabGroups.Closes(index);
    });
    m_tabs.ClosingSeveral.ConnectForLife([this] { m_closed.BeginSeveral(); });
    m_tabs.ClosedSeveral.ConnectForLife([this] { m_closed.EndSeveral(); });
    m_tabs.Awaiting.ConnectForLife([this](std::int32_t index) { m_closed.Await(index); });
    m_tabs.Leaving.Stays.ConnectForLife([this](std::int32_t index) { m_closed.Stays(index); });
    m_tabs.Blanking.ConnectForLife([this](std::int32_t index) { m_closed.RememberBlanked(index); });
}

// What could not be written is said, and tried again.
void frmMain::WireSaying() {
    m_layout.Say.ConnectForLife([this](TextView message) { sbStatus.Complaint(message); });
    m_sessions.Say.ConnectForLife([this](TextView message) { sbStatus.Complaint(message); });
    m_layout.TryAgain.ConnectForLife([this] { RetryLater(); });
    m_downloads.TryAgain.ConnectForLife([this] { RetryLater(); });
}

// First, because what is remembered of a page also depends on its group.
void frmMain::WireGroups() {
    m_events.Begins.ConnectForLife([this](std::int16_t Index, TextView URL) { m_tabGroups.Begins(Index, URL); });
    m_events.Shows.ConnectForLife([this](std::int16_t Index, TextView URL) { m_tabGroups.Shows(Index, URL); });
    m_groups.Written.ConnectForLife([this] { m_context.groupsMenuStale = true; });
    m_folderChanges += m_platform.folderWatch.Changed.Connect([this](TextView folder) {
        if (folder == m_platform.groupFolder) m_groups.RereadAll();
    });
    m_events.Loaded.ConnectForLife([this](std::int16_t Index) {
        m_groups.PageDone(Index);
        m_relief.Loaded(Index);
    });
}

void frmMain::WireDownloads() {
    m_downloads.Changed.ConnectForLife([this] {
        for (const ToolName name : {u"xtrMore"_tool, u"xtrDownloads"_tool}) {
            if (auto* tool = actBar.Find(name)) tool->Badge = m_downloads.CountActive();
        }
        m_downloadPanel.Touch();
        sbStatus.Saving.Caption = DownloadWords::Progress(m_downloads);
        sbStatus.Saving.Visible = m_downloads.CountActive() > 0;
    });
    m_downloads.Say.ConnectForLife([this](TextView message) { m_tabs.Say(message); });
    m_downloads.Complain.ConnectForLife([this](TextView message) { sbStatus.Complaint(message); });
    sbStatus.Saving.Click.ConnectForLife([this] { m_downloadPanel.Form.Visible = true; });
    m_downloadPanel.Shown.ConnectForLife([this](bool shown) {
        if (auto* tool = actBar.Find(u"xtrDownloads"_tool)) tool->Checked = shown;
    });
}

void frmMain::WireSleep() {
    m_tabs.Opened.ConnectForLife([this](std::int32_t index) { m_sleep.Opened(index); });
    m_sleep.Slept.ConnectForLife([this] { m_tabPanel.Dozed(); });
    m_relief.Say.ConnectForLife([this](TextView words) { m_tabs.Say(words); });
}

void frmMain::WireReading() {
    m_events.Begins.ConnectForLife([this](std::int16_t Index, TextView) { m_reads.Begins(Index); });
    m_events.Shows.ConnectForLife([this](std::int16_t Index, TextView URL) { m_reads.Shows(Index, URL); });
    m_events.Loaded.ConnectForLife([this](std::int16_t Index) {
        m_reads.Loads(Index);
        m_history.Loads(Index);
    });
    m_reads.Changed.ConnectForLife([this](std::int32_t index) { m_openPages.Changed(index); });
    m_openPages.Shown.ConnectForLife([this](bool shown) {
        if (auto* tool = actBar.Find(u"xtrSearchOpenPages"_tool)) tool->Checked = shown;
    });
    m_history.GroupSaved.ConnectForLife([this] { m_context.groupsMenuStale = true; });
    m_homeFacts.Changed.ConnectForLife([this] { HomeFactsChanged(); });
    m_events.Shows.ConnectForLife([this](std::int16_t, TextView URL) {
        if (URL == OwnAddresses::kStart) m_homeFacts.PageCame();
    });
    m_commands.HistoryForgotten.ConnectForLife([this] {
        m_homeFacts.Forget();
        m_homeFacts.Ask();
        m_history.AskAgain();
    });
}

void frmMain::WireChoice() {
    m_choice.Changed.ConnectForLife([this] { ChosenCommands::ShowState(m_context); });
    ChosenCommands::ShowState(m_context);
}

void frmMain::WireTabPanel() {
    m_tabPanel.Closes.ConnectForLife(
        [this](const std::vector<std::int32_t>& indexes) { ChosenCommands::CloseTabs(m_context, indexes); });
    m_tabPanel.Changed.ConnectForLife([this] { ShowTabPanel(); });
    ShowTabPanel();
}

void frmMain::ShowTabPanel() {
    const bool shown = m_tabPanel.Form.Visible(), hides = m_tabPanel.HidesStrip();
    if (auto* tool = actBar.Find(u"xtrTabPanel"_tool)) tool->Checked = shown;
    if (auto* tool = actBar.Find(u"xtrTabPanelRight"_tool)) tool->Checked = m_tabPanel.OnRight();
    if (auto* tool = actBar.Find(u"xtrTabStripHidden"_tool)) tool->Checked = m_tabPanel.StripHidden();
    for (const ToolName name : {u"xtrTabPanelRight"_tool, u"xtrTabStripHidden"_tool}) actBar.Enable(name, shown);
    m_platform.window.ShowTabStrip(!hides);
    if (std::exchange(m_stripHidden, hides) != hides && m_stage == Stage::Loaded) Form_Resize();
}

} // namespace tessa
