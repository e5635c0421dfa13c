#include "commands/effects/SeveralTabs.h"

#include "commands/effects/CollectionCommands.h"
#include "tabs/TabSleep.h"

#include <algorithm>

namespace tessa::SeveralTabs {

namespace {

// What happens to one may close others.
template<typename Do>
void ForEachView(const CommandContext& context, const Indexes& indexes, Do work) {
    for (const std::int32_t each : indexes) {
        if (auto* view = context.tabs.OpenView(each)) work(*view->Control);
    }
}

template<typename Is>
bool AnyView(const CommandContext& context, const Indexes& indexes, Is isSo) {
    return std::ranges::any_of(indexes, [&](std::int32_t each) {
        const auto* view = context.tabs.OpenView(each);
        return view && isSo(*view->Control);
    });
}

constexpr TextView kStaysAwake = u"What is in front, plays, loads or holds typed text stays awake.";

Text SleepWords(std::size_t asleep, std::size_t asked) {
    if (asleep == asked) return asleep == 1 ? u"The tab sleeps." : u"The tabs sleep.";
    if (asleep == 0) return Text(kStaysAwake);
    const Text slept =
        asleep == 1 ? Text(u"One tab sleeps. ") : Decimal(static_cast<std::int64_t>(asleep)) + u" tabs sleep. ";
    return slept + Text(kStaysAwake);
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

} // namespace

void Stop(const CommandContext& context, const Indexes& indexes) {
    ForEachView(context, indexes, [](BrowserView& view) { ResumeNext(view.Stop()); });
}

void Refresh(const CommandContext& context, const Indexes& indexes) {
    ForEachView(context, indexes, [](BrowserView& view) { ResumeNext(view.Refresh()); });
}

void Mute(const CommandContext& context, const Indexes& indexes) {
    const bool mute = !AllMuted(context, indexes);
    ForEachView(context, indexes, [mute](BrowserView& view) { view.SetMuted(mute); });
}

bool AllMuted(const CommandContext& context, const Indexes& indexes) {
    return AnyView(context, indexes, [](const BrowserView& view) { return view.Muted(); }) &&
           !AnyView(context, indexes, [](const BrowserView& view) { return !view.Muted(); });
}

bool AnyBusy(const CommandContext& context, const Indexes& indexes) {
    return AnyView(context, indexes, [](const BrowserView& view) { return view.Busy(); });
}

bool AnyStill(const CommandContext& context, const Indexes& indexes) {
    return AnyView(context, indexes, [](const BrowserView& view) { return !view.Busy(); });
}

void Sleep(CommandContext& context, const Indexes& indexes) {
    if (indexes.empty()) return;
    std::size_t asleep = 0;
    for (const std::int32_t each : indexes) asleep += context.sleep && context.sleep->SleepNow(each) ? 1 : 0;
    context.tabs.Say(SleepWords(asleep, indexes.size()));
}

// The one in front last: each that closed in front of another would bring that to the front, and load it.
void Close(CommandContext& context, Indexes indexes) {
    std::ranges::reverse(indexes);
    std::ranges::stable_partition(indexes, [&](std::int32_t each) { return !context.tabs.IsSelected(each); });
    context.tabs.CloseTabs(indexes);
}

// By then the user may have closed something else, too.
void SayClosed(CommandContext& context, TextView words) {
    const auto command = context.closed.LastSeveral();
    if (!context.closed.Has(command)) return context.tabs.Say(words);
    context.tabs.Say(words, [&context, command] { context.closed.Reopen(command); });
}

void AddToTessaGroup(CommandContext& context, const Indexes& indexes) {
    if (indexes.empty()) return;
    if (indexes.size() == 1) return CollectionCommands::AddViewToTessaGroup(context, indexes.front());
    if (HasPrivateTab(context, indexes) &&
        !context.messages.AskOwn(
            {u"Some of the tabs are private", u"The TessaGroup would keep their addresses.", u"&Cancel", u"&Add Them"}))
        return;
    const Text file = CollectionCommands::AskForGroup(context);
    if (file.empty()) return;
    context.groups.AddTabsToTessaGroup(indexes, file);
    context.groupsMenuStale = true;
}

void CopyAddresses(CommandContext& context, const Indexes& indexes) {
    if (indexes.empty()) return;
    Text lines;
    for (const Text& each : AddressesOf(context, indexes)) lines += (lines.empty() ? u"" : u"\n") + each;
    context.input.Copy(lines);
}

} // namespace tessa::SeveralTabs
