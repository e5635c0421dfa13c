#include "qt/program/LiveEngineOptions.h"

#include "qt/engine/Engine.h"
#include "qt/engine/Requests.h"
#include "qt/engine/StoredBrowsingData.h"
#include "qt/engine/WebOptions.h"
#include "settings/InternetSettings.h"
#include "settings/SettingsStore.h"

#include <utility>

namespace tessa::qt {

LiveEngineOptions::LiveEngineOptions(SettingsStorageFactory& settings, Engine& engine, Requests& requests,
                                     StoredBrowsingData& data)
    : m_settings(settings), m_engine(engine), m_requests(requests), m_data(data) {
    engine.Profiles().Made.ConnectForLife([this](QWebEngineProfile& made) { Take(made); });
    engine.Profiles().PrivateMade.ConnectForLife([this](QWebEngineProfile& made) { TakePrivate(made); });
    engine.Told().Visited.ConnectForLife([this](const QUrl& url) { m_data.NoteVisit(url); });
}

void LiveEngineOptions::Take(QWebEngineProfile& made) {
    m_data.Watch(made);
    m_profile = &made;
    made.setUrlRequestInterceptor(&m_requests);
    ApplyInternetOptions();
}

// Nothing of it is noted anywhere.
void LiveEngineOptions::TakePrivate(QWebEngineProfile& made) {
    m_private = &made;
    made.setUrlRequestInterceptor(&m_requests);
    ApplyInternetOptions();
}

void LiveEngineOptions::ApplyLoadOptions() {
    const SettingsStore store(m_settings);
    m_requests.Loads = {.images = store.LoadImages.Get(),
                        .animations = store.LoadAnimations.Get(),
                        .videos = store.LoadVideos.Get(),
                        .sounds = store.LoadSounds.Get()};
    m_engine.SetLoadOptions(m_requests.Loads);
}

void LiveEngineOptions::ApplyInternetOptions() {
    const InternetValues values = InternetSettings(m_settings).Get();
    WebOptions::ApplyProxy(values, m_profile);
    WebOptions::Apply(values, m_requests);
    for (const auto& each : {m_profile, m_private}) {
        if (each) WebOptions::Apply(values, *each);
    }
    Applied();
}

void LiveEngineOptions::Clear(const BrowsingData& data, Forgotten done) {
    if (m_profile) return m_data.Clear(data, *m_profile, std::move(done));
    done(Cleared::NotAll);
}

} // namespace tessa::qt
