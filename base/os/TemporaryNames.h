#pragma once
#include <string>
#include <string_view>

namespace tessa {

// How a file is called that is written beside another and then takes its place. For base/os alone.
namespace TemporaryNames {

inline constexpr std::size_t kLetters = 6;

/// The folder of a path, in a form that can be opened.
[[nodiscard]] std::string FolderToOpen(const std::string& path);
/// The path of such a file but for its last letters.
[[nodiscard]] std::string Start(const std::string& target);
/// The last letters, from as many random bytes.
[[nodiscard]] std::string Letters(std::string_view random);
/// Whether a file of that name was made beside that target.
[[nodiscard]] bool IsOf(const std::string& target, std::string_view name);

} // namespace TemporaryNames

} // namespace tessa
