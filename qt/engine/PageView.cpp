#include "qt/engine/PageView.h"

#include "base/OwnAddresses.h"
#include "pages/LoadWords.h"
#include "qt/base/EngineVersions.h"
#include "qt/base/Strings.h"
#include "qt/engine/EngineHost.h"
#include "qt/engine/PageSignals.h"
#include "qt/engine/Profiles.h"
#include "qt/page/PageHistory.h"
#include "qt/page/PageOutput.h"
#include "qt/page/PageTrust.h"
#include "qt/page/WebPage.h"
#include "qt/questions/Leaving.h"

#include <QWebEngineFullScreenRequest>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineView>
#include <algorithm>
#include <utility>

namespace tessa::qt {

namespace {

// The engine tells a link decoded, for people. What they are to judge it by is the form that nothing can hide in.
Text HoveredLink(const QString& link) { return LoadWords::Link(AddressUrl::Shown(QUrl(link))); }

Outcome Trigger(QWebEnginePage& page, QWebEnginePage::WebAction action) {
    page.triggerAction(action);
    return Outcome::Done;
}

} // namespace

PageView::PageView(std::int16_t index, BrowserViewEvents& events, const ViewServices& services, tessa::Privacy privacy)
    : m_self{index, events, services, privacy},
      m_navigation(m_self, m_where),
      m_loads(m_self, m_where, m_navigation),
      m_surface(m_self),
      m_printing(m_self, m_where, m_surface) {
    services.profiles.AddView(privacy);
    services.newWindows.Add(*this, *this);
    services.schedule.Add(index, *this);
    m_loads.Left.ConnectForLife([this] { m_printing.ForgetWish(); });
    m_loads.Arrived.ConnectForLife([this] {
        ApplyZoom();
        m_printing.FollowPage();
    });
    m_loads.Finished.ConnectForLife([this] { m_printing.NoteLoaded(); });
}

PageView::~PageView() {
    EndPage();
    m_self.services.schedule.Remove(m_self.index);
    m_self.services.newWindows.Remove(*this);
    m_self.services.profiles.RemoveView(m_self.privacy);
}

Outcome PageView::Navigate(TextView address) {
    LeavePrinted();
    return m_navigation.Navigate(address);
}

Outcome PageView::Refresh() { return LeavePrinted() ? m_navigation.Reload() : m_navigation.Refresh(); }

void PageView::Renew() { LeavePrinted() ? ResumeNext(m_navigation.Reload()) : m_navigation.Renew(); }

Outcome PageView::GoBack() {
    LeavePrinted();
    return m_navigation.GoBack();
}

Outcome PageView::GoForward() {
    LeavePrinted();
    return m_navigation.GoForward();
}

// The engine ends the program where a page that is being printed goes to another site and does not answer. It stays as
// it is until it has been printed; another one, which has been where it was, takes its place.
bool PageView::LeavePrinted() {
    if (!m_page || !m_page->Page().Prints()) return false;
    const QByteArray history = PageHistory::Bytes(m_page->Page());
    m_where.requested = m_where.shown;
    EndPage();
    MakePage();
    const Schedule& schedule = m_self.services.schedule;
    if (schedule.AllShown().contains(m_self.index))
        m_surface.Show(schedule.Shown() == m_self.index ? ShownAs::Front : ShownAs::Beside);
    m_page->Life()->NoteRefill();
    if (!PageHistory::Fill(m_page->Page(), history)) m_where.shown.clear();
    return true;
}

Outcome PageView::GoHome() {
    const Text chosen = m_self.services.host.HomeAddress();
    return Navigate(chosen.empty() ? OwnAddresses::kStart : TextView(chosen));
}

Outcome PageView::ExecWB(BrowserCommand command) {
    // A sleeping page has nothing to print, save or copy, and the engine takes it ill to be asked.
    if (!m_page || m_page->Life()->Asleep()) return Outcome::Failed;
    PageOutput& output = m_self.services.output;
    switch (command) {
    case BrowserCommand::SaveAs:
        output.SaveAs(m_page->Page(), m_self.services.pageArea);
        return Outcome::Done;
    case BrowserCommand::Print:
        return m_printing.Print();
    case BrowserCommand::PrintPreview:
        m_printing.Preview();
        return Outcome::Done;
    case BrowserCommand::PageSetup:
        return output.PageSetup(m_self.services.pageArea);
    case BrowserCommand::Cut:
        return Trigger(m_page->Page(), QWebEnginePage::Cut);
    case BrowserCommand::Copy:
        return Trigger(m_page->Page(), QWebEnginePage::Copy);
    case BrowserCommand::Paste:
        return Trigger(m_page->Page(), QWebEnginePage::Paste);
    case BrowserCommand::SelectAll:
        return Trigger(m_page->Page(), QWebEnginePage::SelectAll);
    }
    return Outcome::Failed;
}

Text PageView::LocationName() const {
    if (!m_page) return {};
    // While one page takes another's place, the engine tells the title of the one and the address of the other. The
    // history is not asked. Of a window that another page writes into it has no entry, and takes that ill.
    const WebPage& page = m_page->Page();
    const bool changes = page.isLoading() && page.url() != m_where.shown;
    return changes ? Text() : m_printing.NameOf(page.title());
}

PageDocument* PageView::Document() { return m_page && m_where.ShowsPage() ? this : nullptr; }

Outcome PageView::Zoom(int level) {
    m_zoom = std::clamp(level, 0, static_cast<int>(kPercents.size()) - 1);
    ApplyZoom();
    return Outcome::Done;
}

// The engine forgets the factor when a navigation changes the page's process.
void PageView::ApplyZoom() {
    const double factor = kPercents.at(static_cast<std::size_t>(m_zoom)) / 100.0;
    if (m_page && m_page->Page().zoomFactor() != factor) m_page->Page().setZoomFactor(factor);
}

PageSecurity PageView::Security() const {
    if (m_where.AwaitsFirst()) return PageSecurity::Awaited;
    if (!m_page || !m_where.IsTrue()) return PageSecurity::None;
    return SecurityOf(m_where.shown, m_self.services.profiles.Accepted(m_self.privacy));
}

bool PageView::Blank() const { return m_where.Blank(m_page && m_page->Page().AwaitsAny()); }

PageProgress PageView::Progress() const {
    const PageNavigation& stage = m_where.stage;
    // Between the beginning and the engine's first word of it, it is awaited.
    const bool awaits = m_page && m_page->Page().AwaitsAny();
    if (stage.Busy() || awaits || stage.Wanted() == PageNavigation::Wish::Waiting) return PageProgress::Loading;
    return stage.Waits() && !m_navigation.StaysBlank() ? PageProgress::PutOff : PageProgress::Done;
}

// A page that waits for an answer cannot give one.
bool PageView::MayHold() const {
    return m_page && !CrashPage() && !Questions()->dialogs.HasQuestion() && m_page->Leaving().MayHold();
}

void PageView::AskToLeave(LeaveReason why, std::function<void(bool holds)> told) {
    if (!m_page) return told(false);
    m_page->Leaving().Ask(why, std::move(told));
}

void PageView::AskUserToLeave(std::function<void(bool leaves)> answered) {
    if (!m_page) return answered(true);
    // Queued: who leaves closes the very page that the question lies over.
    Questions()->dialogs.AskToLeave([this, answered = std::move(answered)](bool leaves) {
        if (leaves && m_page) m_page->Leaving().Leave();
        QMetaObject::invokeMethod(
            this, [answered, leaves] { answered(leaves); }, Qt::QueuedConnection);
    });
}

void PageView::LetUserStay() {
    if (!m_page) return;
    m_page->Leaving().LetStay();
    Questions()->dialogs.LetUserStay();
}

void PageView::SetMuted(bool muted) {
    m_muted = muted;
    ApplyMute();
    m_self.events.SoundChange(m_self.index);
}

void PageView::ApplyMute() {
    if (m_page) m_page->Page().setAudioMuted(m_muted || !m_self.services.profiles.PlaysSounds());
}

void PageView::SetVisible(bool visible) {
    // A view is made invisible only when its tab is closed; nobody can see or hear it any more.
    if (!visible) EndPage();
}

void PageView::Move(const Rect& place) {
    m_surface.Move({place.left.value, place.top.value, place.width.value, place.height.value});
}

void PageView::MoveLeft(Twips) {
    m_surface.ForgetFocus();
    // The engine hides what is no longer in front, together with showing what is.
    m_self.services.schedule.Park(m_self.index);
}

void PageView::ShowBeside() {
    m_self.services.schedule.ShowBeside(m_self.index);
    m_navigation.Look();
}

void PageView::BringToFront() {
    m_self.services.schedule.BringToFront(m_self.index);
    m_navigation.Look();
}

QIcon PageView::Icon() const { return m_page && m_page->Life() ? m_page->Life()->Icon() : QIcon(); }

void PageView::StartNavigation() {
    if (!m_where.stage.Waits()) return m_self.services.schedule.EndTurn(m_self.index);
    if (m_navigation.StayBlank()) return;
    MakePage();
    m_navigation.Start();
}

void PageView::Show(ShownAs place) {
    MakePage();
    m_surface.Show(place);
    // Queued: the one that was in front is still being hidden.
    QMetaObject::invokeMethod(
        &m_printing, [this] { m_printing.PrintIfShown(); }, Qt::QueuedConnection);
}

// The page that asked fills the view. The blank page that it was to load first would be in the way.
void PageView::TakeIn(QWebEngineNewWindowRequest& request, bool byPerson) {
    m_where.stage.Open();
    m_self.services.schedule.EndTurn(m_self.index);
    m_where.requested = request.requestedUrl();
    MakePage();
    m_navigation.TakeIn(request, byPerson);
}

void PageView::TakePreview(const QByteArray& pdf, const QString& name) {
    const QUrl address = m_printing.Keep(pdf, name);
    ResumeNext(Navigate(FromQt(address.toString(QUrl::FullyEncoded))));
}

void PageView::OpenPopup(TextView address) {
    auto* opened = m_self.events.NewWindow2(m_self.index, NewWindowPlace::AsSet);
    if (opened) ResumeNext(opened->Navigate(address));
}

void PageView::MakePage() {
    if (m_page) return;
    m_page = std::make_unique<ViewPage>(m_self);
    ApplyMute();
    m_loads.Follow(*m_page);
    FollowPage();
    FollowWindow();
    m_page->MakeQuestions();
    FollowQuestions();
    FollowLife();
    m_navigation.SetPage(m_page.get());
    m_printing.SetPage(m_page.get());
    m_surface.SetPage(*m_page);
}

void PageView::FollowPage() {
    const WebPage* page = Page();
    connect(page, &QWebEnginePage::titleChanged, this,
            [this](const QString& title) { m_self.events.TitleChange(m_self.index, m_printing.NameOf(title)); });
    connect(page, &QWebEnginePage::linkHovered, this,
            [this](const QString& url) { m_self.events.StatusTextChange(m_self.index, HoveredLink(url)); });
    connect(page, &QWebEnginePage::recentlyAudibleChanged, this, [this] { m_self.events.SoundChange(m_self.index); });
    // Queued: opening a TessaGroup may close this very page.
    connect(
        page, &WebPage::StartLinkFollowed, this, [this](const QUrl& url) { m_self.services.told.StartLink(url); },
        Qt::QueuedConnection);
    connect(
        page, &WebPage::OwnPageAsks, this,
        [this](const QString& message) { m_self.services.told.HistoryAsks(m_self.index, message); },
        Qt::QueuedConnection);
    connect(
        page, &WebPage::ReadToEnd, this,
        [this] {
            if (m_surface.Visible()) m_self.services.told.ReadToEnd();
        },
        Qt::QueuedConnection);
    EngineVersions::FollowPrintRequests(*Page(), *this, [this] { m_printing.NoteWish(); });
}

void PageView::FollowWindow() {
    const WebPage* page = Page();
    connect(page, &QWebEnginePage::newWindowRequested, this, [this](QWebEngineNewWindowRequest& request) {
        m_self.services.newWindows.Open(request,
                                        {m_page->Page(), Questions()->permissions, m_self.events, m_self.index});
    });
    connect(page, &QWebEnginePage::fullScreenRequested, this,
            [this](QWebEngineFullScreenRequest request) { m_surface.OnFullScreen(std::move(request)); });
    connect(page, &QWebEnginePage::windowCloseRequested, this, &PageView::OnWindowClose);
}

// Which document closes is known only now. The rest is queued: it may ask the user, and the page waits for its own
// answer meanwhile.
void PageView::OnWindowClose() {
    if (!m_page || m_page->Leaving().TakeClose()) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_page) m_self.events.WindowClosing(m_self.index);
        },
        Qt::QueuedConnection);
}

void PageView::FollowQuestions() {
    WebPageQuestions& asked = *Questions();
    const PageSignals& told = m_self.services.told;
    asked.links.Refused.ConnectForLife([this, &told](const QString& words) {
        if (m_surface.Visible()) told.Notice(words);
    });
    asked.permissions.OpenPopup.ConnectForLife([this](TextView address) { OpenPopup(address); });
    asked.permissions.CapturesChanged.ConnectForLife([&told] { told.CapturesChanged(); });
    asked.tools.SaveAddress.ConnectForLife(
        [&told](WebPage& page, const QUrl& address, const Text& path) { told.SaveAddress(page, address, path); });
    asked.tools.ShowInspector.ConnectForLife([&told](WebPage& page) { told.ShowInspector(page); });
    asked.crashes.Reload.ConnectForLife([this] { ResumeNext(Refresh()); });
}

void PageView::FollowLife() {
    m_page->Life()->AddActivity.ConnectForLife([this](PageActivity& activity) {
        activity.Loading |= m_where.stage.Busy() || m_where.stage.Waits();
        activity.Asks = m_page->Asks();
        activity.FullScreen = m_surface.FillsScreen();
    });
    m_page->Life()->OthersPrint.ConnectForLife(
        [this](std::int64_t process, bool& prints) { prints = prints || m_self.services.profiles.PrintsIn(process); });
    m_page->Life()->IconChanged.ConnectForLife([this] { m_self.services.told.IconChanged(m_self.index); });
}

void PageView::EndPage() {
    m_navigation.GiveUp();
    if (!m_page) return;
    m_surface.LeaveFullScreen();
    // All views are asked about what is left. When a thousand end, that is not to happen for each.
    const bool captured = m_page->EndQuestions();
    m_printing.SetPage(nullptr);
    if (captured) m_self.services.told.CapturesChanged();
    m_loads.Leave();
    m_page->Page().disconnect(this);
    m_page->Page().disconnect(&m_navigation);
    m_navigation.SetPage(nullptr);
    m_surface.End();
    m_page.reset();
    m_where.stage = {};
}

} // namespace tessa::qt
