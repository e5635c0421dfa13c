#pragma once
#include "base/Text.h"

#include <QString>

namespace tessa::qt {

/// What to say in a report: versions of the program, the engine, Qt, the compiler and the system. Reads what is linked
/// in; starts neither the engine nor a window.
namespace BuildInfo {

/// "Qt WebEngine 6.4.2, based on Chromium ..., with security fixes of ..."
[[nodiscard]] QString Engine();
/// What to tell the user today of an engine whose security fixes are old; empty for nothing.
[[nodiscard]] tessa::Text EngineNotice();
/// The version of Qt that runs.
[[nodiscard]] QString Qt();
/// All of it, a line each, without personal data.
[[nodiscard]] QString Text();

/// What draws windows and pages, as a line: the windowing system, and the graphics processor or the software instead.
/// Needs the application.
[[nodiscard]] QString Drawing();

} // namespace BuildInfo

} // namespace tessa::qt
