#include "tabs/ClosedTabs.h"

#include "base/Address.h"
#include "tabs/TabKeys.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

namespace tessa {

namespace {

/// Of two tabs that closed one after the other, makes the second the one that closed first.
///
///     a B c D   B closes at 2, then D at 3;   D closes at 4, then B at 2
void SwapClosings(std::size_t& first, std::size_t& second) {
    if (second < first) {
        --first;
    } else {
        ++second;
    }
}

} // namespace

void ClosedTabs::Remember(std::int32_t Index) {
    auto command = TakeAwaiting(Index);
    const auto* view = m_browser.Find(Index);
    const auto* tab = TabOfView(m_pcPage, Index);
    const Text address = view ? view->Control->LocationURL() : Text();
    const bool worthIt =
        view && tab && view->Privacy == Privacy::Ordinary && !address.empty() && address != Address::kBlank;
    if (!worthIt) return DropEmpty();
    if (command == m_closed.end()) {
        if (!m_several.Now || m_closed.empty()) m_closed.emplace_back();
        command = std::prev(m_closed.end());
    }
    Add(command, {address, tab->Title(), view->Control->History(), m_pcPage.PositionOf(tab),
                  command->FrontIndex == Index, tab->Pinned(), Index, m_groups.Membership(Index), tab->Name()});
}

// One that its command has awaited comes back with that, so later commands have not found it there.
void ClosedTabs::Add(Commands::iterator command, ClosedTab tab) {
    for (auto later = std::prev(m_closed.end()); later != command; --later) {
        for (auto other = later->Tabs.rbegin(); other != later->Tabs.rend(); ++other)
            SwapClosings(other->Position, tab.Position);
    }
    command->Tabs.push_back(std::move(tab));
    Forget();
    Changed();
}

void ClosedTabs::BeginSeveral() {
    m_several.Now = true;
    Command& command = m_closed.emplace_back();
    command.Number = ++m_several.Last;
    command.FrontIndex = m_tabs.CurrentIndex();
}

void ClosedTabs::EndSeveral() {
    m_several.Now = false;
    DropEmpty();
}

void ClosedTabs::Await(std::int32_t Index) {
    const bool awaited =
        std::ranges::any_of(m_closed, [&](const Command& each) { return each.Awaited.contains(Index); });
    if (!awaited && m_several.Now && !m_closed.empty()) m_closed.back().Awaited.insert(Index);
}

void ClosedTabs::Stays(std::int32_t Index) {
    TakeAwaiting(Index);
    DropEmpty();
}

void ClosedTabs::RememberBlanked(std::int32_t Index) {
    auto command = TakeAwaiting(Index);
    if (command == m_closed.end() && m_several.Now && !m_closed.empty()) command = std::prev(m_closed.end());
    if (command != m_closed.end()) command->BlankedIndex = Index;
    DropEmpty();
}

ClosedTabs::Commands::iterator ClosedTabs::TakeAwaiting(std::int32_t Index) {
    return std::ranges::find_if(m_closed, [&](Command& each) { return each.Awaited.erase(Index) != 0; });
}

// Its command may yet close some.
void ClosedTabs::DropEmpty() {
    if (!m_several.Now)
        std::erase_if(m_closed, [](const Command& each) { return each.Tabs.empty() && each.Awaited.empty(); });
}

void ClosedTabs::Forget() {
    const auto tabs = [this] {
        return std::accumulate(m_closed.begin(), m_closed.end(), std::size_t{0},
                               [](std::size_t sum, const Command& each) { return sum + each.Tabs.size(); });
    };
    while (m_closed.size() > 1 && (m_closed.size() > kMost || tabs() > kMostTabs)) m_closed.erase(m_closed.begin());
}

std::int32_t ClosedTabs::Open(const ClosedTab& closed, bool awake) {
    const std::int32_t index = m_tabs.NextBrowserIndex;
    auto* view = m_tabs.GetNewBrowser(InFront::No);
    auto* tab = TabOfView(m_pcPage, index);
    if (!view || !tab) return 0;
    ResumeNext(awake ? view->Restore(closed.History, closed.Address)
                     : view->RestoreLater(closed.History, closed.Address));
    if (!awake) m_tabs.SetTabTitle(index, closed.Title);
    m_pcPage.SetName(tab, closed.Name);
    if (closed.Pinned) m_pcPage.SetPinned(tab, true);
    m_pcPage.Move(tab, std::min(closed.Position, m_pcPage.Count()));
    if (closed.Group) m_groups.Return(index, *closed.Group);
    Returned(closed.Index, index);
    return index;
}

bool ClosedTabs::Unblank(const Command& command) {
    const auto* blanked = m_tabs.OpenView(command.BlankedIndex);
    if (!blanked || !blanked->Control->Blank()) return false;
    ResumeNext(blanked->Control->GoBack());
    return true;
}

ClosedTabs::Commands::const_iterator ClosedTabs::Latest() const {
    auto command = m_closed.end();
    while (command != m_closed.begin()) {
        if (!(--command)->Tabs.empty()) return command;
    }
    return m_closed.end();
}

std::size_t ClosedTabs::Next() const {
    const auto latest = Latest();
    return latest == m_closed.end() ? 0 : latest->Tabs.size();
}

void ClosedTabs::Reopen() {
    const auto latest = Latest();
    if (latest != m_closed.end()) TakeBack(TakeOut(m_closed.begin() + (latest - m_closed.begin())));
}

bool ClosedTabs::Has(std::uint64_t command) const {
    return command != 0 && std::ranges::find(m_closed, command, &Command::Number) != m_closed.end();
}

void ClosedTabs::Reopen(std::uint64_t command) {
    if (Has(command)) TakeBack(TakeOut(std::ranges::find(m_closed, command, &Command::Number)));
}

ClosedTabs::Command ClosedTabs::TakeOut(Commands::iterator command) {
    Command taken = std::move(*command);
    const auto later = m_closed.erase(command);
    for (auto tab = taken.Tabs.rbegin(); tab != taken.Tabs.rend(); ++tab) {
        for (auto each = later; each != m_closed.end(); ++each) {
            for (ClosedTab& other : each->Tabs) SwapClosings(tab->Position, other.Position);
        }
    }
    return taken;
}

void ClosedTabs::TakeBack(const Command& command) {
    for (const std::int32_t index : command.Awaited) m_tabs.Leaving.LetStay(index);
    const Opened opened = OpenAll(command);
    const bool stayed = (Unblank(command) && command.BlankedIndex == command.FrontIndex) ||
                        command.Awaited.contains(command.FrontIndex);
    auto* front = TabOfView(m_pcPage, stayed ? command.FrontIndex : opened.Front);
    if (!front) front = Leftmost(opened.Indexes);
    if (front) m_pcPage.Select(front);
    Changed();
}

// The tab closed last takes its place before those that closed while it was there.
ClosedTabs::Opened ClosedTabs::OpenAll(const Command& command) {
    Opened opened;
    for (auto closed = command.Tabs.rbegin(); closed != command.Tabs.rend(); ++closed) {
        const std::int32_t index = Open(*closed, opened.Indexes.size() < kAwake || closed->WasInFront);
        if (index == 0) continue;
        opened.Indexes.insert(index);
        if (closed->WasInFront) opened.Front = index;
    }
    return opened;
}

Tab* ClosedTabs::Leftmost(const std::set<std::int32_t>& indexes) const {
    for (std::size_t position = 1; position <= m_pcPage.Count(); ++position) {
        auto* tab = m_pcPage.FindAt(position);
        if (indexes.contains(tab->Tag)) return tab;
    }
    return nullptr;
}

std::vector<ClosedTabs::Page> ClosedTabs::Last(std::size_t most) const {
    std::vector<Page> pages;
    for (auto command = m_closed.rbegin(); command != m_closed.rend(); ++command) {
        for (auto tab = command->Tabs.rbegin(); tab != command->Tabs.rend() && pages.size() < most; ++tab)
            pages.push_back({tab->Title, tab->Address});
    }
    return pages;
}

} // namespace tessa
