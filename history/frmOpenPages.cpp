#include "history/frmOpenPages.h"

#include "base/PlainText.h"
#include "tabs/OpenTabs.h"

#include <utility>

namespace tessa {

namespace {

constexpr std::size_t kPassagesOfAPage = 3, kShownPassage = 140, kShownTitle = 100, kMostLines = 600;

Text FoundWords(std::size_t pages) {
    if (pages == 0) return u"No open page says that.";
    return pages == 1 ? Text(u"One page") : Decimal(static_cast<std::int64_t>(pages)) + u" pages";
}

} // namespace

frmOpenPages::frmOpenPages(ReadPages& pages, TabStrip& pcPage, ViewArray& Browser, VisitStore& store)
    : m_pages(pages), m_pcPage(pcPage), m_browser(Browser), m_store(store) {
    txtWords.Value.Change.ConnectForLife([this] { Show(); });
    Form.Visible.Change.ConnectForLife([this] {
        if (Form.Visible()) Form_Load();
        Shown(Form.Visible());
    });
}

void frmOpenPages::Open() {
    Form.Visible = true;
    txtWords.SetFocus();
}

// Each page is read as it is now; those that cannot be asked and were not read in this run are as they are remembered.
void frmOpenPages::Form_Load() {
    m_remembered.clear();
    m_found.clear();
    std::multimap<Text, std::int32_t> unread;
    for (const OpenTab open : OpenTabs(m_pcPage, m_browser)) {
        const auto* life = open.Life();
        const bool asked = m_pages.ReadNow(open.Index()) && !(life && life->Asleep());
        if (asked || open.Private() || m_pages.HasText(open.Index())) continue;
        if (const auto address = HistoryRules::KeptAddress(open.Address())) unread.emplace(*address, open.Index());
    }
    if (!unread.empty()) LoadUnread(unread);
    Show();
}

void frmOpenPages::LoadUnread(const std::multimap<Text, std::int32_t>& views) {
    std::vector<Text> addresses;
    for (const auto& [address, index] : views)
        if (addresses.empty() || addresses.back() != address) addresses.push_back(address);
    m_store.Load(addresses, [this, alive = std::weak_ptr(m_alive), views](const std::vector<HistoryEntry>& entries) {
        if (!alive.expired()) Remember(views, entries);
    });
}

void frmOpenPages::Remember(const std::multimap<Text, std::int32_t>& views, const std::vector<HistoryEntry>& entries) {
    for (const HistoryEntry& entry : entries) {
        const auto [first, last] = views.equal_range(entry.Address);
        for (auto view = first; view != last; ++view) {
            m_remembered[view->second] = Passages::FromBytes(entry.Passages);
            Changed(view->second);
        }
    }
}

const std::vector<Passage>& frmOpenPages::PassagesOf(std::int32_t index) const {
    static const std::vector<Passage> none;
    if (m_pages.HasText(index)) return m_pages.TextOf(index);
    const auto found = m_remembered.find(index);
    return found == m_remembered.end() ? none : found->second;
}

// What says nothing of some words says nothing of more of them either.
void frmOpenPages::ForgetFound() {
    const Text before = std::exchange(m_searched, txtWords.Value());
    if (before == m_searched) return;
    const bool more = m_searched.starts_with(before) && !SearchText::PiecesOf(before).empty();
    std::erase_if(m_found, [more](const auto& each) { return !more || !each.second.lines.empty(); });
}

const std::vector<OpenPageLine>& frmOpenPages::LinesOf(const std::vector<SearchText::Piece>& pieces, std::int32_t index,
                                                       const BrowserView& view) {
    Found& found = m_found[index];
    Text title = PlainLine(view.LocationName(), kShownTitle), address = view.LocationURL();
    if (found.address == address && found.title == title && !address.empty()) return found.lines;
    found = {std::move(title), std::move(address)};
    Search(pieces, index, found);
    return found.lines;
}

void frmOpenPages::Search(const std::vector<SearchText::Piece>& pieces, std::int32_t index, Found& found) const {
    const auto& passages = PassagesOf(index);
    std::vector<TextView> texts{found.title, found.address};
    for (const Passage& each : passages) texts.push_back(each.Words);
    if (!Snippets::HoldAll(pieces, texts)) return;
    const Text shown = found.title.empty() ? PlainLine(found.address, kShownTitle) : found.title;
    found.lines.push_back({index, true, Snippets::Of(pieces, shown, kShownTitle), {}});
    for (FoundPassage& each : Snippets::Best(pieces, passages, found.title, kPassagesOfAPage, kShownPassage))
        found.lines.push_back({index, false, std::move(each.Shown), passages[each.Number].Words});
}

void frmOpenPages::Show() {
    if (!Form.Visible()) return;
    ForgetFound();
    const auto pieces = SearchText::PiecesOf(m_searched);
    std::vector<OpenPageLine> lines;
    std::size_t pages = 0;
    for (const OpenTab open : OpenTabs(m_pcPage, m_browser)) {
        if (!open.View || pieces.empty() || lines.size() >= kMostLines) continue;
        const auto& more = LinesOf(pieces, open.Index(), *open.View->Control);
        lines.insert(lines.end(), more.begin(), more.end());
        pages += more.empty() ? 0 : 1;
    }
    lblCount.Caption = pieces.empty() ? Text() : FoundWords(pages);
    lstFound = std::move(lines);
}

void frmOpenPages::Changed(std::int32_t index) {
    m_found.erase(index);
    if (m_awaited && m_awaited->index == index && m_pages.HasText(index)) {
        ArrayView* view = m_browser.Find(index);
        if (auto* reading = view ? view->Control->Reading() : nullptr) reading->ShowPassages({m_awaited->passage}, 0);
        m_awaited.reset();
    }
    if (Form.Visible()) Schedule();
}

void frmOpenPages::lstFound_Click(std::size_t line) {
    if (line >= lstFound().size()) return;
    const OpenPageLine chosen = lstFound()[line];
    for (const OpenTab open : OpenTabs(m_pcPage, m_browser)) {
        if (open.Index() != chosen.Index) continue;
        const auto* life = open.Life();
        const bool awake = m_pages.HasText(chosen.Index) && !(life && life->Asleep());
        m_pcPage.Select(&open.Item);
        m_awaited.reset();
        if (chosen.IsPage) return;
        ArrayView* view = m_browser.Find(chosen.Index);
        auto* reading = view ? view->Control->Reading() : nullptr;
        if (awake && reading)
            reading->ShowPassages({chosen.Passage}, 0);
        else
            m_awaited = Awaited{chosen.Index, chosen.Passage};
        return;
    }
}

} // namespace tessa
