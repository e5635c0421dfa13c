#include "tabpanel/frmTabPanel.h"

#include "base/ResumeNext.h"
#include "tabs/TabKeys.h"
#include "tabs/frmRenameTab.h"

#include <algorithm>
#include <set>

namespace tessa {

namespace {

/// Units of a title that anybody reads.
constexpr std::size_t kMostOfTitle = 300;
/// A file may say anything.
constexpr std::int32_t kWidest = 4000;
/// Parts of a line.
constexpr double kHalf = 0.5, kEdgeOfLine = 0.25;

// Whoever never opens the panel has nothing of it in his settings.
template<typename T>
void SetChanged(Setting<T>& setting, T value) {
    if (setting.Get() != value) ResumeNext(setting.Set(value));
}

} // namespace

frmTabPanel::frmTabPanel(Parts parts) : m_parts(parts) {
    Form.Visible.Change.ConnectForLife([this] {
        // What was looked for is not looked for any more when the panel comes again.
        if (!Form.Visible()) txtFilter.Value = Text();
        if (Form.Visible()) Show();
        Changed();
    });
    OnRight.Change.ConnectForLife([this] { Changed(); });
    StripHidden.Change.ConnectForLife([this] { Changed(); });
    txtFilter.Value.Change.ConnectForLife([this] {
        m_filter = TabFilter(txtFilter.Value());
        Show();
        Filtered();
    });
}

void frmTabPanel::Restore(const SettingsStore& store) {
    OnRight = store.TabPanelRight.Get();
    StripHidden = store.TabStripHidden.Get();
    Width = std::clamp(store.TabPanelWidth.Get(), 0, kWidest);
    Form.Visible = store.TabPanel.Get();
}

void frmTabPanel::Save(SettingsStore& store) const {
    SetChanged(store.TabPanel, Form.Visible());
    SetChanged(store.TabPanelRight, OnRight());
    SetChanged(store.TabStripHidden, StripHidden());
    SetChanged(store.TabPanelWidth, Width);
}

void frmTabPanel::Show() {
    m_entries.clear();
    std::set<const TabGroup*> seen;
    for (std::size_t position = 1; position <= m_parts.pcPage.Count(); ++position) {
        const Tab& tab = *m_parts.pcPage.FindAt(position);
        if (!tab.Group()) {
            if (IsListed(tab)) m_entries.push_back({tab.Tag});
        } else if (seen.insert(tab.Group()).second) {
            AddGroup(*tab.Group());
        }
    }
    ShowNone();
}

// Its tabs stand below it wherever they stand in the strip.
void frmTabPanel::AddGroup(const TabGroup& group) {
    const std::size_t head = m_entries.size();
    m_entries.push_back({-group.Id(), group.Id()});
    const bool folded = IsFolded(group);
    for (const Tab* tab : m_parts.pcPage.TabsOf(&group)) {
        const bool shown = folded ? tab == Front() : IsListed(*tab);
        if (shown) m_entries.push_back({tab->Tag, group.Id()});
    }
    if (!folded && m_entries.size() == head + 1) m_entries.pop_back();
}

void frmTabPanel::ShowNone() { lblNone.Caption = m_entries.empty() ? Text(u"No tab has these words.") : Text(); }

bool frmTabPanel::IsListed(const Tab& tab) const {
    if (!m_filter.Any()) return true;
    const auto* view = m_parts.Browser.Find(tab.Tag);
    const Text title = view ? view->Control->LocationName() : Text(), address = m_parts.tabs.AddressOf(tab);
    const TextView group = tab.Group() ? TextView(tab.Group()->Name()) : TextView();
    return m_filter.Fits({tab.Name(), tab.Title(), title, address, group});
}

Tab* frmTabPanel::FindTab(std::int32_t index) const { return TabOfView(m_parts.pcPage, index); }

TabGroup* frmTabPanel::FindGroup(std::int32_t index) const {
    return index < 0 ? m_parts.pcPage.FindGroup(-index) : nullptr;
}

Text frmTabPanel::WordsOf(const TabGroup& group) const {
    const auto number = [](std::size_t count) { return Decimal(static_cast<std::int64_t>(count)); };
    Text words = number(group.Count()) + (group.Count() == 1 ? u" tab" : u" tabs");
    if (group.Loading() > 0) words += u", " + number(group.Loading()) + u" loading";
    if (IsChanged(group)) words += u", changed";
    return words;
}

Text frmTabPanel::TitleOf(const Tab& tab) const { return tab.Name().empty() ? PageTitleOf(tab) : tab.Name(); }

Text frmTabPanel::PageTitleOf(const Tab& tab) const {
    const auto* view = m_parts.Browser.Find(tab.Tag);
    const Text title = view ? view->Control->LocationName() : Text();
    // A page that is not loaded yet, or not again, has no title of its own.
    return title.empty() ? tab.Title() : Text(FirstUnits(title, kMostOfTitle));
}

// What is in front wakes by itself, if only a moment later.
bool frmTabPanel::IsAsleep(const Tab& tab) const {
    const auto* view = &tab == Front() ? nullptr : m_parts.Browser.Find(tab.Tag);
    const auto* life = view ? view->Control->Life() : nullptr;
    const bool unloaded = view && view->Control->Progress() == PageProgress::PutOff;
    return unloaded || (life && life->Asleep());
}

void frmTabPanel::Click(std::int32_t index) {
    if (auto* group = FindGroup(index)) return m_parts.pcPage.SetFolded(group, !group->Folded());
    auto* tab = FindTab(index);
    if (!tab) return;
    m_parts.choice.End();
    m_parts.pcPage.UserClick(tab);
}

void frmTabPanel::CtrlClick(std::int32_t index) {
    if (FindGroup(index)) return m_parts.choice.Replace(Dragged(index));
    if (auto* tab = FindTab(index)) m_parts.choice.Toggle(*tab);
}

std::size_t frmTabPanel::PlaceOf(std::int32_t index) const {
    const auto found = std::ranges::find(m_entries, index, &TabPanelEntry::Index);
    return static_cast<std::size_t>(found - m_entries.begin());
}

// Only what is listed: nobody chooses what he does not see.
void frmTabPanel::ShiftClick(std::int32_t index) {
    const auto* anchor = m_parts.choice.Anchor();
    const std::size_t to = PlaceOf(index), began = anchor ? PlaceOf(anchor->Tag) : to;
    if (to == m_entries.size()) return;
    const std::size_t from = began == m_entries.size() ? to : began;
    std::vector<std::int32_t> between;
    for (std::size_t place = std::min(from, to); place <= std::max(from, to); ++place)
        if (!m_entries[place].IsGroup()) between.push_back(m_entries[place].Index);
    if (const auto* first = FindTab(m_entries[from].Index)) m_parts.choice.SetAnchor(*first);
    m_parts.choice.Replace(between);
}

void frmTabPanel::ChooseAll() {
    std::vector<std::int32_t> all;
    for (const TabPanelEntry& each : m_entries) {
        if (!each.IsGroup()) all.push_back(each.Index);
    }
    m_parts.choice.Replace(all);
}

void frmTabPanel::Close(std::int32_t index) {
    if (const auto* tab = FindTab(index)) Closes(m_parts.choice.With(*tab));
}

void frmTabPanel::CloseOne(std::int32_t index) {
    if (FindTab(index)) Closes({index});
}

void frmTabPanel::ToggleSound(std::int32_t index) {
    if (auto* view = m_parts.tabs.OpenView(index)) view->Control->SetMuted(!view->Control->Muted());
}

void frmTabPanel::Rename(std::int32_t index, TextView typed) {
    if (auto* tab = FindTab(index)) m_parts.pcPage.SetName(tab, frmRenameTab::NameIn(typed, PageTitleOf(*tab)));
}

std::vector<std::int32_t> frmTabPanel::Dragged(std::int32_t index) const {
    if (FindGroup(index)) return m_parts.groups.TabsOf(-index);
    const auto* tab = FindTab(index);
    return tab ? m_parts.choice.With(*tab) : std::vector<std::int32_t>();
}

// The group that a place is in: between the tabs of one, or between its name and its first tab.
std::int32_t frmTabPanel::GroupAt(std::size_t place) const {
    const bool inside = place > 0 && place < m_entries.size() && !m_entries[place].IsGroup();
    return inside && m_entries[place].Group == m_entries[place - 1].Group ? m_entries[place].Group : 0;
}

const Tab* frmTabPanel::FirstOf(const TabPanelEntry& entry) const {
    const auto tabs = m_parts.pcPage.TabsOf(FindGroup(entry.Index));
    if (!entry.IsGroup()) return FindTab(entry.Index);
    return tabs.empty() ? nullptr : tabs.front();
}

const Tab* frmTabPanel::LastOf(const TabPanelEntry& entry) const {
    const auto tabs = m_parts.pcPage.TabsOf(FindGroup(entry.Index));
    if (!entry.IsGroup()) return FindTab(entry.Index);
    return tabs.empty() ? nullptr : tabs.back();
}

TabPanelPlace frmTabPanel::PlaceOver(std::size_t entry, double part, std::int32_t dragged) const {
    if (entry >= m_entries.size()) return {m_entries.size()};
    TabPanelPlace place;
    if (m_entries[entry].IsGroup())
        place = PlaceOverGroup(entry, part);
    else
        place = part < kHalf ? TabPanelPlace{entry, GroupAt(entry)} : TabPanelPlace{entry + 1, m_entries[entry].Group};
    return FindGroup(dragged) && place.Group != 0 ? OutsideOf(place) : place;
}

// At the edge of the line beside it, else into it. Below an open group its first tab follows.
TabPanelPlace frmTabPanel::PlaceOverGroup(std::size_t entry, double part) const {
    const bool open = GroupAt(entry + 1) != 0;
    if (part < kEdgeOfLine) return {entry, GroupAt(entry)};
    if (part > 1 - kEdgeOfLine && !open) return {entry + 1};
    return {entry + 1, m_entries[entry].Group, true};
}

// Before the group or behind it, whichever is nearer.
TabPanelPlace frmTabPanel::OutsideOf(const TabPanelPlace& place) const {
    const auto isOf = [&](std::size_t entry) { return m_entries[entry].Group == place.Group; };
    std::size_t first = place.Entry, end = place.Entry;
    while (first > 0 && isOf(first - 1)) --first;
    while (end < m_entries.size() && isOf(end)) ++end;
    return {place.Entry - first <= end - place.Entry ? first : end};
}

// The next tab that stays where it is; at the end of a group or of the list, the last one.
frmTabPanel::Neighbours frmTabPanel::NeighboursAt(const TabPanelPlace& place,
                                                  const std::vector<std::int32_t>& indexes) const {
    const auto isMoved = [&](const Tab* tab) { return !tab || std::ranges::find(indexes, tab->Tag) != indexes.end(); };
    std::size_t entry = place.Entry;
    const auto isEnd = [&] {
        return entry >= m_entries.size() || (place.Group != 0 && m_entries[entry].Group != place.Group);
    };
    while (!place.OnGroup && !isEnd() && isMoved(FirstOf(m_entries[entry]))) ++entry;
    if (!place.OnGroup && !isEnd()) return {nullptr, FirstOf(m_entries[entry])};
    const auto tabs = m_parts.pcPage.TabsOf(FindGroup(-place.Group));
    if (place.Group == 0) return {m_entries.empty() ? nullptr : LastOf(m_entries.back()), nullptr};
    const auto first = std::ranges::find_if_not(tabs, isMoved);
    if (place.OnGroup) return {nullptr, first == tabs.end() ? nullptr : *first};
    return {tabs.empty() ? nullptr : tabs.back(), nullptr};
}

// Each is put behind the one before it. So they come together, whichever of them stand before the place.
void frmTabPanel::Move(const std::vector<std::int32_t>& indexes, const TabPanelPlace& place) {
    const Neighbours beside = NeighboursAt(place, indexes);
    const Tab* last = beside.Before;
    for (const std::int32_t index : indexes) {
        const Tab* tab = FindTab(index);
        if (!tab || tab == last) continue;
        const std::size_t from = m_parts.pcPage.PositionOf(tab);
        std::size_t to = m_parts.pcPage.PositionOf(beside.Behind ? beside.Behind : last);
        if (to == 0) continue;
        // Taken out of its place, it leaves what stands behind that one place further left.
        if (beside.Behind && from < to) --to;
        if (!beside.Behind && from > to) ++to;
        m_parts.pcPage.Move(tab, to);
        if (!beside.Behind) last = tab;
    }
    m_parts.groups.Put(indexes, place.Group);
}

std::vector<Text> frmTabPanel::AddressesOf(const std::vector<std::int32_t>& indexes) const {
    std::vector<Text> addresses;
    for (const std::int32_t index : indexes) {
        const auto* view = m_parts.tabs.OpenView(index);
        const Text address = view ? view->Control->LocationURL() : Text();
        if (!address.empty()) addresses.push_back(address);
    }
    return addresses;
}

} // namespace tessa
