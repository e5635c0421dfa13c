#pragma once
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// How many of the machine's cores have had nothing to do for a while, or nothing that would not give way, from what
/// the system counts of them all.
class IdleCores {
public:
    using Time = std::chrono::milliseconds; ///< on any steady clock

    /// `ticksPerSecond` is how the system counts, of each core.
    explicit IdleCores(std::int64_t ticksPerSecond = 100, std::string file = "/proc/stat")
        : m_ticksPerSecond(ticksPerSecond), m_file(std::move(file)) {}

    /// On the average since this was last asked; nothing the first time, when no time has gone by, and when the system
    /// does not tell.
    [[nodiscard]] std::optional<double> SinceLast(Time now);
    /// The ticks in which cores were idle, waited for a disk alone or did what has a low priority, by the text of
    /// "stat"; nothing when it says something else.
    [[nodiscard]] static std::optional<std::int64_t> Ticks(std::string_view stat);

private:
    struct Count {
        Time When;
        std::int64_t Ticks;
    };
    std::int64_t m_ticksPerSecond;
    std::string m_file;
    std::optional<Count> m_last;
};
