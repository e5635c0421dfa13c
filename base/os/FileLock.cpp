#include "base/os/FileLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace {
constexpr std::chrono::milliseconds kPauseBetweenTries{2};

// Who may only read a file can lock it all the same, and so finds out whether somebody else has.
int OpenLockFile(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    const bool mayRead = file < 0 && (errno == EROFS || errno == EACCES || errno == EPERM);
    return mayRead ? ::open(path.c_str(), O_RDONLY | O_CLOEXEC) : file;
}

} // namespace

FileLock::FileLock(const std::string& lockFile, std::chrono::milliseconds patience) {
    m_descriptor = OpenLockFile(lockFile);
    if (m_descriptor < 0) return;
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!(m_held = ::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0)) {
        m_taken = errno == EWOULDBLOCK;
        const bool mayCome = m_taken || errno == EINTR;
        if (!mayCome || std::chrono::steady_clock::now() >= deadline) {
            LetGo();
            return;
        }
        std::this_thread::sleep_for(kPauseBetweenTries);
    }
    m_taken = false;
}

FileLock::FileLock(FileLock&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1)),
      m_held(std::exchange(other.m_held, false)),
      m_taken(std::exchange(other.m_taken, false)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
    std::swap(m_descriptor, other.m_descriptor);
    std::swap(m_held, other.m_held);
    std::swap(m_taken, other.m_taken);
    return *this;
}

void FileLock::LetGo() {
    if (m_descriptor >= 0) ::close(m_descriptor);
    m_descriptor = -1;
    m_held = false;
}
