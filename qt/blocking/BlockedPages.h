#pragma once
#include "base/Signal.h"
#include "qt/blocking/Blocker.h"

#include <QPointer>
#include <QUrl>
#include <map>
#include <memory>
#include <optional>
#include <vector>

class QWebEnginePage;
class QWebEngineUrlRequestInfo;

namespace tessa::qt {

class WebPage;

/// A request that was stopped, and the rule that did it.
struct BlockedRequest {
    QUrl address;
    QString rule, list;
};

/// What was stopped on each page since it was loaded. Forgotten with the page; nothing of it is kept anywhere.
class BlockedPages final : public QObject {
public:
    /// The blocker outlives it.
    explicit BlockedPages(Blocker& blocker);
    ~BlockedPages() override;

    /// From now on what is stopped on that page is counted.
    void Follow(QWebEnginePage& page);
    /// What the page has opened is its own doing until it shows something: windows that are led on to what rules stop
    /// close again.
    void FollowOpened(WebPage& opened, QWebEnginePage& opener);
    /// Stops the request if rules say so, or gives an empty answer instead. False for what goes on as it is. For the
    /// interceptor of the profile. A page itself is never stopped.
    [[nodiscard]] bool Judge(QWebEngineUrlRequestInfo& info);
    /// Whether a window that the page opens stays closed.
    [[nodiscard]] bool StopsPopup(const QUrl& target, QWebEnginePage& opener);

    [[nodiscard]] int Count(const QWebEnginePage* page) const;
    /// The first some hundred of them.
    [[nodiscard]] std::vector<BlockedRequest> On(const QWebEnginePage* page) const;

    /// The count of a page has changed.
    Signal<void(QWebEnginePage&)> Counted;

private:
    class OfPage;
    using IsSame = bool (*)(const QUrl&, const QUrl&);
    struct Stopped {
        [[nodiscard]] bool IsAt(const QUrl& shown, IsSame isSame) const;

        QPointer<QWebEnginePage> page;
        QUrl requested; ///< while it does not load
        int count = 0;
        std::vector<BlockedRequest> first;
        std::unique_ptr<OfPage> interceptor;
        Connection leadsOn;
    };
    /// A request that is to be stopped, but of one of several pages.
    struct Left {
        QUrl address;
        RuleVerdict verdict;
    };
    void JudgeFor(QWebEnginePage& page, QWebEngineUrlRequestInfo& info);
    void Begin(QWebEnginePage& page);
    void Note(QWebEnginePage& page, const QUrl& address, const RuleFound& by);
    [[nodiscard]] std::vector<QWebEnginePage*> FindPages(const QUrl& shown, IsSame isSame) const;
    [[nodiscard]] QWebEnginePage* FindAsker(const QWebEngineUrlRequestInfo& info) const;

    Blocker& m_blocker;
    std::map<const QWebEnginePage*, Stopped> m_pages;
    std::optional<Left> m_left;
};

} // namespace tessa::qt
