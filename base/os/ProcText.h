#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

// The texts in which the kernel tells what it knows. Any bytes may come; nothing here fails on them.

namespace ProcText {

/// The words of a text, which blanks, tabs and line ends part.
[[nodiscard]] std::vector<std::string_view> Fields(std::string_view text);
/// The lines of a text, without their ends; none that is empty.
[[nodiscard]] std::vector<std::string_view> Lines(std::string_view text);
/// A number of digits alone; nothing for any other text, and for one that is too large.
[[nodiscard]] std::optional<std::int64_t> Number(std::string_view text);
/// The number behind a name, of the first line that begins with that word.
[[nodiscard]] std::optional<std::int64_t> NumberAt(std::string_view text, std::string_view name);

/// What stands in a file; empty when it cannot be read.
[[nodiscard]] std::string ReadFile(const std::string& path);

} // namespace ProcText

} // namespace tessa
