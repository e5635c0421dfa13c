#include "window/MainCommands.h"

#include "bar/ToolName.h"
#include "base/OwnAddresses.h"
#include "commands/External.h"
#include "commands/frmResize.h"
#include "settings/frmInternetOptions.h"
#include "window/MainLoad.h"
#include "window/frmMain.h"

namespace {

void Resize(frmMain& main, void (frmResize::*mode)()) {
    frmResize form(main.actBar);
    (form.*mode)();
    main.Platform.forms.Show(form);
}

// Asked for again and again, the help has one tab.
void ShowHelp(frmMain& main) {
    for (std::size_t i = 1; i <= main.pcPage.Count(); ++i) {
        auto* tab = main.pcPage.FindAt(i);
        const auto* view = main.Browser.Find(tab->Tag);
        if (view && view->Control->LocationURL().starts_with(OwnAddresses::kHelp)) return main.pcPage.Select(tab);
    }
    if (auto* view = main.GetNewBrowser(InFront::Yes)) ResumeNext(view->Navigate(OwnAddresses::kHelp));
}

void CopyReport(frmMain& main) {
    const Text words = Report::Words(main.Platform.report.Read(), main.Platform.settings);
    if (!main.Commands.host.CopyText) return;
    main.Commands.host.CopyText(words);
    main.Tabs.Say(u"The report has been copied.");
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

void ShowInternetOptions(frmMain& main) {
    const auto* view = main.Tabs.CurrentView();
    const auto clear = [&main](const BrowsingData& data, const Forgotten& done) { Clear(main, data, done); };
    frmInternetOptions form(
        main.Platform.settings,
        {.chooseFolder = [&main](TextView folder) { return main.Platform.files.ChooseFolder(folder); },
         .siteChoices = main.Platform.siteChoices,
         .clear = clear,
         .currentPage = view ? view->Control->LocationURL() : Text(),
         .mailProgram = main.Platform.shell.ProgramFor(u"mailto"),
         .newsProgram = main.Platform.shell.ProgramFor(u"news")});
    main.Platform.forms.Show(form);
    if (!form.Apply) return;
    main.Platform.engineOptions.ApplyInternetOptions();
    MainLoad::ApplySleep(main);
}

Text MailAddress(const frmMain& main, TextView tool, TextView title, TextView address) {
    const Text environment = External::EnvironmentText(main.Platform.settings, main.Platform.shell);
    return External::MailAddress(tool, {.title = title, .address = address, .environment = environment});
}

} // namespace

namespace MainCommands {

void Fill(CommandHost& host, frmMain& main) {
    host.ResizeAddress = [&main] { Resize(main, &frmResize::ResizeAddress); };
    host.ResizeSearch = [&main] { Resize(main, &frmResize::ResizeSearch); };
    host.ShowHelp = [&main] { ShowHelp(main); };
    host.CopyReport = [&main] { CopyReport(main); };
    host.ShowInternetOptions = [&main] { ShowInternetOptions(main); };
    host.ToggleFullScreen = [&main] { main.Platform.window.SetFullScreen(!main.Platform.window.FullScreen()); };
    host.LaunchMailClient = [&main] { External::LaunchMailClient(main.Platform.settings, main.Platform.shell); };
    host.LaunchNewsClient = [&main] { External::LaunchNewsClient(main.Platform.settings, main.Platform.shell); };
    host.MailAddress = [&main](TextView tool, TextView title, TextView address) {
        return MailAddress(main, tool, title, address);
    };
}

} // namespace MainCommands
