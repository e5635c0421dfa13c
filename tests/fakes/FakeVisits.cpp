#include "tests/fakes/FakeVisits.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tessa {

void FakeVisits::Give(std::function<void()> answer) {
    if (slow)
        waiting.push_back(std::move(answer));
    else
        answer();
}

void FakeVisits::Answer() {
    for (const auto& each : std::exchange(waiting, {})) each();
}

void FakeVisits::Keep(HistoryVisit visit) {
    kept.push_back(visit);
    const auto found = std::ranges::find(entries, visit.Address, &HistoryEntry::Address);
    if (visit.Again && found == entries.end()) return;
    HistoryEntry entry;
    if (found != entries.end()) entry = *found;
    if (found != entries.end()) entries.erase(found);
    if (entry.Id == 0) entry.First = visit.When;
    if (!visit.Again || entry.Id == 0) entry.Id = ++m_highest;
    entry.Address = visit.Address;
    entry.Site = visit.Site;
    entry.Title = visit.Title;
    if (!visit.Group.empty()) entry.Group = visit.Group;
    entry.Last = visit.When;
    entry.Visits += visit.Again ? 0 : 1;
    if (visit.Share) entry.Share = visit.Share;
    if (visit.AsRead) entry.AsRead = *visit.AsRead;
    entry.Passages = visit.Passages;
    entries.push_back(std::move(entry));
}

void FakeVisits::Find(const HistoryQuery& query, std::function<void(HistoryFound)> answer) {
    queries.push_back(query);
    HistoryFound found;
    for (auto each = entries.rbegin(); each != entries.rend(); ++each) {
        if (query.Below > 0 && each->Id >= query.Below) continue;
        if (!query.Site.empty() && each->Site != query.Site) continue;
        if (!query.Group.empty() && each->Group != query.Group) continue;
        found.More = found.Entries.size() == query.Most;
        if (found.More) break;
        found.Entries.push_back(*each);
    }
    Give([answer, found] { answer(found); });
}

void FakeVisits::Load(std::vector<Text> addresses, std::function<void(std::vector<HistoryEntry>)> answer) {
    Give([this, addresses = std::move(addresses), answer] {
        std::vector<HistoryEntry> found;
        for (const Text& each : addresses) {
            const auto entry = std::ranges::find(entries, each, &HistoryEntry::Address);
            if (entry != entries.end()) found.push_back(*entry);
        }
        answer(found);
    });
}

void FakeVisits::Look(std::function<void(HistoryOverview)> answer) {
    Give([this, answer] { answer(overview); });
}

void FakeVisits::Remove(HistoryRemoval removal, std::function<void(std::int64_t)> done) {
    const auto count = std::erase_if(entries, [&](const HistoryEntry& each) {
        const bool byId = removal.Ids.empty() || std::ranges::find(removal.Ids, each.Id) != removal.Ids.end();
        const bool bySite = removal.Site.empty() || each.Site == removal.Site;
        return byId && bySite && each.Last >= removal.From.value_or(each.Last) &&
               each.Last < removal.Until.value_or(each.Last + 1);
    });
    Give([done, count] { done(static_cast<std::int64_t>(count)); });
}

HistoryEntry& FakeVisits::At(TextView address) {
    const auto found = std::ranges::find(entries, address, &HistoryEntry::Address);
    if (found != entries.end()) return *found;
    ADD_FAILURE() << "not remembered: " << ToUtf8(address);
    return entries.emplace_back();
}

Text FakeVisits::Addresses() const {
    Text all;
    for (auto each = entries.rbegin(); each != entries.rend(); ++each)
        all += (all.empty() ? u"" : u" ") + each->Address;
    return all;
}

} // namespace tessa
