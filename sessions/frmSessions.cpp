#include "sessions/frmSessions.h"

#include "groups/TessaGroups.h"

#include <algorithm>

namespace tessa {

frmSessions::frmSessions(SessionJournal& sessions, Outside outside)
    : m_journal(sessions), m_outside(std::move(outside)) {
    lstSessions.ListIndex.Change.ConnectForLife([this] { ShowPages(); });
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
    for (const EarlierSession& each : m_sessions) lines.push_back(LineOf(each));
    lstSessions.Show(std::move(lines));
    lstSessions.ListIndex = m_sessions.empty() ? -1 : 0;
    if (m_sessions.empty())
        lblMessage.Caption = u"There is no earlier session yet. What is open now is listed here the next time.";
    ShowPages();
}

const frmSessions::EarlierSession* frmSessions::FindSelected() const {
    const auto index = static_cast<std::size_t>(lstSessions.ListIndex());
    return lstSessions.FindSelected() && index < m_sessions.size() ? &m_sessions[index] : nullptr;
}

SessionLine frmSessions::LineOf(const EarlierSession& earlier) const {
    const auto& [id, session] = earlier;
    const auto count = session.Pages.size();
    Text pages = count == 1 ? Text(u"One page") : Decimal(static_cast<std::int64_t>(count)) + u" pages";
    if (!session.Ended) pages += u", did not end properly";
    return {id, m_outside.clock.Words(session.Time), std::move(pages)};
}

void frmSessions::ShowPages() {
    std::vector<SessionPageLine> lines;
    if (const EarlierSession* earlier = FindSelected()) {
        const Session& session = earlier->second;
        for (std::size_t i = 0; i < session.Pages.size(); ++i) {
            const auto& [address, title, name] = session.Pages[i];
            lines.push_back({i,
                             !name.empty()   ? name
                             : title.empty() ? address
                                             : title,
                             address, i + 1 == session.Selected});
        }
    }
    lstPages.Show(std::move(lines));
    ShowTicks();
}

void frmSessions::ShowTicks() {
    const auto ticked = TickedPages().size();
    m_showingTicks = true;
    chkAll.Value = ticked == 0                      ? CheckState::Unticked
                   : ticked == lstPages.ListCount() ? CheckState::Ticked
                                                    : CheckState::Grey;
    m_showingTicks = false;
    chkAll.Enabled = lstPages.ListCount() > 0;
    cmdOpen.Enabled = ticked > 0;
    cmdSave.Enabled = ticked > 0;
    cmdForget.Enabled = FindSelected() != nullptr;
}

void frmSessions::chkAll_Click() {
    if (m_showingTicks) return;
    auto lines = lstPages.Rows();
    for (SessionPageLine& each : lines) each.Ticked = chkAll.Ticked();
    lstPages.Show(std::move(lines));
    ShowTicks();
}

void frmSessions::lstPages_ItemCheck(std::size_t index, bool ticked) {
    if (index >= lstPages.ListCount()) return;
    SessionPageLine line = lstPages.Rows()[index];
    line.Ticked = ticked;
    lstPages.Set(index, std::move(line));
    ShowTicks();
}

void frmSessions::lstPages_DblClick(std::size_t index) {
    if (index < lstPages.ListCount()) Open({index});
}

std::vector<std::size_t> frmSessions::TickedPages() const {
    std::vector<std::size_t> indexes;
    for (const SessionPageLine& each : lstPages.Rows()) {
        if (each.Ticked) indexes.push_back(each.Number);
    }
    return indexes;
}

void frmSessions::cmdOpen_Click() { Open(TickedPages()); }

void frmSessions::Open(const std::vector<std::size_t>& indexes) {
    const EarlierSession* earlier = FindSelected();
    if (!earlier || indexes.empty()) return;
    const auto& [id, session] = *earlier;
    const Session part = PartOf(session, indexes);
    Form.Visible = false;
    if (part.Pages.size() == session.Pages.size()) return m_journal.OpenAndSettle(part, Text(id));
    m_journal.Open(part);
}

void frmSessions::cmdSave_Click() {
    Text path = m_outside.files.ShowSave({.DialogTitle = u"Save as TessaGroup",
                                          .InitDir = m_outside.groupFolder,
                                          .Filter = Text(TessaGroups::kFileFilter)});
    if (path.empty()) return;
    if (!path.ends_with(TessaGroups::kExtension)) path += TessaGroups::kExtension;
    std::vector<Text> addresses;
    for (const std::size_t each : TickedPages()) addresses.push_back(lstPages.Rows()[each].Address);
    using TessaGroups::Saved;
    const Saved saved = TessaGroups::Save(path, addresses, m_outside.messages);
    if (saved == Saved::Declined) return;
    SavedGroup = SavedGroup || saved == Saved::Yes;
    lblMessage.Caption =
        saved == Saved::Yes ? u"The TessaGroup has been saved." : u"The TessaGroup could not be saved.";
}

void frmSessions::cmdForget_Click() {
    const EarlierSession* earlier = FindSelected();
    if (!earlier) return;
    const std::int32_t before = lstSessions.ListIndex();
    m_journal.Forget(earlier->first);
    LoadSessions();
    lstSessions.ListIndex = std::min(before, static_cast<std::int32_t>(m_sessions.size()) - 1);
}

} // namespace tessa
