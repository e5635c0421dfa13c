#include "commands/effects/PageCommands.h"
#include "commands/effects/External.h"

#include "address/Endpoints.h"
#include "bar/ToolName.h"
#include "tabs/Browser.h"

namespace tessa {

namespace PageCommands {

void GoBack(CommandContext&, BrowserView& view) { ResumeNext(view.GoBack()); }

void GoForward(CommandContext&, BrowserView& view) { ResumeNext(view.GoForward()); }

void Home(CommandContext&, BrowserView& view) { ResumeNext(view.GoHome()); }

void Search(CommandContext&, BrowserView& view) { ResumeNext(view.Navigate(Endpoints::kSearchStart)); }

void Stop(CommandContext& context, BrowserView& view) {
    ResumeNext(view.Stop());
    context.tabs.UpdateStopRefresh();
}

void Refresh(CommandContext& context, BrowserView& view) {
    const auto followers = context.tabs.Followers();
    ResumeNext(view.Refresh());
    for (auto* each : followers) ResumeNext(each->Control->Refresh());
    context.tabs.UpdateStopRefresh();
}

void Source(CommandContext& context, BrowserView& view) { Browser::ViewSource(context.tabs, view); }

void Find(CommandContext& context, BrowserView& view) { context.tools.ShowFind(view); }

void InternetOptions(CommandContext& context, BrowserView&) {
    context.window->ShowInternetOptions();
    context.pages.ShowLoadOptions();
}

void SelectAll(CommandContext&, BrowserView& view) {
    view.SetFocus();
    ResumeNext(view.ExecWB(BrowserCommand::SelectAll));
}

void Open(CommandContext& context) {
    const std::int32_t current = context.tabs.CurrentIndex();
    const Text file =
        context.files.ShowOpen({.DialogTitle = u"Open",
                                .InitDir = {},
                                .Filter = u"HTML Files (*.htm, *.html)|*.htm; *.html|All Files (*.*)|*.*"});
    auto* view = file.empty() ? nullptr : context.tabs.OpenView(current);
    if (view) ResumeNext(view->Control->Navigate(file));
}

void TextSize(CommandContext& context, const Tool& tool) { context.pages.SetTextSize(tool.Name(), Apply::Yes); }

void MediumTextSize(CommandContext& context) { context.pages.SetTextSize(u"mnuFontMedium"_tool, Apply::Yes); }

void LargerText(CommandContext& context) { context.pages.StepTextSize(1); }

void SmallerText(CommandContext& context) { context.pages.StepTextSize(-1); }

void ToggleLoadOption(CommandContext& context, const Tool& tool) { context.pages.ToggleLoadOption(tool.Name()); }

void Mail(CommandContext& context, const Tool& tool) {
    auto* view = context.tabs.CurrentView();
    if (!view) return;
    const Text title = view->Control->LocationName(), address = view->Control->LocationURL();
    const Text environment = External::EnvironmentText(context.settings, context.shell);
    ResumeNext(view->Control->Navigate(
        External::MailAddress(tool.Name(), {.title = title, .address = address, .environment = environment})));
}

void LaunchMailClient(CommandContext& context) { External::LaunchMailClient(context.settings, context.shell); }

void LaunchNewsClient(CommandContext& context) { External::LaunchNewsClient(context.settings, context.shell); }

} // namespace PageCommands

} // namespace tessa
