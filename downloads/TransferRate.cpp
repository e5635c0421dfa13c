#include "downloads/TransferRate.h"

#include <algorithm>

namespace tessa {

namespace {
constexpr std::int64_t kWindow = 5000;
constexpr std::int64_t kShortest = 300;
} // namespace

void TransferRate::Add(std::int64_t now, std::int64_t received) {
    // Less than before means that it began anew.
    if (!m_samples.empty() && received < m_samples.back().received) Reset();
    m_samples.push_back({now, received});
    while (m_samples.size() > 2 && now - m_samples[1].time >= kWindow) m_samples.pop_front();
}

std::optional<std::int64_t> TransferRate::PerSecond(std::int64_t now) const {
    if (m_samples.empty()) return std::nullopt;
    // What had arrived when the window began is what was last told before it.
    auto from = m_samples.begin();
    for (auto each = from; each != m_samples.end() && now - each->time >= kWindow; ++each) from = each;
    const std::int64_t time = std::min(now - from->time, kWindow), bytes = m_samples.back().received - from->received;
    if (time < (bytes > 0 ? kShortest : kWindow)) return std::nullopt;
    return bytes * 1000 / time;
}

} // namespace tessa
