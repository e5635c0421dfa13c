#pragma once
#include <QString>

/// What the desktop says about its programs.
namespace QtDesktopPrograms {

/// The command line that starts the program which the desktop has for addresses of that scheme, without any address;
/// empty when there is none that has a window, or when it is this program.
[[nodiscard]] QString CommandFor(const QString& scheme);

/// Whether the desktop opens addresses of that scheme with another program than this one. Where it has none it would
/// give them back to the browser.
[[nodiscard]] bool OpensElsewhere(const QString& scheme);

} // namespace QtDesktopPrograms
