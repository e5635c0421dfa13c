#pragma once
#include "base/Captions.h"

namespace tessa {

namespace Favorites {

/// A title in quotes, as a message names it; a long one is cut.
[[nodiscard]] inline Text Quoted(TextView title) {
    constexpr std::size_t kLongest = 60;
    const TextView shown = FirstUnits(title, kLongest);
    return u"\"" + OneLine(shown) + (shown.size() < title.size() ? u"...\"" : u"\"");
}

} // namespace Favorites

} // namespace tessa
