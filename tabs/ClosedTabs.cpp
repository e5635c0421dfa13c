#include "tabs/ClosedTabs.h"

#include <algorithm>
#include <utility>

void ClosedTabs::Remember(std::int32_t Index) {
    const auto* view = m_browser.Find(Index);
    const auto* tab = m_pcPage.Find(u"Tab" + Decimal(Index));
    if (!view || !tab || view->Privacy == Privacy::Private) return;
    const Text address = view->Control->LocationURL();
    if (address.empty() || address == u"about:blank") return;
    if (m_closed.size() == kMost) m_closed.erase(m_closed.begin());
    m_closed.push_back({address, view->Control->History(), m_pcPage.PositionOf(tab)});
    if (Changed) Changed();
}

void ClosedTabs::Reopen() {
    if (m_closed.empty()) return;
    const ClosedTab closed = std::move(m_closed.back());
    m_closed.pop_back();
    if (auto* view = m_tabs.GetNewBrowser(InFront::Yes)) {
        ResumeNext(view->Restore(closed.History, closed.Address));
        m_pcPage.Move(m_pcPage.SelectedItem(), std::min(closed.Position, m_pcPage.Count()));
    }
    if (Changed) Changed();
}
