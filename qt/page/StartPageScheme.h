#pragma once
#include <QByteArray>
#include <QWebEngineUrlSchemeHandler>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

namespace tessa::qt {

/// Answers for what the program makes itself, no network needed: the pages of `OwnAddresses`. Web pages cannot reach
/// the scheme. The engine takes it for a local one, and a page's wish to go there is refused. What is asked for on
/// behalf of another origin is denied.
class StartPageScheme final : public QWebEngineUrlSchemeHandler {
public:
    /// `startPage` makes the home page, in UTF-8.
    explicit StartPageScheme(std::function<std::string()> startPage) : m_startPage(std::move(startPage)) {}

    [[nodiscard]] static QByteArray Scheme();
    /// Whether the address is one of these.
    [[nodiscard]] static bool IsOwn(const QUrl& url);
    /// Makes the scheme known to the engine; before the application object exists.
    static void RegisterScheme();
    void requestStarted(QWebEngineUrlRequestJob* job) override;

    [[nodiscard]] static bool IsHistory(const QUrl& url);
    /// Whether that is the address of a print preview.
    [[nodiscard]] static bool IsPreview(const QUrl& url);
    /// The address at which these bytes, a PDF, are shown under that name for as long as somebody holds them.
    [[nodiscard]] QUrl AddPreview(const std::shared_ptr<const QByteArray>& pdf, const QString& name);

    /// These bytes again, by the path of their address; nothing when nobody holds them.
    [[nodiscard]] QByteArray PreviewAt(const QString& path) const;

private:
    /// Nothing for a page that does not exist.
    [[nodiscard]] QByteArray BytesAt(const QString& path) const;

    std::function<std::string()> m_startPage;
    std::map<int, std::weak_ptr<const QByteArray>> m_previews; ///< by their numbers
    int m_previewCount = 0;
};

} // namespace tessa::qt
