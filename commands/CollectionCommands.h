#pragma once
#include "commands/CommandContext.h"

namespace tessa {

/// Commands that keep pages: TessaGroups and Favorites. What they may have changed makes the menu out of date.
namespace CollectionCommands {

void AddToTessaGroup(CommandContext& context);
/// The same for the tab that the pop-up was opened on.
void AddTabToTessaGroup(CommandContext& context);
void SaveAsTessaGroup(CommandContext& context);
void OrganizeTessaGroups(CommandContext& context);
void AddToFavorites(CommandContext& context);
void OrganizeFavorites(CommandContext& context);

} // namespace CollectionCommands

} // namespace tessa
