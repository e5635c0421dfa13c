#include "base/os/MemoryFiles.h"

#include "base/os/ProcText.h"

#include <algorithm>
#include <limits>
#include <span>

namespace tessa {

namespace {

// Where distributions mount the hierarchies. Version 2 has the place to itself, or stands beside those of version 1.
constexpr const char* kPlacesOfOne[] = {"/sys/fs/cgroup/memory"};
constexpr const char* kPlacesOfTwo[] = {"/sys/fs/cgroup", "/sys/fs/cgroup/unified"};

std::span<const char* const> PlacesOf(ControlGroup::Version version) {
    if (version == ControlGroup::Version::One) return kPlacesOfOne;
    return kPlacesOfTwo;
}

} // namespace

std::string MemoryFiles::ReadText(const std::string& path) const { return ProcText::ReadFile(m_root + path); }

std::optional<MemoryRoom> MemoryFiles::RoomOf(ControlGroup::Version version, const std::string& folder) const {
    const auto number = [&](const char* name) {
        const std::string text = ReadText(folder + name);
        const auto fields = ProcText::Fields(text);
        return fields.size() == 1 ? ProcText::Number(fields[0]) : std::nullopt;
    };
    const bool one = version == ControlGroup::Version::One;
    constexpr std::int64_t kNone = std::numeric_limits<std::int64_t>::max();
    // Beyond "high" the kernel does not end the program, but makes it wait for every page.
    const std::int64_t limit =
        one ? number("/memory.limit_in_bytes").value_or(kNone)
            : std::min(number("/memory.max").value_or(kNone), number("/memory.high").value_or(kNone));
    const auto use = number(one ? "/memory.usage_in_bytes" : "/memory.current");
    if (limit == kNone || !use) return std::nullopt;
    const std::int64_t idle = std::min(MemoryTexts::IdleFiles(ReadText(folder + "/memory.stat")), *use);
    return MemoryRoom{.Total = limit,
                      .Free = std::clamp<std::int64_t>(limit - (*use - idle), 0, limit),
                      .Pressure = MemoryTexts::Pressure(ReadText(folder + "/memory.pressure"))};
}

std::vector<MemoryRoom> MemoryFiles::Read() {
    std::vector<MemoryRoom> rooms;
    std::int64_t most = std::numeric_limits<std::int64_t>::max();
    if (auto machine = MemoryTexts::Machine(ReadText("/proc/meminfo"))) {
        machine->Pressure = MemoryTexts::Pressure(ReadText("/proc/pressure/memory"));
        most = machine->Total;
        rooms.push_back(*machine);
    }
    for (const ControlGroup& group : MemoryTexts::Groups(ReadText("/proc/self/cgroup"))) {
        for (const std::string& path : MemoryTexts::Upward(group.path)) {
            for (const char* place : PlacesOf(group.version)) {
                const auto room = RoomOf(group.version, place + path);
                // Version 1 writes a number of 19 digits where there is no limit.
                if (room && room->Total < most) rooms.push_back(*room);
            }
        }
    }
    return rooms;
}

} // namespace tessa
