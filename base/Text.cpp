#include "base/Text.h"

#include <algorithm>
#include <array>
#include <limits>

namespace tessa {

namespace {

// Windows-1252, 80 to 9F: https://www.unicode.org/Public/MAPPINGS/VENDORS/MICSFT/WINDOWS/CP1252.TXT
constexpr std::array<char16_t, 32> kWindows1252{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr char32_t kReplacement = 0xFFFD;

struct Sequence {
    std::size_t length;
    char32_t smallest;
    char32_t firstBits;
};

// What the first byte says of a UTF-8 sequence; length 0 where no sequence begins so.
constexpr Sequence SequenceOf(unsigned char first) {
    if (first < 0x80) return {1, 0, first};
    if ((first & 0xE0) == 0xC0) return {2, 0x80, first & 0x1FU};
    if ((first & 0xF0) == 0xE0) return {3, 0x800, first & 0x0FU};
    if ((first & 0xF8) == 0xF0) return {4, 0x10000, first & 0x07U};
    return {0, 0, 0};
}

bool IsSurrogate(char32_t point) { return point >= 0xD800 && point <= 0xDFFF; }

struct Utf8Character {
    char32_t point;
    std::size_t length; ///< in bytes; 0 where no valid character begins
};

Utf8Character FirstUtf8Character(std::string_view bytes) {
    const Sequence sequence = SequenceOf(static_cast<unsigned char>(bytes.front()));
    if (sequence.length == 0 || sequence.length > bytes.size()) return {0, 0};
    char32_t point = sequence.firstBits;
    for (std::size_t i = 1; i < sequence.length; ++i) {
        const auto next = static_cast<unsigned char>(bytes[i]);
        if ((next & 0xC0) != 0x80) return {0, 0};
        point = (point << 6) | (next & 0x3FU);
    }
    if (point < sequence.smallest || point > 0x10FFFF || IsSurrogate(point)) return {0, 0};
    return {point, sequence.length};
}

// A byte of a path that is no text, as PathFromBytes keeps it.
constexpr char32_t kFirstKeptByte = 0xDC80, kLastKeptByte = 0xDCFF;

bool IsKeptByte(char32_t unit) { return unit >= kFirstKeptByte && unit <= kLastKeptByte; }

void AppendUtf16(Text& text, char32_t point) {
    if (point < 0x10000) {
        text.push_back(static_cast<char16_t>(point));
        return;
    }
    point -= 0x10000;
    text.push_back(static_cast<char16_t>(0xD800 + (point >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + (point & 0x3FF)));
}

void AppendUtf8(std::string& bytes, char32_t point) {
    const auto tail = [&](int shift) { bytes.push_back(static_cast<char>(0x80 | ((point >> shift) & 0x3F))); };
    if (point < 0x80) {
        bytes.push_back(static_cast<char>(point));
    } else if (point < 0x800) {
        bytes.push_back(static_cast<char>(0xC0 | (point >> 6)));
        tail(0);
    } else if (point < 0x10000) {
        bytes.push_back(static_cast<char>(0xE0 | (point >> 12)));
        tail(6);
        tail(0);
    } else {
        bytes.push_back(static_cast<char>(0xF0 | (point >> 18)));
        tail(12);
        tail(6);
        tail(0);
    }
}

// Appends the character at that place, U+FFFD for half a one. How many units it has.
std::size_t AppendCharacter(std::string& bytes, TextView text, std::size_t at) {
    const bool pair = IsHighSurrogate(text[at]) && at + 1 < text.size() && IsLowSurrogate(text[at + 1]);
    if (pair)
        AppendUtf8(bytes, 0x10000 + ((text[at] - 0xD800U) << 10) + (text[at + 1] - 0xDC00U));
    else
        AppendUtf8(bytes, IsSurrogate(text[at]) ? kReplacement : text[at]);
    return pair ? 2 : 1;
}

} // namespace

std::optional<Text> FromUtf8(std::string_view bytes) {
    Text text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const Utf8Character first = FirstUtf8Character(bytes);
        if (first.length == 0) return std::nullopt;
        AppendUtf16(text, first.point);
        bytes.remove_prefix(first.length);
    }
    return text;
}

Text FromBytes(std::string_view bytes) {
    if (auto text = FromUtf8(bytes)) return *std::move(text);
    Text text;
    text.reserve(bytes.size());
    for (const char byte : bytes) text.push_back(FromWindows1252(static_cast<unsigned char>(byte)));
    return text;
}

Text FromFirstBytes(std::string_view bytes, std::size_t most) {
    const std::string_view first = bytes.substr(0, most);
    if (auto text = FromUtf8(first)) return *std::move(text);
    // A character that the cut goes through begins at most three bytes before it.
    for (std::size_t back = 1; back <= 3 && back <= first.size(); ++back) {
        const std::size_t end = first.size() - back;
        const bool cut = FirstUtf8Character(bytes.substr(end)).length > back;
        auto text = cut ? FromUtf8(first.substr(0, end)) : std::nullopt;
        if (text) return *std::move(text);
    }
    return FromBytes(first);
}

std::string ToUtf8(TextView text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) at += AppendCharacter(bytes, text, at) - 1;
    return bytes;
}

Text PathFromBytes(std::string_view bytes) {
    Text path;
    path.reserve(bytes.size());
    while (!bytes.empty()) {
        const Utf8Character first = FirstUtf8Character(bytes);
        if (first.length > 0)
            AppendUtf16(path, first.point);
        else
            path.push_back(static_cast<char16_t>(0xDC00 + static_cast<unsigned char>(bytes.front())));
        bytes.remove_prefix(std::max<std::size_t>(first.length, 1));
    }
    return path;
}

std::string PathToBytes(TextView path) {
    std::string bytes;
    bytes.reserve(path.size());
    for (std::size_t at = 0; at < path.size();) {
        if (IsKeptByte(path[at]) && IsUnpaired(path, at))
            bytes.push_back(static_cast<char>(path[at++] & 0xFF));
        else
            at += AppendCharacter(bytes, path, at);
    }
    return bytes;
}

bool IsUnpaired(TextView text, std::size_t at) {
    if (IsHighSurrogate(text[at])) return at + 1 == text.size() || !IsLowSurrogate(text[at + 1]);
    return IsLowSurrogate(text[at]) && (at == 0 || !IsHighSurrogate(text[at - 1]));
}

void DropHalf(Text& text) {
    if (!text.empty() && IsHighSurrogate(text.back())) text.pop_back();
}

TextView FirstUnits(TextView text, std::size_t most) {
    if (text.size() <= most) return text;
    const bool halves = most > 0 && IsHighSurrogate(text[most - 1]) && IsLowSurrogate(text[most]);
    return text.substr(0, halves ? most - 1 : most);
}

Text InSmallLetters(TextView text) {
    Text small(text);
    std::ranges::transform(small, small.begin(), SmallLetter);
    return small;
}

Text Decimal(std::int64_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

std::optional<std::int32_t> WholeNumber(TextView text) {
    const bool negative = !text.empty() && text.front() == u'-';
    if (negative || (!text.empty() && text.front() == u'+')) text.remove_prefix(1);
    if (text.empty()) return std::nullopt;
    std::int64_t number = 0;
    for (const char16_t digit : text) {
        if (digit < u'0' || digit > u'9') return std::nullopt;
        number = number * 10 + (digit - u'0');
        if (number > std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1) return std::nullopt;
    }
    if (negative) number = -number;
    if (number > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
    return static_cast<std::int32_t>(number);
}

char16_t FromWindows1252(unsigned char byte) { return byte >= 0x80 && byte <= 0x9F ? kWindows1252[byte - 0x80] : byte; }

char ToWindows1252(char16_t unit) {
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return static_cast<char>(unit);
    const auto found = std::ranges::find(kWindows1252, unit);
    return found == kWindows1252.end() ? '?' : static_cast<char>(0x80 + (found - kWindows1252.begin()));
}

} // namespace tessa
