#include "sessions/SessionJournal.h"

#include "base/LinkTrust.h"
#include "base/os/Log.h"
#include "tabs/OpenTabs.h"
#include "tabs/TabKeys.h"

#include <algorithm>
#include <map>
#include <utility>

namespace tessa {

namespace {

// A page that is not loaded yet, or not again, is called what its tab says.
Text TitleOf(const OpenTab& open) {
    Text title = open.View->Control->LocationName();
    return title.empty() && open.Item.Title() != kUntitledCaption ? open.Item.Title() : title;
}

} // namespace

SessionJournal::SessionJournal(SessionFiles& files, const WallClock& clock, Parts parts)
    : CameBack(parts.tabs, parts.pcPage, parts.Browser),
      m_files(files),
      m_clock(clock),
      m_tabs(parts.tabs),
      m_pcPage(parts.pcPage),
      m_browser(parts.Browser),
      m_tiles(parts.tiles),
      m_groups(parts.groups) {
    const auto say = [this](TextView message) { Say(message); };
    m_trouble.Say.ConnectForLife(say);
    m_trouble.TryAgain.ConnectForLife([this] { Touch(); });
    m_settleTrouble.Say.ConnectForLife(say);
    m_tiles.Changed.ConnectForLife([this] { Touch(); });
}

void SessionJournal::Touch() {
    if (m_ended || !Schedule.HasListeners() || std::exchange(m_touched, true)) return;
    Schedule();
}

Session SessionJournal::Snapshot() const {
    Session session;
    std::map<std::int32_t, std::int32_t> numbers;
    for (const OpenTab open : OpenTabs(m_pcPage, m_browser)) {
        if (!open.View || open.Private()) continue;
        const Text address = open.Address();
        if (IsBlankAddress(address)) ++session.Blanks;
        if (!IsWorthKeeping(address)) continue;
        session.Pages.push_back({address, TitleOf(open), open.Item.Name()});
        numbers[open.Index()] = static_cast<std::int32_t>(session.Pages.size());
        if (&open.Item == m_pcPage.SelectedItem()) session.Selected = session.Pages.size();
    }
    const auto become = [&numbers](std::int32_t index) {
        const auto number = numbers.find(index);
        return number == numbers.end() ? 0 : number->second;
    };
    session.Tiles = m_tiles.Kept(become);
    session.Groups = m_groups.Groups().Kept(become);
    // Blank tabs alone are no session.
    if (session.Pages.empty()) session.Blanks = 0;
    return session;
}

void SessionJournal::Keep(Session session) {
    if (session == m_written && m_unsettled.empty()) return;
    session.Time = m_clock.Now();
    const std::string bytes = session.Pages.empty() ? std::string() : SessionBytes(session);
    // Sessions are compared without the time. Moved, because it may hold a thousand pages.
    session.Time = 0;
    m_written = std::move(session);
    m_files.WriteOwn(bytes, [this, unsettled = m_unsettled](Outcome outcome) { OnWritten(outcome, unsettled); });
}

void SessionJournal::OnWritten(Outcome outcome, const std::vector<Text>& unsettled) {
    if (outcome == Outcome::Failed) m_written.reset();
    m_trouble.Note(outcome);
    if (outcome == Outcome::Failed) return;
    std::erase_if(m_unsettled, [&](const Text& each) { return std::ranges::find(unsettled, each) != unsettled.end(); });
    for (const Text& each : unsettled) Settle(each);
}

void SessionJournal::Write() {
    // The views have ended before the window has: what is open now is not what the user had open.
    if (m_ended) return;
    m_touched = false;
    Keep(Snapshot());
}

void SessionJournal::End() {
    Session session = Snapshot();
    session.Ended = true;
    Keep(std::move(session));
    m_ended = true;
}

std::vector<std::pair<Text, Session>> SessionJournal::Earlier() const {
    std::vector<std::pair<Text, Session>> sessions;
    for (const KeptSession& kept : m_files.Earlier()) {
        if (auto session = SessionFromBytes(kept.Bytes)) sessions.emplace_back(kept.Id, std::move(*session));
    }
    return sessions;
}

std::optional<std::pair<Text, Session>> SessionJournal::ToOffer() const {
    for (auto& [id, session] : Earlier()) {
        const bool answered = session.Settled || std::ranges::find(m_answered, id) != m_answered.end();
        if (!session.Ended && !answered && !session.Pages.empty()) return std::pair(id, session);
    }
    return std::nullopt;
}

void SessionJournal::OfferBy(SessionOffer& offer) const {
    if (const auto session = ToOffer())
        offer.Offer(session->first, session->second);
    else
        offer.Withdraw();
}

void SessionJournal::Reopen(TextView Id) {
    const auto sessions = Earlier();
    const auto found = std::ranges::find(sessions, Id, [](const auto& each) { return TextView(each.first); });
    if (found == sessions.end()) return;
    Log::Note(LogLevel::Info, LogPart::Session, "reopens a session, pages",
              static_cast<std::int64_t>(found->second.Pages.size()));
    auto untouched = CameBack.Untouched();
    std::erase_if(untouched, [&](std::int32_t index) { return IsPinnedElsewhere(index, found->second); });
    const auto before = m_pcPage.Count();
    if (auto* last = untouched.empty() ? nullptr : TabOfView(m_pcPage, untouched.back())) m_pcPage.Select(last);
    Open(found->second);
    if (m_pcPage.Count() > before) GiveWay(untouched);
    SettleOnceWritten(Id);
}

// A pinned tab gives way to its own page alone.
bool SessionJournal::IsPinnedElsewhere(std::int32_t index, const Session& session) const {
    const auto* tab = TabOfView(m_pcPage, index);
    const auto* view = m_tabs.OpenView(index);
    if (!tab || !tab->Pinned() || !view) return false;
    const Text address = view->Control->LocationURL();
    return std::ranges::none_of(session.Groups.Pins, [&](std::int32_t number) {
        return session.Pages.at(static_cast<std::size_t>(number) - 1).Address == address;
    });
}

void SessionJournal::GiveWay(const std::vector<std::int32_t>& untouched) {
    CameBack.Forget();
    if (untouched.empty()) return;
    const auto* front = m_pcPage.SelectedItem();
    const Text key = front ? front->Key() : Text();
    m_tabs.CloseTabs(untouched);
    // Closing a tab whose caption is the one's in front takes that one for the closed one.
    if (auto* tab = m_pcPage.Find(key)) m_pcPage.Select(tab);
}

void SessionJournal::OpenAndSettle(const Session& pages, TextView Id) {
    Open(pages);
    SettleOnceWritten(Id);
}

void SessionJournal::SettleOnceWritten(TextView Id) {
    // Its pages are our own on disk before it is no longer offered: the next crash may come at once.
    m_unsettled.emplace_back(Id);
    m_answered.emplace_back(Id);
    Write();
}

void SessionJournal::Open(const Session& pages) {
    Text key;
    std::vector<std::int32_t> opened;
    for (const SessionPage& each : pages.Pages) {
        opened.push_back(0);
        if (TrustOf(each.Address, LinkSource::Session) != LinkTrust::Open) continue;
        auto* view = m_tabs.GetNewBrowser(InFront::Yes);
        if (!view) continue;
        ResumeNext(view->Navigate(each.Address));
        opened.back() = m_tabs.CurrentIndex();
        // Until its page is there, which may take long when there are many.
        if (!each.Title.empty()) m_tabs.SetTabTitle(m_tabs.CurrentIndex(), each.Title);
        auto* tab = m_pcPage.SelectedItem();
        if (tab) m_pcPage.SetName(tab, each.Name);
        if (tab && opened.size() == pages.Selected) key = tab->Key();
    }
    if (auto* tab = m_pcPage.Find(key)) m_pcPage.Select(tab);
    m_groups.Restore(pages.Groups, opened);
    m_tiles.Restore(pages.Tiles, opened);
}

void SessionJournal::Settle(TextView Id) {
    m_answered.emplace_back(Id);
    for (const KeptSession& kept : m_files.Earlier()) {
        auto session = kept.Id == Id ? SessionFromBytes(kept.Bytes) : std::nullopt;
        if (!session || session->Settled) continue;
        session->Settled = true;
        m_files.Rewrite(Id, SessionBytes(*session), [this, id = Text(Id)](Outcome outcome) { OnSettled(outcome, id); });
    }
}

void SessionJournal::OnSettled(Outcome outcome, const Text& id) {
    m_settleTrouble.Note(outcome);
    if (outcome == Outcome::Failed) m_unsettled.push_back(id);
}

void SessionJournal::Forget(TextView Id) {
    m_files.Rewrite(Id, {}, [this](Outcome outcome) { m_settleTrouble.Note(outcome); });
}

} // namespace tessa
