#pragma once
// Text inside the program is UTF-16, because titles and captions are counted and cut in UTF-16 units.
// std::string is bytes as they stand in a file.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessa {

using Text = std::u16string;
using TextView = std::u16string_view;

/// The bytes read as UTF-8 when they are valid UTF-8, else as Windows-1252. The bytes 81 8D 8F 90 9D stand for
/// themselves there. Never fails.
[[nodiscard]] Text FromBytes(std::string_view bytes);

/// The bytes of valid UTF-8 as text; nothing when they are not valid UTF-8.
[[nodiscard]] std::optional<Text> FromUtf8(std::string_view bytes);

/// The first `most` bytes, read like `FromBytes`. A character of UTF-8 that does not fit is left out whole.
[[nodiscard]] Text FromFirstBytes(std::string_view bytes, std::size_t most);

/// The text as UTF-8. An unpaired surrogate becomes U+FFFD.
[[nodiscard]] std::string ToUtf8(TextView text);

/// A path, or the name of a file, as text. The disk takes names that are not valid UTF-8. A byte that belongs to no
/// character becomes an unpaired surrogate, U+DC00 and the byte. `PathToBytes` brings the same name back. `OneLine`
/// shows it as U+FFFD.
[[nodiscard]] Text PathFromBytes(std::string_view bytes);
/// The bytes that name a file on disk. Of what `PathFromBytes` gave, the bytes it was given; else like `ToUtf8`.
[[nodiscard]] std::string PathToBytes(TextView path);

/// The two units of a character beyond U+FFFF.
[[nodiscard]] constexpr bool IsHighSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
[[nodiscard]] constexpr bool IsLowSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }
/// Whether the unit at that place is a surrogate without its other half.
[[nodiscard]] bool IsUnpaired(TextView text, std::size_t at);
/// Drops a last unit that only begins a character, as a cut leaves it.
void DropHalf(Text& text);
/// The first `most` units, or one less where the cut would go through a character of two.
[[nodiscard]] TextView FirstUnits(TextView text, std::size_t most);

/// The text with small letters for the capital ones of ASCII; all others stay.
[[nodiscard]] Text InSmallLetters(TextView text);
[[nodiscard]] constexpr char16_t SmallLetter(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 0x20) : unit;
}

/// The text, or the bytes, without those at both ends of which `isBlank` is true. What is blank differs between
/// readers.
template<typename View, typename IsBlank>
[[nodiscard]] constexpr View TrimmedOf(View text, IsBlank isBlank) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

/// A whole number in decimal, without leading zeros.
[[nodiscard]] Text Decimal(std::int64_t number);

/// The whole number in a text of decimal digits with an optional sign. Nothing for any other text, or a number out of
/// range.
[[nodiscard]] std::optional<std::int32_t> WholeNumber(TextView text);

/// One byte of Windows-1252 as a character, and back; a character that is not in it becomes "?".
[[nodiscard]] char16_t FromWindows1252(unsigned char byte);
[[nodiscard]] char ToWindows1252(char16_t unit);

} // namespace tessa
