#pragma once
#include <cstddef>
#include <string_view>

namespace tessa {

// What differs in the form of paths. For base/os alone.

/// Whether names in a path are parted by it.
[[nodiscard]] bool IsSeparator(char byte);
/// How many bytes of a path name its root, the separator behind it included; 0 of a relative path.
[[nodiscard]] std::size_t RootLength(std::string_view path);

} // namespace tessa
