#pragma once
#include "commands/Services.h"
#include "qt/engine/LoadOptions.h"

#include <QWebEngineUrlRequestInterceptor>
#include <functional>
#include <utility>

namespace tessa::qt {

/// Sees every request before it leaves the engine. Sends those for the product's own hosts on to the real services.
/// Keeps pages on this computer from reading other files.
class Requests final : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT

public:
    /// `templates` are the services that the user has chosen. They are read for each request to one of the product's
    /// hosts.
    explicit Requests(std::function<ServiceTemplates()> templates) : m_templates(std::move(templates)) {}

    void interceptRequest(QWebEngineUrlRequestInfo& info) override;

    /// What pages may load. What has a place in no page, as a sound that a script plays, is held back here.
    LoadOptions Loads;
    /// What every request tells the server.
    bool DoNotTrack = false;
    bool GlobalPrivacyControl = false;

private:
    [[nodiscard]] bool HoldsBack(const QWebEngineUrlRequestInfo& info) const;

    std::function<ServiceTemplates()> m_templates;
};

} // namespace tessa::qt
