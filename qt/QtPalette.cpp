#include "qt/QtPalette.h"

#include <QColor>
#include <cmath>

namespace {
constexpr float kLeastContrast = 0.3F; // of lightness, which goes from 0 to 1
constexpr int kHalf = 128;             // of an opacity of 255
} // namespace

bool QtPalette::IsDark(const QPalette& palette) { return palette.color(QPalette::Window).lightnessF() < 0.5F; }

QPalette QtPalette::Mended(QPalette palette) {
    const float hint = palette.color(QPalette::PlaceholderText).lightnessF();
    if (std::abs(hint - palette.color(QPalette::Base).lightnessF()) >= kLeastContrast) return palette;
    QColor mended = palette.color(QPalette::Text);
    mended.setAlpha(kHalf);
    palette.setColor(QPalette::PlaceholderText, mended);
    return palette;
}
