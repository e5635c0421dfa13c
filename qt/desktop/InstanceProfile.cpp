#include "qt/desktop/InstanceProfile.h"

#include "base/ResumeNext.h"
#include "base/os/AtomicFile.h"
#include "pages/InstanceProfiles.h"
#include "qt/base/PathBytes.h"
#include "qt/base/Strings.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <chrono>
#include <thread>
#include <utility>

namespace tessa::qt {

namespace {

constexpr std::chrono::seconds kPatienceWithAnEnd{5};
constexpr std::chrono::milliseconds kPauseBetweenLooks{10};
// A file beside the lock. It counts only while the lock is held: a crash may leave it.
const QString kEnding = QStringLiteral("/ending");

bool MakeProfileFolder(const QString& folder) {
    if (!QDir().mkpath(folder)) return false;
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return true;
}

// Who closes the program and starts it again at once is to find the same cookies.
FileLock LockProfile(const QString& folder) {
    const QDeadlineTimer patience(kPatienceWithAnEnd);
    while (true) {
        FileLock lock(PathBytes(folder + QStringLiteral("/lock")), {});
        if (!lock.Taken() || patience.hasExpired() || !QFile::exists(folder + kEnding)) return lock;
        std::this_thread::sleep_for(kPauseBetweenLooks);
    }
}

} // namespace

InstanceProfile::InstanceProfile(QString folder, QString cacheFolder)
    : m_folder(std::move(folder)), m_cacheFolder(std::move(cacheFolder)) {}

void InstanceProfile::Take() {
    if (m_folder.isEmpty() || m_lock.Held()) return;
    m_number = InstanceProfiles::Lowest([this](int number) {
        using enum InstanceProfiles::Claim;
        const QString folder = FolderOf(number);
        if (!MakeProfileFolder(folder)) return Impossible;
        m_lock = LockProfile(folder);
        if (!m_lock.Held()) return m_lock.Taken() ? TakenByAnother : Impossible;
        QFile::remove(folder + kEnding);
        return Held;
    });
}

void InstanceProfile::Leave() {
    if (m_lock.Held()) ResumeNext(WriteWholeFile(PathBytes(Folder() + kEnding), "ending\n", Readers::UserAlone));
}

QString InstanceProfile::Folder() const { return m_number == 0 ? QString() : FolderOf(m_number); }

QString InstanceProfile::CacheFolder() const {
    if (m_number <= 1) return m_number == 0 ? QString() : m_cacheFolder;
    return m_cacheFolder + QStringLiteral("/engine") + ToQt(InstanceProfiles::Suffix(m_number));
}

QString InstanceProfile::FolderOf(int number) const { return m_folder + ToQt(InstanceProfiles::Suffix(number)); }

} // namespace tessa::qt
