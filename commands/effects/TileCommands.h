#pragma once
#include "commands/effects/CommandContext.h"

/// Commands that show tabs side by side.
namespace tessa::TileCommands {

/// Asks before many pages are shown at once.
[[nodiscard]] bool MayShow(MessageBoxes& messages, std::size_t count);

// The chosen tabs, and the selected one among them or not. Many are shown after a question.
void Columns(CommandContext& context);
void Rows(CommandContext& context);
void Grid(CommandContext& context);
/// The selected tab is the large one.
void Main(CommandContext& context);
/// Shows the selected tab alone again.
void None(CommandContext& context);
/// What is done in one pane is done in all, or no longer.
void Link(CommandContext& context);
void ToggleHeaders(CommandContext& context);
/// Shows the tab that the pop-up was opened on beside the selected one, or no longer.
void TabBeside(CommandContext& context);

/// Enables and marks the tools of the menu.
void ShowState(CommandContext& context);
/// Those of the tab's pop-up.
void ShowTabState(CommandContext& context);

} // namespace tessa::TileCommands
