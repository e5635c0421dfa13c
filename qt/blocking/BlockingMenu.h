#pragma once
#include "base/Signal.h"
#include "forms/StatusBar.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>

class QMenu;
class QWebEnginePage;
class QWidget;

namespace tessa::qt {

class BlockedPages;
class Blocker;

/// The sign in the status bar that tells how many requests of the page in front were stopped. A click on it opens its
/// menu.
class BlockingMenu final : public QObject {
public:
    /// All outlive it. `front` is the page that is shown; nothing when there is none.
    BlockingMenu(Blocker& blocker, BlockedPages& pages, StatusBar& bar, std::function<QWebEnginePage*()> front);

    /// The page in front may be another one.
    void Follow();
    /// Opens above the pointer, or the sign.
    void Open(QWidget& over);

    /// The user wants to point at what is to be hidden, see what was stopped, choose lists.
    Signal<void(QWebEnginePage&)> Picks;
    Signal<void(QWebEnginePage&)> ShowsBlocked;
    Signal<void()> ShowsOptions;

private:
    void Show();
    void Fill(QMenu& menu, QWebEnginePage& page);

    Blocker& m_blocker;
    BlockedPages& m_pages;
    StatusBar& m_bar;
    std::function<QWebEnginePage*()> m_front;
    QTimer m_soon; ///< a page that loads changes its number many times a second
    Connections m_connections;
};

} // namespace tessa::qt
