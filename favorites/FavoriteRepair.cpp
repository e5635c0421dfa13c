#include "favorites/FavoriteRepair.h"

#include "base/os/Folder.h"
#include "base/os/FreeNames.h"
#include "favorites/Favorites.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int kMostNamesTried = 1000;

enum class Lies { Nothing, Folder, Other };

Lies WhatLiesAt(const std::string& path) {
    struct stat facts {};
    if (::lstat(path.c_str(), &facts) != 0) return Lies::Nothing;
    return ::stat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode) ? Lies::Folder : Lies::Other;
}

bool IsLink(const std::string& path) {
    struct stat facts {};
    return ::lstat(path.c_str(), &facts) == 0 && S_ISLNK(facts.st_mode);
}

bool Allows(const std::string& path, int rights) {
    return ::faccessat(AT_FDCWD, path.c_str(), rights, AT_EACCESS) == 0;
}

bool CanUse(const std::string& folder) {
    return WhatLiesAt(folder) == Lies::Folder && Allows(folder, R_OK | W_OK | X_OK);
}

/// The path itself, or the nearest above it where anything lies.
std::string NearestPresent(const std::string& path) {
    std::filesystem::path nearest(path);
    while (WhatLiesAt(nearest.string()) == Lies::Nothing && nearest.has_relative_path())
        nearest = nearest.parent_path();
    return nearest.string();
}

/// Gives a file or folder the first name that is free; its new path, empty when that failed.
std::string RenameToFirstFree(const std::string& from, const std::function<std::string(int)>& name) {
    for (int number = 1; number <= kMostNamesTried; ++number) {
        std::string to = name(number);
        const int error = RenameToFree(from, to);
        if (error == 0) return to;
        if (error != EEXIST) break;
    }
    return {};
}

std::string NumberAfterFirst(int number) { return number == 1 ? std::string() : " (" + std::to_string(number) + ")"; }

std::string SetAside(const std::string& path) {
    return RenameToFirstFree(path, [&](int number) { return path + " set aside" + NumberAfterFirst(number); });
}

/// True when the folder was closed to its owner, and is no more.
bool OpenUp(const std::string& folder) {
    struct stat facts {};
    if (CanUse(folder) || ::stat(folder.c_str(), &facts) != 0) return false;
    return ::chmod(folder.c_str(), (facts.st_mode & 07777) | S_IRWXU) == 0 && CanUse(folder);
}

/// Moves what is damaged in a tree of Favorites into one folder, which is made for the first of it.
class DamagedEntries {
public:
    explicit DamagedEntries(const std::string& root)
        : m_root(root), m_damaged(root + "/" + ToUtf8(Favorites::kDamagedFolder)) {}

    std::size_t Move() {
        MoveFrom(m_root);
        return m_moved;
    }

private:
    void MoveFrom(const std::string& folder) {
        for (const FolderEntry& entry : ListFolder(folder)) {
            const std::string path = folder + "/" + entry.Name;
            if (path == m_damaged) continue;
            if (entry.IsFolder) {
                // What a link leads to belongs to somebody else, and may lead back to here.
                if (IsLink(path)) continue;
                OpenUp(path);
                MoveFrom(path);
            } else if (EndsLike(entry.Name, ToUtf8(Favorites::kEnding)) && Favorites::ReadAddress(path).empty()) {
                MoveOne(path);
            }
        }
    }

    void MoveOne(const std::string& path) {
        std::error_code failed;
        std::filesystem::create_directory(m_damaged, failed);
        const std::filesystem::path file(path);
        const std::string to = m_damaged + "/" + file.stem().string();
        const auto name = [&](int number) { return to + NumberAfterFirst(number) + file.extension().string(); };
        if (!RenameToFirstFree(path, name).empty()) ++m_moved;
    }

    std::string m_root, m_damaged;
    std::size_t m_moved = 0;
};

} // namespace

namespace Favorites {

bool CanKeep(TextView folder) {
    if (folder.empty()) return false;
    const std::string path = PathToBytes(folder);
    const std::string nearest = NearestPresent(path);
    return nearest == path ? CanUse(path) : WhatLiesAt(nearest) == Lies::Folder && Allows(nearest, W_OK | X_OK);
}

Repaired Repair(TextView folder) {
    Repaired repaired;
    if (folder.empty()) return repaired;
    const std::string path = PathToBytes(folder);
    const std::string nearest = NearestPresent(path);
    if (WhatLiesAt(nearest) == Lies::Other) {
        const std::string aside = SetAside(nearest);
        repaired.SetAside = PathFromBytes(std::filesystem::path(aside).filename().string());
    }
    if (nearest != path) OpenUp(nearest);
    std::error_code failed;
    repaired.Made = std::filesystem::create_directories(path, failed);
    repaired.Opened = OpenUp(path);
    repaired.Works = CanUse(path);
    if (repaired.Works) repaired.Damaged = DamagedEntries(path).Move();
    return repaired;
}

Text WordsOf(const Repaired& repaired) {
    Text words = !repaired.Works   ? u"The Favorites folder can still not be written to."
                 : repaired.Made   ? u"The Favorites folder was made."
                 : repaired.Opened ? u"The Favorites folder can be written to again."
                                   : u"The Favorites folder can be written to.";
    if (!repaired.SetAside.empty()) words += u" What lay in its place is now called \"" + repaired.SetAside + u"\".";
    if (repaired.Damaged == 1) words += u" One damaged Favorite is now in the folder \"Damaged\".";
    if (repaired.Damaged > 1)
        words.append(u" ")
            .append(Decimal(static_cast<std::int64_t>(repaired.Damaged)))
            .append(u" damaged Favorites are now in the folder \"Damaged\".");
    return words;
}

} // namespace Favorites
