#pragma once
#include "base/Text.h"

#include <cstdint>

namespace tessa {

/// The time of day, which the user may set. Owned by the program's entry.
class WallClock {
public:
    virtual ~WallClock() = default;

    /// The present time in seconds since 1970.
    [[nodiscard]] virtual std::int64_t Now() const = 0;
    /// A time in seconds since 1970 as the user reads it, in the user's time zone: "Today, 14:30".
    [[nodiscard]] virtual Text Words(std::int64_t seconds) const = 0;
    /// When the day of that time began, in the user's time zone.
    [[nodiscard]] virtual std::int64_t DayBegin(std::int64_t seconds) const = 0;
};

} // namespace tessa
