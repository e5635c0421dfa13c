#pragma once
#include "qt/page/PageDialog.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QWebEngineUrlSchemeHandler>
#include <functional>

class QWebEngineUrlRequestJob;

namespace tessa::qt {

/// How pages speak in dialogs without stopping the engine. The engine itself wants the answer to `alert()` before it
/// does anything else, for any tab. So our script stands in for these functions and fetches the answer from this
/// scheme. For that its page waits, and it alone.
class DialogScheme final : public QWebEngineUrlSchemeHandler {
public:
    [[nodiscard]] static QByteArray Scheme() { return QByteArrayLiteral("tessaview-ask"); }
    /// Makes the scheme known to the engine; before the application object exists.
    static void RegisterScheme();
    /// What pages run before their own scripts. `token` says which page asks; another page does not know it.
    [[nodiscard]] static QString ScriptFor(const QString& token);

    using Receiver = std::function<void(QWebEngineUrlRequestJob&)>;
    void Register(const QString& token, Receiver receiver) { m_receivers[token] = std::move(receiver); }
    void Forget(const QString& token) { m_receivers.remove(token); }
    /// Gives the page that waits its answer.
    static void Reply(QWebEngineUrlRequestJob& job, const PageDialogAnswer& answer);

    void requestStarted(QWebEngineUrlRequestJob* job) override;

private:
    QHash<QString, Receiver> m_receivers;
};

} // namespace tessa::qt
