#include "base/os/IdleCores.h"

#include "base/os/ProcText.h"

#include <array>
#include <utility>

namespace tessa {

namespace {

constexpr std::string_view kAllCores = "cpu";
// Of user, nice, system, idle, waiting for a disk. What runs at a low priority gives way.
constexpr std::array kCounts{false, true, false, true, true};

} // namespace

IdleCores::IdleCores(std::int64_t ticksPerSecond, const std::string& file)
    : m_ticksPerSecond(ticksPerSecond), m_count([file] { return Ticks(ProcText::ReadFile(file)); }) {}

std::optional<std::int64_t> IdleCores::Ticks(std::string_view stat) {
    const auto fields = ProcText::Fields(stat.substr(0, stat.find('\n')));
    if (fields.size() <= kCounts.size() || fields[0] != kAllCores) return std::nullopt;
    std::int64_t idle = 0;
    for (std::size_t i = 0; i < kCounts.size(); ++i) {
        const auto ticks = ProcText::Number(fields[i + 1]);
        if (!ticks) return std::nullopt;
        if (kCounts[i]) idle += *ticks;
    }
    return idle;
}

std::optional<double> IdleCores::SinceLast(Time now) {
    const auto ticks = m_count();
    if (!ticks) return std::nullopt;
    const auto last = std::exchange(m_last, Count{now, *ticks});
    if (!last || now <= last->When || *ticks < last->Ticks) return std::nullopt;
    const std::chrono::duration<double> passed = now - last->When;
    return static_cast<double>(*ticks - last->Ticks) / static_cast<double>(m_ticksPerSecond) / passed.count();
}

} // namespace tessa
