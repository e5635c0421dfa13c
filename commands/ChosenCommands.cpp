#include "commands/ChosenCommands.h"

#include "bar/ToolName.h"
#include "commands/CollectionCommands.h"
#include "groups/TessaGroups.h"
#include "tabs/TabKeys.h"
#include "tabs/TabSleep.h"
#include "tabs/frmRenameTab.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

using Indexes = std::vector<std::int32_t>;

// What happens to one may close others.
template<typename Do>
void ForEachView(const CommandContext& context, const Indexes& indexes, Do work) {
    for (const std::int32_t each : indexes) {
        if (auto* view = context.tabs.OpenView(each)) work(*view->Control);
    }
}

bool AllMuted(const CommandContext& context, const Indexes& indexes) {
    return !indexes.empty() && std::ranges::all_of(indexes, [&](std::int32_t each) {
        const auto* view = context.tabs.OpenView(each);
        return view && view->Control->Muted();
    });
}

void MuteAllOf(const CommandContext& context, const Indexes& indexes) {
    const bool mute = !AllMuted(context, indexes);
    ForEachView(context, indexes, [mute](BrowserView& view) { view.SetMuted(mute); });
}

Text CountedTabs(std::size_t count) {
    return count == 1 ? Text(u"One tab") : Decimal(static_cast<std::int64_t>(count)) + u" tabs";
}

void SleepAllOf(CommandContext& context, const Indexes& indexes) {
    std::size_t asleep = 0;
    for (const std::int32_t each : indexes) asleep += context.sleep && context.sleep->SleepNow(each) ? 1 : 0;
    if (asleep == indexes.size()) return context.tabs.Say(asleep == 1 ? u"The tab sleeps." : u"The tabs sleep.");
    if (asleep == 0) return context.tabs.Say(u"What is in front, plays, loads or holds typed text stays awake.");
    context.tabs.Say(CountedTabs(asleep) + (asleep == 1 ? u" sleeps" : u" sleep") +
                     u". What is in front, plays, loads or holds typed text stays awake.");
}

bool HasPrivateTab(const CommandContext& context, const Indexes& indexes) {
    return std::ranges::any_of(indexes,
                               [&](std::int32_t each) { return context.tabs.PrivacyOf(each) == Privacy::Private; });
}

std::vector<Text> AddressesOf(const CommandContext& context, const Indexes& indexes) {
    std::vector<Text> addresses;
    ForEachView(context, indexes, [&](const BrowserView& view) {
        const Text address = view.LocationURL();
        if (!address.empty()) addresses.push_back(address);
    });
    return addresses;
}

void AddAllOf(CommandContext& context, const Indexes& indexes) {
    if (indexes.size() == 1) return CollectionCommands::AddViewToTessaGroup(context, indexes.front());
    if (HasPrivateTab(context, indexes) &&
        !context.messages.AskOwn(
            {u"Some of the tabs are private", u"The TessaGroup would keep their addresses.", u"&Cancel", u"&Add Them"}))
        return;
    const Text file = context.files.ShowOpen({.DialogTitle = u"Add to TessaGroup",
                                              .InitDir = context.groupFolder,
                                              .Filter = Text(TessaGroups::kFileFilter)});
    if (file.empty()) return;
    context.groups.AddTabsToTessaGroup(indexes, file);
    context.groupsMenuStale = true;
}

void CopyAllOf(CommandContext& context, const Indexes& indexes) {
    Text lines;
    for (const Text& each : AddressesOf(context, indexes)) lines += (lines.empty() ? u"" : u"\n") + each;
    context.input.Copy(lines);
}

bool AnyBusy(const CommandContext& context, const Indexes& indexes, bool busy) {
    return std::ranges::any_of(indexes, [&](std::int32_t each) {
        const auto* view = context.tabs.OpenView(each);
        return view && view->Control->Busy() == busy;
    });
}

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

// The one in front last: each that closed in front of another would bring that to the front, and load it.
void CloseTabs(CommandContext& context, Indexes indexes) {
    if (indexes.empty()) return;
    if (indexes.size() == 1) return context.tabs.CloseBrowserTab(indexes.front());
    std::ranges::reverse(indexes);
    std::ranges::stable_partition(indexes, [&](std::int32_t each) { return !context.tabs.IsSelected(each); });
    context.tabs.CloseTabs(indexes);
}

void Close(CommandContext& context) { CloseTabs(context, context.choice.Indexes()); }

void Mute(CommandContext& context) { MuteAllOf(context, context.choice.Indexes()); }

void Sleep(CommandContext& context) {
    if (context.choice.Any()) SleepAllOf(context, context.choice.Indexes());
}

void SaveAsTessaGroup(CommandContext& context) {
    const Indexes indexes = context.choice.Indexes();
    if (indexes.empty()) return;
    const Text file = context.files.ShowSave({.DialogTitle = u"Save Selected Tabs as TessaGroup",
                                              .InitDir = context.groupFolder,
                                              .Filter = Text(TessaGroups::kFileFilter)});
    if (file.empty()) return;
    context.groups.SaveTabs(file, indexes);
    context.groupsMenuStale = true;
}

void AddToTessaGroup(CommandContext& context) {
    if (context.choice.Any()) AddAllOf(context, context.choice.Indexes());
}

void CopyAddresses(CommandContext& context) {
    if (context.choice.Any()) CopyAllOf(context, context.choice.Indexes());
}

void All(CommandContext& context) { context.choice.All(); }

void None(CommandContext& context) { context.choice.End(); }

std::vector<std::int32_t> OfPopup(const CommandContext& context) {
    const auto* tab = context.strip.PopupTab();
    return tab ? context.choice.With(*tab) : Indexes();
}

void PopupStop(CommandContext& context) {
    ForEachView(context, OfPopup(context), [](BrowserView& view) { ResumeNext(view.Stop()); });
}

void PopupRefresh(CommandContext& context) {
    ForEachView(context, OfPopup(context), [](BrowserView& view) { ResumeNext(view.Refresh()); });
}

void PopupClose(CommandContext& context) {
    if (context.strip.PopupView()) CloseTabs(context, OfPopup(context));
}

void PopupMute(CommandContext& context) { MuteAllOf(context, OfPopup(context)); }

void PopupSleep(CommandContext& context) {
    if (context.strip.PopupView()) SleepAllOf(context, OfPopup(context));
}

void PopupAddToTessaGroup(CommandContext& context) {
    if (context.strip.PopupView()) AddAllOf(context, OfPopup(context));
}

void PopupCopyAddress(CommandContext& context) {
    if (context.strip.PopupView()) CopyAllOf(context, OfPopup(context));
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
    context.actBar.Enable(u"mnuTabRefresh"_tool, AnyBusy(context, indexes, false));
    context.actBar.Enable(u"mnuTabStop"_tool, AnyBusy(context, indexes, true));
    if (auto* mute = context.actBar.Find(u"xtrTabMute"_tool)) mute->Checked = AllMuted(context, indexes);
    for (const SeveralWords& each : kSeveralWords) {
        if (auto* tool = context.actBar.Find(each.tool)) tool->Caption = WordsFor(each, indexes.size());
    }
}

} // namespace ChosenCommands

} // namespace tessa
