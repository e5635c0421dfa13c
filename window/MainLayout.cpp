#include "window/MainLayout.h"

#include <algorithm>
#include <cstdlib>

namespace tessa {

namespace MainLayout {

Rect TabStripPlace(const Inputs& inputs) {
    const std::int32_t free = inputs.innerHeight.value - inputs.statusHeight.value;
    return {{0}, {0}, inputs.innerWidth, {std::max(free, 0)}};
}

Rect ViewPlace(const Inputs& inputs) {
    // Deliberate: the absolute value, not a clamp, so that a window lower than its bars still gives a height.
    const std::int32_t row = inputs.tabRowHeight.value;
    const Pixels height{std::abs(inputs.innerHeight.value - inputs.statusHeight.value - row)};
    const Pixels top{inputs.placement == TabPlacement::Top ? row : 0};
    return {{0}, top, inputs.innerWidth, height};
}

} // namespace MainLayout

} // namespace tessa
