#pragma once
#include "base/os/MemoryReader.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

// What the kernel's texts say of memory. Of a text that says something else, nothing or zero.

/// A control group that the program runs in: "/" or "/a/b", below where its hierarchy is mounted.
struct ControlGroup {
    enum class Version { One, Two };
    Version version = Version::Two;
    std::string path;
    friend bool operator==(const ControlGroup&, const ControlGroup&) = default;
};

namespace MemoryTexts {

/// Total and free memory of the machine, by "/proc/meminfo". What an old kernel does not say of the memory that it can
/// take back is estimated.
[[nodiscard]] std::optional<MemoryRoom> Machine(std::string_view meminfo);
/// Percent of the last ten seconds in which something waited for memory. Read from "memory" of "/proc/pressure", or
/// from "memory.pressure" of a group.
[[nodiscard]] double Pressure(std::string_view pressure);
/// The groups with a say in memory, by "/proc/self/cgroup". Where both versions are mounted, both.
[[nodiscard]] std::vector<ControlGroup> Groups(std::string_view cgroup);
/// The group and all that it stands in, from the inside out; the last is "/".
[[nodiscard]] std::vector<std::string> Upward(std::string_view path);
/// How many bytes of a group's use are of files that nothing uses now, by its "memory.stat".
[[nodiscard]] std::int64_t IdleFiles(std::string_view stat);

} // namespace MemoryTexts

} // namespace tessa
