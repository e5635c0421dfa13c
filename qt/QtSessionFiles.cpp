#include "qt/QtSessionFiles.h"

#include "common/AtomicFile.h"
#include "qt/QtText.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

constexpr qsizetype kMostKept = 10;
constexpr qint64 kLeftoverAge = 3600; // seconds
const QString& Ending() {
    static const QString ending = QStringLiteral(".session");
    return ending;
}

int OpenLocked(const QString& path) {
    const int lock = ::open(QFile::encodeName(path).constData(), O_CREAT | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (lock < 0 || ::flock(lock, LOCK_EX | LOCK_NB) == 0) return lock;
    ::close(lock);
    return -1;
}

} // namespace

QtSessionFiles::QtSessionFiles(QString folder)
    : m_folder(std::move(folder)),
      // Sorts by time as long as the program lives.
      m_own(QStringLiteral("%1-%2%3")
                .arg(QDateTime::currentMSecsSinceEpoch(), 14, 10, QLatin1Char('0'))
                .arg(QCoreApplication::applicationPid())
                .arg(Ending())) {
    m_writer.setMaxThreadCount(1);
}

QtSessionFiles::~QtSessionFiles() {
    m_writer.waitForDone();
    if (m_lock < 0) return;
    QFile::remove(PathOf(m_own) + QStringLiteral(".lock"));
    ::close(m_lock);
}

QString QtSessionFiles::PathOf(const QString& name) const { return m_folder + QLatin1Char('/') + name; }

bool QtSessionFiles::Begin() {
    if (m_lock >= 0) return true;
    if (!QDir().mkpath(m_folder)) return false;
    QFile::setPermissions(m_folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_lock = OpenLocked(PathOf(m_own) + QStringLiteral(".lock"));
    return m_lock >= 0;
}

Outcome QtSessionFiles::WriteOwn(const std::string& bytes) {
    if (bytes.empty() && m_lock < 0) return Outcome::Done;
    if (!Begin()) return Outcome::Failed;
    WriteLater(m_own, bytes);
    return Outcome::Done;
}

void QtSessionFiles::WriteLater(const QString& name, const std::string& bytes) {
    m_writer.start([path = PathOf(name), bytes] {
        if (bytes.empty())
            QFile::remove(path);
        else
            static_cast<void>(WriteWholeFile(QFile::encodeName(path).toStdString(), bytes));
    });
}

bool QtSessionFiles::HasEnded(const QString& name) const {
    const QString lockPath = PathOf(name) + QStringLiteral(".lock");
    if (!QFile::exists(lockPath)) return true;
    const int lock = OpenLocked(lockPath);
    if (lock < 0) return false;
    ::close(lock);
    return true;
}

void QtSessionFiles::Remove(const QString& name) const {
    QFile::remove(PathOf(name));
    QFile::remove(PathOf(name) + QStringLiteral(".lock"));
}

// What killed runs left beside their sessions: a file half written, the lock of a session that had no pages. What is
// young may belong to a run that is about to write.
void QtSessionFiles::RemoveLeftovers() const {
    const QDateTime old = QDateTime::currentDateTimeUtc().addSecs(-kLeftoverAge);
    const QString lock = QStringLiteral(".lock");
    const QStringList patterns{QStringLiteral(".tessaview-??????"), QLatin1Char('*') + Ending() + lock};
    for (const QFileInfo& each : QDir(m_folder).entryInfoList(patterns, QDir::Files | QDir::Hidden)) {
        if (each.lastModified() > old) continue;
        const QString session = each.filePath().chopped(lock.size());
        const bool isLock = each.fileName().endsWith(lock);
        if (!isLock || (!QFile::exists(session) && HasEnded(QFileInfo(session).fileName())))
            QFile::remove(each.filePath());
    }
}

std::vector<KeptSession> QtSessionFiles::Earlier() {
    m_writer.waitForDone();
    RemoveLeftovers();
    std::vector<KeptSession> sessions;
    const QDir folder(m_folder);
    for (const QString& name :
         folder.entryList({QLatin1Char('*') + Ending()}, QDir::Files, QDir::Name | QDir::Reversed)) {
        if (name == m_own || !HasEnded(name)) continue;
        if (sessions.size() >= kMostKept) {
            Remove(name);
            continue;
        }
        if (auto bytes = ReadWholeFile(QFile::encodeName(PathOf(name)).toStdString()))
            sessions.push_back({FromQt(name), std::move(*bytes)});
    }
    return sessions;
}

Outcome QtSessionFiles::Rewrite(TextView Id, const std::string& bytes) {
    const QString name = ToQt(Id);
    if (name.contains(QLatin1Char('/')) || !QFile::exists(PathOf(name))) return Outcome::Failed;
    if (bytes.empty())
        Remove(name);
    else
        WriteLater(name, bytes);
    return Outcome::Done;
}
