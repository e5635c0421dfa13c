#pragma once
#include <QPalette>

/// What the desktop's colours mean for what the program paints itself.
namespace QtPalette {

/// Whether windows are dark.
[[nodiscard]] bool IsDark(const QPalette& palette);
/// Gives hints in empty boxes a colour that can be read, where a desktop's dark colours have left them dark.
[[nodiscard]] QPalette Mended(QPalette palette);

} // namespace QtPalette
