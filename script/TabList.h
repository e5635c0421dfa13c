#pragma once
#include <cstdint>
#include <span>
#include <string>

namespace tessa {

/// An open tab as a script sees it, or a page that was read; all texts are UTF-8.
struct ScriptTab {
    std::uint32_t number = 0; ///< never another tab's, as long as the program runs; 0 for a page that is not open
    std::string title, address;
    std::string group; ///< the file of the TessaGroup that it was opened from; empty for none
    std::string state; ///< words with blanks between, see `TabList`

    bool operator==(const ScriptTab&) const = default;
};

/// How lists of tabs are written.
namespace TabList {

/// The words of a state, in their order: the tab in front; what its page does; what it is; for a page
/// that is not open, that it was read.
inline constexpr const char* kWords = "front loading waiting asleep ended asks playing muted private history";

/// A line a tab, whose fields are separated by tabulators. What would break a line or a field becomes a blank.
[[nodiscard]] std::string Lines(std::span<const ScriptTab> tabs);
/// An array of objects, in one line each. Bytes that are no UTF-8 are read as Windows-1252.
[[nodiscard]] std::string Json(std::span<const ScriptTab> tabs);
/// The answer about a group's addresses, which comes in the same fields: status, words, address, new address, word.
/// A line has word, address and new address; JSON the status too.
[[nodiscard]] std::string CheckLines(std::span<const ScriptTab> lines);
[[nodiscard]] std::string CheckJson(std::span<const ScriptTab> lines);
/// A text as JSON has it, in quotes.
[[nodiscard]] std::string JsonText(const std::string& text);

} // namespace TabList

} // namespace tessa
