#pragma once
#include "platform/BrowserView.h"

#include <map>

class QByteArray;
class QString;
class QUrl;
class QWebEngineNewWindowRequest;

namespace tessa::qt {

class BlockedPages;
class WebPage;
class Permissions;

/// Where the windows that pages open are shown. Whoever gets the pages' events supplies a view, which takes the window
/// in.
class NewWindows {
public:
    /// A view that shows what was opened from another one.
    class Taker {
    public:
        virtual ~Taker() = default;
        /// Has the window, whose page another page may fill. `byPerson` when a click of its user's is good for it, too.
        virtual void TakeIn(QWebEngineNewWindowRequest& request, bool byPerson) = 0;
        /// Has a PDF that is to be printed, and what it is called.
        virtual void TakePreview(const QByteArray& pdf, const QString& name) = 0;
        /// The engine's page in which the window is; nothing before it was taken in.
        [[nodiscard]] virtual WebPage* Page() const = 0;
    };
    /// A page that opens a window, with its view's index.
    struct Opener {
        WebPage& page;
        Permissions& permissions;
        BrowserViewEvents& events;
        std::int16_t index;
    };

    /// The view takes windows in until it is removed, which must be before it goes.
    void Add(const BrowserView& view, Taker& taker) { m_takers[&view] = &taker; }
    void Remove(const BrowserView& view) { m_takers.erase(&view); }
    /// Nothing for a view that takes none in.
    [[nodiscard]] Taker* Find(const BrowserView* view) const;

    /// From now on windows that rules stop stay closed. What holds the rules outlives it.
    void HoldAgainst(BlockedPages& pages) { m_blocked = &pages; }

    /// Opens what a page asks for, unless it may not: in a view, or by another program.
    void Open(QWebEngineNewWindowRequest& request, const Opener& opener) const;

private:
    std::map<const BrowserView*, Taker*> m_takers;
    BlockedPages* m_blocked = nullptr;
};

} // namespace tessa::qt
