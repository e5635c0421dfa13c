#include "tabs/ClosedTabs.h"

#include "base/Address.h"
#include "tabs/TabKeys.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace tessa {

void ClosedTabs::Remember(std::int32_t Index) {
    const auto* view = m_browser.Find(Index);
    const auto* tab = TabOfView(m_pcPage, Index);
    if (!view || !tab || view->Privacy == Privacy::Private) return;
    const Text address = view->Control->LocationURL();
    if (address.empty() || address == Address::kBlank) return;
    if (!m_several || m_closed.empty()) m_closed.emplace_back();
    Command& command = m_closed.back();
    command.Tabs.push_back({address, tab->Title(), view->Control->History(), m_pcPage.PositionOf(tab),
                            m_several && command.FrontIndex == Index, tab->Pinned(), Index, m_groups.Membership(Index),
                            tab->Name()});
    Forget();
    Changed();
}

void ClosedTabs::BeginSeveral() {
    m_several = true;
    m_closed.emplace_back().FrontIndex = m_tabs.CurrentIndex();
}

void ClosedTabs::EndSeveral() {
    m_several = false;
    if (!m_closed.empty() && m_closed.back().Tabs.empty()) m_closed.pop_back();
}

void ClosedTabs::RememberBlanked(std::int32_t Index) {
    if (m_several && !m_closed.empty()) m_closed.back().BlankedIndex = Index;
}

void ClosedTabs::Forget() {
    const auto tabs = [this] {
        return std::accumulate(m_closed.begin(), m_closed.end(), std::size_t{0},
                               [](std::size_t sum, const Command& each) { return sum + each.Tabs.size(); });
    };
    while (m_closed.size() > 1 && (m_closed.size() > kMost || tabs() > kMostTabs)) m_closed.erase(m_closed.begin());
}

Tab* ClosedTabs::Open(const ClosedTab& closed, bool awake) {
    const std::int32_t index = m_tabs.NextBrowserIndex;
    auto* view = m_tabs.GetNewBrowser(InFront::No);
    auto* tab = TabOfView(m_pcPage, index);
    if (!view || !tab) return nullptr;
    ResumeNext(awake ? view->Restore(closed.History, closed.Address)
                     : view->RestoreLater(closed.History, closed.Address));
    if (!awake) m_tabs.SetTabTitle(index, closed.Title);
    m_pcPage.SetName(tab, closed.Name);
    if (closed.Pinned) m_pcPage.SetPinned(tab, true);
    m_pcPage.Move(tab, std::min(closed.Position, m_pcPage.Count()));
    if (closed.Group) m_groups.Return(index, *closed.Group);
    Returned(closed.Index, index);
    return TabOfView(m_pcPage, index);
}

Tab* ClosedTabs::Unblank(const Command& command) {
    const auto* blanked = m_tabs.OpenView(command.BlankedIndex);
    if (!blanked || !blanked->Control->Blank()) return nullptr;
    ResumeNext(blanked->Control->GoBack());
    return TabOfView(m_pcPage, command.BlankedIndex);
}

void ClosedTabs::Reopen() {
    if (m_closed.empty()) return;
    const Command command = std::move(m_closed.back());
    m_closed.pop_back();
    Text leftmost, front;
    std::size_t opened = 0;
    // The tab closed last stood leftmost, and takes its place before those that stood right of it.
    for (auto closed = command.Tabs.rbegin(); closed != command.Tabs.rend(); ++closed) {
        const auto* tab = Open(*closed, ++opened <= kAwake || closed->WasInFront);
        if (!tab) continue;
        if (leftmost.empty()) leftmost = tab->Key();
        if (closed->WasInFront) front = tab->Key();
    }
    const auto* blanked = Unblank(command);
    if (blanked && command.BlankedIndex == command.FrontIndex) front = blanked->Key();
    if (auto* tab = m_pcPage.Find(front.empty() ? leftmost : front)) m_pcPage.Select(tab);
    Changed();
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
