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

constexpr qint64 kLongestMessage = 4096;
constexpr int kConnectPatience = 200; // a living instance's socket takes a connection at once, even when it hangs
constexpr auto kForeground = "foreground", kMessage = "message", kDone = "done\n";

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
    if (!sender.canReadLine()) {
        if (sender.bytesAvailable() >= kLongestMessage) sender.abort();
        return;
    }
    sender.disconnect(SIGNAL(readyRead()));
    // Handling may run events, in which the sender may give up and go. That must not happen inside its own signal.
    const auto handle = [this, answered = QPointer(&sender), line = sender.readLine().trimmed()] {
        const bool understood = Handle(line);
        if (answered) Answer(*answered, understood);
    };
    QMetaObject::invokeMethod(&m_server, handle, Qt::QueuedConnection);
}

void QtInstanceChannel::Answer(QLocalSocket& sender, bool understood) {
    if (understood) sender.write(kDone);
    sender.flush();
    sender.disconnectFromServer();
}

bool QtInstanceChannel::Handle(const QByteArray& line) const {
    const bool foreground = line == kForeground || line.startsWith(kForeground + QByteArray(" "));
    const bool message = line == kMessage;
    if (foreground && Foreground) Foreground(line.mid(static_cast<qsizetype>(qstrlen(kForeground)) + 1));
    if (message && Message) Message();
    return foreground || message;
}

Outcome QtInstanceChannel::SetForegroundWindow() {
    QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN");
    if (token.isEmpty()) token = qgetenv("DESKTOP_STARTUP_ID");
    return Send(QByteArray(kForeground) + ' ' + token.left(kLongestMessage / 2).replace('\n', ' '));
}

Outcome QtInstanceChannel::SendMessage() { return Send(kMessage); }

Outcome QtInstanceChannel::Send(const QByteArray& line) {
    if (m_running.isEmpty()) return Outcome::Failed;
    if (Tell(line)) return Outcome::Done;
    // Nor will it answer the next line; waiting again would only take longer.
    m_running.clear();
    std::fputs("tessaview: the running instance does not answer; nothing was handed over.\n", stderr);
    return Outcome::Failed;
}

bool QtInstanceChannel::Tell(const QByteArray& line) const {
    const QDeadlineTimer deadline(m_patience);
    QLocalSocket socket;
    socket.setReadBufferSize(kLongestMessage);
    socket.connectToServer(m_running);
    if (!socket.waitForConnected(m_patience) || !IsOurUser(socket)) return false;
    socket.write(line + '\n');
    while (!socket.canReadLine()) {
        if (deadline.hasExpired() || socket.bytesAvailable() >= kLongestMessage) return false;
        const bool more = socket.waitForReadyRead(static_cast<int>(deadline.remainingTime()));
        if (!more && !socket.canReadLine()) return false;
    }
    return socket.readLine() == kDone;
}
