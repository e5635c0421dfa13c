#include "qt/desktop/DiskSessionFiles.h"

#include "base/os/AtomicFile.h"
#include "qt/base/PathBytes.h"
#include "qt/base/Strings.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <algorithm>
#include <utility>

namespace tessa::qt {

namespace {

constexpr qsizetype kMostKept = 10;
constexpr qint64 kLeftoverAge = 3600; // seconds
const QString& Ending() {
    static const QString ending = QStringLiteral(".session");
    return ending;
}
constexpr int kSessionNameDigits = 14;                   // of milliseconds since 1970
constexpr qint64 kHighestSessionNumber = 99999999999999; // of that many digits

// Sorts behind all sessions that are there, also when the clock has been set back since. The newest would else pass for
// the oldest, which is not offered, and goes when there are too many.
QString NextSessionName(const QString& folder) {
    qint64 number = QDateTime::currentMSecsSinceEpoch();
    for (const QString& name : QDir(folder).entryList({QLatin1Char('*') + Ending()}, QDir::Files)) {
        const qint64 earlier = name.section(QLatin1Char('-'), 0, 0).toLongLong();
        if (earlier < kHighestSessionNumber) number = std::max(number, earlier + 1);
    }
    return QStringLiteral("%1-%2%3")
        .arg(number, kSessionNameDigits, 10, QLatin1Char('0'))
        .arg(QCoreApplication::applicationPid())
        .arg(Ending());
}

} // namespace

DiskSessionFiles::DiskSessionFiles(QString folder) : m_folder(std::move(folder)), m_own(NextSessionName(m_folder)) {
    m_writer.setMaxThreadCount(1);
}

DiskSessionFiles::~DiskSessionFiles() {
    m_writer.waitForDone();
    if (m_lock.Held()) QFile::remove(LockOf(m_own));
}

QString DiskSessionFiles::PathOf(const QString& name) const { return m_folder + QLatin1Char('/') + name; }

QString DiskSessionFiles::LockOf(const QString& name) const { return PathOf(name) + QStringLiteral(".lock"); }

bool DiskSessionFiles::Begin() {
    if (m_lock.Held()) return true;
    if (!QDir().mkpath(m_folder)) return false;
    QFile::setPermissions(m_folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_lock = FileLock(PathBytes(LockOf(m_own)), {});
    return m_lock.Held();
}

void DiskSessionFiles::WriteOwn(const std::string& bytes, Written done) {
    if (bytes.empty() && !m_lock.Held()) return done(Outcome::Done);
    if (!Begin()) return done(Outcome::Failed);
    WriteLater(m_own, bytes, std::move(done));
}

void DiskSessionFiles::WriteLater(const QString& name, const std::string& bytes, Written done) {
    m_writer.start([this, path = PathBytes(PathOf(name)), bytes, done = std::move(done)] {
        const Outcome outcome = bytes.empty() ? RemoveFile(path) : WriteWholeFile(path, bytes, Readers::UserAlone);
        QMetaObject::invokeMethod(
            &m_window, [done, outcome] { done(outcome); }, Qt::QueuedConnection);
    });
}

bool DiskSessionFiles::HasEnded(const QString& name) const {
    return !QFile::exists(LockOf(name)) || FileLock(PathBytes(LockOf(name)), {}).Held();
}

void DiskSessionFiles::Remove(const QString& name) const {
    QFile::remove(PathOf(name));
    QFile::remove(LockOf(name));
}

// What killed runs left beside their sessions: a file half written, the lock of a session that had no pages. What is
// young may belong to a run that is about to write.
void DiskSessionFiles::RemoveLeftovers() const {
    const QDateTime old = QDateTime::currentDateTimeUtc().addSecs(-kLeftoverAge);
    const QString lock = QStringLiteral(".lock");
    const QStringList patterns{QStringLiteral(".*.tessaview-??????"), QLatin1Char('*') + Ending() + lock};
    for (const QFileInfo& each : QDir(m_folder).entryInfoList(patterns, QDir::Files | QDir::Hidden)) {
        if (each.lastModified() > old) continue;
        const QString session = each.filePath().chopped(lock.size());
        const bool isLock = each.fileName().endsWith(lock);
        if (!isLock || (!QFile::exists(session) && HasEnded(QFileInfo(session).fileName())))
            QFile::remove(each.filePath());
    }
}

std::vector<KeptSession> DiskSessionFiles::Earlier() {
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
        if (auto bytes = ReadWholeFile(PathBytes(PathOf(name)))) sessions.push_back({FromQt(name), std::move(*bytes)});
    }
    return sessions;
}

void DiskSessionFiles::Rewrite(TextView Id, const std::string& bytes, Written done) {
    const QString name = ToQt(Id);
    if (name.contains(QLatin1Char('/')) || !QFile::exists(PathOf(name))) return done(Outcome::Failed);
    if (!bytes.empty()) return WriteLater(name, bytes, std::move(done));
    Remove(name);
    done(QFile::exists(PathOf(name)) ? Outcome::Failed : Outcome::Done);
}

} // namespace tessa::qt
