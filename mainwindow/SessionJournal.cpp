#include "mainwindow/SessionJournal.h"

#include <algorithm>
#include <utility>

void SessionJournal::Touch() {
    if (!Schedule || std::exchange(m_touched, true)) return;
    Schedule();
}

Session SessionJournal::Snapshot() const {
    Session session;
    for (std::size_t position = 1; position <= m_pcPage.Count(); ++position) {
        const auto* tab = m_pcPage.FindAt(position);
        const auto* view = m_browser.Find(tab->Tag);
        const bool kept = view && view->Privacy == Privacy::Ordinary;
        const Text address = kept ? view->Control->LocationURL() : Text();
        if (!IsWorthKeeping(address)) continue;
        session.Pages.push_back({address, view->Control->LocationName()});
        if (tab == m_pcPage.SelectedItem()) session.Selected = session.Pages.size();
    }
    return session;
}

void SessionJournal::Keep(Session session) {
    if (session == m_written) return;
    m_written = session;
    session.Time = Now ? Now() : 0;
    ResumeNext(m_files.WriteOwn(session.Pages.empty() ? std::string() : SessionBytes(session)));
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
    Schedule = {};
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
        if (!session.Ended && !session.Settled && !session.Pages.empty()) return std::pair(id, session);
    }
    return std::nullopt;
}

void SessionJournal::Reopen(TextView Id) {
    const auto sessions = Earlier();
    const auto found = std::ranges::find(sessions, Id, [](const auto& each) { return TextView(each.first); });
    if (found == sessions.end()) return;
    Open(found->second.Pages, found->second.Selected);
    // Its pages are our own on disk before it is no longer offered: the next crash may come at once.
    Write();
    Settle(Id);
}

void SessionJournal::Open(const std::vector<SessionPage>& pages, std::size_t front) {
    Text key;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        auto* view = m_tabs.GetNewBrowser(InFront::Yes);
        if (!view) continue;
        ResumeNext(view->Navigate(pages[i].Address));
        const auto* tab = m_pcPage.SelectedItem();
        if (tab && i + 1 == front) key = tab->Key();
    }
    if (auto* tab = m_pcPage.Find(key)) m_pcPage.Select(tab);
}

void SessionJournal::Settle(TextView Id) {
    for (const KeptSession& kept : m_files.Earlier()) {
        auto session = kept.Id == Id ? SessionFromBytes(kept.Bytes) : std::nullopt;
        if (!session || session->Settled) continue;
        session->Settled = true;
        ResumeNext(m_files.Rewrite(Id, SessionBytes(*session)));
    }
}
