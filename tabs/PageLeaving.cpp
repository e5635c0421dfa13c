#include "tabs/PageLeaving.h"

#include "tabs/OpenTabs.h"
#include "tabs/TabKeys.h"

#include <utility>

namespace tessa {

void PageLeaving::WhenLeft(std::int32_t Index, std::function<void()> then) {
    const auto* view = m_browser.Find(Index);
    if (!view || !view->Control->MayHold()) return then();
    if (!m_asked.emplace(Index, m_questions + 1).second) return;
    view->Control->AskToLeave(LeaveReason::ToClose, [this, Index, question = ++m_questions, then = std::move(then)](
                                                        bool holds) { OnAnswer(Index, question, holds, then); });
}

bool PageLeaving::Awaits(std::int32_t Index, Question question) const {
    const auto asked = m_asked.find(Index);
    return asked != m_asked.end() && asked->second == question;
}

void PageLeaving::OnAnswer(std::int32_t Index, Question question, bool holds, const std::function<void()>& then) {
    const auto* view = m_browser.Find(Index);
    auto* tab = TabOfView(m_pcPage, Index);
    if (!view || !tab) return;
    // Who lets go has taken its leave, and is of no use to anybody who wants it to stay.
    if (!holds && !Asks(Index)) return ResumeNext(view->Control->Refresh());
    if (!Awaits(Index, question)) return;
    const auto leave = [this, Index, question, then](bool leaves) {
        if (!Awaits(Index, question)) return;
        m_asked.erase(Index);
        if (leaves) return then();
        Stays(Index);
    };
    if (!holds) return leave(true);
    // What is asked is to be seen.
    m_pcPage.Select(tab);
    view->Control->AskUserToLeave(leave);
}

void PageLeaving::LetStay(std::int32_t Index) {
    if (m_asked.erase(Index) == 0) return;
    if (const auto* view = m_browser.Find(Index)) view->Control->LetUserStay();
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
