#include "tabs/MemoryShortage.h"

#include "base/ResumeNext.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr std::int64_t kMegabyte = 1024 * 1024;

/// When a room is short.
struct ShortageRule {
    std::int64_t part;  ///< less than one part of so many is free
    std::int64_t least; ///< bytes of which less is short in any room
    std::int64_t most;  ///< bytes of which more is enough in any room
    double pressure;    ///< percent of time spent waiting that make a room short which is not ample
};

// In a second several pages finish loading, of 20 to 100 MB each. 512 MB is room for those between two looks; 256 MB
// for one round more. With gigabytes free no page need go, however large the machine is. Below a tenth of stalled time
// nobody notices; with four tenths, typing stutters.
constexpr ShortageRule kShort{10, 512 * kMegabyte, 4096 * kMegabyte, 10};
constexpr ShortageRule kSevere{20, 256 * kMegabyte, 2048 * kMegabyte, 40};

// So much more must be free for the level to be left, or so much less be waited. What a few sleeping pages give back
// does not end it.
constexpr double kRelief = 1.5;

// A part of a room in which the program itself hardly fits is never too much to be used.
constexpr std::int64_t kLargestPart = 4;

// Where so much more is free than what is short, waiting has other reasons: another group's limit, a slow disk.
constexpr double kAmple = 2;

const ShortageRule& RuleOf(Shortage level) {
    Must(level != Shortage::None);
    return level == Shortage::Severe ? kSevere : kShort;
}

bool IsOn(Shortage level, Shortage before, const MemoryRoom& room) {
    if (room.Total <= 0) return false;
    const double relief = before >= level ? kRelief : 1;
    const double least = static_cast<double>(MemoryShortage::Least(level, room.Total)) * relief;
    const auto free = static_cast<double>(room.Free);
    return free < least || (room.Pressure >= RuleOf(level).pressure / relief && free < least * kAmple);
}

} // namespace

std::int64_t MemoryShortage::Least(Shortage level, std::int64_t total) {
    const ShortageRule& rule = RuleOf(level);
    return std::min(std::clamp(total / rule.part, rule.least, rule.most), total / kLargestPart);
}

Shortage MemoryShortage::Judge(Shortage before, std::span<const MemoryRoom> rooms) {
    for (const Shortage level : {Shortage::Severe, Shortage::Short}) {
        if (std::ranges::any_of(rooms, [&](const MemoryRoom& room) { return IsOn(level, before, room); })) return level;
    }
    return Shortage::None;
}

} // namespace tessa
