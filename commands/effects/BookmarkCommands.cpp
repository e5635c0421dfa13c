#include "commands/effects/BookmarkCommands.h"

#include "base/Captions.h"
#include "base/LinkTrust.h"
#include "base/os/AtomicFile.h"
#include "favorites/Bookmarks.h"
#include "favorites/FavoriteFiles.h"
#include "groups/TessaGroups.h"

namespace tessa {

namespace {

constexpr TextView kFilter = u"Bookmarks File (*.html, *.htm)|*.html; *.htm|All Files (*.*)|*.*";
constexpr TextView kExtension = u".html";
constexpr TextView kRootGroup = u"Bookmarks";
void Tell(CommandContext& context, std::size_t count, TextView what, TextView verb) {
    const Text number = Decimal(static_cast<std::int64_t>(count));
    context.tabs.Say(number + u" " + Text(what) + (count == 1 ? u" was " : u"s were ") + Text(verb) + u".");
}

/// The bookmarks of the file that the user chooses; nothing when there are none, or no file was chosen.
BookmarkFolder Chosen(CommandContext& context, TextView title) {
    const Text path =
        context.files.ShowOpen({.DialogTitle = Text(title), .InitDir = {}, .Filter = Text(kFilter), .MustExist = true});
    if (path.empty()) return {};
    auto bookmarks = Bookmarks::Read(ReadWholeFile(PathToBytes(path), Bookmarks::kMostBytes).value_or(std::string()));
    if (Bookmarks::Count(bookmarks) == 0) context.tabs.Say(u"There are no bookmarks in that file.");
    return bookmarks;
}

Text FreeGroupPath(const CommandContext& context, TextView name) {
    const Text begin = context.groupFolder + Favorites::FileNameOf(name);
    Text path = begin + Text(TessaGroups::kExtension);
    for (int number = 2; FileExists(PathToBytes(path)); ++number)
        path = begin + u" (" + Decimal(number) + u")" + Text(TessaGroups::kExtension);
    return path;
}

std::size_t WriteGroups(const CommandContext& context, const BookmarkFolder& folder) {
    std::vector<TessaGroups::NumberedAddress> addresses;
    for (const Bookmark& each : folder.Links) {
        // The pages of a group open without a question.
        if (TrustOf(each.Address, LinkSource::Folder) == LinkTrust::Open)
            addresses.push_back({addresses.size() + 1, each.Address});
    }
    const TextView name = folder.Name.empty() ? kRootGroup : TextView(folder.Name);
    std::size_t written = 0;
    if (!addresses.empty() && TessaGroups::Write(FreeGroupPath(context, name), addresses) == Outcome::Done) ++written;
    for (const BookmarkFolder& each : folder.Folders) written += WriteGroups(context, each);
    return written;
}

/// True when the file has been written; a failure is told.
bool Save(CommandContext& context, TextView title, const BookmarkFolder& bookmarks) {
    Text path = context.files.ShowSave({.DialogTitle = Text(title), .InitDir = {}, .Filter = Text(kFilter)});
    if (path.empty()) return false;
    if (!path.ends_with(kExtension) && !path.ends_with(u".htm")) path += kExtension;
    if (FileExists(PathToBytes(path)) &&
        !context.messages.AskOwn({u"A file with this name already exists", OneLine(path), u"&Cancel", u"&Replace It"}))
        return false;
    if (WriteWholeFile(PathToBytes(path), Bookmarks::Write(bookmarks)) == Outcome::Done) return true;
    context.tabs.Say(u"The file could not be written.");
    return false;
}

} // namespace

namespace BookmarkCommands {

void ImportFavorites(CommandContext& context) {
    const BookmarkFolder bookmarks = Chosen(context, u"Import Favorites");
    if (Bookmarks::Count(bookmarks) == 0) return;
    Tell(context, Bookmarks::ToFavorites(bookmarks, context.favoritesFolder), u"Favorite", u"added");
    context.favoritesMenuStale = true;
}

void ImportTessaGroups(CommandContext& context) {
    const BookmarkFolder bookmarks = Chosen(context, u"Import TessaGroups");
    if (Bookmarks::Count(bookmarks) == 0) return;
    Tell(context, WriteGroups(context, bookmarks), u"TessaGroup", u"made");
    context.groupsMenuStale = true;
}

void ExportFavorites(CommandContext& context) {
    const BookmarkFolder all = Bookmarks::FromFavorites(context.favoritesFolder);
    if (Save(context, u"Export Favorites", all)) Tell(context, Bookmarks::Count(all), u"Favorite", u"written");
}

void ExportTessaGroups(CommandContext& context) {
    BookmarkFolder all;
    for (const CKeyValue& group : TessaGroups::List(context.groupFolder)) {
        all.Folders.push_back({group.Key, {}, {}});
        for (const CString& address : TessaGroups::Load(group.Value))
            all.Folders.back().Links.push_back({address.Key, address.Key});
    }
    if (Save(context, u"Export TessaGroups", all)) Tell(context, all.Folders.size(), u"TessaGroup", u"written");
}

} // namespace BookmarkCommands

} // namespace tessa
