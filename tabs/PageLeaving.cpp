#include "tabs/PageLeaving.h"

#include "tabs/OpenTabs.h"
#include "tabs/TabKeys.h"

#include <utility>

namespace tessa {

void PageLeaving::WhenLeft(std::int32_t Index, std::function<void()> then) {
    const auto* view = m_browser.Find(Index);
    if (!view || !view->Control->MayHold()) return then();
    if (!m_asked.insert(Index).second) return;
    view->Control->AskToLeave(LeaveReason::ToClose,
                              [this, Index, then = std::move(then)](bool holds) { OnAnswer(Index, holds, then); });
}

void PageLeaving::OnAnswer(std::int32_t Index, bool holds, const std::function<void()>& then) {
    const auto* view = m_browser.Find(Index);
    auto* tab = TabOfView(m_pcPage, Index);
    if (!m_asked.contains(Index) || !view || !tab) return;
    const auto leave = [this, Index, then](bool leaves) {
        if (m_asked.erase(Index) != 0 && leaves) then();
    };
    if (!holds) return leave(true);
    // What is asked is to be seen.
    m_pcPage.Select(tab);
    view->Control->AskUserToLeave(leave);
}

void PageLeaving::FindHolders(std::function<void(const std::vector<std::int32_t>&)> told) {
    if (m_search) return;
    std::set<std::int32_t> asked;
    for (const OpenTab open : OpenTabs(m_pcPage, m_browser)) {
        if (open.View && open.View->Control->MayHold()) asked.insert(open.Index());
    }
    if (asked.empty()) return told({});
    m_search = Search{asked, {}, std::move(told)};
    for (const std::int32_t index : asked) {
        const auto* view = m_browser.Find(index);
        if (!view) continue;
        view->Control->AskToLeave(LeaveReason::ToKnow, [this, index](bool holds) { OnFound(index, holds); });
    }
}

void PageLeaving::OnFound(std::int32_t Index, bool holds) {
    if (!m_search || m_search->Waiting.erase(Index) == 0) return;
    if (holds) m_search->Holders.insert(Index);
    if (!m_search->Waiting.empty()) return;
    const Search ended = *std::exchange(m_search, std::nullopt);
    ended.Told(InOrder(ended.Holders));
}

std::vector<std::int32_t> PageLeaving::InOrder(const std::set<std::int32_t>& indexes) const {
    std::vector<std::int32_t> ordered;
    for (const OpenTab open : OpenTabs(m_pcPage, m_browser)) {
        if (indexes.contains(open.Index())) ordered.push_back(open.Index());
    }
    return ordered;
}

void PageLeaving::Forget(std::int32_t Index) {
    m_asked.erase(Index);
    OnFound(Index, false);
}

} // namespace tessa
