#pragma once
#include "bar/ToolName.h"
#include "commands/CommandContext.h"

#include <optional>

namespace tessa {

/// Commands of the pop-ups that entries of the Favorites and TessaGroups menus have. They work on the entry that the
/// pop-up was opened on.
namespace MenuEntryCommands {

/// The band that pops up for a tool of those menus, and what it is opened on. No band for every other tool.
struct Entry {
    std::optional<BandName> band;
    TextView target;
};
[[nodiscard]] Entry EntryOf(const Tool& tool);

void OpenFolder(CommandContext& context);
/// With what lies in the folders below.
void OpenFolderBelow(CommandContext& context);
void SaveFolder(CommandContext& context);
void OpenLink(CommandContext& context);
void OpenGroup(CommandContext& context);
void OrganizeGroup(CommandContext& context);
void CheckGroup(CommandContext& context);
/// What can be made of the pages of the TessaGroup, which stays closed. The first and the last ask for a file.
void SaveGroupAsPdf(CommandContext& context);
void PrintGroup(CommandContext& context);
void KeepGroupOffline(CommandContext& context);
/// Asks what the TessaGroup is to be called.
void RenameGroup(CommandContext& context);
/// Moves the TessaGroup to the trash, or deletes it where there is none; asks before it does either.
void DeleteGroup(CommandContext& context);

} // namespace MenuEntryCommands

} // namespace tessa
