#include "base/os/AtomicFile.h"

#include "base/os/Paths.h"
#include "base/os/TemporaryNames.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessa {

namespace {

constexpr int kMostAttempts = 1000;
constexpr mode_t kUserAlone = S_IRUSR | S_IWUSR, kAsTheMaskSays = 0666;

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

std::string Resolved(const std::string& path) { return RealPath(path).value_or(path); }

std::string RandomBytes(int attempt) {
    std::string bytes(TemporaryNames::kLetters, '\0');
    // Without random numbers the attempt's own does; a name that is taken is never used.
    if (::getrandom(bytes.data(), bytes.size(), GRND_NONBLOCK) == static_cast<ssize_t>(bytes.size())) return bytes;
    return {static_cast<char>(attempt), static_cast<char>(attempt >> 5), 0, 0, 0, 0};
}

/// A new file beside another, with its descriptor; `path` is its path. Not open when it cannot be made, `errno` says
/// why. The system takes the user's mask off the mode. Asking for the mask would mean to change it for all threads.
Descriptor NewFileBeside(const std::string& target, mode_t mode, std::string& path) {
    for (int attempt = 1;; ++attempt) {
        path = TemporaryNames::Start(target) + TemporaryNames::Letters(RandomBytes(attempt));
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (file >= 0 || errno != EEXIST || attempt == kMostAttempts) return Descriptor(file);
    }
}

void KeepOwnerAndMode(const Descriptor& file, const struct stat& old, Readers readers) {
    const mode_t mode = readers == Readers::UserAlone ? kUserAlone : old.st_mode & 07777;
    if (::fchown(file.Number(), old.st_uid, old.st_gid) == 0) ::fchmod(file.Number(), mode);
}

// A rename is on disk once its folder is. Some kinds of disk cannot do that; theirs is as safe as it gets.
void FlushFolder(const std::string& folder) {
    const Descriptor open(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (open.Open()) ::fsync(open.Number());
}

// Whether the folder's rights keep a new file out, not want of room on the disk or in our tables.
bool FolderRefuses(int error) { return error == EACCES || error == EPERM || error == EROFS; }

Outcome WriteInPlace(const std::string& path, std::string_view bytes, off_t oldSize) {
    const Descriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file.Open()) return Outcome::Failed;
    // A write that ends for want of room half way would leave neither the old file nor the new one.
    const auto more = static_cast<off_t>(bytes.size()) - oldSize;
    if (more > 0 && ::posix_fallocate(file.Number(), oldSize, more) != 0) {
        (void)!::ftruncate(file.Number(), oldSize);
        return Outcome::Failed;
    }
    if (!WriteAll(file, bytes)) return Outcome::Failed;
    return ::ftruncate(file.Number(), static_cast<off_t>(bytes.size())) == 0 ? Outcome::Done : Outcome::Failed;
}

bool IsTakenByAnother(const std::string& path, const struct stat& facts) {
    return !S_ISREG(facts.st_mode) || !IsWritable(path);
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
    return ::stat(TemporaryNames::FolderToOpen(path).c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

bool IsWritable(const std::string& path) {
    struct stat facts {};
    return ::stat(path.c_str(), &facts) == 0 && (facts.st_mode & 0222) != 0 && ::access(path.c_str(), W_OK) == 0;
}

Outcome WriteWholeFile(const std::string& path, std::string_view bytes, Readers readers) {
    const std::string target = Resolved(path);
    struct stat facts {};
    const bool exists = ::stat(target.c_str(), &facts) == 0;
    if (exists && IsTakenByAnother(target, facts)) return Outcome::Failed;
    std::string temporary;
    const bool asUsual = !exists && readers == Readers::AsUsual;
    const Descriptor file = NewFileBeside(target, asUsual ? kAsTheMaskSays : kUserAlone, temporary);
    if (!file.Open())
        return exists && FolderRefuses(errno) ? WriteInPlace(target, bytes, facts.st_size) : Outcome::Failed;
    if (exists) KeepOwnerAndMode(file, facts, readers);
    if (WriteAll(file, bytes) && std::rename(temporary.c_str(), target.c_str()) == 0) {
        FlushFolder(TemporaryNames::FolderToOpen(target));
        return Outcome::Done;
    }
    ::unlink(temporary.c_str());
    return Outcome::Failed;
}

Outcome TryWholeFile(const std::string& path, std::string_view bytes) {
    const std::string target = Resolved(path);
    struct stat facts {};
    if (::stat(target.c_str(), &facts) == 0 && IsTakenByAnother(target, facts)) return Outcome::Failed;
    std::string temporary;
    const Descriptor file = NewFileBeside(target, kUserAlone, temporary);
    if (!file.Open()) return Outcome::Failed;
    const bool written = WriteAll(file, bytes);
    ::unlink(temporary.c_str());
    return written ? Outcome::Done : Outcome::Failed;
}

void RemoveLeftovers(const std::string& path) {
    const std::string target = Resolved(path);
    std::error_code failed;
    std::filesystem::directory_iterator each(TemporaryNames::FolderToOpen(target), failed);
    for (; !failed && each != std::filesystem::directory_iterator(); each.increment(failed)) {
        if (TemporaryNames::IsOf(target, each->path().filename().string())) ::unlink(each->path().c_str());
    }
}

Outcome RemoveFile(const std::string& path) {
    if (!FileExists(path)) return Outcome::Done;
    struct stat facts {};
    // A link that leads nowhere has nothing to protect.
    const bool leadsSomewhere = ::stat(path.c_str(), &facts) == 0;
    if (leadsSomewhere && !IsWritable(path)) return Outcome::Failed;
    return ::unlink(path.c_str()) == 0 ? Outcome::Done : Outcome::Failed;
}

} // namespace tessa
