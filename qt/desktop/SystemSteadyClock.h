#pragma once
#include "platform/SteadyClock.h"

namespace tessa::qt {

/// The system's clock since it has started.
class SystemSteadyClock final : public SteadyClock {
public:
    [[nodiscard]] Time Now() const override {
        return std::chrono::duration_cast<Time>(std::chrono::steady_clock::now().time_since_epoch());
    }
};

} // namespace tessa::qt
