#include "base/os/LockedFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessa {

namespace LockedFile {

std::intptr_t Open(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    // Who may only read a file can lock it all the same, and so finds out whether somebody else has.
    const bool mayRead = file < 0 && (errno == EROFS || errno == EACCES || errno == EPERM);
    return mayRead ? ::open(path.c_str(), O_RDONLY | O_CLOEXEC) : file;
}

Tried Try(std::intptr_t file) {
    if (::flock(static_cast<int>(file), LOCK_EX | LOCK_NB) == 0) return Tried::Held;
    if (errno == EWOULDBLOCK) return Tried::Taken;
    return errno == EINTR ? Tried::Interrupted : Tried::Refused;
}

void Close(std::intptr_t file) { ::close(static_cast<int>(file)); }

} // namespace LockedFile

} // namespace tessa
