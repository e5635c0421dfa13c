#include "base/os/Folder.h"

#include "base/os/Paths.h"

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace tessa {

namespace {

// By the rights that hold for opening files, which need not be those of whoever started the program.
bool Allows(const std::string& path, int rights) {
    return ::faccessat(AT_FDCWD, path.c_str(), rights, AT_EACCESS) == 0;
}

} // namespace

std::vector<FolderEntry> ListFolder(const std::string& path) {
    std::vector<FolderEntry> entries;
    std::error_code failed;
    std::filesystem::directory_iterator each(path, failed);
    for (; !failed && each != std::filesystem::directory_iterator(); each.increment(failed)) {
        std::string name = each->path().filename().string();
        if (name.starts_with('.')) continue;
        std::error_code broken;
        const bool isFolder = each->is_directory(broken) && !broken;
        const bool isFile = each->is_regular_file(broken) && !broken;
        entries.push_back({std::move(name), isFolder, isFile});
    }
    std::ranges::sort(entries, {}, &FolderEntry::Name);
    return entries;
}

bool MakeFolders(const std::string& path) {
    std::error_code failed;
    return std::filesystem::create_directories(path, failed);
}

Outcome RemoveEntry(const std::string& path) {
    std::error_code failed;
    return std::filesystem::remove(path, failed) ? Outcome::Done : Outcome::Failed;
}

Outcome RemoveTree(const std::string& path) {
    std::error_code failed;
    const auto gone = std::filesystem::remove_all(path, failed);
    return !failed && gone > 0 && gone != static_cast<std::uintmax_t>(-1) ? Outcome::Done : Outcome::Failed;
}

bool MayUseFolder(const std::string& folder) { return IsFolder(folder) && Allows(folder, R_OK | W_OK | X_OK); }

bool MayAddTo(const std::string& folder) { return IsFolder(folder) && Allows(folder, W_OK | X_OK); }

bool OpenUpFolder(const std::string& folder) {
    struct stat facts {};
    if (MayUseFolder(folder) || ::stat(folder.c_str(), &facts) != 0) return false;
    return ::chmod(folder.c_str(), (facts.st_mode & 07777) | S_IRWXU) == 0 && MayUseFolder(folder);
}

} // namespace tessa
