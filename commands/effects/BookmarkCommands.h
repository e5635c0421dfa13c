#pragma once
#include "commands/effects/CommandContext.h"

namespace tessa {

/// Reads and writes bookmarks as the HTML file that all browsers know. What came of it is said in the status bar.
namespace BookmarkCommands {

/// Adds the pages of a file, with their folders, to the Favorites.
void ImportFavorites(CommandContext& context);
/// Makes a TessaGroup of each folder of a file that holds pages.
void ImportTessaGroups(CommandContext& context);
void ExportFavorites(CommandContext& context);
/// Writes each TessaGroup as a folder.
void ExportTessaGroups(CommandContext& context);

} // namespace BookmarkCommands

} // namespace tessa
