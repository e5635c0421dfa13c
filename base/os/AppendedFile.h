#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tessa {

// Files that grow at their end, as logs do. Whatever fails here fails in silence.

/// Adds bytes to a file in one piece, also beside others that do. It is made when missing and is the user's alone from
/// then on. A link is not followed, and nothing that holds its writers up is waited for.
void AppendForUser(const std::string& path, std::string_view bytes);
/// How many bytes a regular file has; nothing when there is none.
[[nodiscard]] std::optional<std::size_t> FileSize(const std::string& path);
/// Takes all bytes out of a file.
void EmptyFile(const std::string& path);

} // namespace tessa
