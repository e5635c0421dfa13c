#include "qt/downloads/EngineDownloads.h"

#include "base/Address.h"
#include "qt/base/EngineVersions.h"
#include "qt/base/Strings.h"
#include "qt/page/WebPage.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUuid>
#include <QWebEngineDownloadRequest>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <algorithm>
#include <utility>

namespace tessa::qt {

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

/// Files that are asked for and have not begun to come.
constexpr qsizetype kMostExpected = 200;

// What the engine gives as a reason when less arrives than the server announced; it has no name for it.
constexpr int kTooShort = 38;

constexpr std::pair<int, DownloadProblem> kProblems[] = {
    {Request::NoReason, DownloadProblem::None},
    {Request::FileNoSpace, DownloadProblem::DiskFull},
    {Request::FileTooLarge, DownloadProblem::DiskFull},
    {Request::FileFailed, DownloadProblem::NoAccess},
    {Request::FileAccessDenied, DownloadProblem::NoAccess},
    {Request::FileNameTooLong, DownloadProblem::NoAccess},
    {Request::FileBlocked, DownloadProblem::NoAccess},
    {Request::NetworkFailed, DownloadProblem::Connection},
    {Request::NetworkTimeout, DownloadProblem::Connection},
    {Request::NetworkDisconnected, DownloadProblem::Connection},
    {Request::NetworkServerDown, DownloadProblem::Connection},
    {Request::ServerUnreachable, DownloadProblem::Connection},
    {kTooShort, DownloadProblem::Connection},
    {Request::ServerFailed, DownloadProblem::Server},
    {Request::ServerBadContent, DownloadProblem::Server},
    {Request::ServerUnauthorized, DownloadProblem::Server},
    {Request::ServerCertProblem, DownloadProblem::Server},
    {Request::ServerForbidden, DownloadProblem::Server},
};

DownloadProblem TransferProblemOf(const Request& request) {
    const auto* found = std::ranges::find(kProblems, static_cast<int>(request.interruptReason()),
                                          &std::pair<int, DownloadProblem>::first);
    return found == std::ranges::end(kProblems) ? DownloadProblem::Other : found->second;
}

Text AddressOf(const Request& request) { return FromQt(request.url().toString(QUrl::FullyEncoded)); }

bool IsOfASite(const QUrl& address) { return address.scheme() == u"http" || address.scheme() == u"https"; }

/// A page that shows nothing, and has its own icon, for else the engine asks its site for one.
const QString kBlankPage = QStringLiteral("<link rel=icon href='data:,'>");

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

EngineDownloads::EngineDownloads(DownloadSource& source) : m_source(source) { m_clock.start(); }

EngineDownloads::~EngineDownloads() = default;

void EngineDownloads::Shutdown() { m_page.reset(); }

void EngineDownloads::Follow(QWebEngineProfile& profile) {
    auto from = std::make_shared<Followed>();
    from->profile = &profile;
    connect(&profile, &QWebEngineProfile::downloadRequested, this,
            [this, from](Request* request) { OnRequest(*request, *from); });
}

void EngineDownloads::OnRequest(Request& request, Followed& from) {
    const auto document = m_source.Documents().Take(request);
    // What the program needs for itself is in no list.
    if (document && document->Told) return PageDocuments::Bring(request, *document);
    // A download that goes on after its connection broke is requested like a new one, but is no new file.
    if (const auto* download = m_list ? Continued(request, from) : nullptr) {
        m_list->Continue(download->Id, std::make_shared<Transfer>(request));
        return Accept(request, *download);
    }
    if (!m_list || !(document || May(request, from))) return EngineVersions::Refuse(request);
    const Download& download = Begin(request, from, document ? document->Path : QString());
    from.rows.insert(request.id(), download.Id);
    Accept(request, download);
}

bool EngineDownloads::May(const Request& request, Followed& from) const {
    if (request.isSavePageDownload() || m_expected.contains(AskedNameOf(request))) return true;
    // A page that has gone cannot be asked about. One that goes at once is not to save without end.
    auto* page = EngineVersions::PageOf(request);
    const auto* ours = qobject_cast<const WebPage*>(page);
    return page && !(ours && ours->Ended()) ? m_source.MaySave(page, request.url()) : from.pageless.Take();
}

const Download* EngineDownloads::Continued(const Request& request, const Followed& from) const {
    const auto* download = m_list->Find(from.rows.value(request.id()));
    // The engine may give a number again once it has forgotten whose it was.
    const bool over = !download || download->Report.State == DownloadState::Done ||
                      download->Report.State == DownloadState::Cancelled;
    return !over && download->Address == Address::WithoutUser(AddressOf(request)) ? download : nullptr;
}

void EngineDownloads::ChoosePlace(Downloads::Request& wanted, Request& request, const QString& path) {
    if (request.isSavePageDownload()) {
        // The user has chosen its place in a dialog that asks before anything is replaced.
        wanted.Path = FromQt(QDir(request.downloadDirectory()).filePath(request.downloadFileName()));
        wanted.Overwrites = true;
    } else if (!path.isEmpty()) {
        wanted.Path = FromQt(path);
        wanted.Overwrites = true;
    } else if (m_expected.contains(AskedNameOf(request))) {
        const QString name = AskedNameOf(request);
        const Expected expected = m_expected.take(name);
        m_expectedOrder.removeOne(name);
        EndAlone(request);
        wanted.Path = expected.path;
        wanted.Overwrites = !expected.path.empty();
        wanted.Again = expected.again;
    } else {
        wanted.SuggestedName = FromQt(request.suggestedFileName());
    }
}

const Download& EngineDownloads::Begin(Request& request, const Followed& from, const QString& path) {
    Downloads::Request wanted;
    wanted.Address = AddressOf(request);
    wanted.Total = request.totalBytes();
    ChoosePlace(wanted, request, path);
    // The page may have gone by now; its profile knows.
    const bool offTheRecord = !from.profile || from.profile->isOffTheRecord();
    wanted.Kept = offTheRecord ? Remembered::No : Remembered::Yes;
    const Download& download = m_list->Begin(wanted, std::make_shared<Transfer>(request));
    if (offTheRecord) m_private.insert(download.Id, from.profile);
    return download;
}

void EngineDownloads::Accept(Request& request, const Download& download) {
    const QFileInfo place(ToQt(download.Path));
    if (!request.isSavePageDownload()) {
        request.setDownloadDirectory(place.path());
        request.setDownloadFileName(place.fileName());
    }
    const auto report = [this, &request, id = download.Id] {
        if (m_list) m_list->OnReport(id, ReportOf(request));
    };
    connect(&request, &Request::stateChanged, this, report);
    connect(&request, &Request::receivedBytesChanged, this, report);
    connect(&request, &Request::totalBytesChanged, this, report);
    connect(&request, &Request::isPausedChanged, this, report);
    connect(&request, &Request::interruptReasonChanged, this, report);
    request.accept();
}

// A link may lead through other addresses before a file comes of it. Only the name that was asked for comes back
// unchanged. Nobody else can ask for it, so what never becomes a request cannot be mistaken for another later.
QString EngineDownloads::Expect(const Expected& expected) {
    const QString name = QUuid::createUuid().toString(QUuid::Id128);
    m_expected.insert(name, expected);
    m_expectedOrder << name;
    if (m_expectedOrder.size() > kMostExpected) {
        const QString oldest = m_expectedOrder.takeFirst();
        m_expected.remove(oldest);
        if (auto* page = m_alone.key(oldest)) page->deleteLater();
    }
    return name;
}

QString EngineDownloads::AskedNameOf(const Request& request) const {
    const QString name = m_alone.isEmpty() ? QString() : m_alone.value(EngineVersions::PageOf(request));
    // The engine may have put an ending behind it.
    return name.isEmpty() ? request.suggestedFileName().section(u'.', 0, 0) : name;
}

void EngineDownloads::Ask(QWebEnginePage& page, const QUrl& address, const Expected& expected) {
    const QString name = Expect(expected);
    if (EngineVersions::KeepsAskedNames() || !IsOfASite(address)) return page.download(address, name);
    AskAlone(*page.profile(), address, name);
}

// Where the name does not come back, the page tells. It is of the address's own site. So it gets that site's cookies,
// as from a link that the user opens.
void EngineDownloads::AskAlone(QWebEngineProfile& profile, const QUrl& address, const QString& name) {
    auto* page = new QWebEnginePage(&profile, &profile);
    m_alone.insert(page, name);
    connect(page, &QObject::destroyed, this, [this, page] { m_alone.remove(page); });
    const auto fetch = [page, address, name] { page->download(address, name); };
    connect(page, &QWebEnginePage::loadFinished, page, fetch, Qt::SingleShotConnection);
    page->setHtml(kBlankPage, address);
}

void EngineDownloads::EndAlone(Request& request) {
    auto* page = EngineVersions::PageOf(request);
    if (!m_alone.remove(page)) return;
    connect(&request, &Request::isFinishedChanged, page, &QObject::deleteLater);
    connect(&request, &QObject::destroyed, page, &QObject::deleteLater);
}

void EngineDownloads::Save(QWebEnginePage& page, const QUrl& address, const Text& path) {
    Ask(page, address, {path, 0});
}

// With the profile that the download was begun with: what a private page fetched is nothing to the others.
QWebEnginePage* EngineDownloads::PageFor(std::int32_t id) {
    auto* ordinary = m_source.Profile();
    QWebEngineProfile* own = m_private.contains(id) ? m_private.value(id).data() : ordinary;
    if (!own) return nullptr;
    if (own == ordinary) {
        if (!m_page) m_page = std::make_unique<QWebEnginePage>(own);
        return m_page.get();
    }
    if (!m_privatePage || m_privatePage->profile() != own) m_privatePage = new QWebEnginePage(own, own);
    return m_privatePage;
}

Outcome EngineDownloads::Fetch(std::int32_t id, TextView address) {
    const QUrl url(ToQt(address));
    // Pages of an earlier run took what was in them along.
    if (!url.isValid() || !IsOfASite(url)) return Outcome::Failed;
    auto* page = PageFor(id);
    if (!page) return Outcome::Failed;
    Ask(*page, url, {{}, id});
    return Outcome::Done;
}

Text EngineDownloads::Folder() {
    // The profile knows the folder that the user has chosen.
    const auto* profile = m_source.Profile();
    const QString folder =
        profile ? profile->downloadPath() : QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    return FromQt(!folder.isEmpty() && QDir().mkpath(folder) ? folder : QDir::homePath());
}

Outcome EngineDownloads::Open(TextView path) {
    const QString file = ToQt(path);
    if (!QFileInfo::exists(file)) return Outcome::Failed;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(file)) ? Outcome::Done : Outcome::Failed;
}

Outcome EngineDownloads::ShowInFolder(TextView path) {
    return m_fileManager.Show(ToQt(path)) ? Outcome::Done : Outcome::Failed;
}

} // namespace tessa::qt
