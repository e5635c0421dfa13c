#include "qt/page/PageDocuments.h"

#include "qt/base/EngineVersions.h"

#include <QFileInfo>
#include <QWebEngineDownloadRequest>
#include <QWebEnginePage>
#include <algorithm>
#include <utility>

namespace tessa::qt {

void PageDocuments::SaveAs(QWebEnginePage& page, const QString& path, QWebEngineDownloadRequest::SavePageFormat format,
                           std::function<void(bool came)> told) {
    auto watch = std::make_unique<QObject>();
    const auto giveUp = [this, each = watch.get()] { GiveUp(each); };
    connect(&page, &QWebEnginePage::loadStarted, watch.get(), giveUp, Qt::QueuedConnection);
    connect(&page, &QObject::destroyed, watch.get(), giveUp, Qt::QueuedConnection);
    m_pending.push_back({&page, page.url(), {path, std::move(told)}, std::move(watch)});
    page.save(path, format);
}

// The engine has no name for such a download. A page may ask for one of its own address too, but what comes is from the
// same place.
std::optional<PageDocuments::Wanted> PageDocuments::Take(const QWebEngineDownloadRequest& request) {
    if (m_pending.empty()) return std::nullopt;
    const auto isIt = [&request, page = EngineVersions::PageOf(request)](const Pending& each) {
        if (!each.page || each.page != page) return false;
        if (request.isSavePageDownload()) return QFileInfo(each.wanted.Path).fileName() == request.downloadFileName();
        return request.url().adjusted(QUrl::RemoveFragment) == each.address.adjusted(QUrl::RemoveFragment);
    };
    const auto found = std::ranges::find_if(m_pending, isIt);
    if (found == m_pending.end()) return std::nullopt;
    Wanted wanted = std::move(found->wanted);
    m_pending.erase(found);
    return wanted;
}

void PageDocuments::Bring(QWebEngineDownloadRequest& request, const Wanted& wanted) {
    using Request = QWebEngineDownloadRequest;
    const QFileInfo place(wanted.Path);
    if (!request.isSavePageDownload()) {
        request.setDownloadDirectory(place.path());
        request.setDownloadFileName(place.fileName());
    }
    const auto told = std::make_shared<std::function<void(bool)>>(wanted.Told);
    const auto tell = [told](bool came) {
        if (const auto once = std::exchange(*told, {})) once(came);
    };
    connect(&request, &Request::stateChanged, &request, [tell](Request::DownloadState state) {
        if (state != Request::DownloadInProgress) tell(state == Request::DownloadCompleted);
    });
    connect(&request, &QObject::destroyed, &request, [tell] { tell(false); });
    request.accept();
}

void PageDocuments::GiveUp(const QObject* watch) {
    const auto found = std::ranges::find_if(m_pending, [watch](const auto& each) { return each.watch.get() == watch; });
    if (found == m_pending.end()) return;
    const Wanted wanted = std::move(found->wanted);
    // This very call is the watch's.
    found->watch.release()->deleteLater();
    m_pending.erase(found);
    if (wanted.Told) wanted.Told(false);
}

} // namespace tessa::qt
