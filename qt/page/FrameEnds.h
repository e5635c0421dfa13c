#pragma once
#include <QObject>
#include <QTimer>
#include <QUrl>

class QWebEngineDownloadRequest;

namespace tessa::qt {

class WebPage;

/// Tells when the navigation of a frame inside a page has ended without a document. A download says so. Of an answer
/// without content, or of a frame that is taken away, the engine says nothing. A navigation that has brought nothing
/// for a while counts as ended.
class FrameEnds final : public QObject {
    Q_OBJECT

public:
    /// Belongs to the page.
    explicit FrameEnds(WebPage& page);

Q_SIGNALS:
    /// The frame's navigation that began last brings no document.
    void Dropped();

private:
    void OnNavigation(const QUrl& url, bool topLevel);
    void OnDownload(const QWebEngineDownloadRequest& download);
    void End();
    void Drop();

    WebPage& m_page;
    QUrl m_awaited; ///< of the navigation that has not ended
    QTimer m_patience;
};

} // namespace tessa::qt
