#pragma once
#include "platform/SettingsStorage.h"
#include "settings/EngineOptions.h"

#include <QPointer>
#include <QWebEngineProfile>

namespace tessa::qt {

class QtBrowsingData;
class QtEngine;
class QtRequests;

/// Puts the settings into effect for the engine: for its profiles, whenever they come into being, and its requests.
class QtEngineOptions final : public EngineOptions {
public:
    /// All outlive it.
    QtEngineOptions(SettingsStorageFactory& settings, QtEngine& engine, QtRequests& requests, QtBrowsingData& data);

    void ApplyLoadOptions() override;
    void ApplyInternetOptions() override;
    void Clear(const BrowsingData& data, Forgotten done) override;

private:
    void Take(QWebEngineProfile& made);
    void TakePrivate(QWebEngineProfile& made);

    SettingsStorageFactory& m_settings;
    QtEngine& m_engine;
    QtRequests& m_requests;
    QtBrowsingData& m_data;
    QPointer<QWebEngineProfile> m_profile, m_private;
};

} // namespace tessa::qt
