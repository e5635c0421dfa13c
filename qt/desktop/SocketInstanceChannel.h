#pragma once
#include "base/InstanceMessage.h"
#include "base/Signal.h"
#include "platform/InstanceChannel.h"
#include "qt/desktop/SocketFolder.h"

#include <QByteArray>
#include <QLocalServer>
#include <QString>
#include <optional>
#include <string>

class QLocalSocket;

namespace tessa::qt {

/// Finds the instances of one user and one state folder. Talks to them over local sockets that the user alone may open.
/// A socket that nobody answers is left over from an instance that crashed, and is removed. Can not be found itself,
/// and needs no application object.
class InstanceSender : public InstanceChannel {
public:
    /// `stateFolder` tells instances apart; `patience` in milliseconds is how long either side waits for the other.
    explicit InstanceSender(QString stateFolder, int patience = 10000);

    Outcome RegisterMessage(TextView name) override;
    [[nodiscard]] bool PreviousInstance(Instances allowed) override;
    Outcome SetForegroundWindow() override;
    Outcome SendMessage(TextView text) override;

protected:
    [[nodiscard]] int Patience() const { return m_patience; }
    /// Where an instance of that process listens.
    [[nodiscard]] QString SocketOf(qint64 process) const;
    /// Whether another instance runs has just been found out, and no other start finds out meanwhile.
    virtual void OnLooked(Instances /*allowed*/, bool /*running*/) {}

private:
    [[nodiscard]] QString FindRunning() const;
    Outcome Send(const std::string& message);

    const QString m_stateFolder;
    const int m_patience;
    SocketFolder m_folder;
    QString m_prefix, m_running;
};

/// An instance of those: each listens on a socket of its own. Whoever connects says one message and is answered with
/// one line; what says anything else, or nothing, is cut off.
class SocketInstanceChannel final : public InstanceSender {
public:
    using InstanceSender::InstanceSender;

    /// A later start wants the window in front; `token` is the desktop's permission for it, or empty.
    Signal<void(const QByteArray& token)> Foreground;

private:
    void OnLooked(Instances allowed, bool running) override;
    void OnConnection();
    void Receive(QLocalSocket& sender);
    static void Answer(QLocalSocket& sender);
    void Handle(const InstanceMessage::Message& message) const;

    std::optional<QLocalServer> m_server; ///< once it can be found
};

} // namespace tessa::qt
