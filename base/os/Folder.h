#pragma once
#include <string>
#include <string_view>
#include <vector>

/// What lies in a folder, links followed. A name that begins with a dot is hidden and never listed.
struct FolderEntry {
    std::string Name;
    bool IsFolder = false;
};

/// The entries of one folder, sorted by the bytes of their names; nothing of a folder that cannot be read. What lies
/// below them is not looked at, so a loop of links does no harm.
[[nodiscard]] std::vector<FolderEntry> ListFolder(const std::string& path);

/// Whether a file's name ends so, whatever the case of its ASCII letters. `ending` is in lower case.
[[nodiscard]] bool EndsLike(std::string_view name, std::string_view ending);
