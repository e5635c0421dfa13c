#include "base/Captions.h"

namespace tessa {

namespace {

constexpr char16_t kReplacementUnit = 0xFFFD;

constexpr bool IsControl(char16_t unit) {
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0) || unit == 0x2028 || unit == 0x2029;
}

constexpr bool TurnsWriting(char16_t unit) {
    return unit == 0x061C || unit == 0x200E || unit == 0x200F || (unit >= 0x202A && unit <= 0x202E) ||
           (unit >= 0x2066 && unit <= 0x2069);
}

} // namespace

Text OneLine(TextView text) {
    Text line(text);
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (IsControl(text[at]) || TurnsWriting(text[at]) || IsUnpaired(text, at)) line[at] = kReplacementUnit;
    }
    return line;
}

Text EscapedCaption(TextView text) {
    Text caption;
    for (const char16_t unit : text) caption.append(unit == u'&' ? 2 : 1, unit);
    return caption;
}

Text PlainCaption(TextView caption) {
    Text plain;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && ++i >= caption.size()) break;
        plain += caption[i];
    }
    return plain;
}

Text WithoutAccessKey(TextView caption) {
    Text plain = PlainCaption(caption);
    return plain.ends_with(u"...") ? plain.substr(0, plain.size() - 3) : plain;
}

std::optional<char16_t> AccessKeyOf(TextView caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != u'&') continue;
        const char16_t unit = caption[++i];
        const bool small = unit >= u'a' && unit <= u'z';
        if (unit != u'&') return small ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
    }
    return std::nullopt;
}

Text MenuCaption(TextView text) { return EscapedCaption(OneLine(text)); }

} // namespace tessa
