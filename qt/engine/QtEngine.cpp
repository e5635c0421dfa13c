#include "qt/engine/QtEngine.h"

#include "base/os/Log.h"
#include "qt/base/QtText.h"
#include "qt/engine/QtBrowserView.h"
#include "qt/page/QtPage.h"

#include <algorithm>
#include <vector>

namespace tessa::qt {

QtEngine::QtEngine(QWidget* pageArea, QtInstanceProfile& ownProfile, QtEngineHost& host)
    : m_profiles(ownProfile, [&host] { return host.StartPage(); }),
      m_fullScreen(host),
      m_services{pageArea, host, m_profiles, m_schedule, m_newWindows, m_outside, m_output, m_fullScreen, m_told} {}

QtEngine::~QtEngine() = default;

std::unique_ptr<BrowserView> QtEngine::Create(std::int16_t Index, BrowserViewEvents& events, Privacy privacy) {
    auto view = std::make_unique<QtBrowserView>(Index, events, m_services, privacy);
    m_views[Index] = view.get();
    connect(view.get(), &QObject::destroyed, this, [this, Index] { m_views.erase(Index); });
    return view;
}

void QtEngine::Start() {
    Log::Note(LogLevel::Info, LogPart::Engine, "starts");
    m_outside.Start();
    m_schedule.Start();
}

void QtEngine::Shutdown() {
    Must(m_views.empty());
    m_profiles.Shutdown();
}

QtPage* QtEngine::FrontPage() const {
    const auto* view = Front();
    return view ? view->Page() : nullptr;
}

void QtEngine::Relayout() {
    if (auto* view = Front()) view->LayWidget();
}

QtPage* QtEngine::MediaPage() {
    std::vector<MediaView> open;
    for (const auto& [index, view] : m_views) open.push_back({index, view->Audible()});
    const auto* view = Find(m_media.Choose(open, m_schedule.Shown()));
    return view ? view->Page() : nullptr;
}

QtBrowserView* QtEngine::ViewOf(const QWebEnginePage* page) const {
    const auto found = std::ranges::find_if(m_views, [page](const auto& each) { return each.second->Page() == page; });
    return page && found != m_views.end() ? found->second : nullptr;
}

std::size_t QtEngine::PageCount() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(m_views, [](const auto& each) { return each.second->Page() != nullptr; }));
}

QIcon QtEngine::Icon(std::int32_t index) const {
    const auto* view = Find(index);
    return view ? view->Icon() : QIcon();
}

void QtEngine::SetLoadOptions(const QtLoadOptions& options) {
    m_profiles.SetLoadOptions(options);
    for (const auto& [index, view] : m_views) {
        view->ApplyMute();
        // A sleeping page is told when it wakes, like any page that loads.
        const bool awake = view->Page() && !view->Life()->Asleep();
        if (awake) m_profiles.TellLoadOptions(*view->Page(), view->Privacy());
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

QtBrowserView* QtEngine::Find(std::int32_t index) const {
    const auto found = m_views.find(index);
    return found == m_views.end() ? nullptr : found->second;
}

} // namespace tessa::qt
