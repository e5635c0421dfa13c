#include "base/os/MemoryTexts.h"

#include "base/os/ProcText.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace tessa {

namespace {

constexpr std::int64_t kKilobyte = 1024;

std::optional<std::int64_t> Kilobytes(std::string_view meminfo, std::string_view name) {
    const auto number = ProcText::NumberAt(meminfo, name);
    if (!number || *number > std::numeric_limits<std::int64_t>::max() / kKilobyte) return std::nullopt;
    return *number * kKilobyte;
}

// Of older kernels. Half of the cache is in use, as a rule.
std::int64_t EstimatedFree(std::string_view meminfo) {
    return Kilobytes(meminfo, "MemFree:").value_or(0) + Kilobytes(meminfo, "Cached:").value_or(0) / 2;
}

double Percent(std::string_view text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    // No comparison holds for what is no number.
    return whole && number >= 0 && number <= 100 ? number : 0;
}

bool NamesMemory(std::string_view controllers) {
    while (true) {
        const std::size_t end = std::min(controllers.find(','), controllers.size());
        if (controllers.substr(0, end) == "memory") return true;
        if (end == controllers.size()) return false;
        controllers.remove_prefix(end + 1);
    }
}

// The program may see less of the hierarchy than its path tells of. What it sees then begins at the root.
std::string VisiblePath(std::string_view path) {
    const std::string whole = std::string(path) + "/";
    return path.starts_with('/') && whole.find("/../") == std::string::npos ? std::string(path) : "/";
}

} // namespace

namespace MemoryTexts {

std::optional<MemoryRoom> Machine(std::string_view meminfo) {
    const auto total = Kilobytes(meminfo, "MemTotal:");
    if (!total || *total == 0) return std::nullopt;
    const std::int64_t free = Kilobytes(meminfo, "MemAvailable:").value_or(EstimatedFree(meminfo));
    return MemoryRoom{.Total = *total, .Free = std::min(free, *total)};
}

double Pressure(std::string_view pressure) {
    constexpr std::string_view kName = "avg10=";
    for (const std::string_view line : ProcText::Lines(pressure)) {
        const auto fields = ProcText::Fields(line);
        if (fields.size() >= 2 && fields[0] == "some" && fields[1].starts_with(kName))
            return Percent(fields[1].substr(kName.size()));
    }
    return 0;
}

std::vector<ControlGroup> Groups(std::string_view cgroup) {
    std::vector<ControlGroup> groups;
    for (const std::string_view line : ProcText::Lines(cgroup)) {
        const std::size_t first = line.find(':');
        const std::size_t second = first == std::string_view::npos ? first : line.find(':', first + 1);
        if (second == std::string_view::npos) continue;
        const std::string_view controllers = line.substr(first + 1, second - first - 1);
        const bool two = controllers.empty() && line.substr(0, first) == "0";
        if (!two && !NamesMemory(controllers)) continue;
        using Version = ControlGroup::Version;
        groups.push_back({two ? Version::Two : Version::One, VisiblePath(line.substr(second + 1))});
    }
    return groups;
}

std::vector<std::string> Upward(std::string_view path) {
    std::vector<std::string> all;
    while (!path.empty()) {
        if (path.back() != '/') all.emplace_back(path);
        path = path.substr(0, path.rfind('/') == std::string_view::npos ? 0 : path.rfind('/'));
    }
    all.emplace_back("/");
    return all;
}

std::int64_t IdleFiles(std::string_view stat) {
    // Version 1 counts the groups inside under this name alone.
    const auto total = ProcText::NumberAt(stat, "total_inactive_file");
    return total ? *total : ProcText::NumberAt(stat, "inactive_file").value_or(0);
}

} // namespace MemoryTexts

} // namespace tessa
