#include "tabs/TabSleep.h"

#include "common/TabStrip.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

void TabSleep::SetPatience(Time patience) {
    if (m_patience == patience) return;
    m_patience = patience;
    if (patience > Time{0})
        Look();
    else
        m_seen.clear();
}

void TabSleep::Touch() {
    if (!Now || m_patience <= Time{0}) return;
    const auto* front = m_pcPage.SelectedItem();
    // Most changes of the strip are captions and pictures.
    if ((front ? front->Tag : 0) == m_front && m_seen.size() == m_pcPage.Count()) return;
    Note(Now());
}

void TabSleep::Note(Time now) {
    if (const auto left = m_seen.find(m_front); left != m_seen.end()) left->second = Seen{now};
    const auto* front = m_pcPage.SelectedItem();
    m_front = front ? front->Tag : 0;
    std::vector<std::int32_t> open;
    for (std::size_t position = 1; position <= m_pcPage.Count(); ++position) {
        // A tab that has just come has no view yet; it will in a moment.
        if (const std::int32_t index = m_pcPage.FindAt(position)->Tag; index != 0) open.push_back(index);
    }
    for (const std::int32_t index : open) m_seen.try_emplace(index, Seen{now});
    if (m_seen.size() > open.size())
        std::erase_if(m_seen, [&](const auto& each) { return std::ranges::find(open, each.first) == open.end(); });
}

TabSleep::Time TabSleep::LookAt(std::int32_t index, Seen& seen, Time now) {
    auto* view = m_browser.Find(index);
    auto* life = view ? view->Control->Life() : nullptr;
    if (!life || index == m_front) return m_patience;
    // Loaded again while it was behind: that is use, too.
    if (std::exchange(seen.asleep, life->Asleep()) && !seen.asleep) seen.last = now;
    if (seen.asleep) return m_patience;
    const Time due = seen.last + m_patience;
    if (due > now) return due - now;
    if (life->Activity().Any() || life->Sleep() == Outcome::Failed) return kAgain;
    seen.asleep = true;
    return m_patience;
}

void TabSleep::Look() {
    if (!Now || m_patience <= Time{0}) return;
    const Time now = Now();
    Note(now);
    // What happens meanwhile may change which tabs there are.
    std::vector<std::int32_t> open;
    std::ranges::transform(m_seen, std::back_inserter(open), [](const auto& each) { return each.first; });
    Time next = m_patience;
    bool slept = false;
    for (const std::int32_t index : open) {
        const auto seen = m_seen.find(index);
        if (seen == m_seen.end()) continue;
        const bool asleep = seen->second.asleep;
        next = std::min(next, LookAt(index, seen->second, now));
        slept |= seen->second.asleep && !asleep;
    }
    if (slept && Slept) Slept();
    if (Schedule) Schedule(next);
}
