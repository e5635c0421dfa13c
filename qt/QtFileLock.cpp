#include "qt/QtFileLock.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {
constexpr unsigned long kPauseMs = 2;
} // namespace

QtFileLock::QtFileLock(const QString& lockFile, int patience) {
    m_descriptor = ::open(QFile::encodeName(lockFile).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (m_descriptor < 0) return;
    const QDeadlineTimer deadline(patience);
    while (!(m_held = ::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0)) {
        const bool taken = errno == EWOULDBLOCK || errno == EINTR;
        if (!taken || deadline.hasExpired()) return;
        QThread::msleep(kPauseMs);
    }
}

QtFileLock::~QtFileLock() {
    if (m_descriptor >= 0) ::close(m_descriptor);
}
