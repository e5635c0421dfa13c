#pragma once
#include "base/Text.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessa {

/// An open tab, as far as reading one after the other goes.
struct TabOfRound {
    std::int32_t Index = 0; ///< of its view
    bool Counts = true;     ///< there is a page to read in it
    bool Read = false;      ///< it was in front since its page came
};

/// Reading the open tabs one after the other.
namespace ReadingRound {

/// The next tab right of the one in front that was not read, from the last on to the first; 0 for none.
[[nodiscard]] std::int32_t Next(const std::vector<TabOfRound>& tabs, std::int32_t front);
/// How many are left to read, the one in front not counted.
[[nodiscard]] std::size_t CountLeft(const std::vector<TabOfRound>& tabs, std::int32_t front);
/// What the status bar says of it.
[[nodiscard]] Text WordsFor(std::size_t left);

} // namespace ReadingRound

} // namespace tessa
