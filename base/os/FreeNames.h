#pragma once
#include <string>

/// Renames a file or folder, but never over another: 0, or the number of the error, EEXIST when the name is taken.
[[nodiscard]] int RenameToFree(const std::string& from, const std::string& to);
