#include "commands/MenuEntryCommands.h"

#include "commands/RuntimeIds.h"
#include "favorites/Favorites.h"

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

} // namespace MenuEntryCommands
