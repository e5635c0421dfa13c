#include "qt/base/QtEngineVersions.h"
#include "qt/base/QtText.h"
#include "qt/engine/QtBrowserView.h"
#include "qt/engine/QtPageSignals.h"
#include "qt/page/QtAwaited.h"
#include "qt/page/QtFrameEnds.h"
#include "qt/page/QtLoadEnds.h"
#include "qt/questions/QtLeaving.h"

#include <QWebEngineFullScreenRequest>
#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineSettings>

namespace {

// The engine tells a link decoded, for people; what they are to judge it by is the form that nothing can hide in.
Text HoveredLink(const QString& link) { return LoadWords::Link(QtAddress::Shown(QUrl(link))); }

// A page of the host's own, whatever it says.
bool IsOfHost(const QWebEngineLoadingInfo& info) {
    return info.errorDomain() == QWebEngineLoadingInfo::HttpStatusCodeDomain;
}

} // namespace

// Which signal of the engine becomes which event of the view.

void QtBrowserView::ConnectLoading() {
    QtPage* page = m_page;
    connect(page, &QtPage::NavigationRequested, this, [this](const QUrl& url, bool top) {
        NoteVisit(url);
        if (top) m_newDocument = true;
        if (top) m_printsLater = false;
        // The second try is for the address that was typed, and for none that comes after it.
        if (top && QtAddress::Shown(url) != m_fallbackOf) DropFallback();
        m_events.BeforeNavigate2(m_index, top ? PageLevel::Top : PageLevel::Frame, QtAddress::Shown(url));
    });
    connect(page, &QWebEnginePage::loadStarted, this, &QtBrowserView::OnLoadStarted);
    connect(page, &QWebEnginePage::loadProgress, this, [this] { m_services.schedule.NoteSign(m_index); });
    connect(page, &QWebEnginePage::loadFinished, this, &QtBrowserView::OnLoadFinished);
    connect(page, &QWebEnginePage::loadingChanged, this, &QtBrowserView::OnLoadingChanged);
    connect(page, &QWebEnginePage::urlChanged, this, [this](const QUrl& url) {
        // What the page still awaits it does not show yet.
        if (!m_page->Awaits(url)) OnAddressChanged(url);
    });
    connect(page, &QtPage::DocumentShown, this, [this] { OnAddressChanged(m_page->url()); });
    connect(page, &QtPage::DocumentBegan, this, &QtBrowserView::OnDocumentBegan);
    connect(m_awaited, &QtAwaited::Overdue, this, &QtBrowserView::OnOverdue);
    connect(new QtFrameEnds(*page), &QtFrameEnds::Dropped, this, [this] { m_events.NavigationDropped(m_index); });
    connect(page, &QtPage::FrameReady, this,
            [this](const QUrl& url) { m_events.NavigateComplete2(m_index, PageLevel::Frame, QtAddress::Shown(url)); });
    connect(page, &QtPage::FrameLoaded, this,
            [this](const QUrl& url) { m_events.DocumentComplete(m_index, PageLevel::Frame, QtAddress::Shown(url)); });
}

void QtBrowserView::ConnectPage() {
    QtPage* page = m_page;
    connect(page, &QWebEnginePage::titleChanged, this,
            [this](const QString& title) { m_events.TitleChange(m_index, NameOf(title)); });
    connect(page, &QWebEnginePage::linkHovered, this,
            [this](const QString& url) { m_events.StatusTextChange(m_index, HoveredLink(url)); });
    connect(page, &QWebEnginePage::recentlyAudibleChanged, this, [this] { m_events.SoundChange(m_index); });
    // Queued: opening a TessaGroup may close this very page.
    connect(
        page, &QtPage::StartLinkFollowed, this, [this](const QUrl& url) { m_services.told.StartLink(url); },
        Qt::QueuedConnection);
    QtEngineVersions::FollowPrintRequests(*page, *this, [this] { OnPrintRequested(); });
    connect(page, &QWebEnginePage::newWindowRequested, this, [this](QWebEngineNewWindowRequest& request) {
        m_services.newWindows.Open(request, {*m_page, m_questions->permissions, m_events, m_index});
    });
    connect(page, &QWebEnginePage::fullScreenRequested, this, &QtBrowserView::OnFullScreen);
    connect(page, &QWebEnginePage::renderProcessTerminated, this, &QtBrowserView::OnRendererGone);
    // Queued: closing may ask the user, and the page waits for its own answer meanwhile.
    connect(
        page, &QWebEnginePage::windowCloseRequested, this,
        [this] {
            if (m_leaving && !m_leaving->TakeClose()) m_events.WindowClosing(m_index);
        },
        Qt::QueuedConnection);
}

void QtBrowserView::NoteVisit(const QUrl& url) {
    if (m_privacy == Privacy::Ordinary) m_services.told.Visited(url);
}

void QtBrowserView::OnLoadStarted() {
    m_loading = m_awaitsEnd = true;
    m_events.StatusTextChange(m_index, LoadWords::kBegun);
    m_events.DownloadBegin(m_index);
}

void QtBrowserView::OnLoadFinished(bool ok) {
    m_loading = false;
    if (!m_pending) m_services.schedule.EndTurn(m_index);
    if (!m_page->AwaitsAny()) {
        // Where scripts are switched off, no document tells of itself.
        if (!m_page->url().isEmpty()) m_shown = m_page->url();
        m_committed = m_committed || (ok && !m_shown.isEmpty());
        m_newDocument = false;
    }
    ReportHistory();
    m_events.DownloadComplete(m_index);
    m_events.DocumentComplete(m_index, PageLevel::Top, LocationURL());
    if (m_previewsLater) PrintPreview();
}

// A navigation that the engine never began ends all the same: somebody may count the pages that are to come.
void QtBrowserView::ReportUnbegun() { m_events.DocumentComplete(m_index, PageLevel::Top, LocationURL()); }

void QtBrowserView::OnAddressChanged(const QUrl& url) {
    if (url.isEmpty()) return;
    m_committed = true;
    m_shown = url;
    if (std::exchange(m_newDocument, false)) m_known = false;
    NoteVisit(url);
    ApplyZoom();
    ReportHistory();
    FollowPreview();
    m_events.NavigateComplete2(m_index, PageLevel::Top, QtAddress::Shown(url));
}

void QtBrowserView::OnDocumentBegan(bool isError) {
    if (m_committed) OnDocumentKnown(isError);
}

void QtBrowserView::OnDocumentKnown(bool isError) {
    const bool knew = std::exchange(m_known, true);
    const bool failed = std::exchange(m_failed, isError);
    if (!knew || failed != isError) m_events.SecurityChange(m_index);
}

void QtBrowserView::OnOverdue() {
    m_late = true;
    m_events.NavigationOverdue(m_index);
}

void QtBrowserView::OnLoadingChanged(const QWebEngineLoadingInfo& info) {
    // What ends without a page, as a download does, leaves the page shown as it is.
    const bool ofPage = QtAddress::Shown(info.url()) == QtAddress::Shown(m_page->url());
    const bool failed = info.status() == QWebEngineLoadingInfo::LoadFailedStatus;
    const bool ended = failed || info.status() == QWebEngineLoadingInfo::LoadSucceededStatus;
    TellEnd(info);
    if (ofPage && ended) {
        // Newer engines tell of the end of a load after they have called it finished, when the sign has been shown.
        OnDocumentKnown(failed && !IsOfHost(info));
    }
    if (info.status() == QWebEngineLoadingInfo::LoadSucceededStatus) {
        DropFallback();
        m_hidesErrors = false;
    }
    if (failed) OnFailure(info, info.isErrorPage() || (ofPage && IsOfHost(info)));
}

// How the first of two tries fails is not shown: the page before stays until the second one has ended.
void QtBrowserView::BeginTries(const QtAddress& target) {
    m_fallback = target.fallback;
    m_fallbackOf = QtAddress::Shown(target.url);
    m_hidesErrors = m_hidesErrors || !m_fallback.isEmpty();
    m_page->settings()->setAttribute(QWebEngineSettings::ErrorPageEnabled, m_fallback.isEmpty());
}

void QtBrowserView::DropFallback() {
    m_fallback.clear();
    if (m_page) m_page->settings()->setAttribute(QWebEngineSettings::ErrorPageEnabled, true);
}

bool QtBrowserView::IsFirstTry(const QWebEngineLoadingInfo& info) const {
    const bool refused = info.status() == QWebEngineLoadingInfo::LoadFailedStatus &&
                         info.errorDomain() == QWebEngineLoadingInfo::ConnectionErrorDomain;
    return refused && !m_fallback.isEmpty() && QtAddress::Shown(info.url()) == m_fallbackOf;
}

// A host that was reached gets no second try. What has failed otherwise is loaded once more for its error to be shown:
// the engine may not have heard in time that it is to show errors again.
void QtBrowserView::OnFailure(const QWebEngineLoadingInfo& info, bool shown) {
    const bool first = IsFirstTry(info), unseen = m_hidesErrors && !shown && !m_page->AwaitsAny();
    const QUrl next = first ? m_fallback : info.url();
    DropFallback();
    m_hidesErrors = first;
    if (first || unseen) ResumeNext(Navigate(FromQt(next.toString(QUrl::FullyEncoded))));
}

// Once, whatever the engine tells of the page that it shows instead. Of one that has died, the end has been told.
void QtBrowserView::TellEnd(const QWebEngineLoadingInfo& info) {
    if (info.status() == QWebEngineLoadingInfo::LoadStartedStatus || !std::exchange(m_awaitsEnd, false)) return;
    if (IsFirstTry(info)) return;
    const Text host = FromQt(info.url().host());
    m_events.StatusTextChange(m_index, LoadWords::Ended(LoadEndOf(info), host, info.errorCode()));
}

// The page that asked fills the view; the blank page that it was to load first would only be in the way.
void QtBrowserView::TakeIn(QWebEngineNewWindowRequest& request, bool byPerson) {
    m_pending.reset();
    m_services.schedule.EndTurn(m_index);
    m_requested = request.requestedUrl();
    m_opened = true;
    MakePage();
    m_awaited->Expect();
    if (byPerson) m_page->NoteOpener();
    QtEngineVersions::OpenIn(request, *m_page);
}

void QtBrowserView::OnFullScreen(QWebEngineFullScreenRequest request) {
    if (!request.toggleOn()) {
        request.accept();
        m_services.fullScreen.Leave(m_widget);
        return LayWidget();
    }
    // A page that nobody sees, or that asks something, is not to fill the screen.
    if (!m_widget || !m_widget->isVisible() || m_questions->bar->Asks() || !m_questions->covers.Empty())
        return request.reject();
    request.accept();
    m_services.fullScreen.Enter(*m_widget, QtPage::HostAndPort(request.origin()));
}

void QtBrowserView::OnPrintRequested() {
    // The dialog is modal: only a person may bring it up, not the page by itself.
    if (m_page->TakePrintWish()) m_printsLater = true;
    // Queued: the engine is in the middle of asking.
    QMetaObject::invokeMethod(
        this, [this] { PrintIfShown(); }, Qt::QueuedConnection);
}

// Only who is looking at a page is asked about it; one that was opened to be printed is not there yet when it asks.
void QtBrowserView::PrintIfShown() {
    if (!m_widget || !m_widget->isVisible() || !std::exchange(m_printsLater, false)) return;
    ResumeNext(ExecWB(BrowserCommand::Print));
}

void QtBrowserView::OpenPopup(TextView address) {
    auto* opened = m_events.NewWindow2(m_index, NewWindowPlace::AsSet);
    if (opened) ResumeNext(opened->Navigate(address));
}

void QtBrowserView::OnRendererGone() {
    m_loading = m_awaitsEnd = false;
    m_services.schedule.EndTurn(m_index);
    m_events.StatusTextChange(m_index, LoadWords::kDied);
    m_events.DownloadComplete(m_index);
    m_events.DocumentComplete(m_index, PageLevel::Top, LocationURL());
}

void QtBrowserView::ReportHistory() {
    const bool back = m_page->history()->canGoBack();
    const bool forward = m_page->history()->canGoForward();
    if (std::exchange(m_canGoBack, back) != back) {
        m_events.CommandStateChange(m_index, HistoryCommand::NavigateBack, back);
    }
    if (std::exchange(m_canGoForward, forward) != forward) {
        m_events.CommandStateChange(m_index, HistoryCommand::NavigateForward, forward);
    }
}
