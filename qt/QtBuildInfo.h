#pragma once
#include <QString>

/// What a person who reports a fault is asked for: versions of the program, the engine, Qt, the compiler and the
/// system. Reads what is linked in; starts neither the engine nor a window.
namespace QtBuildInfo {

/// "Qt WebEngine 6.4.2, based on Chromium ..."
[[nodiscard]] QString Engine();
/// The version of Qt that runs.
[[nodiscard]] QString Qt();
/// All of it, a line each, without personal data.
[[nodiscard]] QString Text();

} // namespace QtBuildInfo
