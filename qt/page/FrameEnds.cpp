#include "qt/page/FrameEnds.h"

#include "qt/base/EngineVersions.h"
#include "qt/page/WebPage.h"

#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <chrono>

namespace tessa::qt {

namespace {
constexpr std::chrono::seconds kFramePatience{3};
}

FrameEnds::FrameEnds(WebPage& page) : QObject(&page), m_page(page) {
    m_patience.setSingleShot(true);
    m_patience.setInterval(kFramePatience);
    m_patience.callOnTimeout(this, &FrameEnds::Drop);
    connect(&page, &WebPage::NavigationRequested, this, &FrameEnds::OnNavigation);
    // What ends with a document, or with the page's own load, tells so itself.
    connect(&page, &WebPage::FrameReady, this, &FrameEnds::End);
    connect(&page, &WebPage::FrameLoaded, this, &FrameEnds::End);
    connect(&page, &QWebEnginePage::urlChanged, this, &FrameEnds::End);
    connect(&page, &QWebEnginePage::loadFinished, this, &FrameEnds::End);
    connect(page.profile(), &QWebEngineProfile::downloadRequested, this,
            [this](const QWebEngineDownloadRequest* download) { OnDownload(*download); });
}

void FrameEnds::OnNavigation(const QUrl& url, bool topLevel) {
    if (topLevel) return End();
    m_awaited = url;
    m_patience.start();
}

void FrameEnds::OnDownload(const QWebEngineDownloadRequest& download) {
    if (!m_patience.isActive() || download.url() != m_awaited) return;
    if (EngineVersions::PageOf(download) == &m_page) Drop();
}

void FrameEnds::End() { m_patience.stop(); }

void FrameEnds::Drop() {
    End();
    Q_EMIT Dropped();
}

} // namespace tessa::qt
