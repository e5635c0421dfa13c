#pragma once
#include <QByteArray>
#include <QWebEngineUrlSchemeHandler>

/// The home page `tessaview:start`, made by the program, no network needed. Web pages cannot reach the scheme.
class QtStartPage final : public QWebEngineUrlSchemeHandler {
public:
    [[nodiscard]] static QByteArray Scheme() { return QByteArrayLiteral("tessaview"); }
    /// Makes the scheme known to the engine; before the application object exists.
    static void RegisterScheme();
    void requestStarted(QWebEngineUrlRequestJob* job) override;
};
