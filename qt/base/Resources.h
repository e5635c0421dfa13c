#pragma once
#include <QString>

namespace tessa::qt {

/// What the program carries with it: icons, scripts for pages, pages of its own.
namespace Resources {

/// Makes the resources of this library reachable under ":/". Cheap when called again.
void Load();
/// A text file among them, empty when there is none of that name: "load-switches.js".
[[nodiscard]] QString ReadText(const QString& name);

} // namespace Resources

} // namespace tessa::qt
