#pragma once
#include <QObject>
#include <QTimer>
#include <QUrl>

namespace tessa::qt {

class WebPage;

/// Follows what a page is about to show, and whether the program has asked for that or the page itself.
class Awaited final : public QObject {
    Q_OBJECT

public:
    /// Belongs to the page.
    explicit Awaited(WebPage& page);

    /// The program asks for the navigation that begins next.
    void Ask() { m_asked = true; }
    /// The page is to show what another page has asked for.
    void Expect() { m_patience.start(); }

Q_SIGNALS:
    /// Nothing has come for a while of what the page has asked for by itself. It may still come.
    void Overdue();

private:
    void End();
    void OnNavigation(const QUrl& url, bool topLevel);

    WebPage& m_page;
    QTimer m_patience;
    bool m_asked = false;
};

} // namespace tessa::qt
