#pragma once
#include "commands/Services.h"
#include "qt/engine/QtLoadOptions.h"

#include <QWebEngineUrlRequestInterceptor>
#include <functional>

/// Sees every request before it leaves the engine: sends those for the product's own hosts on to the real services, and
/// keeps pages on this computer from reading other files.
class QtRequests final : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT

public:
    void interceptRequest(QWebEngineUrlRequestInfo& info) override;

    /// Which services the user has chosen; read for each request that is for one of the product's hosts.
    std::function<ServiceTemplates()> Templates;
    /// What pages may load; what has a place in no page, as a sound that a script plays, is held back here.
    QtLoadOptions Loads;
    /// What every request tells the server.
    bool DoNotTrack = false;
    bool GlobalPrivacyControl = false;

private:
    [[nodiscard]] bool HoldsBack(const QWebEngineUrlRequestInfo& info) const;
};
