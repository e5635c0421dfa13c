#include "base/os/FileNameRules.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

constexpr std::array kDevices{TextView(u"CON"), TextView(u"PRN"), TextView(u"AUX"), TextView(u"NUL")};

/// What stands before the first dot, in upper case, without blanks at both ends.
Text UpperStem(TextView name) {
    Text stem(name.substr(0, name.find(u'.')));
    for (char16_t& unit : stem)
        if (unit >= u'a' && unit <= u'z') unit = static_cast<char16_t>(unit - 32);
    const std::size_t first = stem.find_first_not_of(u' ');
    return first == Text::npos ? Text() : stem.substr(first, stem.find_last_not_of(u' ') + 1 - first);
}

} // namespace

bool NamesDevice(TextView name) {
    const Text stem = UpperStem(name);
    if (std::ranges::find(kDevices, stem) != kDevices.end()) return true;
    const bool numbered = stem.size() == 4 && (stem.starts_with(u"COM") || stem.starts_with(u"LPT"));
    return numbered && stem[3] >= u'1' && stem[3] <= u'9';
}

} // namespace tessa
