#include "sessions/frmSessions.h"

#include "groups/TessaGroups.h"

#include <algorithm>

namespace tessa {

frmSessions::frmSessions(SessionJournal& sessions, Outside outside)
    : m_journal(sessions), m_outside(std::move(outside)) {
    Selected.Change.ConnectForLife([this] { ShowPages(); });
    chkAll.Value.Change.ConnectForLife([this] { chkAll_Click(); });
    cmdOpen.Click.ConnectForLife([this] { cmdOpen_Click(); });
    cmdSave.Click.ConnectForLife([this] { cmdSave_Click(); });
    cmdForget.Click.ConnectForLife([this] { cmdForget_Click(); });
    cmdClose.Click.ConnectForLife([this] { Form.Visible = false; });
    LoadSessions();
}

void frmSessions::LoadSessions() {
    m_sessions = m_journal.Earlier();
    std::erase_if(m_sessions, [](const auto& each) { return each.second.Pages.empty(); });
    std::vector<SessionLine> lines;
    for (const auto& [id, session] : m_sessions) lines.push_back(LineOf(session));
    // A view that fills its list anew loses its selection.
    Selected = kNone;
    lstSessions = std::move(lines);
    Selected = m_sessions.empty() ? kNone : 0;
    if (m_sessions.empty())
        lblMessage.Caption = u"There is no earlier session yet. What is open now is listed here the next time.";
    ShowPages();
}

SessionLine frmSessions::LineOf(const Session& session) const {
    const auto count = session.Pages.size();
    Text pages = count == 1 ? Text(u"One page") : Decimal(static_cast<std::int64_t>(count)) + u" pages";
    if (!session.Ended) pages += u", did not end properly";
    return {m_outside.clock.Words(session.Time), std::move(pages)};
}

void frmSessions::ShowPages() {
    std::vector<SessionPageLine> lines;
    if (Selected() < m_sessions.size()) {
        const Session& session = m_sessions[Selected()].second;
        for (std::size_t i = 0; i < session.Pages.size(); ++i) {
            const auto& [address, title] = session.Pages[i];
            lines.push_back({title.empty() ? address : title, address, i + 1 == session.Selected});
        }
    }
    lstPages = std::move(lines);
    ShowTicks();
}

void frmSessions::ShowTicks() {
    const auto ticked = TickedPages().size();
    m_showingTicks = true;
    chkAll.Value = ticked == 0                   ? CheckState::Unticked
                   : ticked == lstPages().size() ? CheckState::Ticked
                                                 : CheckState::Grey;
    m_showingTicks = false;
    chkAll.Enabled = !lstPages().empty();
    cmdOpen.Enabled = ticked > 0;
    cmdSave.Enabled = ticked > 0;
    cmdForget.Enabled = Selected() < m_sessions.size();
}

void frmSessions::chkAll_Click() {
    if (m_showingTicks) return;
    auto lines = lstPages();
    for (SessionPageLine& each : lines) each.Ticked = chkAll.Ticked();
    lstPages = std::move(lines);
    ShowTicks();
}

void frmSessions::lstPages_ItemCheck(std::size_t index, bool ticked) {
    auto lines = lstPages();
    if (index >= lines.size()) return;
    lines[index].Ticked = ticked;
    lstPages = std::move(lines);
    ShowTicks();
}

void frmSessions::lstPages_DblClick(std::size_t index) {
    if (index < lstPages().size()) Open({index});
}

std::vector<std::size_t> frmSessions::TickedPages() const {
    std::vector<std::size_t> indexes;
    for (std::size_t i = 0; i < lstPages().size(); ++i) {
        if (lstPages()[i].Ticked) indexes.push_back(i);
    }
    return indexes;
}

void frmSessions::cmdOpen_Click() { Open(TickedPages()); }

void frmSessions::Open(const std::vector<std::size_t>& indexes) {
    if (Selected() >= m_sessions.size() || indexes.empty()) return;
    const auto& [id, session] = m_sessions[Selected()];
    std::vector<SessionPage> pages;
    std::size_t front = 0;
    for (const std::size_t each : indexes) {
        pages.push_back(session.Pages[each]);
        if (each + 1 == session.Selected) front = pages.size();
    }
    Form.Visible = false;
    if (pages.size() == session.Pages.size()) return m_journal.OpenAndSettle(pages, front, id);
    m_journal.Open(pages, front);
}

void frmSessions::cmdSave_Click() {
    Text path = m_outside.files.ShowSave({.DialogTitle = u"Save as TessaGroup",
                                          .InitDir = m_outside.groupFolder,
                                          .Filter = Text(TessaGroups::kFileFilter)});
    if (path.empty()) return;
    if (!path.ends_with(TessaGroups::kExtension)) path += TessaGroups::kExtension;
    std::vector<Text> addresses;
    for (const std::size_t each : TickedPages()) addresses.push_back(lstPages()[each].Address);
    using TessaGroups::Saved;
    const Saved saved = TessaGroups::Save(path, addresses, m_outside.messages);
    if (saved == Saved::Declined) return;
    SavedGroup = SavedGroup || saved == Saved::Yes;
    lblMessage.Caption =
        saved == Saved::Yes ? u"The TessaGroup has been saved." : u"The TessaGroup could not be saved.";
}

void frmSessions::cmdForget_Click() {
    if (Selected() >= m_sessions.size()) return;
    const std::size_t before = Selected();
    m_journal.Forget(m_sessions[before].first);
    LoadSessions();
    if (!m_sessions.empty()) Selected = std::min(before, m_sessions.size() - 1);
}

} // namespace tessa
