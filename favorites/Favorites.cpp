#include "favorites/Favorites.h"

#include "bar/DesignedNames.h"
#include "bar/RuntimeIds.h"
#include "base/Captions.h"
#include "base/ini/IniFile.h"
#include "base/os/AtomicFile.h"
#include "base/os/Folder.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr std::string_view kSection = "InternetShortcut";
constexpr std::string_view kKey = "URL";

constexpr std::size_t kLongestCaption = 45;
constexpr std::int32_t kFirstFolder = 100000;
/// Before a sub-folder's full path: the name of the band that shows it.
constexpr TextView kBandPrefix = u"zzz";

Text CutToCaption(TextView title) {
    return title.size() > kLongestCaption ? Text(FirstUnits(title, kLongestCaption)) + u"..." : Text(title);
}

// The name of a link's tool is its address, and the tool's click runs the command of that name. Whoever has written the
// address must not choose a command by it. A blank before it does not change where it leads.
Text LinkName(TextView address) {
    const bool named =
        std::ranges::any_of(DesignedNames::kCommands, [&](TextView name) { return address.starts_with(name); });
    return named ? u" " + Text(address) : Text(address);
}

} // namespace

namespace Favorites {

Text ReadAddress(const std::string& path) {
    const IniFile file(ReadWholeFile(path, kLargestShortcut).value_or(std::string()));
    return ReadIniValue(file, kSection, kKey, u"");
}

Listing List(TextView folder) {
    Listing listing;
    if (folder.empty()) return listing;
    const std::string path = PathToBytes(folder) + "/";
    for (const FolderEntry& entry : ListFolder(path)) {
        const Text name = PathFromBytes(entry.Name);
        if (entry.IsFolder)
            listing.Folders.Add(name, Text(folder) + u"/" + name);
        else if (EndsLike(entry.Name, ToUtf8(kEnding)))
            listing.Shortcuts.Add(name, ReadAddress(path + entry.Name));
    }
    return listing;
}

TextView TitleOf(TextView fileName) { return fileName.substr(0, fileName.size() - kEnding.size()); }

void Menu::ScanFolder(TextView folder, Band& band, BeginGroup& first) {
    if (m_folders == 0) m_folders = kFirstFolder;
    const Listing listing = List(folder);
    for (const CKeyValue& each : listing.Folders) AddFolder(band, each, first);
    for (const CKeyValue& each : listing.Shortcuts) AddShortcut(band, each);
}

void Menu::AddFolder(Band& band, const CKeyValue& folder, BeginGroup& first) {
    Tool* tool = band.Add(MadeFrom::FavoriteFolder{folder.Value}, RuntimeIds::kFolder, u"",
                          std::exchange(first, BeginGroup::No));
    tool->Caption = MenuCaption(folder.Key);
    tool->Image = FolderPicture;
    tool->Description = folder.Value;
    tool->SubBand = Text(kBandPrefix) + folder.Value;
    m_actBar.AddBand(tool->SubBand, folder.Key, BandKind::Popup, MadeFrom::FavoriteFolder{folder.Value});
    // Deliberate: folders are counted, though they all carry the same id.
    ++m_folders;
}

void Menu::AddShortcut(Band& band, const CKeyValue& shortcut) {
    const Text name = LinkName(shortcut.Value);
    Tool* tool = band.Add(MadeFrom::FavoriteLink{name}, RuntimeIds::Take(RuntimeIds::kFavorites, m_nextShortcut), name);
    tool->Caption = MenuCaption(CutToCaption(TitleOf(shortcut.Key)));
    tool->Description = shortcut.Value;
    tool->Image = LinkPicture;
}

} // namespace Favorites

} // namespace tessa
