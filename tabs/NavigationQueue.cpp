#include "tabs/NavigationQueue.h"

#include <algorithm>

void NavigationQueue::Add(std::int32_t index) {
    if (std::ranges::find(m_waiting, index) == m_waiting.end()) m_waiting.push_back(index);
}

void NavigationQueue::Remove(std::int32_t index) {
    std::erase(m_waiting, index);
    m_loading.erase(index);
}

std::optional<std::int32_t> NavigationQueue::Next(Time now) {
    const auto front = std::ranges::find(m_waiting, m_front);
    if (front != m_waiting.end()) return Start(front, now);
    if (m_waiting.empty() || !MayStartBehind(now)) return std::nullopt;
    return Start(m_waiting.begin(), now);
}

std::optional<NavigationQueue::Time> NavigationQueue::Deadline() const {
    if (m_waiting.empty() || m_loading.empty()) return std::nullopt;
    Time soonest = Time::max();
    for (const auto& [index, start] : m_loading) {
        soonest = std::min(soonest, start + (index == m_front ? kFrontPatience : kLoadPatience));
    }
    return soonest;
}

bool NavigationQueue::MayStartBehind(Time now) const {
    const auto front = m_loading.find(m_front);
    if (front != m_loading.end() && now < front->second + kFrontPatience) return false;
    const auto counts = [&](const auto& each) { return each.first != m_front && now < each.second + kLoadPatience; };
    return static_cast<std::size_t>(std::ranges::count_if(m_loading, counts)) < kAtATime;
}

std::int32_t NavigationQueue::Start(std::deque<std::int32_t>::iterator place, Time now) {
    const std::int32_t index = *place;
    m_waiting.erase(place);
    m_loading[index] = now;
    return index;
}
