#include "favorites/FavoriteRepair.h"

#include "base/os/Folder.h"
#include "base/os/FreeNames.h"
#include "base/os/Paths.h"
#include "favorites/Favorites.h"

#include <functional>

namespace tessa {

namespace {

constexpr int kMostNamesTried = 1000;

/// The path itself, or the nearest above it where anything lies.
std::string NearestPresent(const std::string& path) {
    std::string nearest = path;
    while (WhatLiesAt(nearest) == Lies::Nothing && FolderAbove(nearest) != nearest) nearest = FolderAbove(nearest);
    return nearest;
}

/// Gives a file or folder the first name that is free; its new path, empty when that failed.
std::string RenameToFirstFree(const std::string& from, const std::function<std::string(int)>& name) {
    for (int number = 1; number <= kMostNamesTried; ++number) {
        std::string to = name(number);
        const Named named = RenameToFree(from, to);
        if (named == Named::Done) return to;
        if (named == Named::Failed) break;
    }
    return {};
}

std::string NumberAfterFirst(int number) { return number == 1 ? std::string() : " (" + std::to_string(number) + ")"; }

std::string SetAside(const std::string& path) {
    return RenameToFirstFree(path, [&](int number) { return path + " set aside" + NumberAfterFirst(number); });
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
                OpenUpFolder(path);
                MoveFrom(path);
            } else if (EndsLike(entry.Name, ToUtf8(Favorites::kEnding)) && Favorites::ReadAddress(path).empty()) {
                MoveOne(path);
            }
        }
    }

    void MoveOne(const std::string& path) {
        MakeFolders(m_damaged);
        const std::string file = LastNameOf(path);
        const std::size_t ending = file.size() - Favorites::kEnding.size();
        const std::string to = m_damaged + "/" + file.substr(0, ending);
        const auto name = [&](int number) { return to + NumberAfterFirst(number) + file.substr(ending); };
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
    return nearest == path ? MayUseFolder(path) : MayAddTo(nearest);
}

Repaired Repair(TextView folder) {
    Repaired repaired;
    if (folder.empty()) return repaired;
    const std::string path = PathToBytes(folder);
    const std::string nearest = NearestPresent(path);
    if (WhatLiesAt(nearest) == Lies::Other) {
        const std::string aside = SetAside(nearest);
        repaired.SetAside = PathFromBytes(LastNameOf(aside));
    }
    if (nearest != path) OpenUpFolder(nearest);
    repaired.Made = MakeFolders(path);
    repaired.Opened = OpenUpFolder(path);
    repaired.Works = MayUseFolder(path);
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

} // namespace tessa
