#include "groups/GroupMerge.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace tessa::GroupMerge {

namespace {

constexpr TextView kWorldWideWeb = u"www.";
constexpr TextView kSchemeEnd = u"://";
constexpr TextView kEndsHost = u"/?#";

bool NamesPage(TextView fragment) { return fragment.starts_with(u"#!") || fragment.starts_with(u"#/"); }

/// The addresses of a list by the pages that they lead to, the first of each.
using Pages = std::unordered_map<Text, Text>;

Pages PagesIn(const std::vector<Text>& addresses) {
    Pages pages;
    for (const Text& each : addresses) pages.emplace(PageOf(each), each);
    return pages;
}

Compared CompareOne(const Text& address, const Text& page, const Pages& there,
                    const std::unordered_set<Text>& thereByLetter) {
    if (thereByLetter.contains(address)) return {address, Standing::Both};
    const auto alike = there.find(page);
    return alike == there.end() ? Compared{address, Standing::OnlyHere}
                                : Compared{address, Standing::Alike, alike->second};
}

} // namespace

Text PageOf(TextView address) {
    const std::size_t fragmentAt = std::min(address.find(u'#'), address.size());
    const TextView fragment = address.substr(fragmentAt);
    TextView rest = address.substr(0, fragmentAt);
    const std::size_t queryAt = std::min(rest.find(u'?'), rest.size());
    const TextView query = rest.substr(queryAt);
    rest = rest.substr(0, queryAt);
    Text page;
    if (const std::size_t scheme = rest.find(kSchemeEnd); scheme != TextView::npos) {
        const std::size_t hostAt = scheme + kSchemeEnd.size();
        const std::size_t hostEnd = std::min(rest.find_first_of(kEndsHost, hostAt), rest.size());
        Text host = InSmallLetters(rest.substr(hostAt, hostEnd - hostAt));
        if (host.starts_with(kWorldWideWeb)) host.erase(0, kWorldWideWeb.size());
        page = InSmallLetters(rest.substr(0, hostAt)) + host;
        rest.remove_prefix(hostEnd);
    }
    if (rest.ends_with(u'/')) rest.remove_suffix(1);
    page.append(rest).append(query);
    return NamesPage(fragment) ? page.append(fragment) : page;
}

std::vector<Compared> Compare(const std::vector<Text>& here, const std::vector<Text>& there) {
    const Pages pagesThere = PagesIn(there);
    const std::unordered_set<Text> thereByLetter(there.begin(), there.end());
    std::vector<Compared> all;
    Pages seen;
    for (const Text& each : here) {
        const Text page = PageOf(each);
        const auto [before, isFirst] = seen.emplace(page, each);
        all.push_back(isFirst ? CompareOne(each, page, pagesThere, thereByLetter)
                              : Compared{each, Standing::Again, before->second == each ? Text() : before->second});
    }
    for (const Text& each : there) {
        if (seen.emplace(PageOf(each), each).second) all.push_back({each, Standing::OnlyThere});
    }
    return all;
}

} // namespace tessa::GroupMerge
