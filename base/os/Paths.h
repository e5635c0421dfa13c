#pragma once
#include <optional>
#include <string>

namespace tessa {

// Paths are bytes: those of the name on a system whose names are bytes, else UTF-8. Every system takes '/' between the
// names.

/// The path of what holds that file or folder; the root itself for a root, nothing for a bare name.
[[nodiscard]] std::string FolderAbove(const std::string& path);
/// What stands behind the last separator.
[[nodiscard]] std::string LastNameOf(const std::string& path);
/// Whether a path does not depend on the folder in which the program runs.
[[nodiscard]] bool IsAbsolute(const std::string& path);
/// The path from a root on; itself when it is one, or that folder is not known.
[[nodiscard]] std::string AbsolutePath(const std::string& path);
/// The path without links and detours; nothing when nothing lies there.
[[nodiscard]] std::optional<std::string> RealPath(const std::string& path);

enum class Lies {
    Nothing,
    Folder, ///< or a link to one
    Other   ///< also a link that leads nowhere
};

[[nodiscard]] Lies WhatLiesAt(const std::string& path);
[[nodiscard]] bool IsFolder(const std::string& path);
[[nodiscard]] bool IsLink(const std::string& path);
/// Whether anything lies there, or where a link of that name leads.
[[nodiscard]] bool LeadsSomewhere(const std::string& path);
/// Whether both paths lead to one folder; not when one of them leads nowhere.
[[nodiscard]] bool IsSameFolder(const std::string& one, const std::string& other);

} // namespace tessa
