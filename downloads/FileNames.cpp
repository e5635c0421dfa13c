#include "downloads/FileNames.h"

#include "base/PlainText.h"

#include <algorithm>
#include <array>

namespace {

/// Leaves room for " (123)" and for what the engine adds while it writes.
constexpr std::size_t kLongestNameBytes = 180;
constexpr std::size_t kLongestEnding = 16;

constexpr TextView kRefused = u"/\\:*?\"<>|";

constexpr std::array kDevices{TextView(u"CON"), TextView(u"PRN"), TextView(u"AUX"), TextView(u"NUL")};
/// Files that say themselves what is started when they are opened.
constexpr std::array kStarters{TextView(u".desktop"), TextView(u".lnk"), TextView(u".url"), TextView(u".scf"),
                               TextView(u".local")};

char16_t Upper(char16_t unit) { return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit; }

Text Upper(TextView text) {
    Text upper(text);
    std::ranges::transform(upper, upper.begin(), [](char16_t unit) { return Upper(unit); });
    return upper;
}

/// Without what is refused at the beginning or the end of a name.
Text Trimmed(const Text& name) {
    const std::size_t first = name.find_first_not_of(u". ");
    return first == Text::npos ? Text() : name.substr(first, name.find_last_not_of(u". ") + 1 - first);
}

Text Characters(TextView suggested) {
    Text name;
    for (const char16_t unit : suggested) {
        if (IsUnseen(unit)) continue;
        name += kRefused.find(unit) == TextView::npos ? unit : u'_';
    }
    return name;
}

/// Where the ending begins, its dot included; the name's size without one. ".tar.gz" is one ending.
std::size_t EndingOf(TextView name) {
    const std::size_t dot = name.rfind(u'.');
    if (dot == TextView::npos || dot == 0 || name.size() - dot > kLongestEnding) return name.size();
    const TextView stem = name.substr(0, dot);
    return stem.size() > 4 && stem.ends_with(u".tar") ? dot - 4 : dot;
}

bool IsDevice(TextView name) {
    const Text stem = Trimmed(Upper(name.substr(0, name.find(u'.'))));
    if (std::ranges::find(kDevices, stem) != kDevices.end()) return true;
    const bool numbered = stem.size() == 4 && (stem.starts_with(u"COM") || stem.starts_with(u"LPT"));
    return numbered && stem[3] >= u'1' && stem[3] <= u'9';
}

bool IsStarter(TextView name) {
    return std::ranges::any_of(kStarters, [&](TextView ending) { return Upper(name).ends_with(Upper(ending)); });
}

std::size_t Bytes(TextView text) { return ToUtf8(text).size(); }

/// The stem cut so that it and the ending have no more bytes than that, and no half of a character.
Text Shortened(const Text& name) {
    if (Bytes(name) <= kLongestNameBytes) return name;
    const std::size_t ending = EndingOf(name);
    Text stem = name.substr(0, ending);
    const Text kept = name.substr(ending);
    while (!stem.empty() && Bytes(stem) + Bytes(kept) > kLongestNameBytes) stem.pop_back();
    if (!stem.empty() && stem.back() >= 0xD800 && stem.back() <= 0xDBFF) stem.pop_back();
    return Trimmed(stem) + kept;
}

int HexDigit(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    const char lower = static_cast<char>(digit | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::string Decoded(const std::string& text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escape = text[i] == '%' && i + 2 < text.size();
        const int high = escape ? HexDigit(text[i + 1]) : -1;
        const int low = escape ? HexDigit(text[i + 2]) : -1;
        bytes += high < 0 || low < 0 ? text[i] : static_cast<char>(high * 16 + low);
        if (high >= 0 && low >= 0) i += 2;
    }
    return bytes;
}

} // namespace

Text CleanFileName(TextView suggested) {
    Text name = Shortened(Trimmed(Characters(suggested)));
    if (name.empty()) return u"download";
    if (IsDevice(name)) name.insert(0, 1, u'_');
    if (IsStarter(name)) name += u".download";
    return name;
}

Text FileNameOfAddress(TextView address) {
    const std::size_t scheme = address.find(u':');
    if (address.starts_with(u"data:") || address.starts_with(u"blob:") || scheme == TextView::npos)
        return CleanFileName({});
    address = address.substr(0, address.find_first_of(u"?#"));
    const std::size_t host = address.find(u"//");
    if (host != TextView::npos) address = address.substr(std::min(address.find(u'/', host + 2), address.size()));
    return CleanFileName(FromBytes(Decoded(ToUtf8(address.substr(address.rfind(u'/') + 1)))));
}

Text FreeFileName(TextView name, const std::function<bool(TextView)>& taken) {
    const std::size_t ending = EndingOf(name);
    Text candidate(name);
    for (std::int64_t number = 1; taken(candidate); ++number) {
        candidate = Text(name.substr(0, ending)) + u" (" + Decimal(number) + u")" + Text(name.substr(ending));
    }
    return candidate;
}
