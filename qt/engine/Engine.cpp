#include "qt/engine/Engine.h"

#include "base/os/Log.h"
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "qt/page/WebPage.h"

#include <algorithm>
#include <vector>

namespace tessa::qt {

Engine::Engine(QWidget* pageArea, InstanceProfile& ownProfile, EngineHost& host)
    : m_profiles(ownProfile, [&host] { return host.StartPage(); }),
      m_fullScreen(host),
      m_services{pageArea, host, m_profiles, m_schedule, m_newWindows, m_outside, m_output, m_fullScreen, m_told} {}

Engine::~Engine() = default;

std::unique_ptr<BrowserView> Engine::Create(std::int16_t Index, BrowserViewEvents& events, Privacy privacy) {
    auto view = std::make_unique<PageView>(Index, events, m_services, privacy);
    m_views[Index] = view.get();
    connect(view.get(), &QObject::destroyed, this, [this, Index] { m_views.erase(Index); });
    return view;
}

void Engine::Start() {
    Log::Note(LogLevel::Info, LogPart::Engine, "starts");
    m_outside.Start();
    m_schedule.Start();
}

bool Engine::Shutdown() {
    Must(m_views.empty());
    return m_profiles.Shutdown();
}

WebPage* Engine::FrontPage() const {
    const auto* view = Front();
    return view ? view->Page() : nullptr;
}

void Engine::Relayout() {
    for (const std::int32_t each : std::set(m_schedule.AllShown())) {
        // What is about to be hidden need not have another size before.
        auto* view = m_schedule.IsWanted(each) ? Find(each) : nullptr;
        if (view) view->LayWidget();
    }
}

WebPage* Engine::MediaPage() {
    std::vector<MediaView> open;
    for (const auto& [index, view] : m_views) open.push_back({index, view->Audible()});
    const auto* view = Find(m_media.Choose(open, m_schedule.Shown()));
    return view ? view->Page() : nullptr;
}

PageView* Engine::ViewOf(const QWebEnginePage* page) const {
    const auto found = std::ranges::find_if(m_views, [page](const auto& each) { return each.second->Page() == page; });
    return page && found != m_views.end() ? found->second : nullptr;
}

std::size_t Engine::PageCount() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(m_views, [](const auto& each) { return each.second->Page() != nullptr; }));
}

QIcon Engine::Icon(std::int32_t index) const {
    const auto* view = Find(index);
    return view ? view->Icon() : QIcon();
}

void Engine::SetLoadOptions(const LoadOptions& options) {
    m_profiles.SetLoadOptions(options);
    for (const auto& [index, view] : m_views) {
        view->ApplyMute();
        // A sleeping page is told when it wakes, like any page that loads.
        const bool awake = view->Page() && !view->Life()->Asleep();
        if (awake) m_profiles.TellLoadOptions(*view->Page(), view->Privacy());
    }
}

void Engine::ForgetDecision(const SiteDecision& forgotten) {
    for (const auto& [index, view] : m_views) {
        if (view->Questions() && view->Privacy() == Privacy::Ordinary) view->Questions()->permissions.Forget(forgotten);
    }
}

QStringList Engine::Captures() const {
    QStringList all;
    for (const auto& [index, view] : m_views) {
        const Text words = view->Questions() ? view->Questions()->permissions.Captures() : Text();
        if (!words.empty()) all << ToQt(words);
    }
    return all;
}

void Engine::StopCaptures() {
    for (const auto& [index, view] : std::map(m_views)) {
        if (view->Questions() && !view->Questions()->permissions.Captures().empty()) view->Renew();
    }
}

PageView* Engine::Find(std::int32_t index) const {
    const auto found = m_views.find(index);
    return found == m_views.end() ? nullptr : found->second;
}

} // namespace tessa::qt
