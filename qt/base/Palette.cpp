#include "qt/base/Palette.h"

#include <QColor>
#include <cmath>

namespace tessa::qt {

namespace {
constexpr float kLeastContrast = 0.3F; // of lightness, which goes from 0 to 1
constexpr int kHalf = 128;             // of an opacity of 255
} // namespace

bool Palette::IsDark(const QPalette& palette) { return palette.color(QPalette::Window).lightnessF() < 0.5F; }

QColor Palette::Mix(const QColor& from, const QColor& to, double share) {
    const auto part = [share](float a, float b) { return static_cast<float>(a + (b - a) * share); };
    return QColor::fromRgbF(part(from.redF(), to.redF()), part(from.greenF(), to.greenF()),
                            part(from.blueF(), to.blueF()));
}

QPalette Palette::Mended(QPalette palette) {
    const float hint = palette.color(QPalette::PlaceholderText).lightnessF();
    if (std::abs(hint - palette.color(QPalette::Base).lightnessF()) >= kLeastContrast) return palette;
    QColor mended = palette.color(QPalette::Text);
    mended.setAlpha(kHalf);
    palette.setColor(QPalette::PlaceholderText, mended);
    return palette;
}

QColor Palette::MarkColour(TabColour colour) {
    switch (colour) {
    case TabColour::Red:
        return {224, 58, 58};
    case TabColour::Orange:
        return {232, 128, 20};
    case TabColour::Yellow:
        return {214, 176, 16};
    case TabColour::Green:
        return {52, 160, 76};
    case TabColour::Blue:
        return {56, 122, 232};
    case TabColour::Purple:
        return {150, 84, 214};
    case TabColour::Grey:
        return {134, 138, 144};
    case TabColour::None:
        break;
    }
    return {};
}

} // namespace tessa::qt
