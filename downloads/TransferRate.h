#pragma once
#include <cstdint>
#include <deque>
#include <optional>

namespace tessa {

/// How fast bytes arrive: the average of the last few seconds, so that it neither jumps nor lags.
class TransferRate {
public:
    /// So many bytes in all had arrived at that time, in milliseconds.
    void Add(std::int64_t now, std::int64_t received);
    /// Bytes a second, as it stands at that time; nothing until that can be told. Falls to 0 when none arrive any more.
    [[nodiscard]] std::optional<std::int64_t> PerSecond(std::int64_t now) const;
    void Reset() { m_samples.clear(); }

private:
    struct Sample {
        std::int64_t time, received;
    };
    std::deque<Sample> m_samples;
};

} // namespace tessa
