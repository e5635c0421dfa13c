#pragma once
#include "platform/WallClock.h"

namespace tessa::qt {

/// The computer's clock, in the user's time zone and the way that the user writes dates.
class DesktopClock final : public WallClock {
public:
    [[nodiscard]] std::int64_t Now() const override;
    [[nodiscard]] Text Words(std::int64_t seconds) const override;
    [[nodiscard]] std::int64_t DayBegin(std::int64_t seconds) const override;
};

} // namespace tessa::qt
