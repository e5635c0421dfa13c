#include "tabs/NavigationQueue.h"

#include <algorithm>

namespace tessa {

void NavigationQueue::Add(std::int32_t index) {
    if (std::ranges::find(m_waiting, index) == m_waiting.end()) m_waiting.push_back(index);
}

void NavigationQueue::Remove(std::int32_t index) {
    std::erase(m_waiting, index);
    m_loading.erase(index);
}

std::optional<std::int32_t> NavigationQueue::Next(Time now) {
    const auto front = std::ranges::find(m_waiting, m_front);
    if (front != m_waiting.end()) {
        // What was idle before it came is for the front page.
        m_room = 0;
        return Start(front, now);
    }
    if (m_waiting.empty()) return std::nullopt;
    const auto beside = std::ranges::find_if(m_waiting, [this](std::int32_t each) { return IsBeside(each); });
    if (beside != m_waiting.end()) return MayStartBeside(now) ? std::optional(Start(beside, now)) : std::nullopt;
    if (!MayStartBehind(now)) return std::nullopt;
    if (m_room > 0) --m_room;
    return Start(m_waiting.begin(), now);
}

void NavigationQueue::NoteSign(std::int32_t index, Time now) {
    if (const auto load = m_loading.find(index); load != m_loading.end()) load->second.Sign = now;
}

void NavigationQueue::NoteIdle(double cores, Time now) {
    const double free = FrontWorks(now) ? cores - kCoresForFront : cores;
    m_room = free < kCoresForOne ? 0 : static_cast<std::size_t>(free / kCoresForOne);
}

std::optional<NavigationQueue::Time> NavigationQueue::Deadline(Time now) const {
    std::optional<Time> soonest;
    for (const auto& [index, load] : m_loading) {
        const Time end = load.Start + (index == m_front ? kFrontPatience : kLoadPatience);
        if (end > now && !m_waiting.empty()) soonest = std::min(soonest.value_or(end), end);
    }
    return soonest;
}

bool NavigationQueue::FrontLoads(Time now) const {
    const auto front = m_loading.find(m_front);
    return front != m_loading.end() && now < front->second.Start + kFrontPatience;
}

bool NavigationQueue::FrontWorks(Time now) const {
    return FrontLoads(now) && now < m_loading.at(m_front).Sign + kQuiet;
}

std::size_t NavigationQueue::CountBehind(Time now) const {
    const auto counts = [&](const auto& each) {
        return each.first != m_front && now < each.second.Start + kLoadPatience;
    };
    return static_cast<std::size_t>(std::ranges::count_if(m_loading, counts));
}

bool NavigationQueue::IsBeside(std::int32_t index) const {
    return index != m_front && std::ranges::find(m_beside, index) != m_beside.end();
}

// What is seen does not wait for what else is seen: a person looks at all of it.
bool NavigationQueue::MayStartBeside(Time now) const { return CountBehind(now) < (m_tight ? 1 : m_atATime); }

bool NavigationQueue::MayStartBehind(Time now) const {
    const std::size_t loading = CountBehind(now);
    const bool front = FrontLoads(now);
    if (m_tight) return !front && loading < 1;
    // Answers that come all at once must not find the front page's in a long row.
    if (m_room > 0 && loading < (front ? kBesideFront * m_atATime : kMost)) return true;
    return !front && loading < m_atATime;
}

std::int32_t NavigationQueue::Start(std::deque<std::int32_t>::iterator place, Time now) {
    const std::int32_t index = *place;
    m_waiting.erase(place);
    m_loading[index] = {now, now};
    return index;
}

} // namespace tessa
