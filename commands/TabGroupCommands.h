#pragma once
#include "commands/CommandContext.h"

/// Commands of tab groups, and of pins.
namespace tessa::TabGroupCommands {

// What the pop-up of a group's header does; nothing when the group is gone.
void Fold(CommandContext& context);
/// Writes what its tabs show into its file.
void SaveBack(CommandContext& context);
/// Opens the editor of its file.
void Edit(CommandContext& context);
void ReloadAll(CommandContext& context);
/// Those that nothing keeps awake.
void SleepAll(CommandContext& context);
/// Mutes all, or lets all be heard when all are muted.
void MuteAll(CommandContext& context);
/// The colour that the tool is named after.
void Paint(CommandContext& context, const Tool& tool);
void MoveToEnd(CommandContext& context);
/// Takes the tab in front out of it; the tab stays.
void TakeFrontOut(CommandContext& context);
/// Lets all its tabs go, which then are like any others.
void Dissolve(CommandContext& context);
void CloseAll(CommandContext& context);
/// Enables and marks these tools.
void ShowState(CommandContext& context);

// Of the tab that the pop-up was opened on.
void Pin(CommandContext& context);
/// Takes it out of its group, or puts it into the one beside it.
void InGroup(CommandContext& context);
void ShowTabState(CommandContext& context);

} // namespace tessa::TabGroupCommands
