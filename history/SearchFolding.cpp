#include "history/SearchText.h"

#include <algorithm>
#include <array>
#include <span>

namespace tessa {

namespace {

// The letters from U+00C0 on, without their accents. A letter of its own, as the Danish one with a stroke, stays.
constexpr TextView kLatinLetters = u"aaaaaa\u00e6ceeeeiiii\u00f0nooooo\u00d7\u00f8uuuuy\u00fe\u00df"
                                   u"aaaaaa\u00e6ceeeeiiii\u00f0nooooo\u00f7\u00f8uuuuy\u00fey"
                                   u"aaaaaaccccccccdd\u0111\u0111eeeeeeeeeegggggggghh\u0127\u0127iiiiiiiii\u0131"
                                   u"\u0133\u0133jjkk\u0138llllll\u0140\u0140\u0142\u0142nnnnnn\u0149\u014b\u014b"
                                   u"oooooo\u0153\u0153rrrrrrsssssssstttt\u0167\u0167uuuuuuuuuuuuwwyyyzzzzzzs";
constexpr char16_t kFirstLatin = 0xC0;
static_assert(kLatinLetters.size() == 0x180 - kFirstLatin);

/// Units in a row that become one, or the same distance away.
struct FoldRange {
    char16_t first, last, becomes;
    bool each; ///< each the one as far behind `becomes` as it is behind `first`
};

constexpr std::array kFoldRanges{
    FoldRange{0x01A0, 0x01A1, u'o', false},   FoldRange{0x01AF, 0x01B0, u'u', false},
    FoldRange{0x0386, 0x0386, 0x03B1, false}, FoldRange{0x0388, 0x0388, 0x03B5, false},
    FoldRange{0x0389, 0x0389, 0x03B7, false}, FoldRange{0x038A, 0x038A, 0x03B9, false},
    FoldRange{0x038C, 0x038C, 0x03BF, false}, FoldRange{0x038E, 0x038E, 0x03C5, false},
    FoldRange{0x038F, 0x038F, 0x03C9, false}, FoldRange{0x0391, 0x03A1, 0x03B1, true},
    FoldRange{0x03A3, 0x03A9, 0x03C3, true},  FoldRange{0x03AA, 0x03AA, 0x03B9, false},
    FoldRange{0x03AB, 0x03AB, 0x03C5, false}, FoldRange{0x03AC, 0x03AC, 0x03B1, false},
    FoldRange{0x03AD, 0x03AD, 0x03B5, false}, FoldRange{0x03AE, 0x03AE, 0x03B7, false},
    FoldRange{0x03AF, 0x03AF, 0x03B9, false}, FoldRange{0x03C2, 0x03C2, 0x03C3, false},
    FoldRange{0x03CA, 0x03CA, 0x03B9, false}, FoldRange{0x03CB, 0x03CB, 0x03C5, false},
    FoldRange{0x03CC, 0x03CC, 0x03BF, false}, FoldRange{0x03CD, 0x03CD, 0x03C5, false},
    FoldRange{0x03CE, 0x03CE, 0x03C9, false}, FoldRange{0x0401, 0x0401, 0x0435, false},
    FoldRange{0x0400, 0x040F, 0x0450, true},  FoldRange{0x0410, 0x042F, 0x0430, true},
    FoldRange{0x0451, 0x0451, 0x0435, false}, FoldRange{0x0531, 0x0556, 0x0561, true},
    FoldRange{0x1EA0, 0x1EB7, u'a', false},   FoldRange{0x1EB8, 0x1EC7, u'e', false},
    FoldRange{0x1EC8, 0x1ECB, u'i', false},   FoldRange{0x1ECC, 0x1EE3, u'o', false},
    FoldRange{0x1EE4, 0x1EF1, u'u', false},   FoldRange{0x1EF2, 0x1EF9, u'y', false},
    FoldRange{0xFF10, 0xFF19, u'0', true},    FoldRange{0xFF21, 0xFF3A, u'a', true},
    FoldRange{0xFF41, 0xFF5A, u'a', true},
};

/// Characters in a row.
struct CharacterRange {
    char32_t first, last;
};

constexpr std::array kUnspaced{
    CharacterRange{0x0E01, 0x0E3A}, CharacterRange{0x0E40, 0x0E4E},   CharacterRange{0x0E81, 0x0ECD}, // Thai, Lao
    CharacterRange{0x1000, 0x1049}, CharacterRange{0x1780, 0x17D3},                                   // Burmese, Khmer
    CharacterRange{0x2E80, 0x2FDF}, CharacterRange{0x3005, 0x3007},   CharacterRange{0x3021, 0x3029},
    CharacterRange{0x3041, 0x3096}, CharacterRange{0x309D, 0x309F},   CharacterRange{0x30A1, 0x30FA},
    CharacterRange{0x30FC, 0x30FF}, CharacterRange{0x3105, 0x312F},   CharacterRange{0x31F0, 0x31FF},
    CharacterRange{0x3400, 0x4DBF}, CharacterRange{0x4E00, 0x9FFF},   CharacterRange{0xF900, 0xFAFF},
    CharacterRange{0xFF66, 0xFF9F}, CharacterRange{0x20000, 0x3FFFD},
};

// Beyond ASCII.
constexpr std::array kNotOfWords{
    CharacterRange{0x0080, 0x00A9}, CharacterRange{0x00AB, 0x00B1},   CharacterRange{0x00B4, 0x00B4},
    CharacterRange{0x00B6, 0x00B8}, CharacterRange{0x00BB, 0x00BB},   CharacterRange{0x00BF, 0x00BF},
    CharacterRange{0x00D7, 0x00D7}, CharacterRange{0x00F7, 0x00F7},   CharacterRange{0x02C2, 0x02C5},
    CharacterRange{0x037E, 0x037E}, CharacterRange{0x0387, 0x0387},   CharacterRange{0x055A, 0x055F},
    CharacterRange{0x0589, 0x058A}, CharacterRange{0x05BE, 0x05BE},   CharacterRange{0x05F3, 0x05F4},
    CharacterRange{0x060C, 0x060D}, CharacterRange{0x061B, 0x061F},   CharacterRange{0x066A, 0x066D},
    CharacterRange{0x06D4, 0x06D4}, CharacterRange{0x0964, 0x0965},   CharacterRange{0x0E4F, 0x0E4F},
    CharacterRange{0x0E5A, 0x0E5B}, CharacterRange{0x104A, 0x104F},   CharacterRange{0x1680, 0x1680},
    CharacterRange{0x17D4, 0x17DB}, CharacterRange{0x2000, 0x206F},   CharacterRange{0x20A0, 0x20CF},
    CharacterRange{0x2190, 0x2BFF}, CharacterRange{0x2E00, 0x2E7F},   CharacterRange{0x3000, 0x3004},
    CharacterRange{0x3008, 0x3020}, CharacterRange{0x302A, 0x3030},   CharacterRange{0x303D, 0x303F},
    CharacterRange{0x30A0, 0x30A0}, CharacterRange{0x30FB, 0x30FB},   CharacterRange{0xD800, 0xF8FF},
    CharacterRange{0xFE10, 0xFE6F}, CharacterRange{0xFEFF, 0xFEFF},   CharacterRange{0xFF00, 0xFF0F},
    CharacterRange{0xFF1A, 0xFF20}, CharacterRange{0xFF3B, 0xFF40},   CharacterRange{0xFF5B, 0xFF65},
    CharacterRange{0xFFE0, 0xFFFF}, CharacterRange{0x1F000, 0x1FAFF}, CharacterRange{0xE0000, 0x10FFFF},
};

constexpr bool IsAmong(std::span<const CharacterRange> ranges, char32_t character) {
    return std::ranges::any_of(
        ranges, [=](const CharacterRange& each) { return character >= each.first && character <= each.last; });
}

bool IsAsciiOfWord(char32_t character) {
    return (character >= U'0' && character <= U'9') || (character >= U'a' && character <= U'z') ||
           (character >= U'A' && character <= U'Z');
}

} // namespace

namespace SearchText {

char16_t Folded(char16_t unit) {
    if (unit < kFirstLatin) return SmallLetter(unit);
    if (const std::size_t at = unit - kFirstLatin; at < kLatinLetters.size()) return kLatinLetters[at];
    for (const FoldRange& each : kFoldRanges)
        if (unit >= each.first && unit <= each.last)
            return each.each ? static_cast<char16_t>(each.becomes + (unit - each.first)) : each.becomes;
    return unit;
}

Text Folded(TextView text) {
    Text folded(text);
    for (char16_t& unit : folded) unit = Folded(unit);
    return folded;
}

bool IsAccent(char16_t unit) { return unit >= 0x0300 && unit <= 0x036F; }

bool IsOfWord(char32_t character) {
    return character < 0x80 ? IsAsciiOfWord(character) : !IsAmong(kNotOfWords, character);
}

bool IsUnspaced(char32_t character) { return character >= kUnspaced.front().first && IsAmong(kUnspaced, character); }

CodePoint CharacterAt(TextView text, std::size_t at) {
    const char16_t unit = text[at];
    if (!IsHighSurrogate(unit) || at + 1 >= text.size() || !IsLowSurrogate(text[at + 1])) return {unit, 1};
    return {0x10000 + ((char32_t{unit} - 0xD800) << 10) + (char32_t{text[at + 1]} - 0xDC00), 2};
}

} // namespace SearchText

} // namespace tessa
