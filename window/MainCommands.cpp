#include "window/MainCommands.h"

#include "bar/ToolName.h"
#include "base/OwnAddresses.h"
#include "commands/frmResize.h"
#include "sessions/frmSessions.h"
#include "settings/frmInternetOptions.h"
#include "settings/frmSettings.h"
#include "window/MainLoad.h"
#include "window/frmMain.h"
#include "window/frmSplash.h"

namespace {

void Resize(frmMain& main, void (frmResize::*mode)()) {
    frmResize form(main.actBar);
    (form.*mode)();
    main.Platform.forms.Show(form);
}

void ForgetTyped(frmMain& main) {
    for (const ToolName box : {u"cboAddress"_tool, u"cboSearch"_tool})
        if (auto* combo = main.actBar.FindCombo(box)) combo->Clear();
    // An offer to bring them back would keep what is to be forgotten.
    main.Tabs.WithdrawSaid();
    SettingsStore store(main.Platform.settings);
    ResumeNext(store.AddressHistory.Set({}));
    ResumeNext(store.SearchHistory.Set({}));
}

void Clear(frmMain& main, const BrowsingData& data, const Forgotten& done) {
    if (data.typed) ForgetTyped(main);
    main.Platform.engineOptions.Clear(data, done);
}

} // namespace

void MainCommands::ShowSettings() {
    frmSettings form(m_main.Platform.settings);
    m_main.Platform.forms.Show(form);
    if (form.Apply) MainLoad::ApplySettings(m_main);
}

void MainCommands::ShowInternetOptions() {
    const auto* view = m_main.Tabs.CurrentView();
    const auto clear = [this](const BrowsingData& data, const Forgotten& done) { Clear(m_main, data, done); };
    frmInternetOptions form(
        m_main.Platform.settings,
        {.chooseFolder = [this](TextView folder) { return m_main.Platform.files.ChooseFolder(folder); },
         .siteChoices = m_main.Platform.siteChoices,
         .clear = clear,
         .currentPage = view ? view->Control->LocationURL() : Text(),
         .mailProgram = m_main.Platform.shell.ProgramFor(u"mailto"),
         .newsProgram = m_main.Platform.shell.ProgramFor(u"news")});
    m_main.Platform.forms.Show(form);
    if (!form.Apply) return;
    m_main.Platform.engineOptions.ApplyInternetOptions();
    MainLoad::ApplySleep(m_main);
}

void MainCommands::ShowAbout() {
    frmSplash form;
    form.ShowButton();
    m_main.Platform.forms.Show(form);
}

// Asked for again and again, the help has one tab.
void MainCommands::ShowHelp() {
    for (std::size_t i = 1; i <= m_main.pcPage.Count(); ++i) {
        auto* tab = m_main.pcPage.FindAt(i);
        const auto* view = m_main.Browser.Find(tab->Tag);
        if (view && view->Control->LocationURL().starts_with(OwnAddresses::kHelp)) return m_main.pcPage.Select(tab);
    }
    if (auto* view = m_main.GetNewBrowser(InFront::Yes)) ResumeNext(view->Navigate(OwnAddresses::kHelp));
}

void MainCommands::ShowSessions() {
    const auto& platform = m_main.Platform;
    frmSessions form(m_main.Sessions, {platform.files, platform.messages, platform.groupFolder, platform.clock});
    platform.forms.Show(form);
    if (form.SavedGroup) m_main.Commands.groupsMenuStale = true;
    // What was offered may have been reopened or forgotten in the list.
    m_main.OfferSession();
}

void MainCommands::ShowTaskView() {
    m_main.TaskView.Form.Visible = true;
    m_main.TaskView.ShowItself();
}

void MainCommands::ToggleDownloads() {
    auto& form = m_main.DownloadPanel.Form;
    form.Visible = !form.Visible();
}

void MainCommands::ToggleFullScreen() {
    auto& window = m_main.Platform.window;
    window.SetFullScreen(!window.FullScreen());
}

void MainCommands::ResizeAddress() { Resize(m_main, &frmResize::ResizeAddress); }

void MainCommands::ResizeSearch() { Resize(m_main, &frmResize::ResizeSearch); }

void MainCommands::CopyReport() {
    m_main.Platform.input.Copy(Report::Words(m_main.Platform.report.Read(), m_main.Platform.settings));
    m_main.Tabs.Say(u"The report has been copied.");
}

void MainCommands::Exit() { m_main.Platform.window.Close(); }
