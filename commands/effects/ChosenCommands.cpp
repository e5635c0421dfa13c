#include "commands/effects/ChosenCommands.h"

#include "bar/ToolName.h"
#include "commands/effects/CollectionCommands.h"
#include "commands/effects/SeveralTabs.h"
#include "tabs/frmRenameTab.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

using Indexes = SeveralTabs::Indexes;

/// How an entry of the pop-up reads when it is about several tabs; "#" stands for their number.
struct SeveralWords {
    ToolName tool;
    TextView one, several;
};
constexpr std::array kSeveralWords{
    SeveralWords{u"mnuTabClose"_tool, u"&Close", u"&Close # Tabs"},
    SeveralWords{u"xtrTabMute"_tool, u"M&ute", u"M&ute # Tabs"},
    SeveralWords{u"xtrTabSleep"_tool, u"S&leep", u"Let # Tabs S&leep"},
    SeveralWords{u"xtrTabAddToTessaGroup"_tool, u"Add to &TessaGroup...", u"Add # Tabs to &TessaGroup..."},
    SeveralWords{u"xtrTabCopyAddress"_tool, u"Copy &Address", u"Copy # &Addresses"},
};

Text WordsFor(const SeveralWords& words, std::size_t count) {
    if (count < 2) return Text(words.one);
    Text said(words.several);
    return said.replace(said.find(u'#'), 1, Decimal(static_cast<std::int64_t>(count)));
}

} // namespace

namespace ChosenCommands {

void CloseTabs(CommandContext& context, const Indexes& indexes) {
    if (indexes.size() == 1) return context.tabs.CloseBrowserTab(indexes.front());
    if (!indexes.empty()) SeveralTabs::Close(context, indexes);
}

void Close(CommandContext& context) { CloseTabs(context, context.choice.Indexes()); }

void Mute(CommandContext& context) { SeveralTabs::Mute(context, context.choice.Indexes()); }

void Sleep(CommandContext& context) { SeveralTabs::Sleep(context, context.choice.Indexes()); }

void SaveAsTessaGroup(CommandContext& context) {
    const Indexes indexes = context.choice.Indexes();
    if (indexes.empty()) return;
    const Text file = CollectionCommands::AskForNewGroup(context, u"Save Selected Tabs as TessaGroup");
    if (file.empty()) return;
    context.groups.SaveTabs(file, indexes);
    context.groupsMenuStale = true;
}

void AddToTessaGroup(CommandContext& context) { SeveralTabs::AddToTessaGroup(context, context.choice.Indexes()); }

void CopyAddresses(CommandContext& context) { SeveralTabs::CopyAddresses(context, context.choice.Indexes()); }

void All(CommandContext& context) { context.choice.All(); }

void None(CommandContext& context) { context.choice.End(); }

std::vector<std::int32_t> OfPopup(const CommandContext& context) {
    const auto* tab = context.strip.PopupTab();
    return tab ? context.choice.With(*tab) : Indexes();
}

void PopupStop(CommandContext& context) { SeveralTabs::Stop(context, OfPopup(context)); }

void PopupRefresh(CommandContext& context) { SeveralTabs::Refresh(context, OfPopup(context)); }

void PopupClose(CommandContext& context) {
    if (context.strip.PopupView()) CloseTabs(context, OfPopup(context));
}

void PopupMute(CommandContext& context) { SeveralTabs::Mute(context, OfPopup(context)); }

void PopupSleep(CommandContext& context) {
    if (context.strip.PopupView()) SeveralTabs::Sleep(context, OfPopup(context));
}

void PopupAddToTessaGroup(CommandContext& context) {
    if (context.strip.PopupView()) SeveralTabs::AddToTessaGroup(context, OfPopup(context));
}

void PopupCopyAddress(CommandContext& context) {
    if (context.strip.PopupView()) SeveralTabs::CopyAddresses(context, OfPopup(context));
}

void PopupRename(CommandContext& context) {
    const auto* tab = context.strip.PopupTab();
    if (!tab) return;
    const Text key = tab->Key();
    frmRenameTab form(*tab);
    context.forms.Show(form);
    // The tab may have closed behind the question.
    auto* renamed = context.pcPage.Find(key);
    if (renamed && form.Name) context.pcPage.SetName(renamed, *form.Name);
}

void ShowState(CommandContext& context) {
    const bool any = context.choice.Any();
    for (const ToolName tool :
         {u"xtrChosenClose"_tool, u"xtrChosenMute"_tool, u"xtrChosenSleep"_tool, u"xtrChosenSaveAsTessaGroup"_tool,
          u"xtrChosenAddToTessaGroup"_tool, u"xtrChosenCopyAddresses"_tool, u"xtrChosenNone"_tool})
        context.actBar.Enable(tool, any);
}

void ShowPopupState(CommandContext& context) {
    const Indexes indexes = OfPopup(context);
    context.actBar.Enable(u"mnuTabRefresh"_tool, SeveralTabs::AnyStill(context, indexes));
    context.actBar.Enable(u"mnuTabStop"_tool, SeveralTabs::AnyBusy(context, indexes));
    if (auto* mute = context.actBar.Find(u"xtrTabMute"_tool)) mute->Checked = SeveralTabs::AllMuted(context, indexes);
    for (const SeveralWords& each : kSeveralWords) {
        if (auto* tool = context.actBar.Find(each.tool)) tool->Caption = WordsFor(each, indexes.size());
    }
}

} // namespace ChosenCommands

} // namespace tessa
