#pragma once
#include "common/platform/InstanceChannel.h"

#include <QByteArray>
#include <QLocalServer>
#include <QString>
#include <functional>

/// Instances of one user and one state folder, over local sockets that the user alone may open. Each instance listens
/// on a socket of its own; a socket that nobody answers is left over from one that crashed, and is removed.
class QtInstanceChannel final : public InstanceChannel {
public:
    /// `stateFolder` tells instances apart; `patience` in milliseconds is how long a sender waits in all.
    explicit QtInstanceChannel(QString stateFolder, int patience = 10000);
    ~QtInstanceChannel() override;

    Outcome RegisterMessage(TextView name) override;
    [[nodiscard]] bool PreviousInstance(Instances allowed) override;
    Outcome SetForegroundWindow() override;
    Outcome SendMessage() override;

    /// A later start wants the window in front; `token` is the desktop's permission for it, or empty.
    std::function<void(const QByteArray& token)> Foreground;

private:
    [[nodiscard]] QString FindRunning() const;
    void Listen();
    void OnConnection();
    void Handle(class QLocalSocket& sender, const QByteArray& line);
    Outcome Send(const QByteArray& line);

    QString m_stateFolder, m_folder, m_prefix, m_running;
    int m_patience;
    QLocalServer m_server;
};
