#include "history/HistoryRules.h"

#include "base/Address.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr std::size_t kLongestKept = 2000;
constexpr std::size_t kLongestHost = 253;

TextView WithoutWww(TextView host) {
    if (host.starts_with(u"www.")) host.remove_prefix(4);
    return host;
}

bool IsBetweenSites(char16_t unit) { return unit <= u' ' || unit == u',' || unit == u';'; }

} // namespace

namespace HistoryRules {

std::optional<Text> KeptAddress(TextView address) {
    const Text scheme = Address::SchemeOf(address);
    if (scheme != u"http" && scheme != u"https") return std::nullopt;
    if (Address::HostIn(address).empty()) return std::nullopt;
    Text kept = Address::WithoutUser(address);
    const std::size_t place = kept.find(u'#');
    // Some pages tell by it what they show.
    const bool shows =
        place != Text::npos && place + 1 < kept.size() && (kept[place + 1] == u'/' || kept[place + 1] == u'!');
    if (place != Text::npos && !shows) kept.resize(place);
    if (kept.size() > kLongestKept) return std::nullopt;
    return kept;
}

Text SiteOf(TextView address) {
    const Text host = InSmallLetters(Address::HostIn(address));
    return Text(WithoutWww(host));
}

HistoryOptions OptionsOf(const HistoryValues& values) {
    return {values.nothing, values.texts, values.days, values.megabytes, SitesIn(values.leftOut)};
}

Kept WhatIsKept(const PageToKeep& page, const HistoryOptions& options) {
    if (options.Nothing || page.Private || page.AsksPassword || !KeptAddress(page.Address)) return Kept::Nothing;
    if (IsLeftOut(SiteOf(page.Address), options.SitesLeftOut)) return Kept::Nothing;
    return options.Texts ? Kept::All : Kept::Address;
}

std::vector<Text> SitesIn(TextView typed) {
    std::vector<Text> sites;
    while (!typed.empty()) {
        const auto end = std::ranges::find_if(typed, IsBetweenSites);
        const auto size = static_cast<std::size_t>(end - typed.begin());
        const TextView word = typed.substr(0, size);
        typed.remove_prefix(std::min(size + 1, typed.size()));
        const TextView host = Address::HostIn(word);
        Text site = InSmallLetters(host.empty() ? word.substr(0, word.find_first_of(u"/:?#")) : host);
        if (site.starts_with(u"*.")) site.erase(0, 2);
        site = Text(WithoutWww(site));
        const bool known = std::ranges::find(sites, site) != sites.end();
        if (!site.empty() && site.size() <= kLongestHost && !known) sites.push_back(std::move(site));
    }
    return sites;
}

Text AsTyped(const std::vector<Text>& sites) {
    Text typed;
    for (const Text& each : sites) typed += (typed.empty() ? u"" : u", ") + each;
    return typed;
}

bool IsLeftOut(TextView site, const std::vector<Text>& sites) {
    return std::ranges::any_of(sites, [&](const Text& each) {
        return site == each ||
               (site.size() > each.size() && site.ends_with(each) && site[site.size() - each.size() - 1] == u'.');
    });
}

} // namespace HistoryRules

} // namespace tessa
