#pragma once
#include "commands/Services.h"

#include <QWebEngineUrlRequestInterceptor>
#include <functional>

/// Sees every request before it leaves the engine: sends those for the product's own hosts on to the real services.
class QtRequests final : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT

public:
    void interceptRequest(QWebEngineUrlRequestInfo& info) override;

    /// Which services the user has chosen; read for each request that is for one of the product's hosts.
    std::function<ServiceTemplates()> Templates;
};
