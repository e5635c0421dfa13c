#pragma once
#include "common/InstanceMessage.h"
#include "common/platform/InstanceChannel.h"
#include "qt/QtSocketFolder.h"

#include <QByteArray>
#include <QLocalServer>
#include <QString>
#include <functional>
#include <string>

class QLocalSocket;

/// Instances of one user and one state folder, over local sockets that the user alone may open. Each instance listens
/// on a socket of its own; a socket that nobody answers is left over from one that crashed, and is removed. Whoever
/// connects says one message and is answered with one line; what says anything else, or nothing, is cut off.
class QtInstanceChannel final : public InstanceChannel {
public:
    /// `stateFolder` tells instances apart; `patience` in milliseconds is how long either side waits for the other.
    explicit QtInstanceChannel(QString stateFolder, int patience = 10000);
    ~QtInstanceChannel() override;

    Outcome RegisterMessage(TextView name) override;
    [[nodiscard]] bool PreviousInstance(Instances allowed) override;
    Outcome SetForegroundWindow() override;
    Outcome SendMessage(TextView text) override;

    /// A later start wants the window in front; `token` is the desktop's permission for it, or empty.
    std::function<void(const QByteArray& token)> Foreground;

private:
    [[nodiscard]] QString FindRunning() const;
    void Listen();
    void OnConnection();
    void Receive(QLocalSocket& sender);
    static void Answer(QLocalSocket& sender);
    void Handle(const InstanceMessage::Message& message) const;
    Outcome Send(const std::string& message);
    [[nodiscard]] bool Tell(const std::string& message) const;

    const QString m_stateFolder;
    const int m_patience;
    QtSocketFolder m_folder;
    QString m_prefix, m_running;
    QLocalServer m_server;
};
