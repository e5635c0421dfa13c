#pragma once
#include "bar/CommandBar.h"
#include "bar/ToolName.h"

#include <optional>
#include <span>
#include <vector>

namespace tessa {

/// A combination that the window answers itself, before the command bar, unless the user has chosen it for a tool.
struct WindowKey {
    KeyStroke Key;
    bool MoreMayBeHeld = false;      ///< modifiers besides
    ToolName Tool;                   ///< the command that runs, or the box
    std::optional<BandName> BoxOn{}; ///< the toolbar of a box that gets the keyboard
};

namespace WindowKeys {

[[nodiscard]] std::span<const WindowKey> All();
/// The one that answers a combination. Only the bits of `Keys` count.
[[nodiscard]] const WindowKey* Find(KeyStroke key);

} // namespace WindowKeys

/// The combinations of a tool, whoever answers them.
namespace ToolKeys {

/// Those that are not the bar's, as long as the user has not chosen them for another tool.
[[nodiscard]] std::vector<KeyStroke> Fixed(const CommandBar& bar, TextView tool);
/// The one that menus show.
[[nodiscard]] std::optional<KeyStroke> Shown(const CommandBar& bar, TextView tool);
/// The same as menus spell it; empty for none.
[[nodiscard]] Text ShownWords(const CommandBar& bar, TextView tool);

} // namespace ToolKeys

} // namespace tessa
