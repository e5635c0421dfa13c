#pragma once
#include "commands/effects/CommandContext.h"

namespace tessa {

/// Commands that keep pages: TessaGroups and Favorites. What they may have changed makes the menu out of date.
namespace CollectionCommands {

void AddToTessaGroup(CommandContext& context);
/// The same for the tab of that view.
void AddViewToTessaGroup(CommandContext& context, std::int32_t index);
void SaveAsTessaGroup(CommandContext& context);
/// Asks for the file of a TessaGroup to add to, or of a new one; empty for none.
[[nodiscard]] Text AskForGroup(CommandContext& context);
[[nodiscard]] Text AskForNewGroup(CommandContext& context, TextView title = u"Save as TessaGroup");
void OrganizeTessaGroups(CommandContext& context);
/// Checks the groups of the user's folder.
void CheckAllGroups(CommandContext& context);
/// Asks for the file of a PDF of several pages, by a name that suggests itself, or of a group that opens them offline;
/// empty for none.
[[nodiscard]] Text AskForPdf(CommandContext& context, TextView name);
[[nodiscard]] Text AskForOffline(CommandContext& context);
/// Asks for a file and writes the pages of all tabs into it.
void SaveAllAsPdf(CommandContext& context);
/// Asks for a printer and prints them.
void PrintAll(CommandContext& context);
/// The same as a group with a folder of its pages.
void KeepOffline(CommandContext& context);
void AddToFavorites(CommandContext& context);
void OrganizeFavorites(CommandContext& context);

} // namespace CollectionCommands

} // namespace tessa
