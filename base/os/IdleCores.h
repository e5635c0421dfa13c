#pragma once
#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tessa {

/// How many of the machine's cores have had nothing to do for a while, or only what gives way. The system counts that.
class IdleCores {
public:
    using Time = std::chrono::milliseconds; ///< on any steady clock

    /// Of this machine.
    IdleCores();
    /// By a text of Linux. `ticksPerSecond` is how it counts, of each core.
    IdleCores(std::int64_t ticksPerSecond, const std::string& file);

    /// On the average since this was last asked. Nothing the first time, when no time has gone by, and when the system
    /// does not tell.
    [[nodiscard]] std::optional<double> SinceLast(Time now);
    /// The ticks in which cores were idle, waited for a disk alone or did work of low priority. Read from the text of
    /// "stat"; nothing when it says something else.
    [[nodiscard]] static std::optional<std::int64_t> Ticks(std::string_view stat);

private:
    struct Count {
        Time When;
        std::int64_t Ticks;
    };
    std::int64_t m_ticksPerSecond;
    std::function<std::optional<std::int64_t>()> m_count; ///< the idle ticks of all cores, ever
    std::optional<Count> m_last;
};

} // namespace tessa
