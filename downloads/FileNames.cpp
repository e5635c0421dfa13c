#include "downloads/FileNames.h"

#include "base/Percent.h"
#include "base/PlainText.h"
#include "base/os/FileNameRules.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

/// Leaves room for " (123)" and for what the engine adds while it writes.
constexpr std::size_t kLongestNameBytes = 180;
constexpr std::size_t kLongestEnding = 16;

constexpr TextView kRefused = u"/\\:*?\"<>|";

/// Files that say themselves what is started when they are opened.
constexpr std::array kStarters{TextView(u".desktop"), TextView(u".lnk"), TextView(u".url"), TextView(u".scf"),
                               TextView(u".local")};

/// Without what is refused at the beginning or the end of a name.
Text WithoutDots(TextView name) {
    return Text(TrimmedOf(name, [](char16_t unit) { return unit == u'.' || unit == u' '; }));
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

bool IsStarter(TextView name) {
    return std::ranges::any_of(kStarters, [&](TextView ending) { return InSmallLetters(name).ends_with(ending); });
}

std::size_t Bytes(TextView text) { return ToUtf8(text).size(); }

/// The stem, cut so that with the ending it has at most that many bytes and no half character.
Text Shortened(const Text& name) {
    if (Bytes(name) <= kLongestNameBytes) return name;
    const std::size_t ending = EndingOf(name);
    Text stem = name.substr(0, ending);
    const Text kept = name.substr(ending);
    while (!stem.empty() && Bytes(stem) + Bytes(kept) > kLongestNameBytes) stem.pop_back();
    DropHalf(stem);
    return WithoutDots(stem) + kept;
}

} // namespace

Text CleanFileName(TextView suggested) {
    Text name = Shortened(WithoutDots(Characters(suggested)));
    if (name.empty()) return u"download";
    if (NamesDevice(name)) name.insert(0, 1, u'_');
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
    return CleanFileName(FromBytes(PercentDecoded(ToUtf8(address.substr(address.rfind(u'/') + 1)))));
}

Text FreeFileName(TextView name, const std::function<bool(TextView)>& taken) {
    const std::size_t ending = EndingOf(name);
    Text candidate(name);
    for (std::int64_t number = 1; taken(candidate); ++number) {
        candidate = Text(name.substr(0, ending)) + u" (" + Decimal(number) + u")" + Text(name.substr(ending));
    }
    return candidate;
}

} // namespace tessa
