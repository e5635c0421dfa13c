#include "commands/effects/MenuEntryCommands.h"

#include "base/Captions.h"
#include "base/os/AtomicFile.h"
#include "commands/effects/CollectionCommands.h"
#include "groups/TessaGroups.h"
#include "groups/frmRenameGroup.h"

#include <algorithm>

namespace tessa {

namespace {

Text GroupNameOf(TextView path) {
    path.remove_prefix(path.rfind(u'/') + 1);
    return OneLine(path.substr(0, path.size() - std::min(path.size(), TessaGroups::kExtension.size())));
}

bool MayTrash(CommandContext& context, TextView path) {
    return context.messages.AskOwn(
        {u"Move the TessaGroup \"" + GroupNameOf(path) + u"\" to the trash?", {}, u"&Keep It", u"&Move to Trash"});
}

bool MayDelete(CommandContext& context) {
    return context.messages.AskOwn({u"The TessaGroup cannot be moved to the trash",
                                    u"Deleted, it cannot be brought back.", u"&Keep It", u"&Delete for Good"});
}

} // namespace

namespace MenuEntryCommands {

Entry EntryOf(const Tool& tool) {
    if (const auto* folder = tool.From<MadeFrom::FavoriteFolder>()) return {u"bndFavoriteFolder"_band, folder->path};
    if (const auto* link = tool.From<MadeFrom::FavoriteLink>()) return {u"bndFavoriteLink"_band, link->address};
    if (const auto* group = tool.From<MadeFrom::Group>()) return {u"bndGroupEntry"_band, group->path};
    return {};
}

void OpenFolder(CommandContext& context) { context.favorites->OpenAll(context.menuEntry); }

void OpenFolderBelow(CommandContext& context) { context.favorites->OpenAllBelow(context.menuEntry); }

void SaveFolder(CommandContext& context) {
    const Text result = context.favorites->SaveAsGroup(context.menuEntry);
    if (!result.empty()) context.tabs.Say(result);
}

void OpenLink(CommandContext& context) {
    const Text address = context.menuEntry;
    if (!context.favorites->MayOpenLink(address)) return;
    if (auto* view = context.tabs.GetNewBrowser(InFront::Yes)) ResumeNext(view->Navigate(address));
}

void OpenGroup(CommandContext& context) { context.groups.OpenTessaGroup(Text(context.menuEntry)); }

void OrganizeGroup(CommandContext& context) { context.groups.OrganizeTessaGroup(Text(context.menuEntry)); }

void CheckGroup(CommandContext& context) { context.groups.Check({Text(context.menuEntry)}); }

// Behind the dialog another entry may have been chosen.
void SaveGroupAsPdf(CommandContext& context) {
    const Text group = context.menuEntry;
    const Text file = CollectionCommands::AskForPdf(context, GroupNameOf(group));
    if (!file.empty()) context.groups.WriteGroup(GroupCommands::Writes::Pdf, group, file);
}

void PrintGroup(CommandContext& context) {
    context.groups.WriteGroup(GroupCommands::Writes::Print, Text(context.menuEntry));
}

void KeepGroupOffline(CommandContext& context) {
    const Text group = context.menuEntry;
    const Text file = CollectionCommands::AskForOffline(context);
    if (file.empty()) return;
    context.groups.WriteGroup(GroupCommands::Writes::Offline, group, file);
    context.groupsMenuStale = true;
}

void RenameGroup(CommandContext& context) {
    const Text before = GroupNameOf(context.menuEntry);
    frmRenameGroup form(context.menuEntry);
    context.forms.Show(form);
    if (form.Renamed.empty()) return;
    context.groupsMenuStale = true;
    context.tabs.Say(u"The TessaGroup " + before + u" is now called " + OneLine(form.Renamed) + u".");
}

void DeleteGroup(CommandContext& context) {
    const Text path = context.menuEntry;
    if (!MayTrash(context, path)) return;
    const bool trashed = context.trash.Take(path) == Outcome::Done;
    const bool there = !trashed && FileExists(PathToBytes(path));
    const bool stays = there && (!MayDelete(context) || TessaGroups::Delete(path) == Outcome::Failed);
    context.groupsMenuStale = true;
    const Text name = GroupNameOf(path);
    context.tabs.Say(stays     ? u"The TessaGroup " + name + u" was not deleted."
                     : trashed ? u"The TessaGroup " + name + u" is in the trash."
                               : u"The TessaGroup " + name + u" has been deleted.");
}

} // namespace MenuEntryCommands

} // namespace tessa
