#include "base/PlainText.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

struct Range {
    char16_t first, last;
};

constexpr std::array kUnseen{
    Range{0x0000, 0x001F}, Range{0x007F, 0x009F}, Range{0x00AD, 0x00AD}, Range{0x034F, 0x034F},
    Range{0x061C, 0x061C}, Range{0x115F, 0x1160}, Range{0x17B4, 0x17B5}, Range{0x180B, 0x180F},
    Range{0x200B, 0x200F}, Range{0x2028, 0x202E}, Range{0x2060, 0x206F}, Range{0x3164, 0x3164},
    Range{0xFE00, 0xFE0F}, Range{0xFEFF, 0xFEFF}, Range{0xFFA0, 0xFFA0}, Range{0xFFF0, 0xFFFB},
};

/// The text's first `most` units, but no half of a character.
Text Cut(Text text, std::size_t most) {
    if (text.size() <= most) return text;
    text.resize(most);
    DropHalf(text);
    return text + u"...";
}

} // namespace

bool IsUnseen(char16_t unit) {
    return std::ranges::any_of(kUnseen, [unit](const Range& each) { return unit >= each.first && unit <= each.last; });
}

std::string WithoutControls(std::string bytes) {
    std::ranges::replace_if(
        bytes, [](char each) { return static_cast<unsigned char>(each) < ' '; }, ' ');
    return bytes;
}

Text PlainLine(TextView text, std::size_t most) {
    Text line;
    bool blank = false;
    for (const char16_t unit : text) {
        if (line.size() > most) break;
        if (unit == u' ' || IsUnseen(unit)) {
            blank = !line.empty();
            continue;
        }
        if (blank) line += u' ';
        blank = false;
        line += unit;
    }
    return Cut(std::move(line), most);
}

Text PlainLines(TextView text, std::size_t lines, std::size_t most) {
    Text result;
    for (std::size_t count = 0; count < lines; ++count) {
        const std::size_t end = text.find(u'\n');
        if (count > 0) result += u'\n';
        result += PlainLine(text.substr(0, end), most);
        if (end == TextView::npos) return result;
        text.remove_prefix(end + 1);
    }
    return result + u"\n...";
}

} // namespace tessa
