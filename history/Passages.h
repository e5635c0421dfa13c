#pragma once
#include "base/Text.h"

#include <string>
#include <string_view>
#include <vector>

namespace tessa {

enum class PassageKind {
    Words,        ///< what the page says
    Heading,      ///< what a part of it is called
    Advertisement ///< what stands where advertisements do
};

/// A block of a page's text, as a paragraph or a line of a table is. One line, without runs of blanks.
struct Passage {
    PassageKind Kind = PassageKind::Words;
    Text Words;

    bool operator==(const Passage&) const = default;
};

/// What was read of a page.
struct GatheredText {
    std::vector<Passage> Passages{};
    Text Address{};            ///< of the document; empty when it was not said
    bool AsksPassword = false; ///< it shows a field for one
};

/// The passages of a page, as its reader gathers them and as they are kept: a line each, whose first letter is the
/// kind, "p", "h" or "a". A line "!" says that the page asks for a password, "u" its address.
namespace Passages {

/// No more of a page is kept, in bytes of UTF-8.
inline constexpr std::size_t kMostBytes = 200'000;

/// What the reader has gathered. Lines of another kind say nothing. What controls the text becomes a blank.
[[nodiscard]] GatheredText Read(TextView gathered);

/// The passages as they are kept, and back; damaged bytes cost the lines that they hit.
[[nodiscard]] std::string ToBytes(const std::vector<Passage>& passages);
[[nodiscard]] std::vector<Passage> FromBytes(std::string_view bytes);

} // namespace Passages

} // namespace tessa
