#include "startpage/HomeFacts.h"

#include "groups/TessaGroups.h"
#include "history/HistoryRules.h"

namespace tessa {

namespace {

constexpr std::size_t kMostAskedGroups = 60, kMostSites = 8, kMostClosed = 6;

} // namespace

void HomeFacts::Ask() {
    const CKeyValues groups = TessaGroups::List(m_parts.groupFolder);
    std::size_t asked = 0;
    for (const CKeyValue& each : groups)
        if (++asked <= kMostAskedGroups) AskGroup(each.Key, each.Value);
    m_parts.store.Look([this, alive = std::weak_ptr(m_alive)](const HistoryOverview& overview) {
        if (!alive.expired()) TakeSites(overview);
    });
}

void HomeFacts::AskGroup(const Text& name, const Text& path) {
    const std::size_t pages = TessaGroups::Load(path).Count();
    if (pages == 0) return;
    const std::int64_t yesterday = m_parts.clock.DayBegin(m_parts.clock.DayBegin(m_parts.clock.Now()) - 1);
    // By the group, not by its addresses: many of these lead elsewhere.
    const HistoryQuery query{.Group = name, .Most = pages};
    m_parts.store.Find(query,
                       [this, alive = std::weak_ptr(m_alive), name, pages, yesterday](const HistoryFound& found) {
                           if (alive.expired()) return;
                           GroupNews news{0, pages};
                           for (const HistoryEntry& each : found.Entries)
                               if (each.Last >= yesterday && each.Share.value_or(0) > 0) ++news.fresh;
                           GroupNews& known = m_groups[name];
                           if (known == news) return;
                           // Without any there is nothing to show, and there was nothing.
                           const bool shows = known.fresh != news.fresh;
                           known = news;
                           if (shows) TellChanged();
                       });
}

void HomeFacts::TakeSites(const HistoryOverview& overview) {
    std::vector<StartLink> sites;
    for (const HistoryOverview::Site& each : overview.Sites) {
        // Once is not often.
        if (sites.size() < kMostSites && each.Visits > 1) sites.push_back({each.Name, each.Address});
    }
    if (sites == m_sites) return;
    m_sites = std::move(sites);
    TellChanged();
}

void HomeFacts::TellChanged() {
    m_newer = true;
    Changed();
}

void HomeFacts::Forget() {
    m_groups.clear();
    m_sites.clear();
    TellChanged();
}

void HomeFacts::AddTo(StartContent& content) {
    m_newer = false;
    for (StartGroup& each : content.Groups) {
        const auto news = m_groups.find(each.Name);
        if (news == m_groups.end() || news->second.fresh == 0) continue;
        each.News = Decimal(static_cast<std::int64_t>(news->second.fresh)) + u" of " +
                    Decimal(static_cast<std::int64_t>(news->second.pages)) + u" new since yesterday";
    }
    content.Sites = m_sites;
    for (const auto& [title, address] : m_parts.closed.Last(kMostClosed)) {
        // What is no page of the web could reach from here what pages must not.
        if (HistoryRules::KeptAddress(address)) content.Closed.push_back({title.empty() ? address : title, address});
    }
}

} // namespace tessa
