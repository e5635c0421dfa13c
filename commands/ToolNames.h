#pragma once
#include "bar/CommandBar.h"
#include "bar/ToolName.h"

#include <span>

/// A tool as it is laid out by design. Ids are given in the order of the table, from 1.
struct ToolRow {
    ToolName name; ///< the word of the command vocabulary
    TextView caption;
    TextView category;
    TextView description;
    TextView icon;    ///< a name of the icon theme; empty for none
    TextView subBand; ///< empty for none
};

/// The tools of the master list.
[[nodiscard]] std::span<const ToolRow> DesignedTools();
/// The Shop and Find links, whose description is the keyword of the link.
[[nodiscard]] std::span<const ToolRow> ShopLinks();
[[nodiscard]] std::span<const ToolRow> FindLinks();
/// Commands of our own beside the product's, which its bands never list. Their names begin with "xtr".
[[nodiscard]] std::span<const ToolRow> OwnTools();
/// The combinations of keys beside those that the main window handles itself.
[[nodiscard]] std::span<const Shortcut> DesignedShortcuts();
/// Combinations that the window, or whatever has the keyboard, answers without the bar; menus name them all the same.
[[nodiscard]] std::span<const Shortcut> ShortcutsOfOthers();
