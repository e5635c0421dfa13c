#include "tabs/TabDrag.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tessa {

void TabDrag::Take(const Tab& tab) {
    LetGo();
    m_taken = tab.Key();
    if (!tab.Chosen()) return m_keys.push_back(tab.Key());
    for (std::size_t position = 1; position <= m_pcPage.Count(); ++position) {
        const Tab& each = *m_pcPage.FindAt(position);
        if (each.Chosen() && each.Pinned() == tab.Pinned()) m_keys.push_back(each.Key());
    }
}

void TabDrag::TakeGroup(const Tab& tab) {
    LetGo();
    m_taken = tab.Key();
    m_isGroup = tab.Group() != nullptr;
    for (const Tab* each : m_pcPage.TabsOf(tab.Group())) m_keys.push_back(each->Key());
}

void TabDrag::LetGo() {
    m_keys.clear();
    m_taken.clear();
    m_isGroup = m_moved = false;
}

bool TabDrag::Holds(const Tab& tab) const { return std::ranges::find(m_keys, tab.Key()) != m_keys.end(); }

// In the order of the strip.
std::vector<const Tab*> TabDrag::Tabs() const {
    std::vector<std::pair<std::size_t, const Tab*>> places;
    for (const Text& each : m_keys) {
        const Tab* tab = m_pcPage.Find(each);
        if (tab) places.emplace_back(m_pcPage.PositionOf(tab), tab);
    }
    std::ranges::sort(places);
    std::vector<const Tab*> tabs;
    std::ranges::transform(places, std::back_inserter(tabs), [](const auto& each) { return each.second; });
    return tabs;
}

std::vector<std::int32_t> TabDrag::Indexes() const {
    std::vector<std::int32_t> indexes;
    for (const Tab* each : Tabs()) indexes.push_back(each->Tag);
    const Tab* taken = m_pcPage.Find(m_taken);
    const auto first = taken ? std::ranges::find(indexes, taken->Tag) : indexes.end();
    if (first != indexes.end()) std::rotate(indexes.begin(), first, first + 1);
    return indexes;
}

TabDrag::Span TabDrag::Held() const {
    const auto tabs = Tabs();
    if (tabs.empty()) return {};
    return {m_pcPage.PositionOf(tabs.front()), m_pcPage.PositionOf(tabs.back())};
}

const TabGroup* TabDrag::GroupAt(std::size_t position) const {
    const Tab* tab = m_pcPage.FindAt(position);
    return tab ? tab->Group() : nullptr;
}

TabDrag::Span TabDrag::At(std::size_t position) const {
    Span span{position, position};
    const TabGroup* group = m_isGroup ? GroupAt(position) : nullptr;
    if (!group) return span;
    while (GroupAt(span.First - 1) == group) --span.First;
    while (GroupAt(span.Last + 1) == group) ++span.Last;
    return span;
}

void TabDrag::Move(const Tab* tab, std::size_t position) {
    const std::uint64_t before = m_pcPage.Arrangement();
    m_pcPage.Move(tab, position);
    m_moved |= m_pcPage.Arrangement() != before;
}

// [a][b][T][c][d], of which a, c and d are held with T: [b][a][T][c][d].
void TabDrag::Gather() {
    const auto tabs = Tabs();
    const auto taken = std::ranges::find(tabs, m_pcPage.Find(m_taken));
    if (taken == tabs.end()) return;
    for (auto each = taken; each != tabs.begin(); --each) Move(*(each - 1), m_pcPage.PositionOf(*each) - 1);
    for (auto each = taken + 1; each != tabs.end(); ++each) Move(*each, m_pcPage.PositionOf(*(each - 1)) + 1);
}

// Each tab that is stepped over goes to the other end, so that many are held as easily as one.
void TabDrag::StepOver(Span span) {
    const Tab *first = m_pcPage.FindAt(span.First), *last = m_pcPage.FindAt(span.Last);
    if (!first || !last || !Any()) return;
    Gather();
    span = {m_pcPage.PositionOf(first), m_pcPage.PositionOf(last)};
    const Span held = Held();
    for (std::size_t step = held.Last; step < span.Last; ++step) Move(m_pcPage.FindAt(Held().Last + 1), Held().First);
    for (std::size_t step = span.First; step < held.First; ++step) Move(m_pcPage.FindAt(Held().First - 1), Held().Last);
}

void TabDrag::PutBefore(std::size_t position) {
    const Tab* tab = m_pcPage.FindAt(position);
    if (!tab || Holds(*tab)) return;
    Gather();
    position = m_pcPage.PositionOf(tab);
    const Span held = Held();
    if (position < held.First) StepOver({position, held.First - 1});
    if (position > held.Last + 1) StepOver({held.Last + 1, position - 1});
}

const TabGroup* TabDrag::OwnGroup() const {
    const auto tabs = Tabs();
    const TabGroup* own = tabs.empty() ? nullptr : tabs.front()->Group();
    return std::ranges::all_of(tabs, [own](const Tab* each) { return each->Group() == own; }) ? own : nullptr;
}

bool TabDrag::MayJoin(const TabGroup* group) const {
    const Tab* taken = m_pcPage.Find(m_taken);
    return group && taken && !m_isGroup && !taken->Pinned();
}

bool TabDrag::BeforeGroup() const {
    const Span held = Held();
    const TabGroup* right = GroupAt(held.Last + 1);
    return right && right != GroupAt(held.First - 1);
}

// Behind the name of a folded group stands nothing that could be meant.
const TabGroup* TabDrag::GroupHere(Means means) const {
    const Span held = Held();
    const TabGroup *own = OwnGroup(), *left = GroupAt(held.First - 1), *right = GroupAt(held.Last + 1);
    if (m_isGroup || held.First == 0) return own;
    if (m_pcPage.FindAt(held.First)->Pinned()) return nullptr;
    const bool mayLeft = left && (left == own || !left->Folded());
    if (mayLeft && left == right) return left;
    if (means.Behind && BeforeGroup()) return right;
    if (own && own->Count() == Tabs().size()) return own;
    return mayLeft && means.NearLeft ? left : nullptr;
}

} // namespace tessa
