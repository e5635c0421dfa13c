#include "sessions/LastSites.h"

#include "base/Address.h"
#include "base/LinkTrust.h"
#include "tabs/OpenTabs.h"
#include "tabs/TabKeys.h"

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

namespace tessa {

namespace LastSites {

namespace {

bool IsKept(const OpenTab& open) { return !open.Private() && Address::ComesBack(open.Address()); }

/// The number that each view's address has among those that are kept; 0 for others.
std::function<std::int32_t(std::int32_t)> Numbers(const TabStrip& pcPage, ViewArray& Browser) {
    std::map<std::int32_t, std::int32_t> numbers;
    for (const OpenTab open : OpenTabs(pcPage, Browser)) {
        if (!IsKept(open)) continue;
        const auto number = static_cast<std::int32_t>(numbers.size() + 1);
        numbers[open.Index()] = number;
    }
    return [numbers = std::move(numbers)](std::int32_t index) {
        const auto number = numbers.find(index);
        return number == numbers.end() ? 0 : number->second;
    };
}

} // namespace

std::vector<Text> Open(const TabStrip& pcPage, ViewArray& Browser) {
    std::vector<Text> sites;
    for (const OpenTab open : OpenTabs(pcPage, Browser)) {
        if (IsKept(open)) sites.push_back(open.Address());
    }
    return sites;
}

std::vector<Text> OpenTiles(const TabStrip& pcPage, ViewArray& Browser, const Tiles& tiles) {
    return tiles.Kept(Numbers(pcPage, Browser));
}

Text OpenGroups(const TabStrip& pcPage, ViewArray& Browser, const TabGroups& groups) {
    return KeptGroupsText(groups.Kept(Numbers(pcPage, Browser)));
}

std::vector<Text> OpenNames(const TabStrip& pcPage, ViewArray& Browser) {
    std::vector<Text> names;
    bool any = false;
    for (const OpenTab open : OpenTabs(pcPage, Browser)) {
        if (!IsKept(open)) continue;
        names.push_back(open.Item.Name());
        any |= !open.Item.Name().empty();
    }
    return any ? names : std::vector<Text>();
}

void Name(const std::vector<Text>& names, const std::vector<std::int32_t>& indexes, TabStrip& pcPage) {
    for (std::size_t i = 0; i < std::min(names.size(), indexes.size()); ++i) {
        if (auto* tab = TabOfView(pcPage, indexes[i])) pcPage.SetName(tab, names[i]);
    }
}

std::vector<std::int32_t> Reopen(std::vector<Text> sites, TabSet& tabs, ViewArray& Browser, CameBack& cameBack) {
    // Deliberate: a session of one tab is not reopened.
    if (sites.size() < 2) return {};
    std::vector<std::int32_t> opened(sites.size(), 0);
    for (Text& site : sites) {
        if (TrustOf(site, LinkSource::Session) != LinkTrust::Open) site.clear();
    }
    auto* first = Browser.Find(1);
    if (first && !sites.front().empty()) {
        ResumeNext(first->Control->Stop());
        ResumeNext(first->Control->Navigate(sites.front()));
        cameBack.Note(1, sites.front());
        opened.front() = 1;
    }
    for (std::size_t i = 1; i < sites.size(); ++i) {
        if (sites[i].empty()) continue;
        auto* view = tabs.GetNewBrowser(InFront::Yes);
        if (!view) continue;
        ResumeNext(view->Navigate(sites[i]));
        opened[i] = tabs.CurrentIndex();
        cameBack.Note(opened[i], sites[i]);
    }
    return opened;
}

} // namespace LastSites

} // namespace tessa
