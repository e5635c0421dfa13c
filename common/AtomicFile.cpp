#include "common/AtomicFile.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A file descriptor that closes itself.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() {
        if (m_number >= 0) ::close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    [[nodiscard]] int Number() const { return m_number; }
    [[nodiscard]] bool Open() const { return m_number >= 0; }

private:
    int m_number;
};

bool WriteAll(const Descriptor& file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file.Number(), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return ::fsync(file.Number()) == 0;
}

std::string Resolved(const std::string& path) {
    char* real = ::realpath(path.c_str(), nullptr);
    if (!real) return path;
    std::string resolved(real);
    std::free(real);
    return resolved;
}

std::string FolderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

void KeepOwnerAndMode(const Descriptor& file, const struct stat* old) {
    if (!old) {
        // What the user's mask leaves of an ordinary new file; the temporary one was the user's alone.
        const mode_t mask = ::umask(0);
        ::umask(mask);
        ::fchmod(file.Number(), 0666 & ~mask);
        return;
    }
    if (::fchown(file.Number(), old->st_uid, old->st_gid) == 0) ::fchmod(file.Number(), old->st_mode & 07777);
}

Outcome WriteInPlace(const std::string& path, std::string_view bytes) {
    const Descriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file.Open() || !WriteAll(file, bytes)) return Outcome::Failed;
    return ::ftruncate(file.Number(), static_cast<off_t>(bytes.size())) == 0 ? Outcome::Done : Outcome::Failed;
}

} // namespace

std::optional<std::string> ReadWholeFile(const std::string& path, std::size_t most) {
    // Not blocking, so that a pipe of that name does not hold us up.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat facts {};
    if (!file.Open() || ::fstat(file.Number(), &facts) != 0 || !S_ISREG(facts.st_mode)) return std::nullopt;
    std::string bytes(std::min(static_cast<std::size_t>(facts.st_size), most), '\0');
    std::size_t have = 0;
    while (have < bytes.size()) {
        const ssize_t got = ::read(file.Number(), bytes.data() + have, bytes.size() - have);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        have += static_cast<std::size_t>(got);
    }
    bytes.resize(have);
    return bytes;
}

bool FileExists(const std::string& path) {
    struct stat facts {};
    return ::lstat(path.c_str(), &facts) == 0;
}

bool FolderExists(const std::string& path) {
    struct stat facts {};
    return ::stat(FolderOf(path).c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

bool IsWritable(const std::string& path) {
    struct stat facts {};
    return ::stat(path.c_str(), &facts) == 0 && (facts.st_mode & 0222) != 0 && ::access(path.c_str(), W_OK) == 0;
}

Outcome WriteWholeFile(const std::string& path, std::string_view bytes) {
    const std::string target = Resolved(path);
    struct stat facts {};
    const bool exists = ::stat(target.c_str(), &facts) == 0;
    if (exists && (!S_ISREG(facts.st_mode) || !IsWritable(target))) return Outcome::Failed;
    std::string temporary = FolderOf(target) + "/.tessaview-XXXXXX";
    const Descriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!file.Open()) return exists ? WriteInPlace(target, bytes) : Outcome::Failed;
    KeepOwnerAndMode(file, exists ? &facts : nullptr);
    if (WriteAll(file, bytes) && std::rename(temporary.c_str(), target.c_str()) == 0) return Outcome::Done;
    ::unlink(temporary.c_str());
    return Outcome::Failed;
}

Outcome RemoveFile(const std::string& path) {
    if (!FileExists(path)) return Outcome::Done;
    struct stat facts {};
    // A link that leads nowhere has nothing to protect.
    const bool leadsSomewhere = ::stat(path.c_str(), &facts) == 0;
    if (leadsSomewhere && !IsWritable(path)) return Outcome::Failed;
    return ::unlink(path.c_str()) == 0 ? Outcome::Done : Outcome::Failed;
}
