#pragma once
#include "base/ResumeNext.h"
#include "base/Text.h"

#include <functional>
#include <optional>
#include <vector>

namespace tessa {

namespace Favorites {

/// What a folder is called until the user gives it a name.
inline constexpr TextView kNewFolder = u"New Folder";

/// A line of a tree of Favorites.
struct Item {
    Text Title; ///< the name without the ending
    Text Path;
    Text Address; ///< of a shortcut
    bool IsFolder = false;
    bool operator==(const Item&) const = default;
};

/// What one folder holds: sub-folders, then shortcuts, each in the binary order of the titles. What lies below is not
/// read.
[[nodiscard]] std::vector<Item> Items(TextView folder);
/// Calls `take` with the items of a folder, then of each folder below it. Links are not followed: they may lead back.
void ForEachFolder(TextView folder, const std::function<void(const std::vector<Item>& items)>& take);
/// Its sub-folders alone.
[[nodiscard]] std::vector<Item> Folders(TextView folder);
[[nodiscard]] bool IsFolder(TextView path);
/// Where a shortcut to that address lies in a folder or below it, the first by its title. Nothing when there is none.
[[nodiscard]] std::optional<Text> FindAddress(TextView folder, TextView address);
/// What a shortcut or folder is called.
[[nodiscard]] Text TitleAt(TextView path);
/// The folder in which a file or folder lies.
[[nodiscard]] Text FolderOf(TextView path);

// What changes the disk. A name is mended where the disk would refuse it or hide the file. It never takes another's
// place: the second is called "Name (2)". Each answers the path that came of it, and nothing when it failed, which
// leaves everything as it was.

/// Writes a shortcut; the folder is made when it is missing.
[[nodiscard]] std::optional<Text> AddShortcut(TextView folder, TextView title, TextView address);
[[nodiscard]] std::optional<Text> MakeFolder(TextView parent, TextView name);
/// Gives a shortcut or folder another title. Its own title is no other's.
[[nodiscard]] std::optional<Text> Rename(TextView path, TextView title);
/// Moves a shortcut or folder into a folder; not into itself or what is below it.
[[nodiscard]] std::optional<Text> Move(TextView path, TextView folder);
/// Gives a shortcut another address, and leaves the rest of its file as it is. Fails for an address that is too long to
/// be read back.
Outcome SetAddress(TextView path, TextView address);
/// Deletes a shortcut or folder for good, with all that is in it; what a link leads to stays.
Outcome Delete(TextView path);

/// The file name for a title.
[[nodiscard]] Text FileNameOf(TextView title);

} // namespace Favorites

} // namespace tessa
