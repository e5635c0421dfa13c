#include "favorites/LinkTrust.h"

#include <algorithm>
#include <array>
#include <span>

namespace {

constexpr std::array kScripts{TextView(u"javascript"), TextView(u"vbscript"), TextView(u"livescript"),
                              TextView(u"mocha")};
constexpr std::array kWeb{TextView(u"http"), TextView(u"https"), TextView(u"ftp"), TextView(u"about"),
                          TextView(u"mailto")};
constexpr TextView kShowsSource = u"view-source:";

bool IsBlank(char16_t unit) { return unit <= 0x20 || unit == 0x7F || unit == 0xA0; }

Text Bare(TextView address) {
    const auto first = std::ranges::find_if_not(address, IsBlank);
    Text bare(first, address.end());
    std::erase_if(bare, [](char16_t unit) { return unit < 0x20; });
    for (char16_t& unit : bare) {
        if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit + 0x20);
    }
    return bare;
}

bool IsSchemeUnit(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'0' && unit <= u'9') || unit == u'+' || unit == u'-' ||
           unit == u'.';
}

bool IsOneOf(TextView scheme, std::span<const TextView> schemes) {
    return std::ranges::find(schemes, scheme) != schemes.end();
}

/// What follows the colon is a port, so what stands before it is a host.
bool IsPort(TextView rest) {
    const TextView digits = rest.substr(0, rest.find_first_of(u"/?#"));
    return !digits.empty() && digits.size() <= 5 &&
           std::ranges::all_of(digits, [](char16_t unit) { return unit >= u'0' && unit <= u'9'; });
}

bool LooksLikePath(TextView text) {
    return text.starts_with(u'/') || text.starts_with(u'\\') || text.starts_with(u'~') || text.starts_with(u'.');
}

} // namespace

LinkTrust TrustOf(TextView address) {
    const Text bare = Bare(address);
    TextView rest = bare;
    while (rest.starts_with(kShowsSource)) rest.remove_prefix(kShowsSource.size());
    if (LooksLikePath(rest)) return LinkTrust::Ask;
    const std::size_t colon = rest.find(u':');
    const TextView scheme = rest.substr(0, colon);
    if (colon == TextView::npos || !std::ranges::all_of(scheme, IsSchemeUnit)) return LinkTrust::Open;
    if (IsOneOf(scheme, kScripts)) return LinkTrust::Never;
    return IsOneOf(scheme, kWeb) || IsPort(rest.substr(colon + 1)) ? LinkTrust::Open : LinkTrust::Ask;
}
