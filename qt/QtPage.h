#pragma once
#include <QUrl>
#include <QWebEnginePage>

/// An engine page that reports what only its virtual functions tell.
class QtPage final : public QWebEnginePage {
    Q_OBJECT

public:
    /// `token` marks the console lines with which frames report themselves.
    QtPage(QWebEngineProfile* profile, QString token);

    /// Whether the page is about to show what is fetched from there.
    [[nodiscard]] bool Awaits(const QUrl& url) const { return !m_awaited.isEmpty() && m_awaited == url; }

Q_SIGNALS:
    /// A navigation begins, of the page or of a frame inside it.
    void NavigationRequested(const QUrl& url, bool topLevel);
    /// A frame has its document ready, or is loaded.
    void FrameReady(const QUrl& url);
    void FrameLoaded(const QUrl& url);

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                  const QString& source) override;

private:
    QString m_token;
    QUrl m_awaited; ///< of the top-level navigation that has not ended
};
