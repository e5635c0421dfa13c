#include "groups/GroupMerge.h"

#include "base/Address.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace tessa::GroupMerge {

namespace {

/// The addresses of a list by the pages that they lead to, the first of each.
using Pages = std::unordered_map<Text, Text>;

Pages PagesIn(const std::vector<Text>& addresses) {
    Pages pages;
    for (const Text& each : addresses) pages.emplace(Address::PageOf(each), each);
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

std::vector<Compared> Compare(const std::vector<Text>& here, const std::vector<Text>& there) {
    const Pages pagesThere = PagesIn(there);
    const std::unordered_set<Text> thereByLetter(there.begin(), there.end());
    std::vector<Compared> all;
    Pages seen;
    for (const Text& each : here) {
        const Text page = Address::PageOf(each);
        const auto [before, isFirst] = seen.emplace(page, each);
        all.push_back(isFirst ? CompareOne(each, page, pagesThere, thereByLetter)
                              : Compared{each, Standing::Again, before->second == each ? Text() : before->second});
    }
    for (const Text& each : there) {
        if (seen.emplace(Address::PageOf(each), each).second) all.push_back({each, Standing::OnlyThere});
    }
    return all;
}

} // namespace tessa::GroupMerge
