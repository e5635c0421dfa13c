#include "tabs/TabGroups.h"

#include "base/Address.h"
#include "tabs/TabKeys.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace tessa {

namespace {

/// From those that are told apart most easily.
constexpr std::array kPalette{TabColour::Blue,   TabColour::Green, TabColour::Orange, TabColour::Purple,
                              TabColour::Yellow, TabColour::Red,   TabColour::Grey};

/// An address as it is compared. One that was typed into a file has no scheme, and may lead to either.
Text PlaceOf(TextView address) {
    Text place = Address::PageOf(address);
    for (const TextView scheme : {u"https://", u"http://"}) {
        if (place.starts_with(scheme)) return place.substr(scheme.size());
    }
    return place.starts_with(u"www.") ? place.substr(4) : place;
}

bool IsSamePlace(TextView one, TextView other) { return one == other || PlaceOf(one) == PlaceOf(other); }

bool ShowsNothing(TextView address) { return address.empty() || address == Address::kBlank; }

} // namespace

std::vector<Text> GroupSource::Opened() const {
    std::vector<Text> opened = All;
    for (const Text& each : LeftOut) {
        const auto found = std::ranges::find(opened, each);
        if (found != opened.end()) opened.erase(found);
    }
    return opened;
}

TabGroups::TabGroups(TabSet& tabs, TabStrip& pcPage, ViewArray& Browser)
    : m_tabs(tabs), m_pcPage(pcPage), m_browser(Browser) {
    m_pcPage.GroupGone.ConnectForLife([this](std::int32_t id) { m_groups.erase(id); });
}

std::int32_t TabGroups::Begin(std::int32_t index, Text name, GroupSource file) {
    auto* tab = TabOfView(m_pcPage, index);
    if (!tab) return 0;
    const TabColour colour = file.Colour == TabColour::None ? RareColour() : file.Colour;
    const std::int32_t group = m_pcPage.NewGroup(tab, std::move(name), colour)->Id();
    m_members[index] = {.Typed = m_tabs.TypedSoFar()};
    Begin(group, std::move(file));
    return group;
}

void TabGroups::Begin(std::int32_t group, GroupSource file) {
    m_groups[group].Agreed = file.All;
    SetFile(group, std::move(file));
}

bool TabGroups::Add(std::int32_t index, std::int32_t group, std::optional<Text> entry) {
    auto* tab = TabOfView(m_pcPage, index);
    auto* joined = m_pcPage.FindGroup(group);
    if (!tab || !joined) return false;
    m_pcPage.SetGroup(tab, joined);
    // One that shows its page already is not on the way to it any more.
    const auto* view = m_browser.Find(index);
    const bool isThere = view && entry && IsSamePlace(view->Control->LocationURL(), *entry);
    m_members[index] = {.Entry = std::move(entry), .Typed = m_tabs.TypedSoFar(), .Fresh = !isThere};
    ++m_visits;
    return true;
}

void TabGroups::TakeOut(std::int32_t index) {
    if (auto* tab = TabOfView(m_pcPage, index)) m_pcPage.SetGroup(tab, nullptr);
    m_members.erase(index);
}

void TabGroups::Put(const std::vector<std::int32_t>& indexes, std::int32_t group) {
    std::set<std::int32_t> whole;
    for (const TabGroup* each : m_pcPage.Groups()) {
        const auto isMeant = [&](std::int32_t index) { return std::ranges::find(indexes, index) != indexes.end(); };
        if (std::ranges::all_of(TabsOf(each->Id()), isMeant)) whole.insert(each->Id());
    }
    for (const std::int32_t index : indexes) {
        const auto* now = Of(index);
        if ((now ? now->Id() : 0) == group) continue;
        if (group != 0)
            Add(index, group);
        else if (!whole.contains(now->Id()))
            TakeOut(index);
    }
}

void TabGroups::MoveToEnd(std::int32_t group) {
    for (const Tab* each : m_pcPage.TabsOf(m_pcPage.FindGroup(group))) m_pcPage.Move(each, m_pcPage.Count());
}

void TabGroups::ChooseColour(std::int32_t group, TabColour colour) {
    auto* known = Find(group);
    auto* chosen = m_pcPage.FindGroup(group);
    if (!known || !chosen) return;
    known->ColourChosen = true;
    ++m_visits;
    m_pcPage.SetGroupColour(chosen, colour);
    m_pcPage.TouchGroups();
}

bool TabGroups::ColourChosen(std::int32_t group) const {
    const auto* known = Find(group);
    return known && known->ColourChosen;
}

TabGroups::Known* TabGroups::Find(std::int32_t group) {
    const auto found = m_groups.find(group);
    return found == m_groups.end() ? nullptr : &found->second;
}

const TabGroups::Known* TabGroups::Find(std::int32_t group) const { return const_cast<TabGroups*>(this)->Find(group); }

// The first of those that the fewest groups have.
TabColour TabGroups::RareColour() const {
    std::array<std::size_t, kPalette.size()> used{};
    for (const TabGroup* each : m_pcPage.Groups()) {
        const auto found = std::ranges::find(kPalette, each->Colour());
        if (found != kPalette.end()) ++used.at(static_cast<std::size_t>(found - kPalette.begin()));
    }
    return kPalette.at(static_cast<std::size_t>(std::ranges::min_element(used) - used.begin()));
}

const TabGroup* TabGroups::Of(std::int32_t index) const {
    const auto* tab = TabOfView(m_pcPage, index);
    return tab ? tab->Group() : nullptr;
}

Text TabGroups::PathOf(std::int32_t index) const {
    const auto* group = Of(index);
    const auto* file = group ? FileOf(group->Id()) : nullptr;
    return file ? file->Path : Text();
}

const GroupSource* TabGroups::FileOf(std::int32_t group) const {
    const auto* known = Find(group);
    return known ? &known->File : nullptr;
}

std::vector<std::int32_t> TabGroups::OpenedFrom(TextView path) const {
    std::vector<std::int32_t> groups;
    for (const auto& [number, known] : m_groups) {
        if (known.File.Path == path) groups.push_back(number);
    }
    return groups;
}

std::vector<std::int32_t> TabGroups::TabsOf(std::int32_t group) const {
    std::vector<std::int32_t> indexes;
    for (const Tab* each : m_pcPage.TabsOf(m_pcPage.FindGroup(group))) indexes.push_back(each->Tag);
    return indexes;
}

// A site may lead on by itself, which leaves no way back. What the user types may leave none either, when the page had
// not come yet.
bool TabGroups::ShowsItsPage(const Member& member, const ArrayView& view) {
    const Text shown = view.Control->LocationURL();
    if (ShowsNothing(shown) || IsSamePlace(shown, *member.Entry)) return true;
    if (!member.Landed.empty() && IsSamePlace(shown, member.Landed)) return true;
    return view.Tag == u"0" && view.TypedBefore <= member.Typed;
}

std::optional<GroupTab> TabGroups::ToSave(std::int32_t index) const {
    const auto found = m_members.find(index);
    const auto* view = m_browser.Find(index);
    const auto entry = found == m_members.end() ? std::nullopt : found->second.Entry;
    if (entry && (!view || ShowsItsPage(found->second, *view))) return GroupTab{index, *entry, entry};
    const Text address = view ? view->Control->LocationURL() : Text();
    if (ShowsNothing(address) || !Address::ComesBack(address)) return std::nullopt;
    return GroupTab{index, address, entry};
}

std::optional<Text> TabGroups::EntryShown(std::int32_t index) const {
    const auto tab = ToSave(index);
    return tab && tab->Entry && tab->Address == *tab->Entry ? tab->Entry : std::nullopt;
}

std::vector<GroupTab> TabGroups::TabsToSave(std::int32_t group) const {
    std::vector<GroupTab> tabs;
    for (const std::int32_t each : TabsOf(group)) {
        if (auto tab = ToSave(each)) tabs.push_back(*std::move(tab));
    }
    return tabs;
}

bool TabGroups::IsChanged(std::int32_t group) const {
    const auto found = m_groups.find(group);
    if (found == m_groups.end()) return false;
    Known& known = found->second;
    if (std::exchange(known.Judged, m_pcPage.Arrangement()) == m_pcPage.Arrangement() &&
        std::exchange(known.JudgedVisits, m_visits) == m_visits)
        return known.Changed;
    known.JudgedVisits = m_visits;
    return known.Changed = Differs(group, known);
}

bool TabGroups::Differs(std::int32_t group, const Known& known) const {
    const auto* shown = m_pcPage.FindGroup(group);
    if (!known.File.IsThere || (known.ColourChosen && shown && shown->Colour() != known.File.Colour)) return true;
    const auto tabs = TabsToSave(group);
    return !std::ranges::equal(tabs, known.File.Opened(), [](const GroupTab& tab, const Text& address) {
        return IsSamePlace(tab.Address, address);
    });
}

void TabGroups::SetFile(std::int32_t group, GroupSource file) {
    auto* known = Find(group);
    if (!known) return;
    known->File = std::move(file);
    known->Places.clear();
    for (const Text& each : known->File.All) known->Places.insert(PlaceOf(each));
    auto* shown = m_pcPage.FindGroup(group);
    if (shown && !known->ColourChosen && known->File.Colour != TabColour::None)
        m_pcPage.SetGroupColour(shown, known->File.Colour);
    ++m_visits;
    m_pcPage.TouchGroups();
}

bool TabGroups::IsOvertaken(std::int32_t group) const {
    const auto* known = Find(group);
    return known && known->File.IsThere && known->File.All != known->Agreed;
}

void TabGroups::Agree(std::int32_t group) {
    if (auto* known = Find(group)) known->Agreed = known->File.All;
}

void TabGroups::NoteSaved(std::int32_t group, const std::vector<GroupTab>& tabs) {
    auto* known = Find(group);
    if (!known) return;
    known->ColourChosen = false;
    known->Agreed = known->File.All;
    for (const GroupTab& each : tabs) {
        const auto found = m_members.find(each.Index);
        if (found == m_members.end()) continue;
        // What it shows is what was saved. So another page is no longer the way to that one.
        const auto* view = m_browser.Find(each.Index);
        if (view && !ShowsNothing(view->Control->LocationURL())) found->second.Fresh = false;
        if (found->second.Entry == each.Address) continue;
        found->second.Entry = each.Address;
        found->second.Landed.clear();
    }
    ++m_visits;
    m_pcPage.TouchGroups();
}

void TabGroups::Begins(std::int32_t index, TextView address) {
    const auto found = m_members.find(index);
    const auto* group = Of(index);
    const auto* known = group ? Find(group->Id()) : nullptr;
    if (found == m_members.end() || !known || ShowsNothing(address)) return;
    Member& member = found->second;
    // What is typed while a tab is in front may lead it elsewhere.
    const bool typed = m_tabs.IsSelected(index) && m_tabs.TypedSoFar() > member.Typed;
    const bool own = member.Entry && ((member.Fresh && !typed) || IsSamePlace(address, *member.Entry) ||
                                      (!member.Landed.empty() && IsSamePlace(address, member.Landed)));
    // On its way a page may be led elsewhere, and is the same still.
    if (own)
        member.Next = Coming::Own;
    else if (known->Places.contains(PlaceOf(address)))
        member.Next = Coming::Another;
    else if (!member.Begun || typed)
        member.Next = Coming::Nothing;
    member.Fresh = false;
    member.Begun = true;
}

void TabGroups::Shows(std::int32_t index, TextView address) {
    const auto found = m_members.find(index);
    if (found == m_members.end() || ShowsNothing(address)) return;
    Member& member = found->second;
    if (std::exchange(member.Begun, false) && member.Next == Coming::Own) member.Landed = Text(address);
    ++m_visits;
    m_pcPage.TouchGroups();
}

Text TabGroups::NameOfVisit(std::int32_t index) const {
    const auto found = m_members.find(index);
    const auto* group = Of(index);
    const bool belongs = group && found != m_members.end() && found->second.Next != Coming::Nothing;
    return belongs ? group->Name() : Text();
}

} // namespace tessa
