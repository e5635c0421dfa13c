#pragma once
#include "qt/base/QtEngineVersions.h"

#include <QObject>
#include <QPointer>
#include <optional>

namespace tessa::qt {

class QtCovers;
class QtSecurityKeyDialog;

/// Leads the user through what a security key needs: the account, the PIN, a touch. Each step is a dialog of the tab.
class QtSecurityKeys final : public QObject {
    Q_OBJECT

public:
    /// Outlived by the covers.
    explicit QtSecurityKeys(QtCovers& covers) : m_covers(covers) {}
    /// Every use of a key by that page from now on.
    void FollowPage(QWebEnginePage& page);

    /// A new use of a key; one that goes on is cancelled, for there is one user.
    void Begin(const QtEngineVersions::SecurityKeyRequest& request);
    /// Shows what the state of the use asks for now.
    void Update();

private:
    void Show(const QtEngineVersions::SecurityKeyState& state);
    void Answer(QtEngineVersions::KeyStep step, const QString& entered);
    void TakeOff();

    QtCovers& m_covers;
    std::optional<QtEngineVersions::SecurityKeyRequest> m_request;
    QPointer<QtSecurityKeyDialog> m_shown;
};

} // namespace tessa::qt
