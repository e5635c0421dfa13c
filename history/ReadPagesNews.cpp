// What is remembered of the pages that were read, and what is new in them.
#include "base/OwnAddresses.h"
#include "history/ReadPages.h"

#include <utility>

namespace tessa {

namespace {

// In the words of a tab's tip.
Text NewsWordsOf(const PageNews& news) { return Decimal(news.Share) + u" % new: " + news.FirstWords; }

} // namespace

Kept ReadPages::KeptOf(std::int32_t index, const Followed& followed) const {
    if (followed.forgotten) return Kept::Nothing;
    const ArrayView* view = m_parts.Browser.Find(index);
    const bool isPrivate = !view || view->Privacy == Privacy::Private;
    return HistoryRules::WhatIsKept({followed.page.Address, isPrivate, followed.asksPassword}, m_options);
}

void ReadPages::OnText(std::int32_t index, std::uint64_t document, Use use, TextView gathered) {
    const auto found = m_pages.find(index);
    if (found == m_pages.end() || found->second.document != document || gathered.empty()) return;
    Followed& followed = found->second;
    GatheredText read = Passages::Read(gathered);
    followed.page.Address = std::move(read.Address);
    followed.page.Passages = std::move(read.Passages);
    followed.page.Glanced.clear();
    // Once it has asked for one, what comes behind that is nobody else's business either.
    followed.asksPassword = followed.asksPassword || read.AsksPassword;
    const bool keeps = use == Use::Remember && KeptOf(index, followed) != Kept::Nothing;
    if (keeps && !std::exchange(followed.asked, true)) {
        const auto answer = [this, alive = std::weak_ptr(m_alive), index, document](std::vector<HistoryEntry> entries) {
            if (!alive.expired()) OnKnown(index, document, entries);
        };
        m_parts.store.Load({*HistoryRules::KeptAddress(followed.page.Address)}, answer);
    } else if (keeps && followed.known) {
        Judge(index, followed);
    }
    Changed(index);
}

void ReadPages::OnKnown(std::int32_t index, std::uint64_t document, const std::vector<HistoryEntry>& entries) {
    const auto found = m_pages.find(index);
    if (found == m_pages.end() || found->second.document != document) return;
    Followed& followed = found->second;
    followed.known = true;
    if (!entries.empty()) followed.before = NewsOf::FromBytes(entries.front().AsRead);
    followed.page.WasReadBefore = !followed.before.Keys.empty() && KeptOf(index, followed) == Kept::All;
    Judge(index, followed);
    ShowNews(index, followed);
    Changed(index);
}

// What is kept to compare with was read. It has not come behind the front, never looked at.
void ReadPages::Judge(std::int32_t index, Followed& followed) {
    if (KeptOf(index, followed) == Kept::Nothing) return;
    std::optional<PageAsRead> asRead;
    if (followed.page.WasReadBefore) {
        auto compared = NewsOf::Compare(followed.before, followed.page.Passages);
        // What comes while somebody reads is no news of a later visit.
        if (!followed.told) {
            for (const std::size_t each : compared.News.New)
                followed.news.push_back(followed.page.Passages[each].Words);
            followed.page.News = std::move(compared.News);
        }
        if (followed.page.Seen) asRead = std::move(compared.Now);
    } else if (followed.page.Seen) {
        asRead = NewsOf::FirstTime(followed.page.Passages);
    }
    Keep(index, followed, asRead);
    followed.told = true;
}

void ReadPages::ShowNews(std::int32_t index, const Followed& followed) {
    Tab* tab = TabOf(index);
    if (!tab || !followed.page.WasReadBefore) return;
    const PageNews& news = followed.page.News;
    m_parts.pcPage.SetNews(tab, news.Any() ? TabNews::New : TabNews::Nothing,
                           news.Any() ? NewsWordsOf(news) : Text(u"Nothing new since you read it"));
}

HistoryVisit ReadPages::VisitOf(const Followed& followed, const ArrayView& view) const {
    const Text address = HistoryRules::KeptAddress(followed.page.Address).value_or(Text());
    HistoryVisit visit{address, HistoryRules::SiteOf(address), view.Control->LocationName()};
    visit.Group = followed.group;
    visit.When = m_parts.clock.Now();
    visit.Again = followed.told;
    // To make it takes longer than all the rest. A visit that is told again keeps the one that it has.
    const auto* life = followed.pictured ? nullptr : view.Control->Life();
    if (life) visit.Icon = life->Picture();
    return visit;
}

void ReadPages::Keep(std::int32_t index, Followed& followed, const std::optional<PageAsRead>& asRead) {
    const ArrayView* view = m_parts.Browser.Find(index);
    if (!view || !HistoryRules::KeptAddress(followed.page.Address)) return;
    const bool texts = KeptOf(index, followed) == Kept::All;
    HistoryVisit visit = VisitOf(followed, *view);
    followed.pictured = followed.pictured || !visit.Icon.empty();
    if (texts) visit.Passages = Passages::ToBytes(followed.page.Passages);
    if (texts && asRead) visit.AsRead = NewsOf::ToBytes(*asRead);
    if (texts && followed.page.WasReadBefore) visit.Share = followed.page.News.Share;
    m_parts.store.Keep(std::move(visit));
    if (!std::exchange(m_limited, true)) m_parts.store.Limit(m_options.Days, m_options.Megabytes);
    Remembered();
}

// By the time of the answer its view has gone, so what is known of the page waits for that.
void ReadPages::Closes(std::int32_t index) {
    const auto found = m_pages.find(index);
    const ArrayView* view = m_parts.Browser.Find(index);
    // What lies behind the front was read when it was left, and nobody has looked at it since.
    if (index != m_front || found == m_pages.end() || !view || !found->second.told) return;
    auto* reading = view->Control->Reading();
    if (!reading || KeptOf(index, found->second) != Kept::All) return;
    reading->ReadText([this, alive = std::weak_ptr(m_alive), last = found->second,
                       visit = VisitOf(found->second, *view)](const Text& gathered) {
        if (!alive.expired()) KeepLast(last, visit, gathered);
    });
}

void ReadPages::KeepLast(const Followed& last, HistoryVisit visit, TextView gathered) {
    const GatheredText read = Passages::Read(gathered);
    if (read.Address != last.page.Address || read.AsksPassword || read.Passages == last.page.Passages) return;
    visit.Passages = Passages::ToBytes(read.Passages);
    visit.AsRead = NewsOf::ToBytes(last.page.WasReadBefore ? NewsOf::Compare(last.before, read.Passages).Now
                                                           : NewsOf::FirstTime(read.Passages));
    m_parts.store.Keep(std::move(visit));
    Remembered();
}

std::size_t ReadPages::ShowNextNews(std::int32_t index) {
    const auto found = m_pages.find(index);
    ArrayView* view = m_parts.Browser.Find(index);
    auto* reading = view ? view->Control->Reading() : nullptr;
    if (found == m_pages.end() || !reading || found->second.news.empty()) return 0;
    Followed& followed = found->second;
    followed.shownNews = followed.shownNews % followed.news.size() + 1;
    reading->ShowPassages(followed.news, followed.shownNews - 1);
    return followed.shownNews;
}

} // namespace tessa
