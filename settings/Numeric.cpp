#include "settings/Numeric.h"

#include <algorithm>

namespace tessa {

namespace {

/// A number as its digits and how many of them stand before the point; negative when zeros follow the point.
struct DecimalNumber {
    bool negative = false;
    Text digits; ///< without leading zeros; empty for zero
    std::int64_t whole = 0;
};

// Far beyond any number of digits that a text may have, far below an overflow.
constexpr std::int64_t kLargestExponent = std::int64_t{1} << 40;

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

bool TakeSign(TextView& rest) {
    const bool negative = rest.starts_with(u'-');
    if (negative || rest.starts_with(u'+')) rest.remove_prefix(1);
    return negative;
}

TextView TakeDigits(TextView& rest) {
    const auto end = std::find_if_not(rest.begin(), rest.end(), IsDigit);
    const TextView digits = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    rest.remove_prefix(digits.size());
    return digits;
}

// Nothing when there is an "e" without digits after it; 0 when there is no exponent.
std::optional<std::int64_t> TakeExponent(TextView& rest) {
    if (!rest.starts_with(u'e') && !rest.starts_with(u'E')) return 0;
    rest.remove_prefix(1);
    const bool negative = TakeSign(rest);
    const TextView digits = TakeDigits(rest);
    if (digits.empty()) return std::nullopt;
    std::int64_t exponent = 0;
    for (const char16_t digit : digits) exponent = std::min(exponent * 10 + (digit - u'0'), kLargestExponent);
    return negative ? -exponent : exponent;
}

TextView WithoutBlanks(TextView text) {
    return TrimmedOf(text, [](char16_t unit) { return unit == u' ' || unit == u'\t'; });
}

std::optional<DecimalNumber> Parse(TextView text) {
    TextView rest = WithoutBlanks(text);
    DecimalNumber number;
    number.negative = TakeSign(rest);
    const TextView whole = TakeDigits(rest);
    TextView fraction;
    if (rest.starts_with(u'.')) {
        rest.remove_prefix(1);
        fraction = TakeDigits(rest);
    }
    if (whole.empty() && fraction.empty()) return std::nullopt;
    const auto exponent = TakeExponent(rest);
    if (!exponent || !rest.empty()) return std::nullopt;

    number.digits = Text(whole) + Text(fraction);
    const std::size_t zeros = std::min(number.digits.find_first_not_of(u'0'), number.digits.size());
    number.digits.erase(0, zeros);
    number.whole = static_cast<std::int64_t>(whole.size()) - static_cast<std::int64_t>(zeros) + *exponent;
    return number;
}

// Whether what stands behind the whole part rounds it away from zero.
bool RoundsUp(TextView fraction, bool wholeIsOdd) {
    if (fraction.empty() || fraction.front() != u'5') return !fraction.empty() && fraction.front() > u'5';
    return wholeIsOdd || fraction.find_first_not_of(u'0', 1) != TextView::npos;
}

} // namespace

bool IsNumeric(TextView text) { return Parse(text).has_value(); }

std::optional<std::int32_t> RoundedNumber(TextView text) {
    constexpr std::int64_t kMostDigits = 10;
    const auto number = Parse(text);
    if (!number) return std::nullopt;
    if (number->digits.empty() || number->whole < 0) return 0;
    if (number->whole > kMostDigits) return std::nullopt;

    const auto wholeDigits = static_cast<std::size_t>(number->whole);
    std::int64_t value = 0;
    for (std::size_t i = 0; i < wholeDigits; ++i) {
        value = value * 10 + (i < number->digits.size() ? number->digits[i] - u'0' : 0);
    }
    const TextView fraction = TextView(number->digits).substr(std::min(wholeDigits, number->digits.size()));
    if (RoundsUp(fraction, value % 2 != 0)) ++value;
    if (number->negative) value = -value;
    if (value < INT32_MIN || value > INT32_MAX) return std::nullopt;
    return static_cast<std::int32_t>(value);
}

} // namespace tessa
