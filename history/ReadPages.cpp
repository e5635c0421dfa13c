#include "history/ReadPages.h"

#include "base/Address.h"
#include "base/OwnAddresses.h"
#include "tabs/OpenTabs.h"

#include <algorithm>
#include <utility>

namespace tessa {

namespace {

bool HasPageToRead(TextView address) {
    return !address.empty() && address != Address::kBlank && !address.starts_with(OwnAddresses::kPrefix);
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
    return page && (!page->Address.empty() || !page->Glanced.empty());
}

const std::vector<Passage>& ReadPages::TextOf(std::int32_t index) const {
    static const std::vector<Passage> s_none;
    const Page* page = Find(index);
    if (!page) return s_none;
    return page->Address.empty() ? page->Glanced : page->Passages;
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

void ReadPages::Begins(std::int32_t index) {
    Followed& followed = m_pages[index];
    if (!followed.begun) ReadToRemember(index);
    followed.nextGroup = m_parts.tabGroups.NameOfVisit(index);
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
    Followed& followed = m_pages[index];
    if (followed.document == 0) followed.document = ++m_documents;
    followed.page.Loaded = true;
    followed.loaded = m_lastLoaded = Now();
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

void ReadPages::Forget() {
    for (auto& [index, followed] : m_pages) followed.forgotten = true;
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
    if (next.count() > 0) Schedule(std::max(next - Now(), Time{0}));
}

bool ReadPages::AnyLoads() const {
    for (const OpenTab open : OpenTabs(m_parts.pcPage, m_parts.Browser))
        if (open.View && open.View->Control->Busy()) return true;
    return false;
}

void ReadPages::Look() {
    ForgetClosed();
    const Time now = Now();
    const bool loads = AnyLoads() || now < m_lastLoaded + kRest;
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
    for (const std::int32_t index : due) ReadAtRest(index);
    ScheduleNext();
}

void ReadPages::ReadAtRest(std::int32_t index) {
    const bool onlySearched = m_options.Nothing && m_pages[index].searched;
    onlySearched ? static_cast<void>(Ask(index, Use::Search)) : ReadToRemember(index);
}

void ReadPages::ForgetClosed() {
    std::erase_if(m_pages,
                  [this](const auto& each) { return !m_parts.Browser.Find(each.first) || !TabOf(each.first); });
}

void ReadPages::ReadToRemember(std::int32_t index) {
    if (!m_options.Nothing) Ask(index, Use::Remember);
}

bool ReadPages::ReadNow(std::int32_t index) { return HasText(index) ? Ask(index, Use::Search) : Glance(index); }

PageReading* ReadPages::ReadingOf(std::int32_t index) const {
    const Page* page = Find(index);
    const ArrayView* view = m_parts.Browser.Find(index);
    const bool isThere = page && page->Loaded && view && HasPageToRead(view->Control->LocationURL());
    return isThere ? view->Control->Reading() : nullptr;
}

bool ReadPages::Ask(std::int32_t index, Use use) {
    auto* reading = ReadingOf(index);
    if (!reading) return false;
    const std::uint64_t document = m_pages.at(index).document;
    reading->ReadText([this, alive = std::weak_ptr(m_alive), index, document, use](const Text& gathered) {
        if (!alive.expired()) OnText(index, document, use, gathered);
    });
    return true;
}

bool ReadPages::Glance(std::int32_t index) {
    auto* reading = ReadingOf(index);
    if (!reading) return false;
    const std::uint64_t document = m_pages.at(index).document;
    reading->GlanceAtText([this, alive = std::weak_ptr(m_alive), index, document](const Text& gathered) {
        if (!alive.expired()) OnGlance(index, document, gathered);
    });
    return true;
}

// It may have been read meanwhile, which is better.
void ReadPages::OnGlance(std::int32_t index, std::uint64_t document, TextView gathered) {
    const auto found = m_pages.find(index);
    if (found == m_pages.end() || found->second.document != document || !found->second.page.Address.empty()) return;
    Followed& followed = found->second;
    followed.page.Glanced = Passages::Read(gathered).Passages;
    followed.searched = true;
    if (followed.due.count() == 0) followed.due = Now() + kRest;
    ScheduleNext();
    Changed(index);
}

} // namespace tessa
