#include "qt/engine/QtEngine.h"

#include "base/os/Log.h"
#include "qt/base/QtText.h"
#include "qt/desktop/QtInstanceProfile.h"
#include "qt/engine/QtBrowserView.h"
#include "qt/engine/QtProfile.h"
#include "qt/page/QtPage.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QEventLoop>
#include <QThread>
#include <QUuid>
#include <algorithm>
#include <chrono>
#include <utility>

namespace {
constexpr std::chrono::seconds kEndPatience{10};
constexpr std::chrono::milliseconds kEndStep{50};
/// How often the machine is looked at while pages wait for it. The system counts in hundredths of a second.
constexpr NavigationQueue::Time kLook{50};
} // namespace

QtEngine::QtEngine(QWidget* pageArea, QtInstanceProfile& ownProfile)
    : m_pageArea(pageArea),
      m_ownProfile(ownProfile),
      m_token(QUuid::createUuid().toString(QUuid::Id128)),
      m_queue(static_cast<std::size_t>(std::max(QThread::idealThreadCount(), 1))) {
    m_turn.setSingleShot(true);
    m_turn.callOnTimeout(this, [this] { Turn(); });
    m_clock.start();
}

QtEngine::~QtEngine() = default;

std::unique_ptr<BrowserView> QtEngine::Create(std::int16_t Index, BrowserViewEvents& events, Privacy privacy) {
    return std::make_unique<QtBrowserView>(Index, events, *this, privacy);
}

void QtEngine::Start() {
    m_started = true;
    Log::Note(LogLevel::Info, LogPart::Engine, "starts");
    for (const QUrl& url : std::exchange(m_outside, {})) ResumeNext(OpenOutside(url));
    Schedule();
}

Outcome QtEngine::OpenOutside(const QUrl& url) {
    if (m_started) return QDesktopServices::openUrl(url) ? Outcome::Done : Outcome::Failed;
    m_outside.push_back(url);
    return Outcome::Done;
}

void QtEngine::End(QtPage& page) {
    std::erase_if(m_ending, [](const auto& each) { return each.isNull(); });
    m_ending.emplace_back(&page);
    page.End();
}

void QtEngine::Shutdown() {
    Must(m_views.empty());
    // Pages end later than their views; the profile must outlive them. One that is being printed takes its time.
    const auto ended = [this] { return std::ranges::all_of(m_ending, &QPointer<QtPage>::isNull); };
    const QDeadlineTimer patience(kEndPatience);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    while (!ended() && !patience.hasExpired()) {
        QEventLoop wait;
        QTimer::singleShot(kEndStep, &wait, &QEventLoop::quit);
        wait.exec();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    m_private.reset();
    m_profile.reset();
}

QIcon QtEngine::Icon(std::int32_t index) const {
    const auto* view = Find(index);
    return view ? view->Icon() : QIcon();
}

QtPage* QtEngine::FrontPage() const {
    const auto* view = Front();
    return view ? view->Page() : nullptr;
}

QtPage* QtEngine::MediaPage() {
    std::vector<MediaView> open;
    for (const auto& [index, view] : m_views) open.push_back({index, view->Audible()});
    const auto* view = Find(m_media.Choose(open, m_shown));
    return view ? view->Page() : nullptr;
}

void QtEngine::SetLoadOptions(const QtLoadOptions& options) {
    m_loadOptions = options;
    for (const auto* profile : {&m_profile, &m_private}) {
        if (*profile) (*profile)->SetLoadOptions(options);
    }
    for (const auto& [index, view] : m_views) {
        view->ApplyMute();
        auto& profile = view->Privacy() == Privacy::Private ? m_private : m_profile;
        // A sleeping page is told when it wakes, like any page that loads.
        const bool awake = view->Page() && !view->Life()->Asleep();
        if (profile && awake) profile->TellLoadOptions(*view->Page(), options);
    }
}

void QtEngine::ForgetDecision(const SiteDecision& forgotten) {
    for (const auto& [index, view] : m_views) {
        if (view->Questions() && view->Privacy() == Privacy::Ordinary) view->Questions()->permissions.Forget(forgotten);
    }
}

QStringList QtEngine::Captures() const {
    QStringList all;
    for (const auto& [index, view] : m_views) {
        const Text words = view->Questions() ? view->Questions()->permissions.Captures() : Text();
        if (words.empty()) continue;
        const QString host = QtPage::HostAndPort(view->Page()->ShownAddress());
        all << QStringLiteral("%1 may use your %2.").arg(host.isEmpty() ? QStringLiteral("A page") : host, ToQt(words));
    }
    return all;
}

void QtEngine::StopCaptures() {
    for (const auto& [index, view] : std::map(m_views)) {
        if (view->Questions() && !view->Questions()->permissions.Captures().empty()) view->Renew();
    }
}

void QtEngine::Relayout() {
    if (auto* view = Front()) view->LayWidget();
}

void QtEngine::SetShortage(Shortage shortage) {
    m_shortage = shortage;
    m_queue.SetTight(shortage == Shortage::Severe);
    Schedule();
}

std::size_t QtEngine::PageCount() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(m_views, [](const auto& each) { return each.second->Page() != nullptr; }));
}

void QtEngine::Register(std::int32_t index, QtBrowserView* view) { m_views[index] = view; }

void QtEngine::Forget(std::int32_t index) {
    m_views.erase(index);
    if (m_front == index) m_front = 0;
    if (m_shown == index) m_shown = 0;
    m_queue.Remove(index);
    Schedule();
}

void QtEngine::RequestNavigation(std::int32_t index) {
    // A view that is still loading gives its place up for what it is to load now.
    m_queue.Remove(index);
    m_queue.Add(index);
    Schedule();
}

void QtEngine::EndNavigation(std::int32_t index) {
    m_queue.Remove(index);
    if (m_queue.Waiting() > 0) Schedule();
}

void QtEngine::NoteSign(std::int32_t index) { m_queue.NoteSign(index, NavigationQueue::Time{m_clock.elapsed()}); }

void QtEngine::BringToFront(std::int32_t index) {
    if (m_front == index && m_shown == index) return;
    m_front = index;
    m_queue.SetFront(index);
    Schedule();
}

void QtEngine::Schedule() {
    if (m_started) m_turn.start(0);
}

std::unique_ptr<QtProfile> QtEngine::MakeProfile(const QString& folder, const QString& cacheFolder) {
    auto profile = std::make_unique<QtProfile>(folder, cacheFolder, m_token);
    profile->SetLoadOptions(m_loadOptions);
    profile->SetStartPage([this] { return StartPage ? StartPage() : std::string(); });
    return profile;
}

QWebEngineProfile* QtEngine::PrivateProfile() {
    if (!m_private) {
        m_private = MakeProfile({}, {});
        PrivateProfileMade(*m_private->Get());
    }
    return m_private->Get();
}

QWebEngineProfile* QtEngine::Profile(Privacy privacy) {
    if (privacy == Privacy::Private) return PrivateProfile();
    if (!m_profile) {
        m_ownProfile.Take();
        m_profile = MakeProfile(m_ownProfile.Folder(), m_ownProfile.CacheFolder());
        ProfileMade(*m_profile->Get());
    }
    return m_profile->Get();
}

QtDialogScheme& QtEngine::DialogScheme(Privacy privacy) {
    static_cast<void>(Profile(privacy));
    return (privacy == Privacy::Private ? m_private : m_profile)->Dialogs();
}

QtStartPage& QtEngine::OwnPages(Privacy privacy) {
    static_cast<void>(Profile(privacy));
    return (privacy == Privacy::Private ? m_private : m_profile)->OwnPages();
}

QtPage* QtEngine::MakePage(Privacy privacy) {
    auto* page = new QtPage(Profile(privacy), m_token);
    if (privacy == Privacy::Private) {
        ++m_privatePages;
        // Queued: the profile must outlive the page, which is not quite gone yet.
        connect(page, &QObject::destroyed, this, &QtEngine::OnPrivatePageGone, Qt::QueuedConnection);
    }
    return page;
}

bool QtEngine::HasPrivateView() const {
    return std::ranges::any_of(m_views, [](const auto& each) { return each.second->Privacy() == Privacy::Private; });
}

void QtEngine::OnPrivatePageGone() {
    --m_privatePages;
    // What the private pages have left behind ends with the last of them, once its developer tools have gone too.
    QTimer::singleShot(0, this, [this] {
        if (m_privatePages > 0 || HasPrivateView()) return;
        m_private.reset();
        m_privateAnswers = {};
    });
}

void QtEngine::Turn() {
    ShowFront();
    const NavigationQueue::Time now{m_clock.elapsed()};
    LookAtMachine(now);
    // One page a turn: making one takes milliseconds in which no menu opens.
    if (const auto next = m_queue.Next(now)) {
        if (auto* view = Find(*next)) view->StartNavigation();
        Schedule();
    } else if (m_queue.Waiting() > 0) {
        m_turn.start(std::min(m_queue.Deadline(now).value_or(now + kLook) - now, kLook));
    }
}

void QtEngine::LookAtMachine(NavigationQueue::Time now) {
    if (m_queue.Waiting() == 0 || now < m_looked + kLook) return;
    m_looked = now;
    // What is idle loads nothing more than usual while what is loaded has to be put to sleep.
    const bool roomy = m_shortage == Shortage::None;
    if (const auto idle = m_idle.SinceLast(now)) m_queue.NoteIdle(roomy ? *idle : 0, now);
}

void QtEngine::ShowFront() {
    if (m_front == m_shown) return;
    auto* front = Find(m_front);
    if (!front) return;
    front->Show();
    if (auto* before = Find(m_shown)) before->Hide();
    m_shown = m_front;
    FrontChanged();
}

QtBrowserView* QtEngine::ViewOf(const QWebEnginePage* page) const {
    const auto found = std::ranges::find_if(m_views, [page](const auto& each) { return each.second->Page() == page; });
    return page && found != m_views.end() ? found->second : nullptr;
}

QtBrowserView* QtEngine::Find(std::int32_t index) const {
    const auto found = m_views.find(index);
    return found == m_views.end() ? nullptr : found->second;
}
