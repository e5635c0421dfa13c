#include "tabs/ClosedTabs.h"

#include "common/Address.h"
#include "tabs/TabKeys.h"

#include <algorithm>
#include <numeric>
#include <utility>

void ClosedTabs::Remember(std::int32_t Index) {
    const auto* view = m_browser.Find(Index);
    const auto* tab = TabOfView(m_pcPage, Index);
    if (!view || !tab || view->Privacy == Privacy::Private) return;
    const Text address = view->Control->LocationURL();
    if (address.empty() || address == Address::kBlank) return;
    if (!m_several || m_closed.empty()) m_closed.emplace_back();
    m_closed.back().Tabs.push_back({address, tab->Caption(), view->Control->History(), m_pcPage.PositionOf(tab)});
    Forget();
    if (Changed) Changed();
}

void ClosedTabs::BeginSeveral() {
    m_several = true;
    m_closed.emplace_back();
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

void ClosedTabs::Reopen() {
    if (m_closed.empty()) return;
    const Command command = std::move(m_closed.back());
    m_closed.pop_back();
    Text leftmost;
    std::size_t opened = 0;
    // The tab closed last stood leftmost, and takes its place before those that stood right of it.
    for (auto closed = command.Tabs.rbegin(); closed != command.Tabs.rend(); ++closed) {
        const std::int32_t index = m_tabs.NextBrowserIndex;
        auto* view = m_tabs.GetNewBrowser(InFront::No);
        auto* tab = TabOfView(m_pcPage, index);
        if (!view || !tab) continue;
        const bool awake = ++opened <= kAwake;
        ResumeNext(awake ? view->Restore(closed->History, closed->Address)
                         : view->RestoreLater(closed->History, closed->Address));
        if (!awake) m_pcPage.SetCaption(tab, closed->Title);
        m_pcPage.Move(tab, std::min(closed->Position, m_pcPage.Count()));
        if (leftmost.empty()) leftmost = tab->Key();
    }
    const auto* blanked = m_tabs.OpenView(command.BlankedIndex);
    if (blanked && blanked->Control->Blank()) ResumeNext(blanked->Control->GoBack());
    if (auto* tab = m_pcPage.Find(leftmost)) m_pcPage.Select(tab);
    if (Changed) Changed();
}
