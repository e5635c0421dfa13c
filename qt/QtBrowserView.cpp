#include "qt/QtBrowserView.h"

#include "qt/QtEngine.h"
#include "qt/QtPage.h"
#include "qt/QtPageOutput.h"
#include "qt/QtSceneWindows.h"
#include "qt/QtText.h"

#include <QDataStream>
#include <QDesktopServices>
#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineView>
#include <algorithm>
#include <array>

namespace {

/// How large the page is at the text sizes 0 to 4.
constexpr std::array kZoomFactors{0.6, 0.8, 1.0, 1.25, 1.5};

constexpr auto kHistoryVersion = QDataStream::Qt_6_4;

Outcome Trigger(QWebEnginePage& page, QWebEnginePage::WebAction action) {
    page.triggerAction(action);
    return Outcome::Done;
}

} // namespace

QtBrowserView::QtBrowserView(std::int16_t index, BrowserViewEvents& events, QtEngine& engine)
    : m_index(index), m_events(events), m_engine(engine) {
    m_engine.Register(index, this);
}

QtBrowserView::~QtBrowserView() {
    Release();
    m_engine.Forget(m_index);
}

Outcome QtBrowserView::Navigate(TextView address) {
    QtAddress target = QtAddress::FromTyped(address);
    if (target.url.scheme() == u"mailto") {
        return QDesktopServices::openUrl(target.url) ? Outcome::Done : Outcome::Failed;
    }
    m_requested = target.url;
    m_pending = std::move(target);
    m_pendingHistory.clear();
    m_engine.RequestNavigation(m_index);
    return Outcome::Done;
}

Outcome QtBrowserView::GoHome() {
    const Text chosen = m_engine.HomeAddress ? m_engine.HomeAddress() : Text();
    return Navigate(chosen.empty() ? TextView(u"tessaview:start") : TextView(chosen));
}

Outcome QtBrowserView::Stop() {
    m_pending.reset();
    m_engine.EndNavigation(m_index);
    if (m_page && m_loading) m_page->triggerAction(QWebEnginePage::Stop);
    return Outcome::Done;
}

Outcome QtBrowserView::Refresh() {
    // A view that was stopped before it showed anything has nothing to reload: it loads what it was to show.
    if (!m_committed) return Navigate(FromQt(m_requested.toString(QUrl::FullyEncoded)));
    m_page->triggerAction(QWebEnginePage::Reload);
    return Outcome::Done;
}

Outcome QtBrowserView::GoBack() {
    if (!m_page || !m_page->history()->canGoBack()) return Outcome::Failed;
    m_page->history()->back();
    return Outcome::Done;
}

Outcome QtBrowserView::GoForward() {
    if (!m_page || !m_page->history()->canGoForward()) return Outcome::Failed;
    m_page->history()->forward();
    return Outcome::Done;
}

Outcome QtBrowserView::ExecWB(BrowserCommand command) {
    if (!m_page) return Outcome::Failed;
    switch (command) {
    case BrowserCommand::SaveAs:
        return QtPageOutput::SaveAs(*m_page, m_engine.PageArea());
    case BrowserCommand::Print:
        return m_engine.Output().Print(*m_page, m_engine.PageArea());
    case BrowserCommand::PageSetup:
        return m_engine.Output().PageSetup(m_engine.PageArea());
    case BrowserCommand::Cut:
        return Trigger(*m_page, QWebEnginePage::Cut);
    case BrowserCommand::Copy:
        return Trigger(*m_page, QWebEnginePage::Copy);
    case BrowserCommand::Paste:
        return Trigger(*m_page, QWebEnginePage::Paste);
    case BrowserCommand::SelectAll:
        return Trigger(*m_page, QWebEnginePage::SelectAll);
    }
    return Outcome::Failed;
}

Text QtBrowserView::LocationName() const { return m_page ? FromQt(m_page->title()) : Text(); }

PageDocument* QtBrowserView::Document() {
    const bool shown = m_page && m_committed && m_page->url().scheme() != u"about";
    return shown ? static_cast<PageDocument*>(this) : nullptr;
}

Outcome QtBrowserView::Zoom(int level) {
    m_zoom = std::clamp(level, 0, static_cast<int>(kZoomFactors.size()) - 1);
    ApplyZoom();
    return Outcome::Done;
}

// The engine forgets the factor when a navigation changes the page's process.
void QtBrowserView::ApplyZoom() {
    const double factor = kZoomFactors.at(static_cast<std::size_t>(m_zoom));
    if (m_page && m_page->zoomFactor() != factor) m_page->setZoomFactor(factor);
}

Text QtBrowserView::LocationURL() const {
    const QUrl& address = m_page && m_committed ? m_page->url() : m_requested;
    return FromQt(address.toString(QUrl::FullyEncoded));
}

std::string QtBrowserView::History() const {
    if (!m_page || !m_committed) return {};
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(kHistoryVersion);
    stream << *m_page->history();
    return bytes.toStdString();
}

Outcome QtBrowserView::Restore(const std::string& history, TextView address) {
    const Outcome outcome = Navigate(address);
    if (outcome == Outcome::Done && m_pending) m_pendingHistory = QByteArray::fromStdString(history);
    return outcome;
}

bool QtBrowserView::FillHistory(const QByteArray& bytes) {
    QDataStream stream(bytes);
    stream.setVersion(kHistoryVersion);
    stream >> *m_page->history();
    return stream.status() == QDataStream::Ok && m_page->history()->count() > 0;
}

void QtBrowserView::SetMuted(bool muted) {
    m_muted = muted;
    ApplyMute();
    m_events.SoundChange(m_index);
}

void QtBrowserView::ApplyMute() {
    if (m_page) m_page->setAudioMuted(m_muted || !m_engine.PlaysSounds());
}

void QtBrowserView::SetVisible(bool visible) {
    // A view is made invisible only when its tab is closed; nobody can see or hear it any more.
    if (!visible) Release();
}

void QtBrowserView::SetTabStop(bool tabStop) {
    m_tabStop = tabStop;
    if (m_widget) m_widget->setFocusPolicy(tabStop ? Qt::WheelFocus : Qt::NoFocus);
}

void QtBrowserView::Move(const Rect& place) {
    m_place = QRect(place.left.value, place.top.value, place.width.value, place.height.value);
    LayWidget();
}

void QtBrowserView::LayWidget() {
    if (!m_widget) return;
    const QRect page = m_engine.PageRect(m_place);
    m_widget->setGeometry(page);
    m_questions->covers.Lay(page);
}

void QtBrowserView::MoveLeft(Twips) {
    m_wantsFocus = false;
    // The engine hides what is no longer in front, together with showing what is.
    m_engine.Schedule();
}

void QtBrowserView::BringToFront() { m_engine.BringToFront(m_index); }

void QtBrowserView::SetFocus() {
    m_wantsFocus = true;
    if (!m_widget || !m_widget->isVisible() || m_questions->covers.TakeFocus()) return;
    m_widget->setFocus(Qt::OtherFocusReason);
}

QIcon QtBrowserView::Icon() const { return m_page ? m_page->icon() : QIcon(); }

void QtBrowserView::StartNavigation() {
    if (!m_pending) {
        m_engine.EndNavigation(m_index);
        return;
    }
    const QtAddress target = *std::exchange(m_pending, std::nullopt);
    MakePage();
    if (ExternalSchemes::IsExternal(FromQt(target.url.scheme()))) {
        m_engine.EndNavigation(m_index);
        m_questions->links.Open(target.url, {});
        return;
    }
    m_fallback = target.fallback;
    const QByteArray history = std::exchange(m_pendingHistory, QByteArray());
    if (history.isEmpty() || !FillHistory(history)) m_page->load(target.url);
}

void QtBrowserView::Show() {
    MakePage();
    MakeWidget();
    LayWidget();
    m_widget->show();
    m_widget->raise();
    m_questions->covers.SetShown(true);
    if (m_wantsFocus) SetFocus();
}

void QtBrowserView::Hide() {
    if (!m_widget) return;
    m_widget->hide();
    m_questions->covers.SetShown(false);
}

void QtBrowserView::MakePage() {
    if (m_page) return;
    m_page = new QtPage(m_engine.Profile(), m_engine.Token());
    ApplyMute();
    ConnectLoading();
    ConnectPage();
    MakeQuestions();
    MakeWidget();
}

void QtBrowserView::MakeQuestions() {
    m_questions = std::make_unique<QtPageQuestions>(*m_page, m_engine.PageArea(), m_engine.Accepted(),
                                                    m_engine.DialogScheme(), m_engine.External());
    m_questions->crashes.Reload = [this] { ResumeNext(Refresh()); };
    m_questions->covers.FocusPage = [this] { SetFocus(); };
    m_questions->covers.Changed = [this] { m_events.AttentionChange(m_index, !m_questions->covers.Empty()); };
}

void QtBrowserView::MakeWidget() {
    if (m_widget) return;
    m_widget = new QWebEngineView(m_engine.PageArea());
    m_widget->hide();
    QtSceneWindows::Hide(*m_widget);
    m_widget->setPage(m_page);
    m_widget->setGeometry(m_place.isEmpty() ? m_engine.PageArea()->rect() : m_place);
    SetTabStop(m_tabStop);
}

void QtBrowserView::Release() {
    m_pending.reset();
    m_questions.reset();
    if (m_page) m_page->disconnect(this);
    if (m_widget) {
        m_widget->hide();
        m_widget->deleteLater();
    }
    // Later, because the page may be in the middle of telling us that it closed itself.
    if (m_page) m_page->End();
    m_widget = nullptr;
    m_page = nullptr;
    m_loading = m_committed = false;
}

void QtBrowserView::ConnectLoading() {
    QtPage* page = m_page;
    connect(page, &QtPage::NavigationRequested, this, [this](const QUrl& url, bool top) {
        m_events.BeforeNavigate2(m_index, top ? PageLevel::Top : PageLevel::Frame,
                                 FromQt(url.toString(QUrl::FullyEncoded)));
    });
    connect(page, &QWebEnginePage::loadStarted, this, &QtBrowserView::OnLoadStarted);
    connect(page, &QWebEnginePage::loadFinished, this, &QtBrowserView::OnLoadFinished);
    connect(page, &QWebEnginePage::loadingChanged, this, &QtBrowserView::OnLoadingChanged);
    connect(page, &QWebEnginePage::urlChanged, this, &QtBrowserView::OnAddressChanged);
    connect(page, &QtPage::FrameReady, this, [this](const QUrl& url) {
        m_events.NavigateComplete2(m_index, PageLevel::Frame, FromQt(url.toString(QUrl::FullyEncoded)));
    });
    connect(page, &QtPage::FrameLoaded, this, [this](const QUrl& url) {
        m_events.DocumentComplete(m_index, PageLevel::Frame, FromQt(url.toString(QUrl::FullyEncoded)));
    });
}

void QtBrowserView::ConnectPage() {
    QtPage* page = m_page;
    connect(page, &QWebEnginePage::titleChanged, this,
            [this](const QString& title) { m_events.TitleChange(m_index, FromQt(title)); });
    connect(page, &QWebEnginePage::linkHovered, this,
            [this](const QString& url) { m_events.StatusTextChange(m_index, FromQt(url)); });
    connect(page, &QWebEnginePage::iconChanged, this, [this] {
        if (m_engine.IconChanged) m_engine.IconChanged(m_index);
    });
    connect(page, &QWebEnginePage::recentlyAudibleChanged, this, [this] { m_events.SoundChange(m_index); });
    // Queued: opening a TessaGroup may close this very page.
    connect(
        page, &QtPage::StartLinkFollowed, this,
        [this](const QUrl& url) {
            if (m_engine.StartLink) m_engine.StartLink(url);
        },
        Qt::QueuedConnection);
    connect(page, &QWebEnginePage::newWindowRequested, this, &QtBrowserView::OnNewWindow);
    connect(page, &QWebEnginePage::renderProcessTerminated, this, &QtBrowserView::OnRendererGone);
    // Queued: closing may ask the user, and the page waits for its own answer meanwhile.
    connect(
        page, &QWebEnginePage::windowCloseRequested, this, [this] { m_events.WindowClosing(m_index); },
        Qt::QueuedConnection);
}

void QtBrowserView::OnLoadStarted() {
    m_loading = true;
    m_events.StatusTextChange(m_index, u"Connecting...");
    m_events.DownloadBegin(m_index);
}

void QtBrowserView::OnLoadFinished(bool) {
    m_loading = false;
    if (!m_pending) m_engine.EndNavigation(m_index);
    ReportHistory();
    m_events.StatusTextChange(m_index, u"Done");
    m_events.DownloadComplete(m_index);
    m_events.DocumentComplete(m_index, PageLevel::Top, LocationURL());
}

void QtBrowserView::OnAddressChanged(const QUrl& url) {
    if (url.isEmpty()) return;
    m_committed = true;
    ApplyZoom();
    ReportHistory();
    m_events.NavigateComplete2(m_index, PageLevel::Top, FromQt(url.toString(QUrl::FullyEncoded)));
}

void QtBrowserView::OnLoadingChanged(const QWebEngineLoadingInfo& info) {
    if (info.status() == QWebEngineLoadingInfo::LoadSucceededStatus) m_fallback.clear();
    if (info.status() != QWebEngineLoadingInfo::LoadFailedStatus || m_fallback.isEmpty()) return;
    if (info.errorDomain() != QWebEngineLoadingInfo::ConnectionErrorDomain) return;
    ResumeNext(Navigate(FromQt(std::exchange(m_fallback, QUrl()).toString(QUrl::FullyEncoded))));
}

void QtBrowserView::OnNewWindow(QWebEngineNewWindowRequest& request) {
    auto* supplied = static_cast<QtBrowserView*>(m_events.NewWindow2(m_index));
    if (!supplied) return;
    // The page that asked fills the view; the blank page that it was to load first would only be in the way.
    supplied->m_pending.reset();
    m_engine.EndNavigation(supplied->m_index);
    supplied->m_requested = request.requestedUrl();
    supplied->MakePage();
    request.openIn(supplied->m_page);
}

void QtBrowserView::OnRendererGone() {
    m_loading = false;
    m_engine.EndNavigation(m_index);
    m_events.StatusTextChange(m_index, u"The page has stopped working.");
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
