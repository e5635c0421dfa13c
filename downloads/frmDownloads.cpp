#include "downloads/frmDownloads.h"

#include "base/PlainText.h"
#include "downloads/DownloadWords.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr std::size_t kNameInList = 200;

int PercentOf(const Download& download) {
    if (!download.Active()) return -1;
    const auto& [state, problem, received, total] = download.Report;
    if (total <= 0) return frmDownloads::kUnknownPercent;
    return static_cast<int>(std::clamp<std::int64_t>(received * 100 / total, 0, 100));
}

} // namespace

frmDownloads::frmDownloads(Downloads& downloads, const WallClock& clock) : m_downloads(downloads), m_clock(clock) {
    lstDownloads.ListIndex.Change.ConnectForLife([this] { ShowButtons(); });
    Form.Visible.Change.ConnectForLife([this] {
        Show();
        Shown(Form.Visible());
    });
    cmdOpen.Click.ConnectForLife([this] { m_downloads.Open(Selected()); });
    cmdShowInFolder.Click.ConnectForLife([this] { m_downloads.ShowInFolder(Selected()); });
    cmdPause.Click.ConnectForLife([this] {
        const auto* download = m_downloads.Find(Selected());
        if (!download) return;
        if (download->Report.State == DownloadState::Running)
            m_downloads.Pause(Selected());
        else
            m_downloads.Resume(Selected());
    });
    cmdRetry.Click.ConnectForLife([this] { m_downloads.Retry(Selected()); });
    cmdCancel.Click.ConnectForLife([this] { m_downloads.Cancel(Selected()); });
    cmdRemove.Click.ConnectForLife([this] { m_downloads.Remove(Selected()); });
    cmdClear.Click.ConnectForLife([this] { m_downloads.Clear(); });
    ShowButtons();
}

void frmDownloads::Touch() {
    if (!Form.Visible()) return;
    if (Schedule.HasListeners())
        Schedule();
    else
        Show();
}

void frmDownloads::Show() {
    if (!Form.Visible()) return;
    std::vector<DownloadLine> lines;
    const std::int64_t now = m_downloads.Now();
    for (const Download& each : m_downloads.All()) lines.push_back(LineOf(each, now));
    lstDownloads.Show(std::move(lines));
    // One that stalls reports nothing, but is slower every second.
    const auto runs = [](const Download& each) { return each.Report.State == DownloadState::Running; };
    if (std::ranges::any_of(m_downloads.All(), runs)) Schedule();
    SelectNew();
    if (!lstDownloads.FindSelected() && lstDownloads.ListCount() > 0) lstDownloads.ListIndex = 0;
    ShowButtons();
}

DownloadLine frmDownloads::LineOf(const Download& download, std::int64_t now) const {
    const Text time = download.Ended > 0 ? m_clock.Words(download.Ended) : Text();
    return {download.Id, PlainLine(download.Name(), kNameInList), DownloadWords::Standing(download, now),
            DownloadWords::Place(download, time), PercentOf(download)};
}

// Whoever has just begun one wants to see that one.
void frmDownloads::SelectNew() {
    const auto& all = m_downloads.All();
    if (!all.empty() && all.front().Id > m_newest) lstDownloads.ListIndex = 0;
    for (const Download& each : all) m_newest = std::max(m_newest, each.Id);
}

std::int32_t frmDownloads::Selected() const {
    const DownloadLine* line = lstDownloads.FindSelected();
    return line ? line->Id : 0;
}

void frmDownloads::ShowButtons() {
    const auto* download = m_downloads.Find(Selected());
    const bool active = download && download->Active();
    const DownloadState state = download ? download->Report.State : DownloadState::Done;
    const bool goesOn = state == DownloadState::Paused || state == DownloadState::Broken;
    cmdOpen.Enabled = download && state == DownloadState::Done;
    cmdShowInFolder.Enabled = download && state != DownloadState::Cancelled;
    cmdPause.Caption = goesOn ? u"&Resume" : u"&Pause";
    cmdPause.Enabled = state == DownloadState::Running || goesOn;
    cmdRetry.Enabled = state == DownloadState::Broken || state == DownloadState::Cancelled;
    cmdCancel.Enabled = active || state == DownloadState::Broken;
    cmdRemove.Enabled = download && !active;
    const auto& all = m_downloads.All();
    cmdClear.Enabled = std::ranges::any_of(all, [](const Download& each) { return !each.Active(); });
    lblNone.Caption = all.empty() ? u"Nothing has been saved yet. Files that you save are listed here." : u"";
}

void frmDownloads::lstDownloads_DblClick() {
    const auto* download = m_downloads.Find(Selected());
    if (!download) return;
    switch (download->Report.State) {
    case DownloadState::Done:
        return m_downloads.Open(Selected());
    case DownloadState::Cancelled:
        return m_downloads.Retry(Selected());
    case DownloadState::Running:
        return m_downloads.Pause(Selected());
    case DownloadState::Paused:
    case DownloadState::Broken:
        return m_downloads.Resume(Selected());
    }
}

void frmDownloads::lstDownloads_Delete() {
    const auto* download = m_downloads.Find(Selected());
    if (!download) return;
    if (download->Active())
        m_downloads.Cancel(Selected());
    else
        m_downloads.Remove(Selected());
}

} // namespace tessa
