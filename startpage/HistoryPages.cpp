#include "startpage/HistoryPages.h"

#include "base/OwnAddresses.h"
#include "base/PlainText.h"
#include "tabs/OpenTabs.h"

namespace tessa {

namespace {

constexpr std::size_t kShownSite = 80;
constexpr std::size_t kMostTold = 20'000;
/// So many pages open without a question.
constexpr std::size_t kManyOpened = 15;

Text PagesForgotten(std::int64_t count) {
    if (count == 0) return u"There was nothing to forget.";
    return count == 1 ? Text(u"One page was forgotten.") : Decimal(count) + u" pages were forgotten.";
}

} // namespace

bool HistoryPages::Shows(std::int32_t index) const {
    const ArrayView* view = m_parts.Browser.Find(index);
    return view && view->Control->LocationURL() == OwnAddresses::kHistory;
}

void HistoryPages::Show() {
    for (const OpenTab open : OpenTabs(m_parts.pcPage, m_parts.Browser)) {
        if (open.Address() != OwnAddresses::kHistory) continue;
        const std::int32_t index = open.Index();
        m_parts.pcPage.Select(&open.Item);
        // Other pages have been read since it was looked at last.
        Loads(index);
        return Tell(index, HistoryPage::kLookAnew);
    }
    if (auto* view = m_parts.tabs.GetNewBrowser(InFront::Yes)) ResumeNext(view->Navigate(OwnAddresses::kHistory));
}

void HistoryPages::Tell(std::int32_t index, TextView message) {
    ArrayView* view = m_parts.Browser.Find(index);
    // A page that has gone elsewhere meanwhile must not see it.
    if (!view || !Shows(index)) return;
    if (auto* reading = view->Control->Reading()) reading->Tell(message);
}

void HistoryPages::Loads(std::int32_t index) {
    if (!Shows(index)) return;
    m_parts.store.Look([this, alive = std::weak_ptr(m_alive), index](const HistoryOverview& overview) {
        if (!alive.expired()) Tell(index, HistoryPage::GroupsAnswer(overview.Groups));
    });
}

void HistoryPages::AskAgain() {
    for (const OpenTab open : OpenTabs(m_parts.pcPage, m_parts.Browser)) Tell(open.Index(), HistoryPage::kAskAgain);
}

void HistoryPages::Ask(std::int32_t index, TextView message) {
    const auto request = Shows(index) ? HistoryPage::RequestIn(message) : std::nullopt;
    if (!request) return;
    using Kind = HistoryRequest::Kind;
    switch (request->What) {
    case Kind::Find:
        return Find(index, *request);
    case Kind::Open:
        return Open(request->Ids);
    case Kind::Keep:
        return Keep(request->Ids);
    case Kind::Delete:
        // Nothing said would be everything.
        if (!request->Ids.empty()) Remove({.Ids = request->Ids});
        return;
    case Kind::DeleteSite:
        return RemoveSite(request->Site);
    case Kind::DeleteDay:
        return RemoveDay(request->From, request->Until);
    }
}

void HistoryPages::Find(std::int32_t index, const HistoryRequest& request) {
    const auto answer = [this, alive = std::weak_ptr(m_alive), index, request](const HistoryFound& found) {
        if (alive.expired()) return;
        if (m_addresses.size() > kMostTold) m_addresses.clear();
        for (const HistoryEntry& each : found.Entries) m_addresses[each.Id] = each.Address;
        Tell(index, HistoryPage::Answer(request, found, m_parts.clock));
    };
    m_parts.store.Find(HistoryPage::QueryOf(request), answer);
}

std::vector<Text> HistoryPages::AddressesOf(const std::vector<std::int64_t>& ids) const {
    std::vector<Text> addresses;
    for (const std::int64_t id : ids)
        if (const auto found = m_addresses.find(id); found != m_addresses.end()) addresses.push_back(found->second);
    return addresses;
}

void HistoryPages::Open(const std::vector<std::int64_t>& ids) {
    const std::vector<Text> addresses = AddressesOf(ids);
    const Text count = Decimal(static_cast<std::int64_t>(addresses.size()));
    if (addresses.size() > kManyOpened &&
        !m_parts.messages.AskOwn({u"Open " + count + u" tabs?", {}, u"&Cancel", u"&Open Them All"}))
        return;
    if (!addresses.empty()) m_parts.groups.OpenInTabs(addresses);
}

void HistoryPages::Keep(const std::vector<std::int64_t>& ids) {
    const std::vector<Text> addresses = AddressesOf(ids);
    if (addresses.empty()) return;
    Text file = m_parts.files.ShowSave({.DialogTitle = u"Keep as TessaGroup",
                                        .InitDir = m_parts.groupFolder,
                                        .Filter = Text(TessaGroups::kFileFilter)});
    if (file.empty()) return;
    if (!file.ends_with(TessaGroups::kExtension)) file += TessaGroups::kExtension;
    const auto saved = TessaGroups::Save(file, addresses, m_parts.messages);
    if (saved == TessaGroups::Saved::Failed) m_parts.tabs.Say(u"The TessaGroup could not be written.");
    if (saved != TessaGroups::Saved::Yes) return;
    m_parts.tabs.Say(Decimal(static_cast<std::int64_t>(addresses.size())) + u" pages were kept as a TessaGroup.");
    GroupSaved();
}

void HistoryPages::Remove(const HistoryRemoval& removal) {
    m_parts.store.Remove(removal, [this, alive = std::weak_ptr(m_alive)](std::int64_t count) {
        if (alive.expired()) return;
        m_parts.tabs.Say(PagesForgotten(count));
        AskAgain();
    });
}

void HistoryPages::RemoveSite(const Text& site) {
    if (site.empty()) return;
    const Text heading = u"Forget all pages of " + PlainLine(site, kShownSite) + u"?";
    if (m_parts.messages.AskOwn({heading, {}, u"&Cancel", u"&Forget Them"})) Remove({.Site = site});
}

void HistoryPages::RemoveDay(std::int64_t from, std::int64_t until) {
    if (from == 0 || until <= from) return;
    if (m_parts.messages.AskOwn({u"Forget all pages of this day?", {}, u"&Cancel", u"&Forget Them"}))
        Remove({.From = from, .Until = until});
}

} // namespace tessa
