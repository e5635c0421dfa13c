#include "qt/engine/LoadEvents.h"

#include "pages/LoadWords.h"
#include "qt/base/Strings.h"
#include "qt/engine/Navigation.h"
#include "qt/engine/PageSignals.h"
#include "qt/engine/Schedule.h"
#include "qt/engine/ViewPage.h"
#include "qt/engine/Whereabouts.h"
#include "qt/page/AddressUrl.h"
#include "qt/page/Awaited.h"
#include "qt/page/FrameEnds.h"
#include "qt/page/LoadEnds.h"
#include "qt/page/WebPage.h"

#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>
#include <utility>

namespace tessa::qt {

namespace {

// A page of the host's own, whatever it says.
bool IsOfHost(const QWebEngineLoadingInfo& info) {
    return info.errorDomain() == QWebEngineLoadingInfo::HttpStatusCodeDomain;
}

bool HasFailed(const QWebEngineLoadingInfo& info) { return info.status() == QWebEngineLoadingInfo::LoadFailedStatus; }

bool IsUnconnected(const QWebEngineLoadingInfo& info) {
    return HasFailed(info) && info.errorDomain() == QWebEngineLoadingInfo::ConnectionErrorDomain;
}

} // namespace

LoadEvents::LoadEvents(const ViewContext& view, Whereabouts& where, Navigation& navigation)
    : m_view(view), m_where(where), m_navigation(navigation) {}

void LoadEvents::Follow(const ViewPage& page) {
    m_page = &page.Page();
    FollowLoads();
    connect(&page.Awaited(), &qt::Awaited::Overdue, this, [this] {
        m_where.stage.BeLate();
        m_view.events.NavigationOverdue(m_view.index);
    });
    FollowFrames();
}

void LoadEvents::Leave() {
    if (m_page) m_page->disconnect(this);
    m_page.clear();
}

void LoadEvents::FollowLoads() {
    WebPage* page = m_page;
    connect(page, &WebPage::NavigationRequested, this, &LoadEvents::OnNavigation);
    connect(page, &QWebEnginePage::loadStarted, this, &LoadEvents::OnLoadStarted);
    connect(page, &QWebEnginePage::loadProgress, this, [this] { m_view.services.schedule.NoteSign(m_view.index); });
    connect(page, &QWebEnginePage::loadFinished, this, &LoadEvents::OnLoadFinished);
    connect(page, &QWebEnginePage::loadingChanged, this, &LoadEvents::OnLoadingChanged);
    connect(page, &QWebEnginePage::urlChanged, this, [this](const QUrl& url) {
        // What the page still awaits it does not show yet.
        if (!m_page->Awaits(url)) OnAddress(url);
    });
    connect(page, &WebPage::DocumentShown, this, [this] { OnAddress(m_page->url()); });
    connect(page, &WebPage::DocumentBegan, this, [this](bool isError) {
        if (m_where.stage.HasDocument()) OnDocumentKnown(isError);
    });
    connect(page, &QWebEnginePage::renderProcessTerminated, this, &LoadEvents::OnProcessGone);
}

void LoadEvents::FollowFrames() {
    WebPage* page = m_page;
    connect(new FrameEnds(*page), &FrameEnds::Dropped, this, [this] { m_view.events.NavigationDropped(m_view.index); });
    connect(page, &WebPage::FrameReady, this, [this](const QUrl& url) {
        m_view.events.NavigateComplete2(m_view.index, PageLevel::Frame, AddressUrl::Shown(url));
    });
    connect(page, &WebPage::FrameLoaded, this, [this](const QUrl& url) {
        m_view.events.DocumentComplete(m_view.index, PageLevel::Frame, AddressUrl::Shown(url));
    });
}

void LoadEvents::NoteVisit(const QUrl& url) {
    if (m_view.privacy == Privacy::Ordinary) m_view.services.told.Visited(url);
}

void LoadEvents::OnNavigation(const QUrl& url, bool top) {
    NoteVisit(url);
    const Text address = AddressUrl::Shown(url);
    if (top) {
        m_where.stage.Leave();
        Left();
        // The second try is for the address that was typed, and for none that comes after it.
        m_navigation.NoteNavigation(address);
    }
    m_view.events.BeforeNavigate2(m_view.index, top ? PageLevel::Top : PageLevel::Frame, address);
}

void LoadEvents::OnLoadStarted() {
    m_where.stage.StartLoad();
    m_view.events.StatusTextChange(m_view.index, LoadWords::kBegun);
    m_view.events.DownloadBegin(m_view.index);
}

void LoadEvents::OnLoadFinished(bool ok) {
    m_where.stage.FinishLoad();
    if (!m_where.stage.Waits()) m_view.services.schedule.EndTurn(m_view.index);
    if (!m_page->AwaitsAny()) {
        // Where scripts are switched off, no document tells of itself.
        if (!m_page->url().isEmpty()) m_where.shown = m_page->url();
        m_where.stage.EndLeaving(ok && !m_where.shown.isEmpty());
    }
    TellHistory();
    m_view.events.DownloadComplete(m_view.index);
    m_view.events.DocumentComplete(m_view.index, PageLevel::Top, m_where.Address());
    Finished();
}

void LoadEvents::OnAddress(const QUrl& url) {
    if (url.isEmpty()) return;
    m_where.shown = url;
    m_where.stage.ShowDocument();
    NoteVisit(url);
    TellHistory();
    Arrived();
    m_view.events.NavigateComplete2(m_view.index, PageLevel::Top, AddressUrl::Shown(url));
}

void LoadEvents::OnDocumentKnown(bool isError) {
    const auto kind = isError ? PageNavigation::Kind::Error : PageNavigation::Kind::Page;
    if (m_where.stage.Know(kind)) m_view.events.SecurityChange(m_view.index);
}

void LoadEvents::OnLoadingChanged(const QWebEngineLoadingInfo& info) {
    // What ends without a page, as a download does, leaves the page shown as it is.
    const Text address = AddressUrl::Shown(info.url());
    const bool ofPage = address == AddressUrl::Shown(m_page->url());
    const bool failed = HasFailed(info);
    const bool succeeded = info.status() == QWebEngineLoadingInfo::LoadSucceededStatus;
    TellEnd(info);
    // Engines newer than 6.4 tell it after they have called the load finished, when the sign has been shown.
    if (ofPage && (failed || succeeded)) OnDocumentKnown(failed && !IsOfHost(info));
    if (succeeded) m_navigation.NoteSuccess();
    if (!failed) return;
    m_navigation.NoteFailure({.Address = address,
                              .Full = FromQt(info.url().toString(QUrl::FullyEncoded)),
                              .Unconnected = IsUnconnected(info),
                              .Shown = info.isErrorPage() || (ofPage && IsOfHost(info)),
                              .Awaits = m_page && m_page->AwaitsAny()});
}

// Once, whatever the engine tells of the page that it shows instead. Of one that has died, the end has been told.
void LoadEvents::TellEnd(const QWebEngineLoadingInfo& info) {
    if (info.status() == QWebEngineLoadingInfo::LoadStartedStatus || !m_where.stage.TellEnd()) return;
    if (m_navigation.TriesAgain(AddressUrl::Shown(info.url()), IsUnconnected(info))) return;
    const Text host = FromQt(info.url().host());
    m_view.events.StatusTextChange(m_view.index, LoadWords::Ended(LoadEndOf(info), host, info.errorCode()));
}

void LoadEvents::OnProcessGone() {
    m_where.stage.Die();
    m_view.services.schedule.EndTurn(m_view.index);
    m_view.events.StatusTextChange(m_view.index, LoadWords::kDied);
    m_view.events.DownloadComplete(m_view.index);
    m_view.events.DocumentComplete(m_view.index, PageLevel::Top, m_where.Address());
}

void LoadEvents::TellHistory() {
    const bool back = m_page->history()->canGoBack();
    const bool forward = m_page->history()->canGoForward();
    if (std::exchange(m_canGoBack, back) != back)
        m_view.events.CommandStateChange(m_view.index, HistoryCommand::NavigateBack, back);
    if (std::exchange(m_canGoForward, forward) != forward)
        m_view.events.CommandStateChange(m_view.index, HistoryCommand::NavigateForward, forward);
}

} // namespace tessa::qt
