#include "qt/QtPage.h"

#include <QDesktopServices>

QtPage::QtPage(QWebEngineProfile* profile, QString token) : QWebEnginePage(profile), m_token(std::move(token)) {
    connect(this, &QWebEnginePage::urlChanged, this, [this] { m_awaited.clear(); });
}

bool QtPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
    if (url.scheme() == u"mailto") {
        // Only a person's click starts the mail program, so that no page can start it a hundred times.
        if (type == NavigationTypeLinkClicked) QDesktopServices::openUrl(url);
        return false;
    }
    if (isMainFrame) m_awaited = url;
    Q_EMIT NavigationRequested(url, isMainFrame);
    return true;
}

void QtPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString& message, int, const QString&) {
    if (!message.startsWith(m_token)) return;
    const QString report = message.mid(m_token.size() + 1);
    const QUrl address(report.section(u' ', 1));
    if (report.startsWith(u"ready ")) Q_EMIT FrameReady(address);
    if (report.startsWith(u"load ")) Q_EMIT FrameLoaded(address);
}
