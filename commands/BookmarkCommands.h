#pragma once
#include "commands/CommandContext.h"

/// Takes bookmarks of other browsers over, and writes them for other browsers, as the HTML file that all of them know.
/// What came of it is said in the status bar.
namespace BookmarkCommands {

/// Adds the pages of a file, with their folders, to the Favorites.
void ImportFavorites(CommandContext& context);
/// Makes a TessaGroup of each folder of a file that holds pages.
void ImportTessaGroups(CommandContext& context);
void ExportFavorites(CommandContext& context);
/// Writes each TessaGroup as a folder.
void ExportTessaGroups(CommandContext& context);

} // namespace BookmarkCommands
