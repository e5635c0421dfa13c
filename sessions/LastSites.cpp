#include "sessions/LastSites.h"

#include "base/Address.h"
#include "base/LinkTrust.h"
#include "tabs/OpenTabs.h"

namespace tessa {

namespace LastSites {

std::vector<Text> Open(const TabStrip& pcPage, ViewArray& Browser) {
    std::vector<Text> sites;
    for (const OpenTab open : OpenTabs(pcPage, Browser)) {
        if (open.Private()) continue;
        const Text address = open.Address();
        if (Address::ComesBack(address)) sites.push_back(address);
    }
    return sites;
}

void Reopen(std::vector<Text> sites, TabSet& tabs, ViewArray& Browser, CameBack& cameBack) {
    // Deliberate: a session of one tab is not reopened.
    if (sites.size() < 2) return;
    for (Text& site : sites) {
        if (TrustOf(site, LinkSource::Session) != LinkTrust::Open) site.clear();
    }
    auto* first = Browser.Find(1);
    if (first && !sites.front().empty()) {
        ResumeNext(first->Control->Stop());
        ResumeNext(first->Control->Navigate(sites.front()));
        cameBack.Note(1, sites.front());
    }
    for (std::size_t i = 1; i < sites.size(); ++i) {
        if (sites[i].empty()) continue;
        auto* view = tabs.GetNewBrowser(InFront::Yes);
        if (!view) continue;
        ResumeNext(view->Navigate(sites[i]));
        cameBack.Note(tabs.CurrentIndex(), sites[i]);
    }
}

} // namespace LastSites

} // namespace tessa
