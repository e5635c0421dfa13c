#pragma once
#include "commands/CommandContext.h"

namespace tessa {

/// Commands that make, choose and close tabs.
namespace TabCommands {

void NewBlank(CommandContext& context);
void NewSearch(CommandContext& context);
void NewHome(CommandContext& context);
/// The current page once more; with no current view an empty address.
void NewCurrent(CommandContext& context);
/// A blank tab that is forgotten when it is closed.
void NewPrivate(CommandContext& context);
void Close(CommandContext& context);
void CloseAll(CommandContext& context);
void Next(CommandContext& context);
void Previous(CommandContext& context);

} // namespace TabCommands

} // namespace tessa
