#pragma once
#include "commands/Services.h"
#include "qt/engine/LoadOptions.h"

#include <QWebEngineUrlRequestInterceptor>
#include <functional>
#include <utility>

namespace tessa::qt {

class BlockedPages;

/// Sees every request before it leaves the engine. Sends those for the product's own hosts on to the real services.
/// Keeps pages on this computer from reading other files. Stops what is blocked.
class Requests final : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT

public:
    /// `templates` are the services that the user has chosen. They are read for each request to one of the product's
    /// hosts. `blocked` knows what is blocked, and outlives this; nothing is without it.
    explicit Requests(std::function<ServiceTemplates()> templates, BlockedPages* blocked = nullptr)
        : m_templates(std::move(templates)), m_blocked(blocked) {}

    void interceptRequest(QWebEngineUrlRequestInfo& info) override;

    /// What pages may load. What has a place in no page, as a sound that a script plays, is held back here.
    LoadOptions Loads;
    /// What every request tells the server.
    bool DoNotTrack = false;
    bool GlobalPrivacyControl = false;

private:
    [[nodiscard]] bool HoldsBack(const QWebEngineUrlRequestInfo& info) const;

    std::function<ServiceTemplates()> m_templates;
    BlockedPages* m_blocked;
};

} // namespace tessa::qt
