#include "groups/GroupOfTabs.h"

#include "tabs/TabKeys.h"

#include <algorithm>
#include <utility>

namespace tessa {

namespace {

/// Those that can be of a group, in the order in which the file opens them. The pages of the others are in the file all
/// the same, and are no difference between file and tabs.
std::vector<GroupTab> TakeTabs(const TabStrip& pcPage, GroupSource& file, std::vector<GroupTab> saved) {
    std::vector<GroupTab> taken;
    for (const Text& address : file.All) {
        const auto found = std::ranges::find(saved, address, &GroupTab::Address);
        if (found == saved.end()) continue;
        const auto* tab = TabOfView(pcPage, found->Index);
        if (tab && !tab->Pinned())
            taken.push_back(*found);
        else
            file.LeftOut.push_back(address);
        saved.erase(found);
    }
    return taken;
}

// One that was opened from that file, and of which all tabs were saved.
std::int32_t WholeGroup(const TabGroups& groups, const Text& path, const std::vector<GroupTab>& tabs) {
    const auto isSaved = [&tabs](std::int32_t index) {
        return std::ranges::find(tabs, index, &GroupTab::Index) != tabs.end();
    };
    for (const std::int32_t each : groups.OpenedFrom(path)) {
        if (std::ranges::all_of(groups.TabsOf(each), isSaved)) return each;
    }
    return 0;
}

// [a][T][a][T] -> [a][a][T][T]: a group comes between no other's tabs.
const Tab* TabBefore(const TabStrip& pcPage, const TabGroup* own) {
    std::size_t position = pcPage.PositionOf(pcPage.TabsOf(own).front());
    const Tab* before = pcPage.FindAt(position - 1);
    const TabGroup* other = before ? before->Group() : nullptr;
    while (other && position <= pcPage.Count()) {
        const Tab* tab = pcPage.FindAt(position++);
        if (tab->Group() == other)
            before = tab;
        else if (tab->Group() != own)
            break;
    }
    return before;
}

// A tab that is taken out of its place leaves what stands behind that one place further left.
void PutTogether(TabStrip& pcPage, const Tab* last, const std::vector<GroupTab>& tabs) {
    for (const GroupTab& each : tabs) {
        const Tab* tab = TabOfView(pcPage, each.Index);
        const std::size_t from = pcPage.PositionOf(tab), behind = pcPage.PositionOf(last);
        pcPage.Move(tab, from < behind ? behind : behind + 1);
        last = tab;
    }
}

} // namespace

void MakeGroupOfTabs(TabGroups& groups, TabStrip& pcPage, const Text& name, GroupSource file,
                     const std::vector<GroupTab>& saved) {
    const std::vector<GroupTab> tabs = TakeTabs(pcPage, file, saved);
    if (tabs.empty()) return;
    std::int32_t group = WholeGroup(groups, file.Path, tabs);
    const bool chosen = groups.ColourChosen(group);
    if (group == 0)
        group = groups.Begin(tabs.front().Index, name, std::move(file));
    else
        groups.SetFile(group, std::move(file));
    for (const GroupTab& each : tabs) groups.Add(each.Index, group, each.Address);
    groups.NoteSaved(group, tabs);
    // The file was not told of it.
    if (chosen) groups.ChooseColour(group, pcPage.FindGroup(group)->Colour());
    PutTogether(pcPage, TabBefore(pcPage, pcPage.FindGroup(group)), tabs);
}

} // namespace tessa
