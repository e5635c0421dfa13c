#include "qt/QtInstanceChannel.h"

#include "qt/QtText.h"

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLocalSocket>

#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

constexpr qint64 kLongestLine = 4096;
constexpr int kConnectPatience = 200; // a living instance's socket takes a connection at once, even when it hangs

QString RuntimeFolder(const QString& stateFolder) {
    const QString set = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QFileInfo folder(set);
    return !set.isEmpty() && folder.isDir() && folder.ownerId() == ::geteuid() ? set : stateFolder;
}

// Held while a start looks for instances and becomes one, so that two starts at one moment do not both become one.
class StartLock {
public:
    explicit StartLock(const QString& path)
        : m_file(::open(QFile::encodeName(path).constData(), O_CREAT | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR)) {
        if (m_file >= 0) ::flock(m_file, LOCK_EX);
    }
    ~StartLock() {
        if (m_file >= 0) ::close(m_file);
    }
    StartLock(const StartLock&) = delete;
    StartLock& operator=(const StartLock&) = delete;

private:
    int m_file;
};

} // namespace

QtInstanceChannel::QtInstanceChannel(QString stateFolder, int patience)
    : m_stateFolder(std::move(stateFolder)), m_patience(patience) {
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this] { OnConnection(); });
}

QtInstanceChannel::~QtInstanceChannel() = default;

Outcome QtInstanceChannel::RegisterMessage(TextView name) {
    const QByteArray state = QFile::encodeName(QFileInfo(m_stateFolder).canonicalFilePath());
    const auto hash = QCryptographicHash::hash(state, QCryptographicHash::Sha1).toHex().left(16);
    m_folder = RuntimeFolder(m_stateFolder);
    m_prefix = ToQt(name) + u'-' + QString::fromLatin1(hash) + u'-';
    return QFileInfo(m_folder).isWritable() ? Outcome::Done : Outcome::Failed;
}

bool QtInstanceChannel::PreviousInstance(Instances allowed) {
    const StartLock lock(m_folder + u'/' + m_prefix + QStringLiteral("lock"));
    m_running = FindRunning();
    if (m_running.isEmpty() || allowed == Instances::Several) Listen();
    return !m_running.isEmpty();
}

QString QtInstanceChannel::FindRunning() const {
    // The oldest first, so that every sender finds the same one.
    const auto sockets = QDir(m_folder).entryInfoList({m_prefix + QStringLiteral("*.socket")},
                                                      QDir::System | QDir::Files, QDir::Time | QDir::Reversed);
    for (const QFileInfo& each : sockets) {
        QLocalSocket probe;
        probe.connectToServer(each.filePath());
        if (probe.waitForConnected(kConnectPatience)) return each.filePath();
        if (probe.error() == QLocalSocket::ConnectionRefusedError) QFile::remove(each.filePath());
    }
    return {};
}

void QtInstanceChannel::Listen() {
    const QString path = m_folder + u'/' + m_prefix + QString::number(::getpid()) + QStringLiteral(".socket");
    QFile::remove(path);
    if (!m_server.listen(path))
        qWarning("tessaview: later starts will not find this one: %s", qPrintable(m_server.errorString()));
}

void QtInstanceChannel::OnConnection() {
    while (auto* sender = m_server.nextPendingConnection()) {
        sender->setReadBufferSize(kLongestLine);
        QObject::connect(sender, &QLocalSocket::disconnected, sender, &QObject::deleteLater);
        QObject::connect(sender, &QLocalSocket::readyRead, sender, [this, sender] {
            while (sender->canReadLine()) Handle(*sender, sender->readLine().trimmed());
            if (sender->bytesAvailable() >= kLongestLine) sender->abort();
        });
    }
}

void QtInstanceChannel::Handle(QLocalSocket& sender, const QByteArray& line) {
    if (line.startsWith("foreground") && Foreground) Foreground(line.mid(11));
    if (line == "message" && Message) Message();
    sender.write("done\n");
    sender.flush();
}

Outcome QtInstanceChannel::SetForegroundWindow() {
    QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN");
    if (token.isEmpty()) token = qgetenv("DESKTOP_STARTUP_ID");
    return Send("foreground " + token.left(kLongestLine / 2).replace('\n', ' '));
}

Outcome QtInstanceChannel::SendMessage() { return Send("message"); }

Outcome QtInstanceChannel::Send(const QByteArray& line) {
    if (m_running.isEmpty()) return Outcome::Failed;
    QElapsedTimer clock;
    clock.start();
    QLocalSocket socket;
    socket.connectToServer(m_running);
    if (!socket.waitForConnected(kConnectPatience)) return Outcome::Failed;
    socket.write(line + '\n');
    while (!socket.canReadLine()) {
        const int left = m_patience - static_cast<int>(clock.elapsed());
        if (left > 0 && socket.waitForReadyRead(left)) continue;
        m_running.clear();
        std::fputs("tessaview: the running instance does not answer; nothing was handed over.\n", stderr);
        return Outcome::Failed;
    }
    return Outcome::Done;
}
