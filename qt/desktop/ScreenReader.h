#pragma once

namespace tessa::qt {

/// Whoever has the screen read aloud.
namespace ScreenReader {

/// Whether the desktop says that one is there. Asks it for a moment at most.
[[nodiscard]] bool IsOn();

/// Has the engine tell screen readers what pages say, when one is there. Before the engine makes its first page; for a
/// screen reader that comes later, the program has to be started again.
void Prepare();

} // namespace ScreenReader

} // namespace tessa::qt
