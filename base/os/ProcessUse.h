#pragma once
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessa {

/// What a process uses of the machine.
struct ProcessUse {
    std::int64_t Memory = 0;                ///< bytes in memory that are not shared with files or other programs
    std::chrono::milliseconds Processor{0}; ///< time of all processors together, since the process began

    friend bool operator==(const ProcessUse&, const ProcessUse&) = default;
};

/// What the system says of a process; nothing when there is no such process, or it does not tell.
[[nodiscard]] std::optional<ProcessUse> SystemProcessUse(std::int64_t process);
/// The number of the process that asks.
[[nodiscard]] std::int64_t ThisProcess();

/// Reads what processes use from the folder in which Linux tells it.
class ProcessReader {
public:
    /// How the system counts.
    struct Units {
        std::int64_t PageBytes = 4096;
        std::int64_t TicksPerSecond = 100;
    };
    explicit ProcessReader(Units units, std::string folder = "/proc") : m_units(units), m_folder(std::move(folder)) {}

    /// Nothing when there is no such process, or the system does not tell.
    [[nodiscard]] std::optional<ProcessUse> Read(std::int64_t process) const;

    /// The memory in pages, by the text of "statm"; nothing when it says something else.
    [[nodiscard]] static std::optional<std::int64_t> OwnPages(std::string_view statm);
    /// The time of user and system in ticks, by the text of "stat". Nothing when it says something else, as of an ended
    /// process that is not cleared away yet.
    [[nodiscard]] static std::optional<std::int64_t> Ticks(std::string_view stat);

private:
    Units m_units;
    std::string m_folder;
};

} // namespace tessa
