#include "base/os/IdleCores.h"
#include "base/os/MemoryFiles.h"
#include "base/os/ProcessUse.h"
#include "base/os/windows/Handle.h"

#include <algorithm>
#include <psapi.h>

namespace tessa {

namespace {

/// The system counts in these.
constexpr std::int64_t kTicksPerSecond = 10'000'000;

std::int64_t TicksOf(const FILETIME& time) {
    return static_cast<std::int64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

std::optional<std::int64_t> IdleTicks() {
    FILETIME idle{}, kernel{}, user{};
    if (!::GetSystemTimes(&idle, &kernel, &user)) return std::nullopt;
    return TicksOf(idle);
}

class MemoryStatus final : public MemoryReader {
public:
    [[nodiscard]] std::vector<MemoryRoom> Read() override {
        MEMORYSTATUSEX status{};
        status.dwLength = sizeof status;
        if (!::GlobalMemoryStatusEx(&status)) return {};
        return {{.Total = static_cast<std::int64_t>(status.ullTotalPhys),
                 .Free = static_cast<std::int64_t>(status.ullAvailPhys)}};
    }
};

} // namespace

std::optional<ProcessUse> SystemProcessUse(std::int64_t process) {
    if (process <= 0) return std::nullopt;
    const Handle opened(
        ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_VM_READ, FALSE, static_cast<DWORD>(process)));
    DWORD ended = 0;
    if (!opened.Open() || !::GetExitCodeProcess(opened.Get(), &ended) || ended != STILL_ACTIVE) return std::nullopt;
    PROCESS_MEMORY_COUNTERS_EX memory{};
    FILETIME began{}, end{}, kernel{}, user{};
    auto* counters = reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory);
    if (!::GetProcessMemoryInfo(opened.Get(), counters, sizeof memory)) return std::nullopt;
    if (!::GetProcessTimes(opened.Get(), &began, &end, &kernel, &user)) return std::nullopt;
    const std::int64_t ticks = TicksOf(kernel) + TicksOf(user);
    // Both say the same where both are told; Wine tells the second alone.
    const auto own = std::max(memory.PrivateUsage, memory.PagefileUsage);
    return ProcessUse{static_cast<std::int64_t>(own), std::chrono::milliseconds(ticks / (kTicksPerSecond / 1000))};
}

std::int64_t ThisProcess() { return ::GetCurrentProcessId(); }

IdleCores::IdleCores() : m_ticksPerSecond(kTicksPerSecond), m_count(IdleTicks) {}

std::unique_ptr<MemoryReader> SystemMemory(const std::string& root) {
    if (root.empty()) return std::make_unique<MemoryStatus>();
    return std::make_unique<MemoryFiles>(root);
}

} // namespace tessa
