#pragma once
#include "base/Outcome.h"

#include <string>
#include <string_view>
#include <vector>

namespace tessa {

/// What lies in a folder, links followed. A name that begins with a dot is hidden and never listed.
struct FolderEntry {
    std::string Name;
    bool IsFolder = false;
    bool IsFile = false; ///< a regular one; neither is true of a link that leads nowhere
};

/// The entries of one folder, sorted by the bytes of their names; nothing of a folder that cannot be read. What lies
/// below them is not looked at, so a loop of links does no harm.
[[nodiscard]] std::vector<FolderEntry> ListFolder(const std::string& path);

/// Whether a file's name ends so, whatever the case of its ASCII letters. `ending` is in lower case.
[[nodiscard]] bool EndsLike(std::string_view name, std::string_view ending);

/// Makes a folder and those above it that are missing. Whether that folder was made, not when it is there already.
bool MakeFolders(const std::string& path);
/// Removes a file or an empty folder, a link itself. Failed when there is none.
Outcome RemoveEntry(const std::string& path);
/// Removes a file, or a folder with all that it holds; of a link the link alone. Failed when there is none.
Outcome RemoveTree(const std::string& path);

/// Whether there is a folder in which the user may read, make and remove files.
[[nodiscard]] bool MayUseFolder(const std::string& folder);
/// Whether files may be made in a folder, though perhaps not listed.
[[nodiscard]] bool MayAddTo(const std::string& folder);
/// Gives its owner the rights on a folder that was closed. True when it could not be used, and can be now.
bool OpenUpFolder(const std::string& folder);

} // namespace tessa
