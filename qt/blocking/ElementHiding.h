#pragma once
#include "base/Signal.h"
#include "qt/blocking/Blocker.h"

#include <QPointer>
#include <QWebEngineUrlSchemeHandler>
#include <vector>

class QJsonObject;
class QUrlQuery;
class QWebEnginePage;
class QWebEngineProfile;

namespace tessa::qt {

/// Hides elements of pages, by a script in each frame. It asks this scheme about what lists may name, and its page
/// waits for the answer. A page itself does not know the word that the script asks with.
class ElementHiding final : public QWebEngineUrlSchemeHandler {
public:
    /// The blocker outlives it.
    explicit ElementHiding(Blocker& blocker);

    [[nodiscard]] static QByteArray Scheme() { return QByteArrayLiteral("tessaview-hide"); }
    /// Makes the scheme known to the engine; before the application object exists.
    static void RegisterScheme();

    /// From now on elements of its pages are hidden; it may go at any time.
    void Follow(QWebEngineProfile& profile);
    /// Lets the user point at an element of the page; `Picked` tells what it was.
    void Pick(QWebEnginePage& page) const;
    /// Hides what the selector selects on the page until it is loaded again; an empty one shows it. `counted` is told
    /// how many elements that are.
    void Preview(QWebEnginePage& page, const QString& selector, std::function<void(int)> counted) const;

    void requestStarted(QWebEngineUrlRequestJob* job) override;

    /// The user has pointed at what that selector selects; empty when he has changed his mind.
    Signal<void(const QString& selector)> Picked;

private:
    void Install();
    void Put(QWebEngineProfile& profile) const;
    [[nodiscard]] QString Script() const;
    [[nodiscard]] QJsonObject SiteAnswer(const QUrlQuery& asked) const;
    [[nodiscard]] QJsonObject KeysAnswer(const QUrlQuery& asked) const;
    [[nodiscard]] QJsonObject StoppedAnswer(const QUrlQuery& asked) const;

    Blocker& m_blocker;
    const QString m_word;
    QString m_script; ///< empty while nothing is hidden
    std::vector<QPointer<QWebEngineProfile>> m_profiles;
    Connection m_changed;
};

} // namespace tessa::qt
