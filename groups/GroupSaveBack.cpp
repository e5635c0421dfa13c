// What tabs show is written into the file of a group, whose tabs they are or become.
#include "base/Address.h"
#include "base/os/AtomicFile.h"
#include "base/os/Paths.h"
#include "groups/GroupCommands.h"
#include "groups/GroupOfTabs.h"
#include "tabs/OpenTabs.h"

#include <algorithm>
#include <map>

namespace tessa {

namespace {

/// What to write for these tabs.
TessaGroups::Updated UpdatedWith(std::vector<GroupTab>& tabs, const GroupSource& source) {
    TessaGroups::Updated updated{.Kept = source.LeftOut};
    for (GroupTab& each : tabs) {
        if (each.Entry != each.Address) each.Address = Address::WithoutUser(each.Address);
        if (each.Entry && *each.Entry != each.Address) updated.Renamed.emplace_back(*each.Entry, each.Address);
        updated.Addresses.push_back(each.Address);
    }
    return updated;
}

/// The tabs of these views that a file can bring back, in the order of the strip.
std::vector<GroupTab> TabsIn(const GroupOpening::Parts& parts, const std::vector<std::int32_t>& indexes) {
    std::vector<GroupTab> tabs;
    for (const OpenTab open : OpenTabs(parts.pcPage, parts.Browser)) {
        const bool meant = open.View && std::ranges::find(indexes, open.Index()) != indexes.end();
        if (meant && Address::ComesBack(open.Address())) tabs.push_back({open.Index(), open.Address()});
    }
    return tabs;
}

/// The tabs with their addresses as the file has them: a long one is cut there.
std::vector<GroupTab> AsWritten(TextView path, const std::vector<GroupTab>& tabs) {
    std::vector<GroupTab> written;
    auto tab = tabs.begin();
    for (const auto& address : TessaGroups::Load(path)) {
        if (tab != tabs.end()) written.push_back({(tab++)->Index, address.Key});
    }
    return written;
}

} // namespace

void GroupCommands::SaveTabs(TextView path, const std::vector<std::int32_t>& indexes) {
    using TessaGroups::Saved;
    if (!TessaGroups::MayReplace(path, m_parts.messages)) return;
    const auto tabs = AskOfPrivate([&] { return TabsIn(m_parts, indexes); });
    if (!tabs) return;
    std::vector<TessaGroups::NumberedAddress> addresses;
    for (const GroupTab& each : *tabs) addresses.push_back({addresses.size() + 1, each.Address});
    if (addresses.empty()) return SaySaved(Saved::Nothing, path);
    if (TessaGroups::Write(path, addresses) != Outcome::Done) return SaySaved(Saved::Failed, path);
    MakeGroupOfTabs(m_parts.tabGroups, m_parts.pcPage, NameOf(path), FileAt(path), AsWritten(path, *tabs));
    SaySaved(Saved::Yes, path);
}

void GroupCommands::Reread(TextView path) {
    for (const std::int32_t each : m_parts.tabGroups.OpenedFrom(path)) {
        GroupSource source = FileAt(path);
        const GroupSource& before = *m_parts.tabGroups.FileOf(each);
        source.LeftOut = before.LeftOut;
        if (source != before) m_parts.tabGroups.SetFile(each, std::move(source));
    }
}

void GroupCommands::RereadAll() {
    std::vector<Text> paths;
    for (const TabGroup* each : m_parts.pcPage.Groups()) {
        const auto* source = m_parts.tabGroups.FileOf(each->Id());
        if (source) paths.push_back(source->Path);
    }
    std::ranges::sort(paths);
    paths.erase(std::ranges::unique(paths).begin(), paths.end());
    for (const Text& each : paths) Reread(each);
}

// Its user has seen what is in the tabs, but not what somebody else has written meanwhile.
bool GroupCommands::MayOverwrite(std::int32_t group, const Text& name) const {
    if (!m_parts.tabGroups.IsOvertaken(group)) return true;
    return m_parts.messages.AskOwn({u"The file of the TessaGroup " + name + u" was changed meanwhile",
                                    u"Saving replaces its pages by those of the open tabs.", u"&Cancel",
                                    u"&Save Anyway"});
}

// Pages may have moved on behind the question.
std::optional<std::vector<GroupTab>>
GroupCommands::AskOfPrivate(const std::function<std::vector<GroupTab>()>& find) const {
    const auto isPrivate = [this](const GroupTab& each) {
        return m_parts.tabs.PrivacyOf(each.Index) == Privacy::Private;
    };
    auto tabs = find();
    if (std::ranges::none_of(tabs, isPrivate)) return tabs;
    const Answer answer = TessaGroups::AskOfPrivate(m_parts.messages);
    if (answer == Answer::Cancel) return std::nullopt;
    tabs = find();
    if (answer == Answer::No) std::erase_if(tabs, isPrivate);
    return tabs;
}

// By the places that the pages will have when the group is opened again.
std::vector<Text> GroupCommands::PanesOf(const std::vector<GroupTab>& tabs, const std::vector<Text>& all) const {
    std::vector<Text> addresses;
    std::map<std::int32_t, std::int32_t> numbers;
    for (const GroupTab& each : tabs) {
        addresses.push_back(each.Address);
        numbers[each.Index] = static_cast<std::int32_t>(addresses.size());
    }
    GroupPlan plan;
    plan.panes = m_parts.tiles.Kept([&numbers](std::int32_t index) {
        const auto number = numbers.find(index);
        return number == numbers.end() ? 0 : number->second;
    });
    plan.MovePanes(addresses, all);
    return plan.panes;
}

bool GroupCommands::IsToSave(std::int32_t group) const {
    const auto* source = m_parts.tabGroups.FileOf(group);
    if (!source || m_parts.tabGroups.IsChanged(group)) return source != nullptr;
    const GroupPlan plan = GroupPlan::In(source->Path);
    return plan.keepsPanes && plan.panes != PanesOf(m_parts.tabGroups.TabsToSave(group), source->All);
}

void GroupCommands::SaveBack(std::int32_t group) {
    auto& groups = m_parts.tabGroups;
    if (!groups.FileOf(group)) return;
    const Text path = groups.FileOf(group)->Path, name = NameOf(path);
    Reread(path);
    if (!IsToSave(group)) return m_parts.tabs.Say(u"The TessaGroup " + name + u" is as its tabs already.");
    if (!MayOverwrite(group, name)) return;
    auto tabs = AskOfPrivate([&] { return groups.TabsToSave(group); });
    // The group may have gone behind a question.
    if (!tabs || !groups.FileOf(group)) return;
    if (tabs->empty()) return m_parts.tabs.Say(u"There was nothing to save as the TessaGroup " + name + u".");
    WriteBack(group, *std::move(tabs));
}

void GroupCommands::WriteBack(std::int32_t group, std::vector<GroupTab> tabs) {
    auto& groups = m_parts.tabGroups;
    const Text path = groups.FileOf(group)->Path, name = NameOf(path);
    const auto before = ReadWholeFile(PathToBytes(path));
    const TabColour chosen = groups.ColourChosen(group) ? m_parts.pcPage.FindGroup(group)->Colour() : TabColour::None;
    const TessaGroups::Updated updated = UpdatedWith(tabs, *groups.FileOf(group));
    const auto arrange = [&](GroupPlan& plan, const std::vector<Text>& all) {
        if (chosen != TabColour::None) plan.colour = NameOfColour(chosen);
        if (plan.keepsPanes) plan.panes = PanesOf(tabs, all);
    };
    if (TessaGroups::Update(path, updated, arrange) != Outcome::Done)
        return m_parts.tabs.Say(u"The TessaGroup " + name + u" could not be written.");
    Reread(path);
    groups.NoteSaved(group, tabs);
    Written();
    m_parts.tabs.Say(u"Saved back to the TessaGroup " + name + u".", [this, group, path, before, chosen] {
        const std::string file = PathToBytes(path);
        if ((before ? WriteWholeFile(file, *before) : RemoveFile(file)) != Outcome::Done)
            return m_parts.tabs.Say(u"The TessaGroup " + NameOf(path) + u" could not be written.");
        Reread(path);
        m_parts.tabGroups.NoteSaved(group, {});
        if (chosen != TabColour::None) m_parts.tabGroups.ChooseColour(group, chosen);
        Written();
    });
}

} // namespace tessa
