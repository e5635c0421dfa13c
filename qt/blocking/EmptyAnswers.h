#pragma once
#include "blocking/EmptyResources.h"

#include <QUrl>
#include <QWebEngineUrlSchemeHandler>

class QWebEngineProfile;

namespace tessa::qt {

/// Answers with nothing, where a page's scripts would not go on without an answer. Rules say where.
class EmptyAnswers final : public QWebEngineUrlSchemeHandler {
public:
    [[nodiscard]] static QByteArray Scheme() { return QByteArrayLiteral("tessaview-empty"); }
    /// Makes the scheme known to the engine; before the application object exists.
    static void RegisterScheme();
    /// Where requests are led that get that answer.
    [[nodiscard]] static QUrl AddressOf(EmptyResource resource);

    /// From now on its pages get such answers.
    void Follow(QWebEngineProfile& profile);

    void requestStarted(QWebEngineUrlRequestJob* job) override;
};

} // namespace tessa::qt
