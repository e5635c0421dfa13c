#pragma once
#include "base/Signal.h"
#include "platform/SettingsStorage.h"
#include "settings/EngineOptions.h"

#include <QPointer>
#include <QWebEngineProfile>

namespace tessa::qt {

class StoredBrowsingData;
class Engine;
class Requests;

/// Puts the settings into effect for the engine: for its profiles, whenever they come into being, and its requests.
class LiveEngineOptions final : public EngineOptions {
public:
    /// All outlive it.
    LiveEngineOptions(SettingsStorageFactory& settings, Engine& engine, Requests& requests, StoredBrowsingData& data);

    void ApplyLoadOptions() override;
    void ApplyInternetOptions() override;
    void Clear(const BrowsingData& data, Forgotten done) override;

    /// The Internet Options have come into effect.
    Signal<void()> Applied;

private:
    void Take(QWebEngineProfile& made);
    void TakePrivate(QWebEngineProfile& made);

    SettingsStorageFactory& m_settings;
    Engine& m_engine;
    Requests& m_requests;
    StoredBrowsingData& m_data;
    QPointer<QWebEngineProfile> m_profile, m_private;
};

} // namespace tessa::qt
