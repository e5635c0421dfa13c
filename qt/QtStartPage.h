#pragma once
#include <QByteArray>
#include <QWebEngineUrlSchemeHandler>
#include <functional>
#include <string>

/// Answers for the home page `tessaview:start`, which the program makes itself, and for the help `tessaview:help`, no
/// network needed. Web pages cannot reach the scheme: the engine takes it for a local one, a page's wish to go there is
/// refused, and what is asked for on behalf of another origin is denied.
class QtStartPage final : public QWebEngineUrlSchemeHandler {
public:
    [[nodiscard]] static QByteArray Scheme() { return QByteArrayLiteral("tessaview"); }
    /// Whether the address is the home page's or the help's.
    [[nodiscard]] static bool IsOwn(const QUrl& url);
    /// Makes the scheme known to the engine; before the application object exists.
    static void RegisterScheme();
    void requestStarted(QWebEngineUrlRequestJob* job) override;

    /// Makes the home page, in UTF-8. Filled in by the owner.
    std::function<std::string()> Page;

private:
    /// Nothing for a page that does not exist.
    [[nodiscard]] QByteArray PageAt(const QString& path) const;
};
