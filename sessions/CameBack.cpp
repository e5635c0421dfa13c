#include "sessions/CameBack.h"

#include "tabs/TabKeys.h"

namespace tessa {

void CameBack::Note(std::int32_t Index, TextView address) {
    m_pages.push_back({Index, Text(address), m_tabs.TypedSoFar()});
}

std::vector<std::int32_t> CameBack::Untouched() const {
    std::vector<std::int32_t> indexes;
    for (const Page& page : m_pages) {
        if (IsUntouched(page)) indexes.push_back(page.index);
    }
    return indexes;
}

bool CameBack::IsUntouched(const Page& page) const {
    const auto* tab = TabOfView(m_pcPage, page.index);
    const auto* view = m_browser.Find(page.index);
    if (!tab || !view || view->Control->MayHold() || view->ForwardFlag != 0) return false;
    const Text shown = view->Control->LocationURL();
    if (!tab->Awaited().empty() && tab->Awaited() != shown) return false;
    if (shown == page.address) return true;
    // A site may have sent the page on by itself, which leaves no way back. What the user types may leave none either,
    // when the page had not come yet.
    return view->Tag == u"0" && view->TypedBefore <= page.typed;
}

} // namespace tessa
