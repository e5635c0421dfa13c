#include "history/ReadPages.h"

#include "base/Address.h"
#include "base/OwnAddresses.h"
#include "tabs/OpenTabs.h"

#include <algorithm>
#include <utility>

namespace tessa {

namespace {

constexpr std::size_t kMostNoted = 2000;

// In the words of a tab's tip.
Text NewsWordsOf(const PageNews& news) { return Decimal(news.Share) + u" % new: " + news.FirstWords; }

bool HasPageToRead(TextView address) {
    return !address.empty() && address != Address::kBlank && !address.starts_with(OwnAddresses::kPrefix);
}

// An address as a group may have it: without its scheme, a slash at its end, and the place in the page.
Text GroupKey(TextView address) {
    address = address.substr(0, address.find(u'#'));
    for (const TextView scheme : {u"https://", u"http://"})
        if (address.starts_with(scheme)) address.remove_prefix(scheme.size());
    if (address.ends_with(u'/')) address.remove_suffix(1);
    return Text(address);
}

// Another place in a page is the same page.
TextView WithoutPlace(TextView address) { return address.substr(0, address.find(u'#')); }

} // namespace

const ReadPages::Page* ReadPages::Find(std::int32_t index) const {
    const auto found = m_pages.find(index);
    return found == m_pages.end() ? nullptr : &found->second.page;
}

bool ReadPages::HasText(std::int32_t index) const {
    const Page* page = Find(index);
    return page && !page->Address.empty();
}

Tab* ReadPages::TabOf(std::int32_t index) const {
    for (const OpenTab open : OpenTabs(m_parts.pcPage, m_parts.Browser))
        if (open.Index() == index) return &open.Item;
    return nullptr;
}

std::vector<TabOfRound> ReadPages::Round() const {
    std::vector<TabOfRound> tabs;
    for (const OpenTab open : OpenTabs(m_parts.pcPage, m_parts.Browser)) {
        const Page* page = Find(open.Index());
        tabs.push_back({open.Index(), HasPageToRead(open.Address()), page && page->Seen});
    }
    return tabs;
}

std::vector<std::int32_t> ReadPages::WithoutNews() const {
    std::vector<std::int32_t> indexes;
    for (const auto& [index, followed] : m_pages)
        if (followed.page.WasReadBefore && !followed.page.News.Any()) indexes.push_back(index);
    return indexes;
}

std::vector<std::int32_t> ReadPages::Read() const {
    std::vector<std::int32_t> indexes;
    for (const TabOfRound& each : Round())
        if (each.Counts && each.Read) indexes.push_back(each.Index);
    return indexes;
}

void ReadPages::SetOptions(const HistoryOptions& options) {
    const bool limits = options.Days != m_options.Days || options.Megabytes != m_options.Megabytes;
    m_options = options;
    // At the start there is better to do; the first page that is remembered brings it about.
    if (m_limited && limits) m_parts.store.Limit(options.Days, options.Megabytes);
}

void ReadPages::NoteGroup(TextView name, const std::vector<Text>& addresses) {
    if (m_groups.size() > kMostNoted) m_groups.clear();
    for (const Text& each : addresses) m_groups[GroupKey(each)] = name;
}

void ReadPages::Begins(std::int32_t index, TextView address) {
    Followed& followed = m_pages[index];
    if (!followed.begun) ReadToRemember(index);
    const auto noted = m_groups.find(GroupKey(address));
    // On its way a page may be led elsewhere, and is of that group still.
    if (noted != m_groups.end())
        followed.nextGroup = noted->second;
    else if (!followed.begun)
        followed.nextGroup.clear();
    followed.begun = true;
}

void ReadPages::Shows(std::int32_t index, TextView address) {
    Followed& followed = m_pages[index];
    if (!followed.begun && WithoutPlace(followed.shown) == WithoutPlace(address)) return;
    // A page that goes to another address by itself is not loaded again.
    const bool byItself = !followed.begun && followed.page.Loaded;
    Text group = followed.begun ? std::move(followed.nextGroup) : Text();
    followed = {};
    followed.group = std::move(group);
    followed.document = ++m_documents;
    followed.shown = address;
    if (Tab* tab = TabOf(index)) m_parts.pcPage.SetNews(tab, TabNews::Unknown);
    if (byItself) Loads(index);
    Changed(index);
}

void ReadPages::Loads(std::int32_t index) {
    if (!Now) return;
    Followed& followed = m_pages[index];
    if (followed.document == 0) followed.document = ++m_documents;
    followed.page.Loaded = true;
    followed.loaded = Now();
    followed.due = followed.loaded + kRest;
    if (index == m_front) See(index);
    ScheduleNext();
}

void ReadPages::See(std::int32_t index) {
    const auto found = m_pages.find(index);
    if (found == m_pages.end() || !found->second.page.Loaded || found->second.page.Seen) return;
    found->second.page.Seen = true;
    if (found->second.known) Judge(index, found->second);
    Changed(index);
}

// What is left is read once more; what was new in it has been seen.
void ReadPages::Touch() {
    const Tab* selected = m_parts.pcPage.SelectedItem();
    const std::int32_t front = selected ? selected->Tag : 0;
    if (front == m_front) return;
    const std::int32_t left = std::exchange(m_front, front);
    const Page* page = Find(left);
    if (page && page->Loaded) ReadToRemember(left);
    See(front);
}

void ReadPages::ScheduleNext() {
    Time next{0};
    for (const auto& [index, followed] : m_pages)
        if (followed.due.count() > 0 && (next.count() == 0 || followed.due < next)) next = followed.due;
    if (next.count() > 0 && Now) Schedule(std::max(next - Now(), Time{0}));
}

bool ReadPages::AnyLoads() const {
    for (const OpenTab open : OpenTabs(m_parts.pcPage, m_parts.Browser))
        if (open.View && open.View->Control->Busy()) return true;
    return false;
}

void ReadPages::Look() {
    if (!Now) return;
    ForgetClosed();
    const Time now = Now();
    const bool loads = AnyLoads();
    std::vector<std::int32_t> due;
    for (auto& [index, followed] : m_pages) {
        if (followed.due.count() == 0 || followed.due > now) continue;
        if (loads && now < followed.loaded + kPatience) {
            followed.due = now + kRest;
            continue;
        }
        followed.due = Time{0};
        due.push_back(index);
    }
    for (const std::int32_t index : due) ReadToRemember(index);
    ScheduleNext();
}

void ReadPages::ForgetClosed() {
    std::erase_if(m_pages,
                  [this](const auto& each) { return !m_parts.Browser.Find(each.first) || !TabOf(each.first); });
}

void ReadPages::ReadToRemember(std::int32_t index) {
    if (!m_options.Nothing) ReadNow(index);
}

void ReadPages::ReadNow(std::int32_t index) {
    const auto found = m_pages.find(index);
    ArrayView* view = m_parts.Browser.Find(index);
    if (found == m_pages.end() || !view || !found->second.page.Loaded) return;
    auto* reading = view->Control->Reading();
    if (!reading || !HasPageToRead(view->Control->LocationURL())) return;
    reading->ReadText([this, alive = std::weak_ptr(m_alive), index, document = found->second.document](Text gathered) {
        if (!alive.expired()) OnText(index, document, gathered);
    });
}

Kept ReadPages::KeptOf(std::int32_t index, const Followed& followed) const {
    const ArrayView* view = m_parts.Browser.Find(index);
    const bool isPrivate = !view || view->Privacy == Privacy::Private;
    return HistoryRules::WhatIsKept({followed.page.Address, isPrivate, followed.asksPassword}, m_options);
}

void ReadPages::OnText(std::int32_t index, std::uint64_t document, TextView gathered) {
    const auto found = m_pages.find(index);
    if (found == m_pages.end() || found->second.document != document || gathered.empty()) return;
    Followed& followed = found->second;
    GatheredText read = Passages::Read(gathered);
    followed.page.Address = std::move(read.Address);
    followed.page.Passages = std::move(read.Passages);
    // Once it has asked for one, what comes behind that is nobody else's business either.
    followed.asksPassword = followed.asksPassword || read.AsksPassword;
    const bool keeps = KeptOf(index, followed) != Kept::Nothing;
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

// What is kept to compare with is what was read, not what has come behind the front and was never looked at.
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

void ReadPages::Keep(std::int32_t index, const Followed& followed, const std::optional<PageAsRead>& asRead) {
    const auto address = HistoryRules::KeptAddress(followed.page.Address);
    const ArrayView* view = m_parts.Browser.Find(index);
    if (!address || !view) return;
    const bool texts = KeptOf(index, followed) == Kept::All;
    HistoryVisit visit{*address, HistoryRules::SiteOf(*address), view->Control->LocationName()};
    visit.Group = followed.group;
    visit.When = m_parts.clock.Now();
    visit.Again = followed.told;
    if (Icon) visit.Icon = Icon(index);
    if (texts) visit.Passages = Passages::ToBytes(followed.page.Passages);
    if (texts && asRead) visit.AsRead = NewsOf::ToBytes(*asRead);
    if (texts && followed.page.WasReadBefore) visit.Share = followed.page.News.Share;
    m_parts.store.Keep(std::move(visit));
    if (!std::exchange(m_limited, true)) m_parts.store.Limit(m_options.Days, m_options.Megabytes);
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
