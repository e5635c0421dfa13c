#include "commands/Dispatcher.h"

#include <algorithm>
#include <array>
#include <variant>

namespace {

using TabEffect = void (*)(TabSet&);
using ViewEffect = void (*)(TabSet&, BrowserView&);
using HostEffect = std::function<void()> CommandHost::*;

/// A tool's name and what a click on it does; an effect that takes a view does nothing without one.
struct Command {
    TextView tool;
    std::variant<TabEffect, ViewEffect, HostEffect> effect;
};

void NewBlank(TabSet& tabs) {
    if (auto* view = tabs.GetNewBrowser(InFront::Yes)) ResumeNext(view->Navigate(u"about:blank"));
}

void Stop(TabSet& tabs, BrowserView& view) {
    ResumeNext(view.Stop());
    tabs.UpdateStopRefresh();
}

void Refresh(TabSet& tabs, BrowserView& view) {
    ResumeNext(view.Refresh());
    tabs.UpdateStopRefresh();
}

const std::array kCommands{
    Command{u"mnuSettings", &CommandHost::ShowSettings},
    Command{u"mnuGoBack", ViewEffect{[](TabSet&, BrowserView& view) { ResumeNext(view.GoBack()); }}},
    Command{u"mnuGoForward", ViewEffect{[](TabSet&, BrowserView& view) { ResumeNext(view.GoForward()); }}},
    Command{u"mnuViewStatusbar", TabEffect{[](TabSet& tabs) { tabs.ToggleStatusBar(); }}},
    Command{u"mnuNewBlank", TabEffect{NewBlank}},
    Command{u"mnuClose", TabEffect{[](TabSet& tabs) { tabs.CloseSelectedTab(); }}},
    Command{u"mnuStop", ViewEffect{Stop}},
    Command{u"mnuRefresh", ViewEffect{Refresh}},
    Command{u"mnuExit", &CommandHost::Exit},
};

} // namespace

void Dispatcher::actBar_Click(const Tool& tool) {
    const auto* command = std::ranges::find(kCommands, TextView(tool.Name()), &Command::tool);
    if (command == kCommands.end()) return;
    if (const auto* tabEffect = std::get_if<TabEffect>(&command->effect)) (*tabEffect)(m_tabs);
    auto* view = m_tabs.CurrentView();
    const auto* viewEffect = std::get_if<ViewEffect>(&command->effect);
    if (viewEffect && view) (*viewEffect)(m_tabs, *view->Control);
    const auto* hostEffect = std::get_if<HostEffect>(&command->effect);
    if (hostEffect && Host.*(*hostEffect)) (Host.*(*hostEffect))();
}

void Dispatcher::AddressEntered() {
    const auto* address = m_tabs.AddressCombo();
    auto* view = m_tabs.CurrentView();
    if (address && view) ResumeNext(view->Control->Navigate(Text(address->Value())));
}
