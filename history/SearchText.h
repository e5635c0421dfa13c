#pragma once
#include "base/Text.h"

#include <vector>

namespace tessa {

/// How texts are compared when somebody searches: without regard to case, accents and width. Words of scripts without
/// blanks, as Chinese, Japanese and Thai, are found anywhere in a run of them. Other words are found by their
/// beginning.
namespace SearchText {

/// A unit as it is compared. Each unit stays one unit.
[[nodiscard]] char16_t Folded(char16_t unit);
[[nodiscard]] Text Folded(TextView text);
/// Whether it stands on the character before it and counts for nothing: an accent of its own.
[[nodiscard]] bool IsAccent(char16_t unit);
/// Whether words have it, as against punctuation, symbols and blanks.
[[nodiscard]] bool IsOfWord(char32_t character);
/// Whether its script puts no blanks between words.
[[nodiscard]] bool IsUnspaced(char32_t character);

/// The character at that place, and how many units it has.
struct CodePoint {
    char32_t Character = 0;
    std::size_t Units = 1;
};
[[nodiscard]] CodePoint CharacterAt(TextView text, std::size_t at);

/// The text for the index of words: folded words with blanks between. A run of an unspaced script becomes its pairs of
/// characters and its last character. So one, two and more of them are found wherever they stand.
[[nodiscard]] Text ForIndex(TextView text);

/// A part of what was searched for, which has to be there.
struct Piece {
    std::vector<Text> Words; ///< folded, to stand one behind the other
    bool Unspaced = false;   ///< of such a script; then there is one word
    bool WholeWords = false; ///< the last one is not the beginning of a word

    bool operator==(const Piece&) const = default;
};

/// What was typed, in pieces; words in double quotes belong together and are whole. No more than 16 pieces.
[[nodiscard]] std::vector<Piece> PiecesOf(TextView typed);
/// The pieces as a query of the index (FTS5), in which nothing typed is an operator; empty when there is nothing to
/// search for.
[[nodiscard]] Text QueryOf(const std::vector<Piece>& pieces);

/// Where in the text a piece stands.
struct Place {
    std::size_t At = 0, Units = 0;

    bool operator==(const Place&) const = default;
};
/// All places of a piece, which do not overlap; `most` at most.
[[nodiscard]] std::vector<Place> PlacesOf(const Piece& piece, TextView text, std::size_t most);

} // namespace SearchText

} // namespace tessa
