#include "commands/effects/CollectionCommands.h"

#include "base/Captions.h"
#include "base/os/AtomicFile.h"
#include "base/os/Paths.h"
#include "groups/TessaGroups.h"

namespace tessa {

namespace {

constexpr TextView kPdf = u".pdf";
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

} // namespace

namespace CollectionCommands {

Text AskForGroup(CommandContext& context) {
    return context.files.ShowOpen({.DialogTitle = u"Add to TessaGroup",
                                   .InitDir = context.groupFolder,
                                   .Filter = Text(TessaGroups::kFileFilter)});
}

Text AskForNewGroup(CommandContext& context, TextView title) {
    return context.files.ShowSave(
        {.DialogTitle = Text(title), .InitDir = context.groupFolder, .Filter = Text(TessaGroups::kFileFilter)});
}

void AddViewToTessaGroup(CommandContext& context, std::int32_t index) {
    const bool isPrivate = context.tabs.PrivacyOf(index) == Privacy::Private;
    if (isPrivate && !context.messages.AskOwn({u"The page is open in a private tab",
                                               u"The TessaGroup would keep its address.", u"&Cancel", u"&Add It"}))
        return;
    const Text file = AskForGroup(context);
    if (file.empty()) return;
    // The address is asked for only now, as the page may have moved on meanwhile.
    if (context.tabs.OpenView(index))
        context.groups.AddTabsToTessaGroup({index}, file);
    else
        context.tabs.Say(u"The page is no longer open. Nothing was added.");
    context.groupsMenuStale = true;
}

void AddToTessaGroup(CommandContext& context) { AddViewToTessaGroup(context, context.tabs.CurrentIndex()); }

void SaveAsTessaGroup(CommandContext& context) {
    const Text file = AskForNewGroup(context);
    if (file.empty()) return;
    context.groups.SaveAsTessaGroup(file);
    context.groupsMenuStale = true;
}

void OrganizeTessaGroups(CommandContext& context) { context.groups.OrganizeTessaGroups(); }

void CheckAllGroups(CommandContext& context) { context.groups.CheckAll(); }

Text AskForPdf(CommandContext& context, TextView name) {
    Text path = context.files.ShowSave({.DialogTitle = u"Save All Pages as PDF",
                                        .InitDir{},
                                        .Filter = u"PDF document (*.pdf)|*.pdf",
                                        .FileName = Text(name) + Text(kPdf)});
    if (path.empty()) return {};
    if (!InSmallLetters(path).ends_with(kPdf)) path += kPdf;
    const bool replaces = FileExists(PathToBytes(path));
    if (replaces &&
        !context.messages.AskOwn({u"A file with this name already exists", OneLine(path), u"&Cancel", u"&Replace It"}))
        return {};
    return path;
}

Text AskForOffline(CommandContext& context) {
    return context.files.ShowSave({.DialogTitle = u"Keep All Pages Offline",
                                   .InitDir = context.groupFolder,
                                   .Filter = Text(TessaGroups::kFileFilter)});
}

void SaveAllAsPdf(CommandContext& context) {
    const Text file = AskForPdf(context, u"All pages");
    if (!file.empty()) context.groups.WriteTabs(GroupCommands::Writes::Pdf, file);
}

void PrintAll(CommandContext& context) { context.groups.WriteTabs(GroupCommands::Writes::Print); }

void KeepOffline(CommandContext& context) {
    const Text file = AskForOffline(context);
    if (file.empty()) return;
    context.groups.WriteTabs(GroupCommands::Writes::Offline, file);
    context.groupsMenuStale = true;
}

void AddToFavorites(CommandContext& context) {
    if (!context.tabs.CurrentView()) return;
    const Page page = CurrentPage(context);
    if (context.favorites->AddFavorite(page.address, page.title)) {
        context.favoritesMenuStale = true;
    } else if (context.messages.AskYesNoCancel(kRepairQuestion) == Answer::Yes) {
        context.favorites->RepairFavorites();
    }
}

void OrganizeFavorites(CommandContext& context) {
    context.favorites->OrganizeFavorites();
    context.favoritesMenuStale = true;
}

} // namespace CollectionCommands

} // namespace tessa
