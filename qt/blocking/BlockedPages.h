#pragma once
#include "base/Signal.h"
#include "qt/blocking/Blocker.h"

#include <QPointer>
#include <QUrl>
#include <map>
#include <vector>

class QWebEnginePage;
class QWebEngineUrlRequestInfo;

namespace tessa::qt {

/// A request that was stopped, and the rule that did it.
struct BlockedRequest {
    QUrl address;
    QString rule, list;
};

/// What was stopped on each page since it was loaded. Forgotten with the page; nothing of it is kept anywhere.
class BlockedPages final : public QObject {
public:
    /// The blocker outlives it.
    explicit BlockedPages(Blocker& blocker) : m_blocker(blocker) {}

    /// From now on what is stopped on that page is counted.
    void Follow(QWebEnginePage& page);
    /// Stops the request if rules say so. A page itself is never stopped.
    [[nodiscard]] bool Stops(const QWebEngineUrlRequestInfo& info);
    /// Whether a window that the page opens stays closed.
    [[nodiscard]] bool StopsPopup(const QUrl& target, QWebEnginePage& opener);

    [[nodiscard]] int Count(const QWebEnginePage* page) const;
    /// The first some hundred of them.
    [[nodiscard]] std::vector<BlockedRequest> On(const QWebEnginePage* page) const;

    /// The count of a page has changed.
    Signal<void(QWebEnginePage&)> Counted;

private:
    struct Stopped {
        QPointer<QWebEnginePage> page;
        int count = 0;
        std::vector<BlockedRequest> first;
    };
    void Note(QWebEnginePage& page, const QUrl& address, const RuleFound& by);
    [[nodiscard]] QWebEnginePage* FindPage(const QUrl& shown, bool (*isSame)(const QUrl&, const QUrl&)) const;
    [[nodiscard]] QWebEnginePage* FindAsker(const QWebEngineUrlRequestInfo& info) const;

    Blocker& m_blocker;
    std::map<const QWebEnginePage*, Stopped> m_pages;
};

} // namespace tessa::qt
