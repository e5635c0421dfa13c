#pragma once
#include "tabs/frmTaskView.h"

#include <map>

namespace tessa {

/// Processes that are made up.
class FakeProcesses final : public ProcessMeter {
public:
    [[nodiscard]] std::optional<ProcessUse> Read(std::int64_t process) const override {
        ++reads;
        const auto found = processes.find(process);
        return found == processes.end() ? std::nullopt : std::optional(found->second);
    }
    [[nodiscard]] std::chrono::milliseconds Now() const override { return now; }

    std::map<std::int64_t, ProcessUse> processes;
    std::chrono::milliseconds now{50'000};
    mutable int reads = 0;
};

} // namespace tessa
