#pragma once
#include <string>

namespace tessa {

/// How taking a name that must be free went.
enum class Named {
    Done,
    Taken, ///< something of that name exists, and is untouched
    Failed
};

/// Renames a file or folder, but never over another.
[[nodiscard]] Named RenameToFree(const std::string& from, const std::string& to);
/// Makes a folder, readable as the user's mask says.
[[nodiscard]] Named MakeNewFolder(const std::string& path);

} // namespace tessa
