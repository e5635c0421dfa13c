#include "favorites/FavoriteFiles.h"

#include "base/ResumeNext.h"
#include "base/ini/IniFile.h"
#include "base/os/AtomicFile.h"
#include "base/os/FileNameRules.h"
#include "base/os/Folder.h"
#include "base/os/FreeNames.h"
#include "base/os/Paths.h"
#include "base/os/ProcessUse.h"
#include "favorites/Favorites.h"

#include <algorithm>

namespace tessa {

namespace {

/// A name has 255 bytes at most on disk; some are kept for the ending and a number.
constexpr std::size_t kLongestNameBytes = 240;
constexpr int kMostNumbers = 10000;
/// Of a longer address a reader takes the beginning.
constexpr std::size_t kLongestAddressBytes = 511;
/// Nobody goes deeper by hand; a link to a folder above ends there too.
constexpr int kDeepestFolder = 16;
constexpr std::string_view kShortcutSection = "InternetShortcut";

bool IsControl(char16_t unit) { return unit < 0x20 || unit == 0x7F; }

/// What stands in a file's name for the unit of a title. A half of a character would come out as a byte of no text.
char16_t FitForName(TextView title, std::size_t at) {
    if (IsControl(title[at])) return u' ';
    return IsUnpaired(title, at) ? u'\uFFFD' : title[at];
}

Text NameOf(TextView path) { return Text(path.substr(path.rfind(u'/') + 1)); }

/// Tries "Name", "Name (2)" and so on until the name is free. `take` answers like `RenameToFree`.
template<typename Take>
std::optional<Text> TakeFree(const Text& folder, const Text& name, TextView ending, const Take& take) {
    for (int number = 1; number < kMostNumbers; ++number) {
        const Text counted = number == 1 ? name : name + u" (" + Decimal(number) + u")";
        Text path = folder + u"/" + counted + Text(ending);
        const Named named = take(PathToBytes(path));
        if (named == Named::Done) return path;
        if (named == Named::Failed) return std::nullopt;
    }
    return std::nullopt;
}

std::optional<Text> MoveTo(TextView path, const Text& folder, const Text& title, TextView ending) {
    if (Text(path) == folder + u"/" + title + Text(ending)) return Text(path);
    const std::string from = PathToBytes(path);
    return TakeFree(folder, title, ending, [&](const std::string& to) { return RenameToFree(from, to); });
}

std::string ShortcutBytes(std::string_view before, TextView address) {
    Text line(address);
    std::erase_if(line, IsControl);
    IniFile file(before);
    file.SetValue(kShortcutSection, "URL", ToUtf8(line));
    return file.Bytes();
}

std::optional<Text> FindBelow(TextView folder, TextView address, int depth) {
    for (const Favorites::Item& item : Favorites::Items(folder)) {
        if (!item.IsFolder && item.Address == address) return item.Path;
        if (!item.IsFolder || depth == kDeepestFolder) continue;
        if (auto found = FindBelow(item.Path, address, depth + 1)) return found;
    }
    return std::nullopt;
}

void GoBelow(TextView folder, int depth, const std::function<void(const std::vector<Favorites::Item>&)>& take) {
    const std::vector<Favorites::Item> items = Favorites::Items(folder);
    take(items);
    for (const Favorites::Item& item : items) {
        const bool follows = item.IsFolder && depth < kDeepestFolder && !IsLink(PathToBytes(item.Path));
        if (follows) GoBelow(item.Path, depth + 1, take);
    }
}

void Add(std::vector<Favorites::Item>& items, const CKeyValues& folders) {
    for (const CKeyValue& each : folders) items.push_back({each.Key, each.Value, {}, true});
}

} // namespace

namespace Favorites {

bool IsFolder(TextView path) { return tessa::IsFolder(PathToBytes(path)); }

std::vector<Item> Items(TextView folder) {
    const Listing listing = List(folder);
    std::vector<Item> items;
    Add(items, listing.Folders);
    for (const CKeyValue& each : listing.Shortcuts)
        items.push_back({Text(TitleOf(each.Key)), Text(folder) + u"/" + each.Key, each.Value, false});
    // By the titles, which people see: by the names of the files "a (2).url" would stand before "a.url".
    const auto shortcuts = items.begin() + static_cast<std::ptrdiff_t>(listing.Folders.Count());
    std::stable_sort(shortcuts, items.end(),
                     [](const Item& one, const Item& other) { return one.Title < other.Title; });
    return items;
}

void ForEachFolder(TextView folder, const std::function<void(const std::vector<Item>& items)>& take) {
    GoBelow(folder, 0, take);
}

std::optional<Text> FindAddress(TextView folder, TextView address) {
    return address.empty() ? std::nullopt : FindBelow(folder, address, 0);
}

Text TitleAt(TextView path) {
    const Text name = NameOf(path);
    return IsFolder(path) ? name : Text(TitleOf(name));
}

std::vector<Item> Folders(TextView folder) {
    std::vector<Item> items = Items(folder);
    std::erase_if(items, [](const Item& item) { return !item.IsFolder; });
    return items;
}

Text FolderOf(TextView path) { return Text(path.substr(0, path.rfind(u'/'))); }

Text FileNameOf(TextView title) {
    Text name;
    for (std::size_t at = 0; at < title.size(); ++at) name += FitForName(title, at);
    const auto begin = name.find_first_not_of(u" .");
    name = begin == Text::npos ? Text(u"Page") : name.substr(begin);
    name = name.substr(0, name.find_last_not_of(u' ') + 1);
    while (ToUtf8(name).size() > kLongestNameBytes) name.pop_back();
    DropHalf(name);
    return FitForDisk(name);
}

std::optional<Text> AddShortcut(TextView folder, TextView title, TextView address) {
    MakeFolders(PathToBytes(folder));
    const Text written = Text(folder) + u"/.tessaview-new-" + Decimal(ThisProcess());
    if (WriteWholeFile(PathToBytes(written), ShortcutBytes({}, address)) != Outcome::Done) return std::nullopt;
    auto added = MoveTo(written, Text(folder), FileNameOf(title), kEnding);
    if (!added) ResumeNext(RemoveEntry(PathToBytes(written)));
    return added;
}

std::optional<Text> MakeFolder(TextView parent, TextView name) {
    MakeFolders(PathToBytes(parent));
    return TakeFree(Text(parent), FileNameOf(name), u"", MakeNewFolder);
}

std::optional<Text> Rename(TextView path, TextView title) {
    return MoveTo(path, FolderOf(path), FileNameOf(title), IsFolder(path) ? TextView() : kEnding);
}

std::optional<Text> Move(TextView path, TextView folder) {
    if (FolderOf(path) == folder) return Text(path);
    const Text name = NameOf(path);
    const bool isFolder = IsFolder(path);
    const Text title = isFolder ? name : Text(TitleOf(name));
    return MoveTo(path, Text(folder), title, isFolder ? TextView() : TextView(name).substr(title.size()));
}

Outcome SetAddress(TextView path, TextView address) {
    const std::string file = PathToBytes(path);
    const auto bytes = ReadWholeFile(file, kLargestShortcut);
    if (!bytes || bytes->size() == kLargestShortcut || ToUtf8(address).size() > kLongestAddressBytes)
        return Outcome::Failed;
    return WriteWholeFile(file, ShortcutBytes(*bytes, address));
}

Outcome Delete(TextView path) { return RemoveTree(PathToBytes(path)); }

} // namespace Favorites

} // namespace tessa
