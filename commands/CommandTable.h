#pragma once
#include "commands/Command.h"

#include <span>

namespace tessa {

/// The rows in the order of the master list.
[[nodiscard]] std::span<const Command> CommandTable();
/// The Shop and the Find links among them.
[[nodiscard]] std::span<const Command> ShopLinks();
[[nodiscard]] std::span<const Command> FindLinks();
/// The combinations of keys that the bar answers, and those that it does not.
[[nodiscard]] std::span<const Shortcut> DesignedShortcuts();
[[nodiscard]] std::span<const Shortcut> ShortcutsOfOthers();

} // namespace tessa
