#include "downloads/Downloads.h"

#include "base/Address.h"
#include "base/PlainText.h"
#include "base/os/AtomicFile.h"
#include "downloads/DownloadList.h"
#include "downloads/FileNames.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr std::size_t kNameInStatusBar = 60;

bool IsOver(const Download& each) { return !each.Active(); }

Text NameOf(const Download& download) { return PlainLine(download.Name(), kNameInStatusBar); }

} // namespace

Downloads::Downloads(DownloadDesktop& desktop, Text listFile) : m_desktop(desktop), m_listFile(std::move(listFile)) {
    m_trouble.Say.ConnectForLife([this](TextView message) { Complain(message); });
    m_trouble.TryAgain.ConnectForLife([this] { TryAgain(); });
}

void Downloads::Load() {
    if (m_listFile.empty()) return;
    const auto bytes = ReadWholeFile(ToUtf8(m_listFile), DownloadList::kMostBytes);
    if (!bytes) return;
    for (Download& each : DownloadList::Read(*bytes)) {
        if (m_all.size() == kMost) break;
        each.Id = m_nextId++;
        m_all.push_back(std::move(each));
    }
    Changed();
}

bool Downloads::Taken(TextView path) const {
    const auto claims = [&](const Download& each) { return each.Path == path && !IsOver(each); };
    return FileExists(ToUtf8(path)) || FileExists(ToUtf8(path) + ".download") || std::ranges::any_of(m_all, claims);
}

Text Downloads::FreePath(const Request& request) const {
    const std::size_t cut = request.Path.rfind(u'/');
    const bool chosen = cut != Text::npos;
    const Text folder = chosen ? request.Path.substr(0, cut + 1) : m_desktop.Folder() + u'/';
    const Text suggested =
        request.SuggestedName.empty() ? FileNameOfAddress(request.Address) : CleanFileName(request.SuggestedName);
    return folder + FreeFileName(chosen ? request.Path.substr(cut + 1) : suggested,
                                 [&](TextView name) { return Taken(folder + Text(name)); });
}

const Download& Downloads::Begin(const Request& request, std::shared_ptr<DownloadTransfer> transfer) {
    Download* download = Look(request.Again);
    if (!download) {
        download = &m_all.emplace_front();
        download->Id = m_nextId++;
        download->Address = Address::WithoutUser(request.Address);
        download->Kept = request.Kept;
        download->Report.State = DownloadState::Cancelled; // it claims no name before it has one
    }
    // Fetched anew it keeps its name, which is free unless the file came to be in another way.
    Request wanted = request;
    if (wanted.Path.empty()) wanted.Path = download->Path;
    download->Path = request.Overwrites ? wanted.Path : FreePath(wanted);
    download->Report = {DownloadState::Running, DownloadProblem::None, 0, request.Total};
    download->Ended = 0;
    download->Rate.Reset();
    download->Rate.Add(m_desktop.Now(), 0);
    download->Transfer = std::move(transfer);
    const std::int32_t id = download->Id;
    const Text name = NameOf(*download);
    Update();
    Say(u"Saving " + name);
    return *Find(id);
}

void Downloads::Continue(std::int32_t id, std::shared_ptr<DownloadTransfer> transfer) {
    if (auto* download = Look(id)) download->Transfer = std::move(transfer);
}

void Downloads::OnReport(std::int32_t id, const DownloadReport& report) {
    Download* download = Look(id);
    if (!download || m_ended) return;
    const DownloadState before = download->Report.State;
    download->Report = report;
    if (report.State == DownloadState::Running)
        download->Rate.Add(m_desktop.Now(), report.Received);
    else
        download->Rate.Reset();
    if (before == report.State) {
        Changed();
        return;
    }
    if (report.State == DownloadState::Done) download->Ended = m_desktop.Time();
    const Text name = NameOf(*download);
    Update();
    if (report.State == DownloadState::Done) Say(name + u" has been saved.");
    if (report.State == DownloadState::Broken) Say(name + u" could not be saved.");
}

void Downloads::Pause(std::int32_t id) {
    auto* download = Look(id);
    if (download && download->Report.State == DownloadState::Running && download->Transfer)
        ResumeNext(download->Transfer->Pause());
}

void Downloads::Resume(std::int32_t id) {
    auto* download = Look(id);
    if (!download) return;
    const DownloadState state = download->Report.State;
    if (state != DownloadState::Paused && state != DownloadState::Broken) return;
    const auto transfer = download->Transfer;
    if (!transfer || transfer->Resume() == Outcome::Failed) Retry(id);
}

void Downloads::Cancel(std::int32_t id) {
    auto* download = Look(id);
    if (!download || download->Report.State == DownloadState::Done) return;
    // A broken one may go on with what has arrived; the engine removes that.
    const auto transfer = download->Transfer;
    if (transfer) ResumeNext(transfer->Cancel());
    download = Look(id);
    if (!download || download->Report.State == DownloadState::Cancelled) return;
    download->Report.State = DownloadState::Cancelled;
    download->Rate.Reset();
    Update();
}

void Downloads::Retry(std::int32_t id) {
    auto* download = Look(id);
    if (!download || download->Active() || download->Report.State == DownloadState::Done) return;
    if (m_desktop.Fetch(id, Text(download->Address)) == Outcome::Done) return;
    download->Report.Problem = DownloadProblem::Gone;
    download->Report.State = DownloadState::Broken;
    Update();
}

void Downloads::Open(std::int32_t id) {
    const auto* download = Find(id);
    if (download && download->Report.State == DownloadState::Done) ResumeNext(m_desktop.Open(Text(download->Path)));
}

void Downloads::ShowInFolder(std::int32_t id) {
    if (const auto* download = Find(id)) ResumeNext(m_desktop.ShowInFolder(Text(download->Path)));
}

void Downloads::Remove(std::int32_t id) {
    const auto* download = Find(id);
    if (!download || download->Active()) return;
    std::erase_if(m_all, [id](const Download& each) { return each.Id == id; });
    Update();
}

void Downloads::Clear() {
    if (std::erase_if(m_all, IsOver) > 0) Update();
}

void Downloads::End() {
    m_ended = true;
    for (Download& each : m_all) {
        if (!each.Active()) continue;
        if (each.Transfer) ResumeNext(each.Transfer->Cancel());
        each.Transfer.reset();
        each.Report.State = DownloadState::Broken;
        each.Report.Problem = DownloadProblem::Gone;
    }
    Write();
    m_listFile.clear();
}

const Download* Downloads::Find(std::int32_t id) const {
    const auto found = std::ranges::find(m_all, id, &Download::Id);
    return found == m_all.end() ? nullptr : &*found;
}

Download* Downloads::Look(std::int32_t id) {
    const auto found = std::ranges::find(m_all, id, &Download::Id);
    return found == m_all.end() ? nullptr : &*found;
}

std::size_t Downloads::CountActive() const {
    return static_cast<std::size_t>(std::ranges::count_if(m_all, &Download::Active));
}

void Downloads::Forget() {
    for (auto each = m_all.end(); m_all.size() > kMost && each != m_all.begin();) {
        --each;
        if (IsOver(*each)) each = m_all.erase(each);
    }
}

void Downloads::Update() {
    Forget();
    Write();
    Changed();
}

void Downloads::Write() {
    if (m_listFile.empty()) return;
    // Where files come from is the user's own business.
    m_trouble.Note(WriteWholeFile(ToUtf8(m_listFile), DownloadList::Bytes(m_all), Readers::UserAlone));
}

void Downloads::WriteAgain() {
    if (m_trouble.Pending()) Write();
}

} // namespace tessa
