#include "base/os/Folder.h"

#include "base/os/Paths.h"
#include "base/os/windows/Handle.h"
#include "base/os/windows/Names.h"
#include "base/os/windows/UserAlone.h"
#include "base/os/windows/WidePath.h"

#include <algorithm>

namespace tessa {

namespace {

bool IsPlainFolder(const std::string& path) {
    const DWORD attributes = ::GetFileAttributesW(WidePath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 && !IsLink(path);
}

} // namespace

void EachIn(const std::string& folder, const std::function<void(const std::string& name, DWORD attributes)>& say) {
    WIN32_FIND_DATAW facts{};
    const HANDLE search = ::FindFirstFileW(WidePath(folder + "/*").c_str(), &facts);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const std::wstring_view name = facts.cFileName;
        if (name != L"." && name != L"..") say(BytesOfWide(name), facts.dwFileAttributes);
    } while (::FindNextFileW(search, &facts));
    ::FindClose(search);
}

std::vector<FolderEntry> ListFolder(const std::string& path) {
    std::vector<FolderEntry> entries;
    EachIn(path, [&](const std::string& name, DWORD attributes) {
        // What the desktop hides is hidden here as well.
        if (name.starts_with('.') || (attributes & FILE_ATTRIBUTE_HIDDEN) != 0) return;
        // To ask again of each takes minutes where there are thousands. Only of a link the folder does not tell all.
        const bool mayLink = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
        const std::string whole = path + "/" + name;
        const bool isFolder = mayLink ? IsFolder(whole) : (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        entries.push_back({name, isFolder, !isFolder && (!mayLink || LeadsSomewhere(whole))});
    });
    std::ranges::sort(entries, {}, &FolderEntry::Name);
    return entries;
}

bool MakeFolders(const std::string& path) {
    if (path.empty() || LeadsSomewhere(path)) return false;
    const std::string above = FolderAbove(path);
    if (above != path) MakeFolders(above);
    return ::CreateDirectoryW(WidePath(path).c_str(), nullptr) != 0;
}

Outcome RemoveEntry(const std::string& path) {
    const std::wstring wide = WidePath(path);
    const DWORD attributes = ::GetFileAttributesW(wide.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return Outcome::Failed;
    // As elsewhere it is the folder's rights that count.
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
        ::SetFileAttributesW(wide.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
    const bool folder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return (folder ? ::RemoveDirectoryW(wide.c_str()) : ::DeleteFileW(wide.c_str())) ? Outcome::Done : Outcome::Failed;
}

Outcome RemoveTree(const std::string& path) {
    std::vector<std::string> below;
    if (IsPlainFolder(path)) EachIn(path, [&](const std::string& name, DWORD) { below.push_back(path + "/" + name); });
    bool gone = true;
    for (const std::string& each : below) gone = RemoveTree(each) == Outcome::Done && gone;
    return RemoveEntry(path) == Outcome::Done && gone ? Outcome::Done : Outcome::Failed;
}

bool MayUseFolder(const std::string& folder) {
    return IsFolder(folder) &&
           OpenAt(folder, FILE_LIST_DIRECTORY | FILE_ADD_FILE | FILE_ADD_SUBDIRECTORY | FILE_TRAVERSE).Open();
}

bool MayAddTo(const std::string& folder) {
    return IsFolder(folder) && OpenAt(folder, FILE_ADD_FILE | FILE_TRAVERSE).Open();
}

bool OpenUpFolder(const std::string& folder) {
    if (MayUseFolder(folder) || !IsFolder(folder)) return false;
    return UserAlone::OpenUp(folder) && MayUseFolder(folder);
}

} // namespace tessa
