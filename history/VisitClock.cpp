#include "history/VisitClock.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr std::int64_t kProgramMade = 1'767'225'600; // the beginning of 2026
constexpr std::int64_t kJump = 31 * VisitClock::kDay;

bool IsJump(std::int64_t from, std::int64_t to) { return to > from + kJump || to < from - VisitClock::kDay; }

} // namespace

namespace VisitClock {

std::int64_t VisitTime(std::int64_t now, std::int64_t lastVisit) {
    return now < kProgramMade ? std::max(lastVisit, now) : now;
}

Judged Judge(std::int64_t now, const Noted& noted) {
    if (now < kProgramMade) return {false, noted};
    if (noted.Seen == 0) return {true, {now, 0}};
    if (IsJump(noted.Seen, now)) return {false, {now, now}};
    const bool doubted = noted.Doubted != 0 && now < noted.Doubted + kDay;
    return {!doubted, {now, doubted ? noted.Doubted : 0}};
}

} // namespace VisitClock

} // namespace tessa
