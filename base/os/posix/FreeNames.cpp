#include "base/os/FreeNames.h"

#include "base/os/AtomicFile.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>

int RenameToFree(const std::string& from, const std::string& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS) return errno;
    // Not every disk can do both in one step.
    if (FileExists(to)) return EEXIST;
    return std::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}
