#pragma once
#include "base/Signal.h"
#include "qt/engine/ViewContext.h"

#include <QObject>
#include <QPointer>

class QUrl;
class QWebEngineLoadingInfo;

namespace tessa::qt {

class Navigation;
class WebPage;
class ViewPage;
class Whereabouts;

/// Which signal of the engine becomes which event of a view, of all that is about loading.
class LoadEvents final : public QObject {
public:
    /// All outlive it.
    LoadEvents(const ViewContext& view, Whereabouts& where, Navigation& navigation);

    /// Follows the view's page from now on.
    void Follow(const ViewPage& page);
    void Leave();

    /// The page goes to another one.
    Signal<void()> Left;
    /// The page has another address, and may have another document; told before the view's event.
    Signal<void()> Arrived;
    /// A load has finished; told after the view's events.
    Signal<void()> Finished;

private:
    void FollowLoads();
    void FollowFrames();
    void NoteVisit(const QUrl& url);
    void OnNavigation(const QUrl& url, bool top);
    void OnLoadStarted();
    void OnLoadFinished(bool ok);
    void OnDocumentKnown(bool isError);
    void OnAddress(const QUrl& url);
    void OnLoadingChanged(const QWebEngineLoadingInfo& info);
    void TellEnd(const QWebEngineLoadingInfo& info);
    void OnProcessGone();
    void TellHistory();

    const ViewContext m_view;
    Whereabouts& m_where;
    Navigation& m_navigation;
    QPointer<WebPage> m_page;
    bool m_canGoBack = false;
    bool m_canGoForward = false;
};

} // namespace tessa::qt
