#pragma once
// Lengths on the screen. Twips and logical pixels are distinct types, so that no number is taken for the other.

#include <algorithm>
#include <compare>
#include <cstdint>

namespace tessa {

/// 1440 twips are an inch; 15 of them are a logical pixel.
struct Twips {
    std::int32_t value = 0;
    auto operator<=>(const Twips&) const = default;
};

/// Logical pixels, the scale unit inside the main window.
struct Pixels {
    std::int32_t value = 0;
    auto operator<=>(const Pixels&) const = default;
};

inline constexpr std::int32_t kTwipsPerPixel = 15;

[[nodiscard]] constexpr Pixels ToPixels(Twips twips) { return {twips.value / kTwipsPerPixel}; }

/// Saturates at the ends of the 32-bit range.
[[nodiscard]] constexpr Twips ToTwips(Pixels pixels) {
    return {static_cast<std::int32_t>(
        std::clamp<std::int64_t>(std::int64_t{pixels.value} * kTwipsPerPixel, INT32_MIN, INT32_MAX))};
}

/// Window placement is kept in 16 bits; what lies beyond saturates, so that a very wide window comes back wide.
[[nodiscard]] constexpr Twips Saturated16(Twips twips) {
    return {std::clamp<std::int32_t>(twips.value, INT16_MIN, INT16_MAX)};
}

/// A rectangle in logical pixels, relative to the window's inner area.
struct Rect {
    Pixels left, top, width, height;
    bool operator==(const Rect&) const = default;
};

} // namespace tessa
