#include "commands/MenuEntryCommands.h"

#include "common/AtomicFile.h"
#include "common/Captions.h"
#include "common/RuntimeIds.h"
#include "favorites/Favorites.h"
#include "groups/TessaGroups.h"

#include <algorithm>

namespace {

constexpr TextView kNoTrashQuestion =
    u"The TessaGroup cannot be moved to the trash. Do you want to delete it for good?";

Text GroupNameOf(TextView path) {
    path.remove_prefix(path.rfind(u'/') + 1);
    return OneLine(path.substr(0, path.size() - std::min(path.size(), TessaGroups::kExtension.size())));
}

bool Agrees(CommandContext& context, TextView question) {
    return context.messages.AskYesNoCancel(question) == Answer::Yes;
}

} // namespace

namespace MenuEntryCommands {

Entry EntryOf(const Tool& tool) {
    if (tool.SubBand.starts_with(Favorites::kBandPrefix)) return {u"bndFavoriteFolder", tool.Description};
    switch (RuntimeIds::KindOf(tool.Id())) {
    case RuntimeIds::Kind::Favorite:
        return {u"bndFavoriteLink", tool.Name()};
    case RuntimeIds::Kind::Group:
        return {u"bndGroupEntry", tool.Description};
    case RuntimeIds::Kind::None:
        break;
    }
    return {};
}

void OpenFolder(CommandContext& context) { context.host.OpenFavorites(context.menuEntry); }

void SaveFolder(CommandContext& context) {
    const Text result = context.host.SaveFavorites(context.menuEntry);
    if (!result.empty()) context.tabs.ShowStatusText(result);
}

void OpenLink(CommandContext& context) {
    const Text address = context.menuEntry;
    if (context.host.MayOpenLink && !context.host.MayOpenLink(address)) return;
    if (auto* view = context.tabs.GetNewBrowser(InFront::Yes)) ResumeNext(view->Navigate(address));
}

void OpenGroup(CommandContext& context) { context.groups.OpenTessaGroup(Text(context.menuEntry)); }

void OrganizeGroup(CommandContext& context) { context.host.OrganizeTessaGroup(Text(context.menuEntry)); }

void DeleteGroup(CommandContext& context) {
    const Text path = context.menuEntry;
    if (!Agrees(context, u"Do you want to move the TessaGroup \"" + GroupNameOf(path) + u"\" to the trash?")) return;
    const bool there = context.host.MoveToTrash(path) == Outcome::Failed && FileExists(PathToBytes(path));
    const bool stays = there && (!Agrees(context, kNoTrashQuestion) || TessaGroups::Delete(path) == Outcome::Failed);
    context.groupsMenuStale = true;
    context.tabs.ShowStatusText(stays ? u"The TessaGroup was not deleted." : u"The TessaGroup has been deleted.");
}

} // namespace MenuEntryCommands
