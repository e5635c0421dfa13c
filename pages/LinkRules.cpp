#include "pages/LinkRules.h"

#include <algorithm>

namespace {

Text SchemeOf(TextView address) {
    Text scheme(address.substr(0, std::min(address.find(u':'), address.size())));
    std::ranges::transform(scheme, scheme.begin(), [](char16_t unit) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    });
    return address.find(u':') == TextView::npos ? Text() : scheme;
}

} // namespace

bool MayOpenFromPage(TextView page, TextView address) {
    const Text scheme = SchemeOf(address);
    if (scheme == u"http" || scheme == u"https") return true;
    return scheme == u"file" && SchemeOf(page) == u"file";
}

bool MaySave(TextView address) {
    const Text scheme = SchemeOf(address);
    return scheme == u"http" || scheme == u"https" || scheme == u"data" || scheme == u"blob";
}
