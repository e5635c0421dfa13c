#pragma once
#include "common/Text.h"

#include <QIcon>

class QPalette;

/// The program's pictures: its own icon, and those of the commands, which come from the desktop's icon theme with
/// Breeze behind it.
namespace QtIcons {

/// The program's icon.
[[nodiscard]] QIcon Application();

/// Chooses the fallback theme that shows on the palette's ground. To be run again when the palette changes.
void ChooseTheme(const QPalette& palette);

/// The picture of a tool; a null icon for a tool that has none.
[[nodiscard]] QIcon ForTool(TextView name);

} // namespace QtIcons
