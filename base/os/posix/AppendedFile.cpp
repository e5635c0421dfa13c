#include "base/os/AppendedFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessa {

void AppendForUser(const std::string& path, std::string_view bytes) {
    const int file =
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR);
    if (file < 0) return;
    ::fchmod(file, S_IRUSR | S_IWUSR);
    (void)!::write(file, bytes.data(), bytes.size());
    ::close(file);
}

std::optional<std::size_t> FileSize(const std::string& path) {
    struct stat facts {};
    if (::stat(path.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) return std::nullopt;
    return static_cast<std::size_t>(facts.st_size);
}

void EmptyFile(const std::string& path) { (void)!::truncate(path.c_str(), 0); }

} // namespace tessa
