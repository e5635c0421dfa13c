// What the tabs of a group show is written into its file.
#include "base/Address.h"
#include "base/os/AtomicFile.h"
#include "base/os/Paths.h"
#include "groups/GroupCommands.h"

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

Text ColourName(TabColour colour) {
    return colour == TabColour::None ? Text() : Text(kTabColours[static_cast<std::size_t>(colour) - 1]);
}

} // namespace

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

std::optional<std::vector<GroupTab>> GroupCommands::TabsToSave(std::int32_t group) const {
    auto tabs = m_parts.tabGroups.TabsToSave(group);
    const auto isPrivate = [this](const GroupTab& each) {
        return m_parts.tabs.PrivacyOf(each.Index) == Privacy::Private;
    };
    if (std::ranges::none_of(tabs, isPrivate)) return tabs;
    const Answer answer = TessaGroups::AskOfPrivate(m_parts.messages);
    if (answer == Answer::Cancel) return std::nullopt;
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
    auto tabs = TabsToSave(group);
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
        if (chosen != TabColour::None) plan.colour = ColourName(chosen);
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
