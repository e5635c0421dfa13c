#include "base/os/FileLock.h"

#include "base/os/LockedFile.h"

#include <thread>
#include <utility>

namespace tessa {

namespace {
constexpr std::chrono::milliseconds kPauseBetweenTries{2};
} // namespace

FileLock::FileLock(const std::string& lockFile, std::chrono::milliseconds patience) {
    using LockedFile::Tried;
    m_file = LockedFile::Open(lockFile);
    if (m_file == LockedFile::kNone) return;
    const auto deadline = std::chrono::steady_clock::now() + patience;
    for (Tried tried = LockedFile::Try(m_file); tried != Tried::Held; tried = LockedFile::Try(m_file)) {
        m_taken = tried == Tried::Taken;
        if (tried == Tried::Refused || std::chrono::steady_clock::now() >= deadline) {
            LetGo();
            return;
        }
        std::this_thread::sleep_for(kPauseBetweenTries);
    }
    m_taken = false;
    m_held = true;
}

FileLock::FileLock(FileLock&& other) noexcept
    : m_file(std::exchange(other.m_file, LockedFile::kNone)),
      m_held(std::exchange(other.m_held, false)),
      m_taken(std::exchange(other.m_taken, false)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
    std::swap(m_file, other.m_file);
    std::swap(m_held, other.m_held);
    std::swap(m_taken, other.m_taken);
    return *this;
}

void FileLock::LetGo() {
    if (m_file != LockedFile::kNone) LockedFile::Close(m_file);
    m_file = LockedFile::kNone;
    m_held = false;
}

} // namespace tessa
