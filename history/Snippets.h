#pragma once
#include "history/Passages.h"
#include "history/SearchText.h"

#include <vector>

namespace tessa {

/// A part of a text that is shown, marked where it is what was searched for.
struct SnippetPart {
    Text Words;
    bool Marked = false;

    bool operator==(const SnippetPart&) const = default;
};
using Snippet = std::vector<SnippetPart>;

/// A passage in which something was found.
struct FoundPassage {
    std::size_t Number = 0; ///< which passage it is, from 0
    Snippet Shown;
};

/// What is shown of a text in which something was found.
namespace Snippets {

/// The text with the pieces marked, from shortly before the first of them on; about `most` units, cut between words.
/// What is left out stands as "...". Without any piece in it, the beginning.
[[nodiscard]] Snippet Of(const std::vector<SearchText::Piece>& pieces, TextView text, std::size_t most);
/// Whether each piece stands in one of these texts.
[[nodiscard]] bool HoldAll(const std::vector<SearchText::Piece>& pieces, const std::vector<TextView>& texts);
/// Those passages that hold most of the pieces, `count` at most, in the order of the page. What says no more than the
/// title, beneath which they are shown, is left out.
[[nodiscard]] std::vector<FoundPassage> Best(const std::vector<SearchText::Piece>& pieces,
                                             const std::vector<Passage>& passages, TextView title, std::size_t count,
                                             std::size_t most);

} // namespace Snippets

} // namespace tessa
