#include "qt/QtInstanceChannel.h"

#include "common/FileLock.h"
#include "qt/QtPathBytes.h"
#include "qt/QtText.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr qint64 kLongestAnswer = 4096;
constexpr auto kLongestMessage = static_cast<qint64>(InstanceMessage::kLongestLine + InstanceMessage::kLongestText);
constexpr int kConnectPatience = 200; // a living instance's socket takes a connection at once, even when it hangs
constexpr auto kDone = "done\n";

QString SocketName(const QString& prefix, qint64 process) {
    return prefix + QString::number(process) + QStringLiteral(".socket");
}

// The system's word on who is at the other end, which nobody can forge.
bool IsOurUser(const QLocalSocket& socket) {
    ucred peer{};
    socklen_t size = sizeof peer;
    const auto descriptor = static_cast<int>(socket.socketDescriptor());
    return ::getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == ::geteuid();
}

enum class Found { Instance, Remains, Foreign };

Found Look(const QString& path) {
    QLocalSocket probe;
    probe.connectToServer(path);
    if (probe.waitForConnected(kConnectPatience)) return IsOurUser(probe) ? Found::Instance : Found::Foreign;
    // It lives, but so many wait for it already that no more are let in.
    if (probe.state() == QLocalSocket::ConnectingState) return Found::Instance;
    return probe.error() == QLocalSocket::ConnectionRefusedError ? Found::Remains : Found::Foreign;
}

} // namespace

QtInstanceChannel::QtInstanceChannel(QString stateFolder, int patience)
    : m_stateFolder(std::move(stateFolder)), m_patience(patience) {
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this] { OnConnection(); });
}

QtInstanceChannel::~QtInstanceChannel() = default;

Outcome QtInstanceChannel::RegisterMessage(TextView name) {
    const QFileInfo folder(m_stateFolder);
    // A folder that could not be made has no canonical path.
    const QString state = folder.exists() ? folder.canonicalFilePath() : folder.absoluteFilePath();
    const auto hash = QCryptographicHash::hash(QFile::encodeName(state), QCryptographicHash::Sha1).toHex().left(16);
    m_prefix = ToQt(name) + u'-' + QString::fromLatin1(hash) + u'-';
    m_folder.Open(m_stateFolder, SocketName(m_prefix, INT_MAX).size());
    return m_folder.IsWritable() ? Outcome::Done : Outcome::Failed;
}

bool QtInstanceChannel::PreviousInstance(Instances allowed) {
    // Held while a start looks for instances and becomes one, so that two starts at one moment do not both become one.
    const FileLock lock(PathBytes(m_folder.PathOf(m_prefix + QStringLiteral("lock"))),
                        std::chrono::milliseconds(m_patience));
    m_running = FindRunning();
    if (m_running.isEmpty() || allowed == Instances::Several) Listen();
    return !m_running.isEmpty();
}

QString QtInstanceChannel::FindRunning() const {
    // The oldest first, so that every sender finds the same one.
    const auto sockets = QDir(m_folder.Path())
                             .entryInfoList({m_prefix + QStringLiteral("*.socket")}, QDir::System | QDir::Files,
                                            QDir::Time | QDir::Reversed);
    for (const QFileInfo& each : sockets) {
        const Found found = Look(each.filePath());
        if (found == Found::Instance) return each.filePath();
        if (found == Found::Remains) QFile::remove(each.filePath());
    }
    return {};
}

void QtInstanceChannel::Listen() {
    const QString path = m_folder.PathOf(SocketName(m_prefix, ::getpid()));
    QFile::remove(path);
    if (m_server.listen(path))
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    else
        qWarning("tessaview: later starts will not find this one: %s", qPrintable(m_server.errorString()));
}

void QtInstanceChannel::OnConnection() {
    while (auto* sender = m_server.nextPendingConnection()) {
        QObject::connect(sender, &QLocalSocket::disconnected, sender, &QObject::deleteLater);
        if (!IsOurUser(*sender)) {
            sender->abort();
            continue;
        }
        sender->setReadBufferSize(kLongestMessage);
        QObject::connect(sender, &QLocalSocket::readyRead, sender, [this, sender] { Receive(*sender); });
        QTimer::singleShot(m_patience, sender, [sender] { sender->abort(); });
    }
}

void QtInstanceChannel::Receive(QLocalSocket& sender) {
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
    QMetaObject::invokeMethod(&m_server, handle, Qt::QueuedConnection);
}

void QtInstanceChannel::Answer(QLocalSocket& sender) {
    sender.write(kDone);
    sender.flush();
    sender.disconnectFromServer();
}

void QtInstanceChannel::Handle(const InstanceMessage::Message& message) const {
    if (message.What == InstanceMessage::Kind::HandOver) {
        if (Message) Message(message.Text);
    } else if (Foreground) {
        Foreground(QByteArray::fromStdString(message.Token));
    }
}

Outcome QtInstanceChannel::SetForegroundWindow() {
    QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN");
    if (token.isEmpty()) token = qgetenv("DESKTOP_STARTUP_ID");
    return Send(InstanceMessage::Foreground(token.toStdString()));
}

Outcome QtInstanceChannel::SendMessage(TextView text) { return Send(InstanceMessage::HandOver(text)); }

Outcome QtInstanceChannel::Send(const std::string& message) {
    if (m_running.isEmpty()) return Outcome::Failed;
    if (message.empty()) {
        std::fputs("tessaview: the command line is too long; nothing was handed over.\n", stderr);
        return Outcome::Failed;
    }
    if (Tell(message)) return Outcome::Done;
    // Nor will it answer the next message; waiting again would only take longer.
    m_running.clear();
    std::fputs("tessaview: the running instance does not answer; nothing was handed over.\n", stderr);
    return Outcome::Failed;
}

bool QtInstanceChannel::Tell(const std::string& message) const {
    const QDeadlineTimer deadline(m_patience);
    QLocalSocket socket;
    socket.setReadBufferSize(kLongestAnswer);
    socket.connectToServer(m_running);
    if (!socket.waitForConnected(m_patience) || !IsOurUser(socket)) return false;
    socket.write(message.data(), static_cast<qint64>(message.size()));
    while (!socket.canReadLine()) {
        if (deadline.hasExpired() || socket.bytesAvailable() >= kLongestAnswer) return false;
        const bool more = socket.waitForReadyRead(static_cast<int>(deadline.remainingTime()));
        if (!more && !socket.canReadLine()) return false;
    }
    return socket.readLine() == kDone;
}
