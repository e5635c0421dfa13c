#pragma once
#include "base/Text.h"

#include <cstddef>

namespace tessa {

// Words that come from outside - a page, a server, a certificate - made fit to stand among our own. Nothing in them
// turns the text's direction, hides a part of it or pushes our words off the screen.

/// Whether the unit controls the text instead of being a part of it. Such are control characters, marks of direction,
/// breaks of lines, and characters without width.
[[nodiscard]] bool IsUnseen(char16_t unit);

/// The bytes with a blank for each ASCII control character, which would end a line or field of a file.
[[nodiscard]] std::string WithoutControls(std::string bytes);

/// One line of at most `most` units; what controls the text becomes a blank, runs of blanks one. A text that is cut
/// ends in "...", which comes on top.
[[nodiscard]] Text PlainLine(TextView text, std::size_t most);

/// Several lines, kept apart by "\n": at most `lines` of at most `most` units each, cut in the same way.
[[nodiscard]] Text PlainLines(TextView text, std::size_t lines, std::size_t most);

} // namespace tessa
