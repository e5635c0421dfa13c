#pragma once
#include "base/Text.h"

/// Whether a text writes a decimal number: blanks around it, one sign before it, digits with at most one point (a
/// digit on one side of it is enough) and an exponent "e" or "E" with a sign of its own. Commas make no number,
/// because they mean thousands to one reader and decimals to the next. How large the number is does not matter.
[[nodiscard]] bool IsNumeric(TextView text);

/// The number of a numeric text, rounded to the nearest whole number, halves to the even one; nothing for any other
/// text or when the result is beyond 32 bits.
[[nodiscard]] std::optional<std::int32_t> RoundedNumber(TextView text);
