#pragma once
// Bytes of rules and of addresses: small letters, blanks, parts of lists.

#include <cstdint>
#include <string>
#include <string_view>

namespace tessa::ruletext {

[[nodiscard]] constexpr char Small(char each) {
    return each >= 'A' && each <= 'Z' ? static_cast<char>(each + ('a' - 'A')) : each;
}
[[nodiscard]] constexpr bool IsBlank(char each) { return static_cast<unsigned char>(each) <= ' '; }
[[nodiscard]] constexpr bool IsDigit(char each) { return each >= '0' && each <= '9'; }
[[nodiscard]] constexpr bool IsSmallLetter(char each) { return each >= 'a' && each <= 'z'; }

[[nodiscard]] std::string InSmall(std::string_view bytes);
[[nodiscard]] std::string_view Trimmed(std::string_view bytes);
/// Takes the part before the separator off the front of `rest`; all of it when there is none.
[[nodiscard]] std::string_view TakePart(std::string_view& rest, char separator);

/// The domain in small letters of ASCII, other scripts as "xn--". Empty for what is no domain. The last label may be
/// "*".
[[nodiscard]] std::string DomainOf(std::string_view bytes);

/// A name of 64 bits for a text, the same in each run.
[[nodiscard]] constexpr std::uint64_t HashOf(std::string_view bytes, std::uint64_t hash = 0xCBF29CE484222325U) {
    for (const char each : bytes) hash = (hash ^ static_cast<unsigned char>(each)) * 0x100000001B3U;
    return hash;
}

} // namespace tessa::ruletext
