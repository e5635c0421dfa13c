#include "qt/base/paint/Contrast.h"

#include <QColor>
#include <algorithm>
#include <cmath>

namespace tessa::qt {

namespace {

/// A part of a colour, as much light as the screen makes of it.
double LinearPart(double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); }

} // namespace

double Contrast::LuminanceOf(const QColor& colour) {
    return 0.2126 * LinearPart(colour.redF()) + 0.7152 * LinearPart(colour.greenF()) +
           0.0722 * LinearPart(colour.blueF());
}

double Contrast::Between(const QColor& one, const QColor& other) {
    constexpr double kStrayLight = 0.05;
    const auto [least, most] = std::minmax({LuminanceOf(one), LuminanceOf(other)});
    return (most + kStrayLight) / (least + kStrayLight);
}

} // namespace tessa::qt
