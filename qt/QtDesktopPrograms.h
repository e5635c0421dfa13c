#pragma once
#include <QString>

/// What the desktop says about its programs.
namespace QtDesktopPrograms {

/// The command line that starts the program which the desktop has for addresses of that scheme, without any address;
/// empty when there is none that has a window.
[[nodiscard]] QString CommandFor(const QString& scheme);

} // namespace QtDesktopPrograms
