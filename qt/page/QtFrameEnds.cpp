#include "qt/page/QtFrameEnds.h"

#include "qt/base/QtEngineVersions.h"
#include "qt/page/QtPage.h"

#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <chrono>

namespace tessa::qt {

namespace {
constexpr std::chrono::seconds kFramePatience{3};
}

QtFrameEnds::QtFrameEnds(QtPage& page) : QObject(&page), m_page(page) {
    m_patience.setSingleShot(true);
    m_patience.setInterval(kFramePatience);
    m_patience.callOnTimeout(this, &QtFrameEnds::Drop);
    connect(&page, &QtPage::NavigationRequested, this, &QtFrameEnds::OnNavigation);
    // What ends with a document, or with the page's own load, tells so itself.
    connect(&page, &QtPage::FrameReady, this, &QtFrameEnds::End);
    connect(&page, &QtPage::FrameLoaded, this, &QtFrameEnds::End);
    connect(&page, &QWebEnginePage::urlChanged, this, &QtFrameEnds::End);
    connect(&page, &QWebEnginePage::loadFinished, this, &QtFrameEnds::End);
    connect(page.profile(), &QWebEngineProfile::downloadRequested, this,
            [this](const QWebEngineDownloadRequest* download) { OnDownload(*download); });
}

void QtFrameEnds::OnNavigation(const QUrl& url, bool topLevel) {
    if (topLevel) return End();
    m_awaited = url;
    m_patience.start();
}

void QtFrameEnds::OnDownload(const QWebEngineDownloadRequest& download) {
    if (!m_patience.isActive() || download.url() != m_awaited) return;
    if (QtEngineVersions::PageOf(download) == &m_page) Drop();
}

void QtFrameEnds::End() { m_patience.stop(); }

void QtFrameEnds::Drop() {
    End();
    Q_EMIT Dropped();
}

} // namespace tessa::qt
