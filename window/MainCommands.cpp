#include "window/MainCommands.h"

#include "address/BoxHistories.h"
#include "base/OwnAddresses.h"
#include "commands/frmResize.h"
#include "groups/TessaGroups.h"
#include "sessions/frmSessions.h"
#include "settings/frmInternetOptions.h"
#include "settings/frmSettings.h"
#include "tabs/OpenTabs.h"
#include "window/frmSplash.h"

namespace tessa {

void MainCommands::Resize(void (frmResize::*mode)()) {
    frmResize form(m_parts.actBar);
    (form.*mode)();
    m_platform.forms.Show(form);
}

void MainCommands::Clear(const BrowsingData& data, const Forgotten& done) {
    if (data.typed) {
        BoxHistories::Forget(m_parts.actBar, m_platform.settings);
        // An offer to bring them back would keep what is to be forgotten.
        m_parts.tabs.WithdrawSaid();
    }
    // The engine says when all of it is done.
    if (data.history) ForgetHistory(data.seconds);
    m_platform.engineOptions.Clear(data, done);
}

void MainCommands::ForgetHistory(std::int64_t seconds) {
    m_parts.reads.Forget();
    HistoryRemoval removal;
    if (seconds > 0) removal.From = m_platform.clock.Now() - seconds;
    m_platform.visits.Remove(removal, [this, alive = std::weak_ptr(m_alive)](std::int64_t) {
        if (!alive.expired()) HistoryForgotten();
    });
}

void MainCommands::ShowSettings() {
    frmSettings form(m_platform.settings);
    m_platform.forms.Show(form);
    if (form.Apply) m_parts.settings.Changed();
}

void MainCommands::ShowInternetOptions() {
    const auto* view = m_parts.tabs.CurrentView();
    frmInternetOptions form(m_platform.settings,
                            {.chooseFolder = [this](TextView folder) { return m_platform.files.ChooseFolder(folder); },
                             .siteChoices = m_platform.siteChoices,
                             .clear = [this](const BrowsingData& data, const Forgotten& done) { Clear(data, done); },
                             .currentPage = view ? view->Control->LocationURL() : Text(),
                             .groups = TessaGroups::Names(m_platform.groupFolder),
                             .mailProgram = m_platform.shell.ProgramFor(u"mailto"),
                             .newsProgram = m_platform.shell.ProgramFor(u"news"),
                             .blocking = m_platform.blocking,
                             .chooseList =
                                 [this] {
                                     return m_platform.files.ShowOpen({.DialogTitle = u"Add List",
                                                                       .InitDir = {},
                                                                       .Filter = u"Lists (*.txt)|*.txt|All files|*",
                                                                       .MustExist = true});
                                 }});
    m_platform.forms.Show(form);
    if (!form.Apply) return;
    m_platform.engineOptions.ApplyInternetOptions();
    m_parts.settings.ApplySleep();
    m_parts.settings.RememberLastSites = SettingsStore(m_platform.settings).RememberLastSites.Get();
    m_parts.settings.ApplyHistory();
}

void MainCommands::ShowAbout() {
    frmSplash form;
    form.ShowButton();
    m_platform.forms.Show(form);
}

// Asked for again and again, the help has one tab.
void MainCommands::ShowHelp() {
    for (const OpenTab open : OpenTabs(m_parts.pcPage, m_parts.Browser)) {
        if (open.Address().starts_with(OwnAddresses::kHelp)) return m_parts.pcPage.Select(&open.Item);
    }
    if (auto* view = m_parts.tabs.GetNewBrowser(InFront::Yes)) ResumeNext(view->Navigate(OwnAddresses::kHelp));
}

void MainCommands::ShowSessions() {
    frmSessions form(m_parts.sessions,
                     {m_platform.files, m_platform.messages, m_platform.groupFolder, m_platform.clock});
    m_platform.forms.Show(form);
    if (form.SavedGroup) m_parts.context.groupsMenuStale = true;
    // What was offered may have been reopened or forgotten in the list.
    m_parts.sessions.OfferBy(m_platform.offer);
}

void MainCommands::ShowTaskView() {
    m_parts.taskView.Form.Visible = true;
    m_parts.taskView.ShowItself();
}

void MainCommands::ToggleDownloads() {
    auto& form = m_parts.downloads.Form;
    form.Visible = !form.Visible();
}

void MainCommands::ToggleTabPanel() {
    auto& form = m_parts.tabPanel;
    form.Form.Visible = !form.Form.Visible();
    if (form.Form.Visible()) form.txtFilter.SetFocus();
    KeepTabPanel();
}

void MainCommands::ToggleTabStrip() {
    m_parts.tabPanel.StripHidden = !m_parts.tabPanel.StripHidden();
    KeepTabPanel();
}

void MainCommands::MoveTabPanel() {
    m_parts.tabPanel.OnRight = !m_parts.tabPanel.OnRight();
    KeepTabPanel();
}

void MainCommands::KeepTabPanel() {
    SettingsStore store(m_platform.settings);
    m_parts.tabPanel.Save(store);
}

void MainCommands::ShowHistory() { m_parts.history.Show(); }

void MainCommands::SearchOpenPages() { m_parts.openPages.Open(); }

void MainCommands::ToggleFullScreen() { m_platform.window.SetFullScreen(!m_platform.window.FullScreen()); }

void MainCommands::ResizeAddress() { Resize(&frmResize::ResizeAddress); }

void MainCommands::ResizeSearch() { Resize(&frmResize::ResizeSearch); }

void MainCommands::CopyReport() {
    m_platform.input.Copy(Report::Words(m_platform.report.Read(), m_platform.settings));
    m_parts.tabs.Say(u"The report has been copied.");
}

void MainCommands::Exit() { m_platform.window.Close(); }

} // namespace tessa
