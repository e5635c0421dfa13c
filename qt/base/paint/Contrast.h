#pragma once

class QColor;

namespace tessa::qt {

/// How well colours are told from each other. Opacity is left out. Source of the figures: W3C, Web Content
/// Accessibility Guidelines 2.2, "relative luminance" and "contrast ratio".
struct Contrast {
    Contrast() = delete;

    /// How bright a colour looks, from 0 (black) to 1 (white).
    [[nodiscard]] static double LuminanceOf(const QColor& colour);
    /// From 1, where two are alike, to 21, black and white. Texts need 4.5, large texts and pictures 3.
    [[nodiscard]] static double Between(const QColor& one, const QColor& other);
};

} // namespace tessa::qt
