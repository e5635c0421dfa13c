#include "pages/TransferRate.h"

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

std::optional<std::int64_t> TransferRate::PerSecond() const {
    if (m_samples.size() < 2) return std::nullopt;
    const std::int64_t time = m_samples.back().time - m_samples.front().time;
    if (time < kShortest) return std::nullopt;
    return (m_samples.back().received - m_samples.front().received) * 1000 / time;
}
