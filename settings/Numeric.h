#pragma once
#include "base/Text.h"

namespace tessa {

/// Whether a text writes a decimal number. It may have blanks around it, one sign before it, and an exponent "e" or "E"
/// with its own sign. Its digits have at most one point, with a digit on at least one side. Commas make no number,
/// because they mean thousands to one reader and decimals to the next. How large the number is does not matter.
[[nodiscard]] bool IsNumeric(TextView text);

/// The number of a numeric text, rounded to the nearest whole number, halves to the even one. Nothing for any other
/// text, or when the result is beyond 32 bits.
[[nodiscard]] std::optional<std::int32_t> RoundedNumber(TextView text);

} // namespace tessa
