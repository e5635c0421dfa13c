#include "qt/engine/QtBrowserView.h"

#include "base/Address.h"
#include "base/OwnAddresses.h"
#include "qt/base/QtEngineVersions.h"
#include "qt/base/QtText.h"
#include "qt/engine/QtEngineHost.h"
#include "qt/engine/QtOutside.h"
#include "qt/engine/QtProfiles.h"
#include "qt/page/QtAwaited.h"
#include "qt/page/QtMail.h"
#include "qt/page/QtPage.h"
#include "qt/page/QtPageOutput.h"
#include "qt/page/QtPageSecurity.h"
#include "qt/page/QtStartPage.h"
#include "qt/questions/QtLeaving.h"

#include <QDataStream>
#include <QIODevice>
#include <QWebEngineHistory>
#include <QWebEngineView>
#include <algorithm>
#include <array>

namespace {

constexpr auto kHistoryVersion = QDataStream::Qt_6_4;

Outcome Trigger(QWebEnginePage& page, QWebEnginePage::WebAction action) {
    page.triggerAction(action);
    return Outcome::Done;
}

} // namespace

QtBrowserView::QtBrowserView(std::int16_t index, BrowserViewEvents& events, const QtViewServices& services,
                             ::Privacy privacy)
    : m_index(index), m_events(events), m_services(services), m_privacy(privacy) {
    m_services.profiles.AddView(privacy);
    m_services.newWindows.Add(*this, *this);
    m_services.schedule.Add(index, *this);
}

QtBrowserView::~QtBrowserView() {
    Release();
    m_services.schedule.Remove(m_index);
    m_services.newWindows.Remove(*this);
    m_services.profiles.RemoveView(m_privacy);
}

Outcome QtBrowserView::Navigate(TextView address) {
    QtAddress target = QtAddress::FromTyped(address);
    if (QtMail::OpensElsewhere(target.url)) return m_services.outside.Open(target.url);
    m_requested = target.url;
    m_late = m_later = false;
    m_pending = std::move(target);
    m_pendingHistory.clear();
    m_services.schedule.AskTurn(m_index);
    return Outcome::Done;
}

Outcome QtBrowserView::GoHome() {
    const Text chosen = m_services.host.HomeAddress();
    return Navigate(chosen.empty() ? OwnAddresses::kStart : TextView(chosen));
}

Outcome QtBrowserView::Stop() {
    // Nothing has begun.
    if (m_later) return Outcome::Done;
    const bool waited = m_pending.has_value();
    m_pending.reset();
    DropFallback();
    m_services.schedule.EndTurn(m_index);
    if (m_page && m_loading)
        m_page->triggerAction(QWebEnginePage::Stop);
    else if (waited)
        ReportUnbegun();
    return Outcome::Done;
}

Outcome QtBrowserView::Refresh() {
    // A view that was stopped before it showed anything has nothing to reload: it loads what it was to show.
    if (!m_committed) return Navigate(FromQt(m_requested.toString(QUrl::FullyEncoded)));
    m_awaited->Ask();
    m_page->triggerAction(QWebEnginePage::Reload);
    return Outcome::Done;
}

// Of a mere reload nothing may come, and then the document stays and goes on.
void QtBrowserView::Renew() {
    if (!m_page) return;
    const QUrl blank(ToQt(Address::kBlank));
    const auto back = [this, blank](bool ok) {
        if (ok && m_page && m_page->url() == blank) ResumeNext(GoBack());
    };
    connect(m_page.get(), &QWebEnginePage::loadFinished, this, back,
            Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    m_questions->permissions.BeginNavigation();
    m_awaited->Ask();
    m_page->Await(blank);
    m_page->load(blank);
}

Outcome QtBrowserView::GoBack() {
    if (!m_page || !m_page->history()->canGoBack()) return Outcome::Failed;
    m_life->Wake();
    m_awaited->Ask();
    m_page->history()->back();
    return Outcome::Done;
}

Outcome QtBrowserView::GoForward() {
    if (!m_page || !m_page->history()->canGoForward()) return Outcome::Failed;
    m_life->Wake();
    m_awaited->Ask();
    m_page->history()->forward();
    return Outcome::Done;
}

Outcome QtBrowserView::ExecWB(BrowserCommand command) {
    // A sleeping page has nothing to print, save or copy, and the engine takes it ill to be asked.
    if (!m_page || m_life->Asleep()) return Outcome::Failed;
    switch (command) {
    case BrowserCommand::SaveAs:
        return m_services.output.SaveAs(*m_page, m_services.pageArea);
    case BrowserCommand::Print:
        return m_services.output.Print(*m_page, m_services.pageArea);
    case BrowserCommand::PrintPreview:
        PreviewShown();
        return Outcome::Done;
    case BrowserCommand::PageSetup:
        return m_services.output.PageSetup(m_services.pageArea);
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

void QtBrowserView::PreviewShown() {
    const QPointer<QtBrowserView> view(this);
    // A PDF is its own preview. Queued: the engine is in the middle of telling.
    const bool isPdf = m_services.output.FetchPdf(*m_page, [view](const QByteArray& pdf) {
        if (view && !pdf.isEmpty())
            QMetaObject::invokeMethod(
                view, [view, pdf] { view->ShowPreview(pdf); }, Qt::QueuedConnection);
    });
    if (!isPdf && view && m_page) PrintPreview();
}

void QtBrowserView::PrintPreview() {
    // Else stopping the load, which closing the tab does, would crash the engine.
    m_previewsLater = m_loading;
    if (m_loading) return;
    m_page->Print(m_services.output.Layout(), [view = QPointer<QtBrowserView>(this)](const QByteArray& pdf) {
        // Queued: the engine is in the middle of telling.
        if (view && !pdf.isEmpty())
            QMetaObject::invokeMethod(
                view, [view, pdf] { view->ShowPreview(pdf); }, Qt::QueuedConnection);
    });
}

void QtBrowserView::ShowPreview(const QByteArray& pdf) {
    const QString name = m_page ? QtPageOutput::FileNameFor(m_page->title()) : QString();
    auto* opened = m_services.newWindows.Find(m_events.NewWindow2(m_index, NewWindowPlace::InFront));
    if (opened) opened->TakePreview(pdf, name);
}

void QtBrowserView::TakePreview(const QByteArray& pdf, const QString& name) {
    m_preview = std::make_shared<const QByteArray>(pdf);
    const QUrl address = m_services.profiles.OwnPages(m_privacy).AddPreview(m_preview, name);
    ResumeNext(Navigate(FromQt(address.toString(QUrl::FullyEncoded))));
}

Text QtBrowserView::LocationName() const {
    if (!m_page) return {};
    // While one page takes another's place, the engine tells the title of the one and the address of the other.
    // The history is not asked: of a window that another page writes into it has no entry, and then takes that ill.
    const bool changes = m_page->isLoading() && m_page->url() != m_shown;
    return changes ? Text() : NameOf(m_page->title());
}

bool QtBrowserView::ShowsPreview() const { return m_preview && m_committed && QtStartPage::IsPreview(m_shown); }

// Else the tab could not be told from the page's own.
Text QtBrowserView::NameOf(const QString& title) const {
    return ShowsPreview() ? u"Preview: " + FromQt(title) : FromQt(title);
}

PageDocument* QtBrowserView::Document() {
    const bool shown = m_page && m_committed && m_shown.scheme() != u"about";
    return shown ? static_cast<PageDocument*>(this) : nullptr;
}

Outcome QtBrowserView::Zoom(int level) {
    m_zoom = std::clamp(level, 0, static_cast<int>(kPercents.size()) - 1);
    ApplyZoom();
    return Outcome::Done;
}

// The engine forgets the factor when a navigation changes the page's process.
void QtBrowserView::ApplyZoom() {
    const double factor = kPercents.at(static_cast<std::size_t>(m_zoom)) / 100.0;
    if (m_page && m_page->zoomFactor() != factor) m_page->setZoomFactor(factor);
}

Text QtBrowserView::LocationURL() const {
    if (!m_committed && m_late) return Text(Address::kBlank);
    // Whoever writes the session down asks every tab at every change of any.
    const QUrl& address = m_committed ? m_shown : m_requested;
    if (address != m_told) m_toldText = QtAddress::Shown(m_told = address);
    return m_toldText;
}

std::string QtBrowserView::History() const {
    if (m_later) return m_pendingHistory.toStdString();
    if (!m_page || !m_committed) return {};
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(kHistoryVersion);
    stream << *m_page->history();
    return bytes.toStdString();
}

bool QtBrowserView::Blank() const {
    const auto isBlank = [](const QUrl& url) {
        const Text address = QtAddress::Shown(url);
        return address == Address::kBlank || address == OwnAddresses::kPrivate;
    };
    const bool comes = m_pending || m_loading || (m_page && m_page->AwaitsAny());
    if (m_opened || (comes && !isBlank(m_requested))) return false;
    return isBlank(m_committed ? m_shown : m_requested);
}

bool QtBrowserView::MayHold() const { return m_leaving && !CrashPage() && m_leaving->MayHold(); }

void QtBrowserView::AskToLeave(LeaveReason why, std::function<void(bool holds)> told) {
    if (!m_leaving) return told(false);
    m_leaving->Ask(why, std::move(told));
}

void QtBrowserView::AskUserToLeave(std::function<void(bool leaves)> answered) {
    if (!m_questions) return answered(true);
    // Queued: who leaves closes the very page that the question lies over.
    m_questions->dialogs.AskToLeave([this, answered = std::move(answered)](bool leaves) {
        if (leaves && m_leaving) m_leaving->Leave();
        QMetaObject::invokeMethod(
            this, [answered, leaves] { answered(leaves); }, Qt::QueuedConnection);
    });
}

Outcome QtBrowserView::Restore(const std::string& history, TextView address) {
    const Outcome outcome = Navigate(address);
    if (outcome == Outcome::Done && m_pending) m_pendingHistory = QByteArray::fromStdString(history);
    return outcome;
}

Outcome QtBrowserView::RestoreLater(const std::string& history, TextView address) {
    const Outcome outcome = Restore(history, address);
    if (m_pending) m_services.schedule.EndTurn(m_index);
    m_later = m_pending.has_value();
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
    if (m_page) m_page->setAudioMuted(m_muted || !m_services.profiles.PlaysSounds());
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

void QtBrowserView::MoveLeft(Twips) {
    m_wantsFocus = false;
    // The engine hides what is no longer in front, together with showing what is.
    m_services.schedule.Wake();
}

void QtBrowserView::BringToFront() {
    m_services.schedule.BringToFront(m_index);
    if (std::exchange(m_later, false)) m_services.schedule.AskTurn(m_index);
}

void QtBrowserView::SetFocus() {
    m_wantsFocus = true;
    if (!m_widget || !m_widget->isVisible() || m_questions->covers.TakeFocus()) return;
    m_widget->setFocus(Qt::OtherFocusReason);
}

QIcon QtBrowserView::Icon() const { return m_life ? m_life->Icon() : QIcon(); }

void QtBrowserView::StartNavigation() {
    if (!m_pending) {
        m_services.schedule.EndTurn(m_index);
        return;
    }
    const QtAddress target = *std::exchange(m_pending, std::nullopt);
    m_opened = false;
    MakePage();
    if (m_questions->links.Take(target.url)) {
        m_services.schedule.EndTurn(m_index);
        ReportUnbegun();
        return;
    }
    BeginTries(target);
    const QByteArray history = std::exchange(m_pendingHistory, QByteArray());
    if (QtEngineVersions::GoesThereSilently(m_page->url(), target.url)) return GoSilently(target.url);
    m_awaited->Ask();
    // Within the document that is shown nothing is awaited: it only moves.
    const bool moves =
        target.url.hasFragment() && target.url.adjusted(QUrl::RemoveFragment) == m_shown.adjusted(QUrl::RemoveFragment);
    if (!moves) m_page->Await(target.url);
    if (history.isEmpty() || !FillHistory(history)) m_page->load(target.url);
}

// The engine tells of neither the beginning nor the end.
void QtBrowserView::GoSilently(const QUrl& url) {
    m_page->load(url);
    const Text address = QtAddress::Shown(url);
    m_events.BeforeNavigate2(m_index, PageLevel::Top, address);
    m_services.schedule.EndTurn(m_index);
    m_events.NavigateComplete2(m_index, PageLevel::Top, address);
}

bool QtBrowserView::AwaitsFirst() const {
    return !m_committed && !m_late && !m_requested.isEmpty() && m_requested.scheme() != u"about";
}

PageSecurity QtBrowserView::Security() const {
    if (AwaitsFirst()) return PageSecurity::Awaited;
    if (!m_page || !m_committed || m_failed || !m_known) return PageSecurity::None;
    return SecurityOf(m_shown, m_services.profiles.Accepted(m_privacy));
}
