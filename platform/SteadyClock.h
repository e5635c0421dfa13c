#pragma once
#include <chrono>

namespace tessa {

/// A clock that nobody sets, by which waiting is measured. It begins anywhere. Owned by the program's entry.
class SteadyClock {
public:
    using Time = std::chrono::milliseconds;
    virtual ~SteadyClock() = default;

    /// The present time; never earlier than what it said before.
    [[nodiscard]] virtual Time Now() const = 0;
};

} // namespace tessa
