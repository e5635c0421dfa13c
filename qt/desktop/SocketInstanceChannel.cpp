#include "qt/desktop/SocketInstanceChannel.h"

#include "base/os/FileLock.h"
#include "base/os/LocalSocket.h"
#include "qt/base/PathBytes.h"
#include "qt/base/Strings.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <unistd.h>

namespace tessa::qt {

namespace {

constexpr std::size_t kLongestAnswer = 4096;
constexpr auto kLongestMessage = static_cast<qint64>(InstanceMessage::kLongestLine + InstanceMessage::kLongestText);
constexpr auto kDone = "done\n";

QString SocketName(const QString& prefix, qint64 process) {
    return prefix + QString::number(process) + QStringLiteral(".socket");
}

} // namespace

InstanceSender::InstanceSender(QString stateFolder, int patience)
    : m_stateFolder(std::move(stateFolder)), m_patience(patience) {}

Outcome InstanceSender::RegisterMessage(TextView name) {
    const QFileInfo folder(m_stateFolder);
    // A folder that could not be made has no canonical path.
    const QString state = folder.exists() ? folder.canonicalFilePath() : folder.absoluteFilePath();
    const auto hash = QCryptographicHash::hash(QFile::encodeName(state), QCryptographicHash::Sha1).toHex().left(16);
    m_prefix = ToQt(name) + u'-' + QString::fromLatin1(hash) + u'-';
    m_folder.Open(m_stateFolder, SocketName(m_prefix, INT_MAX).size());
    return m_folder.IsWritable() ? Outcome::Done : Outcome::Failed;
}

bool InstanceSender::PreviousInstance(Instances allowed) {
    // Held while a start looks for instances and becomes one. So two starts at one moment do not both become one.
    const FileLock lock(PathBytes(m_folder.PathOf(m_prefix + QStringLiteral("lock"))),
                        std::chrono::milliseconds(m_patience));
    m_running = FindRunning();
    OnLooked(allowed, !m_running.isEmpty());
    return !m_running.isEmpty();
}

QString InstanceSender::FindRunning() const {
    // The oldest first, so that every sender finds the same one.
    const auto sockets = QDir(m_folder.Path())
                             .entryInfoList({m_prefix + QStringLiteral("*.socket")}, QDir::System | QDir::Files,
                                            QDir::Time | QDir::Reversed);
    for (const QFileInfo& each : sockets) {
        const auto found = LocalSocket::Look(PathBytes(each.filePath()));
        if (found == LocalSocket::Found::Listener) return each.filePath();
        if (found == LocalSocket::Found::Remains) QFile::remove(each.filePath());
    }
    return {};
}

QString InstanceSender::SocketOf(qint64 process) const { return m_folder.PathOf(SocketName(m_prefix, process)); }

void SocketInstanceChannel::OnLooked(Instances allowed, bool running) {
    if (running && allowed == Instances::One) return;
    m_server.emplace();
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&*m_server, &QLocalServer::newConnection, &*m_server, [this] { OnConnection(); });
    const QString path = SocketOf(::getpid());
    QFile::remove(path);
    if (m_server->listen(path))
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    else
        qWarning("tessaview: later starts will not find this one: %s", qPrintable(m_server->errorString()));
}

void SocketInstanceChannel::OnConnection() {
    while (auto* sender = m_server->nextPendingConnection()) {
        QObject::connect(sender, &QLocalSocket::disconnected, sender, &QObject::deleteLater);
        if (!LocalSocket::IsOurUser(sender->socketDescriptor())) {
            sender->abort();
            continue;
        }
        sender->setReadBufferSize(kLongestMessage);
        QObject::connect(sender, &QLocalSocket::readyRead, sender, [this, sender] { Receive(*sender); });
        QTimer::singleShot(Patience(), sender, [sender] { sender->abort(); });
    }
}

void SocketInstanceChannel::Receive(QLocalSocket& sender) {
    const QByteArray bytes = sender.peek(kLongestMessage);
    auto reading = InstanceMessage::Read({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    if (reading.How == InstanceMessage::Standing::Incomplete) return;
    sender.disconnect(SIGNAL(readyRead()));
    // Handling may run events, in which the sender may give up and go. That must not happen inside its own signal.
    const auto handle = [this, answered = QPointer(&sender), message = std::move(reading.What),
                         refused = reading.How == InstanceMessage::Standing::Refused] {
        if (refused) {
            if (answered) answered->abort();
            return;
        }
        Handle(message);
        if (answered) Answer(*answered);
    };
    QMetaObject::invokeMethod(&*m_server, handle, Qt::QueuedConnection);
}

void SocketInstanceChannel::Answer(QLocalSocket& sender) {
    sender.write(kDone);
    sender.flush();
    sender.disconnectFromServer();
}

void SocketInstanceChannel::Handle(const InstanceMessage::Message& message) const {
    if (message.What == InstanceMessage::Kind::HandOver) {
        Message(message.Text);
    } else {
        Foreground(QByteArray::fromStdString(message.Token));
    }
}

Outcome InstanceSender::SetForegroundWindow() {
    QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN");
    if (token.isEmpty()) token = qgetenv("DESKTOP_STARTUP_ID");
    return Send(InstanceMessage::Foreground(token.toStdString()));
}

Outcome InstanceSender::SendMessage(TextView text) { return Send(InstanceMessage::HandOver(text)); }

Outcome InstanceSender::Send(const std::string& message) {
    if (m_running.isEmpty()) return Outcome::Failed;
    if (message.empty()) {
        std::fputs("tessaview: the command line is too long; nothing was handed over.\n", stderr);
        return Outcome::Failed;
    }
    const auto answer =
        LocalSocket::Ask(PathBytes(m_running), message, kLongestAnswer, std::chrono::milliseconds(m_patience));
    if (answer == kDone) return Outcome::Done;
    // Nor will it answer the next message; waiting again would only take longer.
    m_running.clear();
    std::fputs("tessaview: the running instance does not answer; nothing was handed over.\n", stderr);
    return Outcome::Failed;
}

} // namespace tessa::qt
