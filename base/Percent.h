#pragma once
#include "base/Text.h"

#include <string>
#include <string_view>

namespace tessa {

// Percent-encoding, as addresses use it.

/// The bytes with all but letters, digits and "-._~" as "%XX".
[[nodiscard]] std::string PercentEncoded(std::string_view bytes);

/// The same of a text's UTF-8, in which half a character becomes a "?".
[[nodiscard]] Text PercentEncodedText(TextView text);

/// The bytes with every "%XX" decoded; a "%" without two hexadecimal digits stays.
[[nodiscard]] std::string PercentDecoded(std::string_view text);

} // namespace tessa
