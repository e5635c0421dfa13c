// How tabs come back to their groups: when they were closed, and at the next start.
#include "tabs/TabGroups.h"
#include "tabs/TabKeys.h"

#include <utility>

namespace tessa {

std::optional<GroupMembership> TabGroups::Membership(std::int32_t index) const {
    const auto* group = Of(index);
    const auto* known = group ? Find(group->Id()) : nullptr;
    const auto found = m_members.find(index);
    if (!known || found == m_members.end()) return std::nullopt;
    return GroupMembership{.Group = group->Id(),
                           .File = known->File,
                           .Name = group->Name(),
                           .Colour = group->Colour(),
                           .Folded = group->Folded(),
                           .ColourChosen = known->ColourChosen,
                           .Entry = EntryShown(index),
                           .Landed = found->second.Landed};
}

void TabGroups::Return(std::int32_t index, const GroupMembership& membership) {
    auto* tab = TabOfView(m_pcPage, index);
    if (!tab) return;
    if (!m_pcPage.FindGroup(membership.Group)) {
        auto* group = m_pcPage.NewGroup(tab, membership.Name, membership.Colour, membership.Group);
        Begin(membership.Group, membership.File);
        m_groups[membership.Group].ColourChosen = membership.ColourChosen;
        m_pcPage.SetFolded(group, membership.Folded);
    }
    Add(index, membership.Group, membership.Entry);
    m_members[index].Landed = membership.Landed;
}

KeptGroups TabGroups::Kept(const std::function<std::int32_t(std::int32_t)>& become) const {
    KeptGroups kept;
    for (const TabGroup* each : m_pcPage.Groups()) {
        const auto* known = Find(each->Id());
        if (!known) continue;
        KeptGroup group{.Path = known->File.Path,
                        .Name = each->Name(),
                        .Colour = Text(NameOfColour(each->Colour())),
                        .ColourChosen = known->ColourChosen,
                        .Folded = each->Folded()};
        for (const std::int32_t index : TabsOf(each->Id())) {
            const std::int32_t number = become(index);
            if (number != 0) group.Members.push_back({number, EntryShown(index)});
        }
        if (!group.Members.empty()) kept.Groups.push_back(std::move(group));
    }
    for (std::size_t position = 1; position <= m_pcPage.PinnedCount(); ++position) {
        const std::int32_t number = become(m_pcPage.FindAt(position)->Tag);
        if (number != 0) kept.Pins.push_back(number);
    }
    return kept;
}

void TabGroups::Restore(const KeptGroup& kept, GroupSource file, const std::vector<std::int32_t>& indexes) {
    std::int32_t group = 0;
    for (const KeptMember& each : kept.Members) {
        const auto place = static_cast<std::size_t>(each.Number) - 1;
        const std::int32_t index = place < indexes.size() ? indexes[place] : 0;
        if (group == 0 && index != 0) group = Begin(index, kept.Name, file);
        if (group == 0 || !Add(index, group, each.Entry)) continue;
        if (const auto* view = m_browser.Find(index)) m_members[index].Landed = view->Control->LocationURL();
    }
    auto* shown = m_pcPage.FindGroup(group);
    const TabColour colour = ColourNamed(kept.Colour);
    if (!shown) return;
    Find(group)->ColourChosen = kept.ColourChosen;
    const bool own = kept.ColourChosen || FileOf(group)->Colour == TabColour::None;
    if (own && colour != TabColour::None) m_pcPage.SetGroupColour(shown, colour);
    m_pcPage.SetFolded(shown, kept.Folded);
}

} // namespace tessa
