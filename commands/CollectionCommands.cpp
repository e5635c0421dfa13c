#include "commands/CollectionCommands.h"

#include "groups/TessaGroups.h"

namespace {

constexpr TextView kPrivatePageQuestion =
    u"The page is open in a private tab. Do you want to write its address into the TessaGroup?";
constexpr TextView kRepairQuestion =
    u"You cannot add new Favorites because of a bug in the way Microsoft installs Internet Explorer 4.0.\n\n"
    u"TessaView can make some changes to the system registry to allow you to add Favorites.\n\n"
    u"Would you like TessaView to make these changes?";

struct Page {
    Text address, title;
};

Page CurrentPage(const CommandContext& context) {
    const auto* view = context.tabs.CurrentView();
    return view ? Page{view->Control->LocationURL(), view->Control->LocationName()} : Page{};
}

// The address is asked for after the file was chosen, as the page may have moved on meanwhile.
void AddToGroup(CommandContext& context, Privacy privacy, const std::function<Text()>& address) {
    if (privacy == Privacy::Private && context.messages.AskYesNoCancel(kPrivatePageQuestion) != Answer::Yes) return;
    const Text file = context.files.ShowOpen({.DialogTitle = u"Add to TessaGroup",
                                              .InitDir = context.groupFolder,
                                              .Filter = Text(TessaGroups::kFileFilter)});
    if (file.empty()) return;
    context.host.AddToTessaGroup(address(), file);
    context.groupsMenuStale = true;
}

} // namespace

namespace CollectionCommands {

void AddToTessaGroup(CommandContext& context) {
    AddToGroup(context, context.tabs.CurrentPrivacy(), [&] { return CurrentPage(context).address; });
}

void AddTabToTessaGroup(CommandContext& context) {
    const auto* popup = context.strip.PopupView();
    if (!popup) return;
    AddToGroup(context, popup->Privacy, [&] {
        const auto* view = context.strip.PopupView();
        return view ? view->Control->LocationURL() : Text();
    });
}

void SaveAsTessaGroup(CommandContext& context) {
    const Text file = context.files.ShowSave({.DialogTitle = u"Save as TessaGroup",
                                              .InitDir = context.groupFolder,
                                              .Filter = Text(TessaGroups::kFileFilter)});
    if (file.empty()) return;
    context.host.SaveAsTessaGroup(file);
    context.groupsMenuStale = true;
}

void OrganizeTessaGroups(CommandContext& context) { context.host.OrganizeTessaGroups(); }

void AddToFavorites(CommandContext& context) {
    const Page page = CurrentPage(context);
    if (context.host.AddFavorite(page.address, page.title)) {
        context.favoritesMenuStale = true;
    } else if (context.messages.AskYesNoCancel(kRepairQuestion) == Answer::Yes && context.host.RepairFavorites) {
        context.host.RepairFavorites();
    }
}

void OrganizeFavorites(CommandContext& context) {
    context.host.OrganizeFavorites();
    context.favoritesMenuStale = true;
}

} // namespace CollectionCommands
