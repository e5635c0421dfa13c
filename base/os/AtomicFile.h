#pragma once
#include "base/Outcome.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tessa {

// Whole files, by path. A write leaves the old file or the new one, whatever happens in between.

/// The bytes of a regular file, of a longer one the first `most`. Nothing when there is none or it cannot be read.
[[nodiscard]] std::optional<std::string> ReadWholeFile(const std::string& path, std::size_t most = std::string::npos);

/// Whether anything of that name exists.
[[nodiscard]] bool FileExists(const std::string& path);
/// Whether the folder that is to hold the file exists.
[[nodiscard]] bool FolderExists(const std::string& path);
/// Whether the file may be written. A user who may write everything may not when it is read-only for all.
[[nodiscard]] bool IsWritable(const std::string& path);

/// Who may read a file that is written: whoever could before, or nobody but the user. A new file can be read by whom
/// the user's mask lets.
enum class Readers { AsUsual, UserAlone };

/// Replaces a file, or makes it: written beside it, flushed, renamed, and its folder flushed. The owner stays and so
/// does the mode, a link goes on pointing to it. It is rewritten in place only where the rights of the folder keep a
/// new file out. Then the file itself must be writable and have room. Want of room in the folder is no reason.
Outcome WriteWholeFile(const std::string& path, std::string_view bytes, Readers readers = Readers::AsUsual);
/// Whether `WriteWholeFile` could replace the file as a whole now: writes those bytes beside it and removes them.
[[nodiscard]] Outcome TryWholeFile(const std::string& path, std::string_view bytes);
/// Removes what writers of that file that were killed left beside it. Nobody else may be writing it meanwhile.
void RemoveLeftovers(const std::string& path);

/// Removes a file, not one that is marked read-only for all. Done when there is none.
Outcome RemoveFile(const std::string& path);

} // namespace tessa
