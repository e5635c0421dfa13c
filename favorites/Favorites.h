#pragma once
#include "bar/CommandBar.h"
#include "base/CKeyValues.h"

namespace tessa {

/// The user's Favorites: a folder of Internet shortcut files and sub-folders of the same kind.
namespace Favorites {

/// What the name of a shortcut file ends with, in any case; its title is what stands before.
inline constexpr TextView kEnding = u".url";

/// No shortcut is longer, in bytes; of a file that is, the beginning is read.
inline constexpr std::size_t kLargestShortcut = std::size_t{1} << 20;

/// What one folder holds, each in the binary order of the names. Keys are the names as they are on disk. The value of a
/// folder is its full path, that of a shortcut its address.
struct Listing {
    CKeyValues Folders;
    CKeyValues Shortcuts;
};

/// Reads one folder, and the shortcuts in it, but no folder below it. Empty for an empty path or a folder that cannot
/// be read.
[[nodiscard]] Listing List(TextView folder);

/// The address in a shortcut file, at most 511 bytes of it. Empty when there is none or the file cannot be read.
[[nodiscard]] Text ReadAddress(const std::string& path);

/// What a shortcut is called: its file's name without the ending.
[[nodiscard]] TextView TitleOf(TextView fileName);

/// Makes menu entries of Favorites. Their ids count on from one rebuild to the next, so it lives as long as the
/// program.
class Menu {
public:
    /// The bar outlives this object.
    explicit Menu(CommandBar& actBar) : m_actBar(actBar) {}

    /// Lists a folder on a band: first its sub-folders, each with an empty band to open, then its shortcuts. `first`
    /// asks for a separator before the first sub-folder, and is cleared when that has got it.
    void ScanFolder(TextView folder, Band& band, BeginGroup& first);

    /// What sub-folders and shortcuts look like. Filled in by the owner.
    Picture FolderPicture, LinkPicture;

private:
    void AddFolder(Band& band, const CKeyValue& folder, BeginGroup& first);
    void AddShortcut(Band& band, const CKeyValue& shortcut);

    CommandBar& m_actBar;
    std::int32_t m_folders = 0;      ///< how far folders are counted; no tool gets this number
    std::int32_t m_nextShortcut = 0; ///< the next shortcut's id
};

} // namespace Favorites

} // namespace tessa
