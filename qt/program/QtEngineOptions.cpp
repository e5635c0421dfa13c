#include "qt/program/QtEngineOptions.h"

#include "qt/engine/QtBrowsingData.h"
#include "qt/engine/QtEngine.h"
#include "qt/engine/QtRequests.h"
#include "qt/engine/QtWebOptions.h"
#include "settings/InternetSettings.h"
#include "settings/SettingsStore.h"

#include <utility>

namespace tessa::qt {

QtEngineOptions::QtEngineOptions(SettingsStorageFactory& settings, QtEngine& engine, QtRequests& requests,
                                 QtBrowsingData& data)
    : m_settings(settings), m_engine(engine), m_requests(requests), m_data(data) {
    engine.Profiles().Made.ConnectForLife([this](QWebEngineProfile& made) { Take(made); });
    engine.Profiles().PrivateMade.ConnectForLife([this](QWebEngineProfile& made) { TakePrivate(made); });
    engine.Told().Visited.ConnectForLife([this](const QUrl& url) { m_data.NoteVisit(url); });
}

void QtEngineOptions::Take(QWebEngineProfile& made) {
    m_data.Watch(made);
    m_profile = &made;
    made.setUrlRequestInterceptor(&m_requests);
    ApplyInternetOptions();
}

// Nothing of it is noted anywhere.
void QtEngineOptions::TakePrivate(QWebEngineProfile& made) {
    m_private = &made;
    made.setUrlRequestInterceptor(&m_requests);
    ApplyInternetOptions();
}

void QtEngineOptions::ApplyLoadOptions() {
    const SettingsStore store(m_settings);
    m_requests.Loads = {.images = store.LoadImages.Get(),
                        .animations = store.LoadAnimations.Get(),
                        .videos = store.LoadVideos.Get(),
                        .sounds = store.LoadSounds.Get()};
    m_engine.SetLoadOptions(m_requests.Loads);
}

void QtEngineOptions::ApplyInternetOptions() {
    const InternetValues values = InternetSettings(m_settings).Get();
    QtWebOptions::ApplyProxy(values, m_profile);
    QtWebOptions::Apply(values, m_requests);
    for (const auto& each : {m_profile, m_private}) {
        if (each) QtWebOptions::Apply(values, *each);
    }
}

void QtEngineOptions::Clear(const BrowsingData& data, Forgotten done) {
    if (m_profile) return m_data.Clear(data, *m_profile, std::move(done));
    done(Cleared::NotAll);
}

} // namespace tessa::qt
