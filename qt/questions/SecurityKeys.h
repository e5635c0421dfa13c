#pragma once
#include "qt/base/EngineVersions.h"

#include <QObject>
#include <QPointer>
#include <optional>

namespace tessa::qt {

class Covers;
class SecurityKeyDialog;

/// Leads the user through what a security key needs: the account, the PIN, a touch. Each step is a dialog of the tab.
class SecurityKeys final : public QObject {
    Q_OBJECT

public:
    /// Outlived by the covers.
    explicit SecurityKeys(Covers& covers) : m_covers(covers) {}
    /// Every use of a key by that page from now on.
    void FollowPage(QWebEnginePage& page);

    /// A new use of a key; one that goes on is cancelled, for there is one user.
    void Begin(const EngineVersions::SecurityKeyRequest& request);
    /// Shows what the state of the use asks for now.
    void Update();

private:
    void Show(const EngineVersions::SecurityKeyState& state);
    void Answer(EngineVersions::KeyStep step, const QString& entered);
    void TakeOff();

    Covers& m_covers;
    std::optional<EngineVersions::SecurityKeyRequest> m_request;
    QPointer<SecurityKeyDialog> m_shown;
};

} // namespace tessa::qt
