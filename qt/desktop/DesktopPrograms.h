#pragma once
#include <QString>

namespace tessa::qt {

/// What the desktop says about its programs.
namespace DesktopPrograms {

/// The command line, without any address, of the desktop's program for addresses of that scheme. Empty when that has no
/// window, is missing, or is this program.
[[nodiscard]] QString CommandFor(const QString& scheme);

/// Whether the desktop opens addresses of that scheme with another program than this one. Where it has none it would
/// give them back to the browser.
[[nodiscard]] bool OpensElsewhere(const QString& scheme);

} // namespace DesktopPrograms

} // namespace tessa::qt
