#pragma once
#include "commands/CommandContext.h"

namespace tessa {

/// What else can be done with the tab that the pop-up was opened on. Does nothing when that tab is gone.
namespace TabMoreCommands {

/// Leaves that tab alone, selected; the chosen tabs too when it is one of them.
void CloseOthers(CommandContext& context);
void CloseToTheRight(CommandContext& context);
/// A new tab in front, right of it, with the same page and where that has been.
void Duplicate(CommandContext& context);
/// Brings back the tab closed last.
void Reopen(CommandContext& context);

/// Enables and marks the tools for the tab under the pointer.
void ShowState(CommandContext& context);
/// Enables the tool that reopens a tab when there is one.
void ShowReopen(CommandContext& context);

} // namespace TabMoreCommands

} // namespace tessa
