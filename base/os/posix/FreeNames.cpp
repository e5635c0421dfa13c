#include "base/os/FreeNames.h"

#include "base/os/AtomicFile.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>

namespace tessa {

namespace {

Named NamedAs(int result) {
    if (result == 0) return Named::Done;
    return errno == EEXIST ? Named::Taken : Named::Failed;
}

} // namespace

Named RenameToFree(const std::string& from, const std::string& to) {
    const int renamed = ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
    if (renamed == 0 || (errno != EINVAL && errno != ENOSYS)) return NamedAs(renamed);
    // Not every disk can do both in one step.
    if (FileExists(to)) return Named::Taken;
    return NamedAs(std::rename(from.c_str(), to.c_str()));
}

Named MakeNewFolder(const std::string& path) { return NamedAs(::mkdir(path.c_str(), 0777)); }

} // namespace tessa
