#pragma once
#include "forms/TabStrip.h"

#include <QColor>
#include <QPalette>

namespace tessa::qt {

/// What the desktop's colours mean for what the program paints itself.
namespace Palette {

/// Whether windows are dark.
[[nodiscard]] bool IsDark(const QPalette& palette);
/// A colour on the way from one to another: `share` of the way, from 0 to 1.
[[nodiscard]] QColor Mix(const QColor& from, const QColor& to, double share);
/// Gives hints in empty boxes a colour that can be read, where a desktop's dark colours have left them dark.
[[nodiscard]] QPalette Mended(QPalette palette);

/// What marks tabs that belong together; of the same strength on light and on dark.
[[nodiscard]] QColor MarkColour(TabColour colour);

} // namespace Palette

} // namespace tessa::qt
