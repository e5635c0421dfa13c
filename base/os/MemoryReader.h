#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tessa {

/// How much memory the machine may use, or a control group that the program runs in.
struct MemoryRoom {
    std::int64_t Total = 0; ///< bytes that there are, or that the group may use
    std::int64_t Free = 0;  ///< bytes of it that programs can still have without anything being swapped out
    double Pressure = 0;    ///< percent of the last ten seconds in which something waited for memory; 0 when not told

    friend bool operator==(const MemoryRoom&, const MemoryRoom&) = default;
};

/// Asks the kernel how much memory is left. Belongs to the program's entry.
class MemoryReader {
public:
    virtual ~MemoryReader() = default;
    /// The machine's room, and that of each control group around the program which has a limit. The program can use the
    /// least of them. Empty when the kernel tells nothing.
    [[nodiscard]] virtual std::vector<MemoryRoom> Read() = 0;
};

/// What reads the memory of this machine. Unless `root` is empty, the texts of Linux below that folder are read in
/// place of the system's.
[[nodiscard]] std::unique_ptr<MemoryReader> SystemMemory(const std::string& root);

} // namespace tessa
