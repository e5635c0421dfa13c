#pragma once
#include "bar/Tool.h"

#include <QIcon>

class QPalette;

namespace tessa::qt {

/// The program's pictures: its own icon, and the commands' icons from the desktop's icon theme, with Breeze behind it.
namespace Icons {

/// A picture of the program's own by its resource name. A null icon for an unknown name.
[[nodiscard]] QIcon Own(const QString& name);

/// The program's icon.
[[nodiscard]] QIcon Application();

/// Chooses the fallback theme that shows on the palette's ground. To be run again when the palette changes.
void ChooseTheme(const QPalette& palette);

/// A picture in the theme chosen last; a null icon for none, or for one that no theme has.
[[nodiscard]] QIcon Of(const Picture& picture);

/// The same, with an empty picture for a missing one, so that texts in a column begin at one line.
[[nodiscard]] QIcon OfOrBlank(const Picture& picture);

/// The picture with a number in its corner; unchanged for 0. More than 99 are "99+".
[[nodiscard]] QIcon WithBadge(const QIcon& icon, std::size_t number);

} // namespace Icons

} // namespace tessa::qt
