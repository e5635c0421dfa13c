#include "tabs/IdleCores.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <utility>

namespace {

constexpr std::string_view kAllCores = "cpu ";
// Of user, nice, system, idle, waiting for a disk. What runs at a low priority gives way.
constexpr std::array kCounts{false, true, false, true, true};

} // namespace

std::optional<std::int64_t> IdleCores::Ticks(std::string_view stat) {
    if (!stat.starts_with(kAllCores)) return std::nullopt;
    const char* at = stat.data() + kAllCores.size();
    const char* end = stat.data() + std::min(stat.find('\n'), stat.size());
    std::int64_t idle = 0;
    for (const bool counts : kCounts) {
        while (at != end && *at == ' ') ++at;
        std::int64_t ticks = 0;
        const auto [next, error] = std::from_chars(at, end, ticks);
        if (error != std::errc() || ticks < 0) return std::nullopt;
        at = next;
        if (counts) idle += ticks;
    }
    return idle;
}

std::optional<double> IdleCores::SinceLast(Time now) {
    std::ifstream file(m_file);
    std::string line;
    const auto ticks = std::getline(file, line) ? Ticks(line) : std::nullopt;
    if (!ticks) return std::nullopt;
    const auto last = std::exchange(m_last, Count{now, *ticks});
    if (!last || now <= last->When || *ticks < last->Ticks) return std::nullopt;
    const std::chrono::duration<double> passed = now - last->When;
    return static_cast<double>(*ticks - last->Ticks) / static_cast<double>(m_ticksPerSecond) / passed.count();
}
