#include "tabs/TabSleep.h"

#include "forms/TabStrip.h"
#include "tabs/OpenTabs.h"
#include "tabs/TabKeys.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace tessa {

void TabSleep::SetPatience(Time patience) {
    if (m_patience == patience) return;
    const bool wasOff = std::exchange(m_patience, patience) <= Time{0};
    if (patience <= Time{0}) return;
    if (wasOff) m_since = m_clock.Now();
    Look();
}

void TabSleep::Opened(std::int32_t index) { m_seen.try_emplace(index, Seen{.last = m_clock.Now()}); }

void TabSleep::Loaded(std::int32_t index) {
    const auto seen = m_seen.find(index);
    // What kept the tab awake before belonged to the page before, or to the beginning of this one.
    if (seen != m_seen.end()) seen->second.again = m_clock.Now() + kIconPatience;
}

void TabSleep::Touch() {
    const auto* front = m_pcPage.SelectedItem();
    const std::int32_t index = front ? front->Tag : 0;
    // Most changes of the strip are captions and pictures.
    if (index == m_front) return;
    NoteInSight(m_clock.Now());
    if (const auto left = m_seen.find(m_front); left != m_seen.end()) left->second = Seen{.last = m_clock.Now()};
    m_front = index;
}

// What lay beside the front was looked at as well.
void TabSleep::NoteInSight(Time now) {
    for (const std::int32_t each : m_browser.InSight()) {
        const auto seen = m_seen.find(each);
        if (seen != m_seen.end()) seen->second.last = now;
    }
}

bool TabSleep::IsInSight(std::int32_t index) const {
    const auto& all = m_browser.InSight();
    return index == m_front || std::ranges::find(all, index) != all.end();
}

void TabSleep::NoteOpen(Time now) {
    Touch();
    NoteInSight(now);
    for (const OpenTab open : OpenTabs(m_pcPage, m_browser)) {
        // A tab that has just come has no view yet; it will in a moment.
        if (open.Index() != 0) m_seen.try_emplace(open.Index(), Seen{.last = now});
    }
    std::erase_if(m_seen, [&](const auto& each) { return TabOfView(m_pcPage, each.first) == nullptr; });
}

PageLife* TabSleep::LifeBehind(std::int32_t index) {
    auto* view = IsInSight(index) ? nullptr : m_browser.Find(index);
    return view ? view->Control->Life() : nullptr;
}

TabSleep::Time TabSleep::LookAt(std::int32_t index, Seen& seen, Time now) {
    const auto* life = LifeBehind(index);
    if (!life) return index != m_front && IsInSight(index) ? std::min(kAgain, m_patience) : m_patience;
    // Loaded again while it was behind: that is use, too.
    if (std::exchange(seen.asleep, life->Asleep()) && !seen.asleep) seen.last = now;
    if (seen.asleep) return m_patience;
    const Time due = std::max(seen.last, m_since) + m_patience;
    if (due > now) return due - now;
    return TrySleep(index, now) ? m_patience : kAgain;
}

bool TabSleep::TrySleep(std::int32_t index, Time now) {
    const auto seen = m_seen.find(index);
    auto* life = LifeBehind(index);
    if (seen == m_seen.end() || !life || now < seen->second.again || life->Activity().Any()) return false;
    // Only to find out whether it may, the engine halts a page for a moment. That is not to happen every second.
    const bool slept = life->Sleep() == Outcome::Done;
    seen->second.asleep = slept;
    if (!slept) seen->second.again = now + kAgain;
    return slept;
}

void TabSleep::Look() {
    if (m_patience <= Time{0}) return;
    const Time now = m_clock.Now();
    NoteOpen(now);
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
    TellSlept(slept);
    Schedule(next);
}

std::size_t TabSleep::SleepLongest(std::size_t most) {
    const Time now = m_clock.Now();
    NoteOpen(now);
    std::vector<std::pair<Time, std::int32_t>> awake;
    for (auto& [index, seen] : m_seen) {
        const auto* life = LifeBehind(index);
        if (!life) continue;
        if (std::exchange(seen.asleep, life->Asleep()) && !seen.asleep) seen.last = now;
        if (!seen.asleep) awake.emplace_back(seen.last, index);
    }
    std::ranges::sort(awake);
    std::size_t slept = 0;
    for (const auto& [last, index] : awake) {
        if (slept == most) break;
        if (TrySleep(index, now)) ++slept;
    }
    TellSlept(slept > 0);
    return slept;
}

bool TabSleep::SleepUnseen(std::int32_t index, Time since) {
    Touch();
    const auto seen = m_seen.find(index);
    const auto* life = TabOfView(m_pcPage, index) ? LifeBehind(index) : nullptr;
    if (seen == m_seen.end() || !life || life->Asleep() || seen->second.last > since) return false;
    const bool slept = TrySleep(index, m_clock.Now());
    TellSlept(slept);
    return slept;
}

bool TabSleep::SleepNow(std::int32_t index) {
    NoteOpen(m_clock.Now());
    const auto* life = LifeBehind(index);
    if (life && life->Asleep()) return true;
    const bool slept = TrySleep(index, m_clock.Now());
    TellSlept(slept);
    return slept;
}

void TabSleep::TellSlept(bool any) const {
    if (any) Slept();
}

} // namespace tessa
