#pragma once
#include <QByteArray>
#include <QWebEngineUrlSchemeHandler>
#include <functional>
#include <string>

/// Answers for the home page `tessaview:start`, which the program makes itself, no network needed. Web pages cannot
/// reach the scheme: the engine takes it for a local one, a page's wish to go there is refused, and what is asked for
/// on behalf of another origin is denied.
class QtStartPage final : public QWebEngineUrlSchemeHandler {
public:
    [[nodiscard]] static QByteArray Scheme() { return QByteArrayLiteral("tessaview"); }
    /// Whether the address is the page's own.
    [[nodiscard]] static bool IsStart(const QUrl& url);
    /// Makes the scheme known to the engine; before the application object exists.
    static void RegisterScheme();
    void requestStarted(QWebEngineUrlRequestJob* job) override;

    /// Makes the page, in UTF-8. Filled in by the owner.
    std::function<std::string()> Page;
};
