#pragma once
#include <cstdint>
#include <optional>

namespace tessa {

/// What the clock of the computer is trusted with. It may stand at its maker's date after a failure, and may jump.
/// Times are seconds since 1970.
namespace VisitClock {

inline constexpr std::int64_t kDay = 86'400;

/// The time noted of a visit: that of the clock, or of the last visit while the clock says a time before this program
/// was made.
[[nodiscard]] std::int64_t VisitTime(std::int64_t now, std::int64_t lastVisit);

/// What is noted of the clock between two looks at what is too old.
struct Noted {
    std::int64_t Seen = 0;    ///< what the clock said last; 0 for never
    std::int64_t Doubted = 0; ///< since when it has jumped; 0 for trusted
};
struct Judged {
    bool Trusted = false; ///< what is too old by this clock may go
    Noted Next;
};
/// After a jump of more than a month to either side nothing is deleted for a day: a wrong clock may be put right.
[[nodiscard]] Judged Judge(std::int64_t now, const Noted& noted);

} // namespace VisitClock

} // namespace tessa
