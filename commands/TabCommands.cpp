#include "commands/TabCommands.h"

#include "address/Endpoints.h"
#include "base/Address.h"
#include "base/OwnAddresses.h"

namespace tessa {

namespace {

void OpenInFront(CommandContext& context, TextView address, Privacy privacy = Privacy::Ordinary) {
    if (auto* view = context.tabs.GetNewBrowser(InFront::Yes, privacy)) ResumeNext(view->Navigate(address));
}

} // namespace

namespace TabCommands {

void NewBlank(CommandContext& context) { OpenInFront(context, Address::kBlank); }

void NewSearch(CommandContext& context) { OpenInFront(context, Endpoints::kSearchStart); }

void NewHome(CommandContext& context) {
    if (auto* view = context.tabs.GetNewBrowser(InFront::Yes)) ResumeNext(view->GoHome());
}

void NewCurrent(CommandContext& context) {
    const auto* current = context.tabs.CurrentView();
    const Text address = current ? current->Control->LocationURL() : Text();
    OpenInFront(context, address, context.tabs.CurrentPrivacy());
}

void NewPrivate(CommandContext& context) { OpenInFront(context, OwnAddresses::kPrivate, Privacy::Private); }

void Close(CommandContext& context) { context.tabs.CloseSelectedTab(); }

void CloseAll(CommandContext& context) { context.tabs.CloseOtherTabs(); }

void Next(CommandContext& context) { context.tabs.SelectNextTab(); }

void Previous(CommandContext& context) { context.tabs.SelectPreviousTab(); }

} // namespace TabCommands

} // namespace tessa
