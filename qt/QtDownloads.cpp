#include "qt/QtDownloads.h"

#include "qt/QtEngineVersions.h"
#include "qt/QtText.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QWebEngineDownloadRequest>
#include <QWebEnginePage>
#include <QWebEngineProfile>

namespace {

using Request = QWebEngineDownloadRequest;

DownloadState TransferStateOf(const Request& request) {
    switch (request.state()) {
    case Request::DownloadCompleted:
        return DownloadState::Done;
    case Request::DownloadCancelled:
        return DownloadState::Cancelled;
    case Request::DownloadInterrupted:
        return DownloadState::Broken;
    default:
        return request.isPaused() ? DownloadState::Paused : DownloadState::Running;
    }
}

// What the engine gives as a reason when less arrives than the server announced; it has no name for it.
constexpr int kTooShort = 38;

DownloadProblem TransferProblemOf(const Request& request) {
    if (static_cast<int>(request.interruptReason()) == kTooShort) return DownloadProblem::Connection;
    switch (request.interruptReason()) {
    case Request::NoReason:
        return DownloadProblem::None;
    case Request::FileNoSpace:
    case Request::FileTooLarge:
        return DownloadProblem::DiskFull;
    case Request::FileFailed:
    case Request::FileAccessDenied:
    case Request::FileNameTooLong:
    case Request::FileBlocked:
        return DownloadProblem::NoAccess;
    case Request::NetworkFailed:
    case Request::NetworkTimeout:
    case Request::NetworkDisconnected:
    case Request::NetworkServerDown:
    case Request::ServerUnreachable:
        return DownloadProblem::Connection;
    case Request::ServerFailed:
    case Request::ServerBadContent:
    case Request::ServerUnauthorized:
    case Request::ServerCertProblem:
    case Request::ServerForbidden:
        return DownloadProblem::Server;
    default:
        return DownloadProblem::Other;
    }
}

Text AddressOf(const Request& request) { return FromQt(request.url().toString(QUrl::FullyEncoded)); }

DownloadReport ReportOf(const Request& request) {
    return {TransferStateOf(request), TransferProblemOf(request), request.receivedBytes(), request.totalBytes()};
}

/// The engine's request, for as long as the engine keeps it.
class Transfer final : public DownloadTransfer {
public:
    explicit Transfer(Request& request) : m_request(&request) {}
    Outcome Pause() override { return Run(&Request::pause); }
    Outcome Cancel() override { return Run(&Request::cancel); }
    Outcome Resume() override {
        // What has ended in the engine's eyes does not go on.
        if (!m_request || m_request->isFinished()) return Outcome::Failed;
        return Run(&Request::resume);
    }

private:
    Outcome Run(void (Request::*action)()) {
        if (!m_request) return Outcome::Failed;
        (m_request->*action)();
        return Outcome::Done;
    }
    QPointer<Request> m_request;
};

} // namespace

QtDownloads::QtDownloads() { m_clock.start(); }

QtDownloads::~QtDownloads() = default;

void QtDownloads::Shutdown() { m_page.reset(); }

void QtDownloads::Follow(QWebEngineProfile& profile) {
    connect(&profile, &QWebEngineProfile::downloadRequested, this,
            [this, known = std::make_shared<Known>()](Request* request) { OnRequest(*request, *known); });
}

void QtDownloads::OnRequest(Request& request, Known& known) {
    // A download that goes on after its connection broke is requested like a new one, but nobody saves one more file.
    if (const auto* download = List ? Continued(request, known) : nullptr) {
        List->Continue(download->Id, std::make_shared<Transfer>(request));
        return Accept(request, *download);
    }
    const bool wanted = request.isSavePageDownload() || m_expected.contains(request.url());
    if (!List || (!wanted && MaySave && !MaySave(request.page(), request.url())))
        return QtEngineVersions::Refuse(request);
    const Download& download = Begin(request);
    known.insert(request.id(), download.Id);
    Accept(request, download);
}

const Download* QtDownloads::Continued(const Request& request, const Known& known) const {
    const auto* download = List->Find(known.value(request.id()));
    // The engine may give a number again once it has forgotten whose it was.
    const bool over = !download || download->Report.State == DownloadState::Done ||
                      download->Report.State == DownloadState::Cancelled;
    return !over && download->Address == AddressOf(request) ? download : nullptr;
}

const Download& QtDownloads::Begin(Request& request) {
    Downloads::Request wanted;
    wanted.Address = AddressOf(request);
    wanted.Total = request.totalBytes();
    if (request.isSavePageDownload()) {
        // The user has chosen its place in a dialog that asks before anything is replaced.
        wanted.Path = FromQt(QDir(request.downloadDirectory()).filePath(request.downloadFileName()));
        wanted.Overwrites = true;
    } else {
        wanted.SuggestedName = FromQt(request.suggestedFileName());
        const auto expected = m_expected.find(request.url());
        if (expected != m_expected.end()) {
            wanted.Path = expected->path;
            wanted.Overwrites = !expected->path.empty();
            wanted.Again = expected->again;
            m_expected.erase(expected);
        }
    }
    const auto* page = request.page();
    const bool offTheRecord = page && page->profile()->isOffTheRecord();
    wanted.Kept = offTheRecord ? Remembered::No : Remembered::Yes;
    return List->Begin(wanted, std::make_shared<Transfer>(request));
}

void QtDownloads::Accept(Request& request, const Download& download) {
    const QFileInfo place(ToQt(download.Path));
    if (!request.isSavePageDownload()) {
        request.setDownloadDirectory(place.path());
        request.setDownloadFileName(place.fileName());
    }
    const auto report = [this, &request, id = download.Id] {
        if (List) List->OnReport(id, ReportOf(request));
    };
    connect(&request, &Request::stateChanged, this, report);
    connect(&request, &Request::receivedBytesChanged, this, report);
    connect(&request, &Request::totalBytesChanged, this, report);
    connect(&request, &Request::isPausedChanged, this, report);
    connect(&request, &Request::interruptReasonChanged, this, report);
    request.accept();
}

void QtDownloads::Save(QWebEnginePage& page, const QUrl& address, const Text& path) {
    m_expected.insert(address, {path, 0});
    page.download(address, QFileInfo(ToQt(path)).fileName());
}

Outcome QtDownloads::Fetch(std::int32_t id, TextView address) {
    const QUrl url(ToQt(address));
    auto* profile = Profile ? Profile() : nullptr;
    const QString scheme = url.scheme();
    // Pages of an earlier run took what was in them along.
    if (!profile || !url.isValid() || (scheme != u"http" && scheme != u"https")) return Outcome::Failed;
    if (!m_page) m_page = std::make_unique<QWebEnginePage>(profile);
    m_expected.insert(url, {{}, id});
    m_page->download(url);
    return Outcome::Done;
}

Text QtDownloads::Folder() {
    // The profile knows the folder that the user has chosen.
    const auto* profile = Profile ? Profile() : nullptr;
    const QString folder =
        profile ? profile->downloadPath() : QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    return FromQt(!folder.isEmpty() && QDir().mkpath(folder) ? folder : QDir::homePath());
}

Outcome QtDownloads::Open(TextView path) {
    const QString file = ToQt(path);
    if (!QFileInfo::exists(file)) return Outcome::Failed;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(file)) ? Outcome::Done : Outcome::Failed;
}

Outcome QtDownloads::ShowInFolder(TextView path) {
    return m_fileManager.Show(ToQt(path)) ? Outcome::Done : Outcome::Failed;
}
