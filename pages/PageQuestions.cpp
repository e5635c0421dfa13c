#include "pages/PageQuestions.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tessa {

PageQuestions::~PageQuestions() {
    for (const Waiting& each : std::exchange(m_waiting, {})) Tell(each.second, PageQuestion::kDismissed, false);
}

void PageQuestions::Tell(const Waiters& waiters, std::size_t answer, bool remembers) {
    for (const auto& each : waiters) {
        if (each) each(answer, remembers);
    }
}

void PageQuestions::Ask(PageQuestion question) {
    auto answered = std::move(question.Answered);
    const auto same =
        std::ranges::find_if(m_waiting, [&](const Waiting& each) { return each.first.Key == question.Key; });
    if (same != m_waiting.end() && same->second.size() < kMostWaiters) {
        same->second.push_back(std::move(answered));
    } else if (same != m_waiting.end() || m_waiting.size() >= kMostWaiting) {
        answered(PageQuestion::kDismissed, false);
    } else {
        m_waiting.emplace_back(std::move(question), Waiters{std::move(answered)});
        if (m_waiting.size() == 1) Changed();
    }
}

void PageQuestions::Answer(std::size_t answer, bool remembers) {
    if (m_waiting.empty()) return;
    const Waiting answered = std::move(m_waiting.front());
    m_waiting.pop_front();
    Changed();
    Tell(answered.second, answer, remembers);
}

void PageQuestions::Withdraw(TextView key) {
    const auto found = std::ranges::find_if(m_waiting, [&](const Waiting& each) { return each.first.Key == key; });
    if (found == m_waiting.end()) return;
    const bool shown = found == m_waiting.begin();
    const Waiting gone = std::move(*found);
    m_waiting.erase(found);
    if (shown) Changed();
    Tell(gone.second, PageQuestion::kDismissed, false);
}

void PageQuestions::Reword(TextView key, Text words) {
    const auto found = std::ranges::find_if(m_waiting, [&](const Waiting& each) { return each.first.Key == key; });
    if (found == m_waiting.end()) return;
    found->first.Words = std::move(words);
    if (found == m_waiting.begin()) Reworded();
}

void PageQuestions::DismissAll() { Dismiss(std::exchange(m_waiting, {})); }

void PageQuestions::DismissAllBut(TextView asker) {
    const auto isOthers = [&](const Waiting& each) { return each.first.Asker != asker; };
    std::deque<Waiting> gone;
    std::ranges::copy_if(m_waiting, std::back_inserter(gone), isOthers);
    std::erase_if(m_waiting, isOthers);
    Dismiss(gone);
}

void PageQuestions::Dismiss(const std::deque<Waiting>& gone) {
    if (gone.empty()) return;
    Changed();
    for (const Waiting& each : gone) Tell(each.second, PageQuestion::kDismissed, false);
}

} // namespace tessa
