#pragma once
#include "base/Text.h"

#include <functional>

namespace tessa {

/// The engine's profiles. Each instance that runs at the same time has one, so that two never write to one. They last:
/// an instance has the lowest that is free when it starts, which is its predecessor's.
namespace InstanceProfiles {

/// What became of the wish to have a profile for oneself.
enum class Claim {
    Held,
    TakenByAnother, ///< another instance has it
    Impossible      ///< it has no folder and can have none
};

/// Nobody has more windows of the program.
inline constexpr int kMost = 100;

/// The number of the first profile that `claim` holds, from 1 on. 0 when one is impossible or all are taken.
[[nodiscard]] int Lowest(const std::function<Claim(int number)>& claim);

/// What a profile's name ends in: nothing for the first, else "-2" and so on.
[[nodiscard]] Text Suffix(int number);

/// What a window says of its profile; all empty for the first, which is what everybody expects.
struct Words {
    Text Sign;   ///< stands in the window for good
    Text Tip;    ///< what the sign means
    Text Notice; ///< said once
};
/// 0 for a profile in memory, which is to be none.
[[nodiscard]] Words WordsFor(int number);

} // namespace InstanceProfiles

} // namespace tessa
