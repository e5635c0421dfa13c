// Groups of tabs on the strip, and pinned ones.
#include "base/ResumeNext.h"
#include "forms/TabStrip.h"

#include <algorithm>
#include <utility>

namespace tessa {

// [p][p][a][b]: what is pinned stays among the first two places, and nothing else comes there.
std::size_t TabStrip::Allowed(const Tab& tab, std::size_t position) const {
    return tab.m_pinned ? std::min(position, m_pinned) : std::max(position, m_pinned + 1);
}

void TabStrip::MoveTo(std::size_t from, std::size_t position) {
    if (from == position) return;
    const auto begin = m_tabs.begin();
    const auto at = [&](std::size_t index) { return begin + static_cast<std::ptrdiff_t>(index); };
    if (from < position)
        std::rotate(at(from - 1), at(from), at(position));
    else
        std::rotate(at(position - 1), at(from - 1), at(from));
    MarkArranged();
}

void TabStrip::SetPinned(Tab* tab, bool pinned) {
    const std::size_t from = PositionOf(tab);
    if (from == 0 || tab->m_pinned == pinned) return;
    if (pinned) Leave(*tab);
    tab->m_pinned = pinned;
    // [p][p][a][T] -> [p][p][T][a], and [p][T][p][a] -> [p][p][T][a].
    const std::size_t position = pinned ? m_pinned + 1 : m_pinned;
    pinned ? ++m_pinned : --m_pinned;
    MoveTo(from, position);
    MarkArranged();
}

TabGroup* TabStrip::NewGroup(Tab* first, Text name, TabColour colour, std::int32_t id) {
    Must(PositionOf(first) != 0 && !FindGroup(id) && id <= m_lastGroup);
    auto group = std::make_unique<TabGroup>(id == 0 ? ++m_lastGroup : id);
    group->m_name = std::move(name);
    group->m_colour = colour;
    TabGroup* made = group.get();
    m_groups.emplace(made->Id(), std::move(group));
    SetGroup(first, made);
    return made;
}

void TabStrip::SetGroup(Tab* tab, TabGroup* group) {
    if (tab->m_group == group) return;
    if (group) SetPinned(tab, false);
    // The new one first: a tab may be the last of the old one, which goes with it.
    Leave(*tab);
    tab->m_group = group;
    if (group) CountIn(*tab, true);
    MarkArranged();
}

void TabStrip::Leave(Tab& tab) {
    if (!tab.m_group) return;
    CountIn(tab, false);
    const TabGroup* left = std::exchange(tab.m_group, nullptr);
    if (left->m_count > 0) return;
    const std::int32_t id = left->Id();
    m_groups.erase(id);
    GroupGone(id);
}

void TabStrip::CountIn(const Tab& tab, bool comes) {
    if (!tab.m_group) return;
    const auto step = [comes](std::size_t& number) { comes ? ++number : --number; };
    step(tab.m_group->m_count);
    if (tab.m_queued || tab.m_image == TabImage::Red) step(tab.m_group->m_loading);
}

void TabStrip::SetLoads(Tab& tab, const std::function<void()>& change) {
    CountIn(tab, false);
    change();
    CountIn(tab, true);
}

void TabStrip::SetQueued(Tab* tab, bool queued) {
    if (tab->m_queued == queued) return;
    SetLoads(*tab, [=] { tab->m_queued = queued; });
    if (tab->m_group) Mark(TabStripChange::Faces);
}

TabGroup* TabStrip::FindGroup(std::int32_t id) const {
    const auto found = m_groups.find(id);
    return found == m_groups.end() ? nullptr : found->second.get();
}

std::vector<TabGroup*> TabStrip::Groups() const {
    std::vector<TabGroup*> groups;
    std::map<const TabGroup*, bool> seen;
    for (const auto& tab : m_tabs) {
        if (groups.size() == m_groups.size()) break;
        if (tab->m_group && !std::exchange(seen[tab->m_group], true)) groups.push_back(tab->m_group);
    }
    return groups;
}

std::vector<Tab*> TabStrip::TabsOf(const TabGroup* group) const {
    std::vector<Tab*> tabs;
    for (const auto& tab : m_tabs) {
        if (group && tab->m_group == group) tabs.push_back(tab.get());
    }
    return tabs;
}

void TabStrip::SetFolded(TabGroup* group, bool folded) {
    if (std::exchange(group->m_folded, folded) != folded) Mark(TabStripChange::Layout);
}

void TabStrip::SetGroupColour(TabGroup* group, TabColour colour) {
    if (std::exchange(group->m_colour, colour) != colour) Mark(TabStripChange::Faces);
}

// A longer name has a longer header.
void TabStrip::SetGroupName(TabGroup* group, Text name) {
    if (group->m_name == name) return;
    group->m_name = std::move(name);
    Mark(TabStripChange::Layout);
}

void TabStrip::MarkArranged() {
    ++m_arrangement;
    Mark(TabStripChange::Layout);
}

} // namespace tessa
