#include "base/os/Paths.h"

#include "base/os/RootLength.h"
#include "base/os/windows/Handle.h"
#include "base/os/windows/WidePath.h"

#include <algorithm>

namespace tessa {

namespace {

/// What the system says of an open file, its place on the disk among it.
std::optional<BY_HANDLE_FILE_INFORMATION> FactsOf(const std::string& path) {
    const Handle opened = OpenAt(path, FILE_READ_ATTRIBUTES);
    BY_HANDLE_FILE_INFORMATION facts{};
    if (!opened.Open() || !::GetFileInformationByHandle(opened.Get(), &facts)) return std::nullopt;
    return facts;
}

// Of "//server/share/": without the last names no folder can be opened.
std::size_t ShareLength(std::string_view path) {
    std::size_t at = 2;
    for (int names = 0; names < 2 && at < path.size(); ++names) {
        while (at < path.size() && !IsSeparator(path[at])) ++at;
        if (at < path.size()) ++at;
    }
    return at;
}

bool IsFolderByFacts(const std::string& path) {
    const auto facts = FactsOf(path);
    return facts && (facts->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

} // namespace

Handle OpenAt(const std::string& path, DWORD rights) {
    return Handle(::CreateFileW(WidePath(path).c_str(), rights, kShareAll, nullptr, OPEN_EXISTING,
                                FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

bool IsSeparator(char byte) { return byte == '/' || byte == '\\'; }

std::size_t RootLength(std::string_view path) {
    const auto separatorAt = [&](std::size_t at) { return at < path.size() && IsSeparator(path[at]); };
    if (separatorAt(0) && separatorAt(1)) return ShareLength(path);
    // Of the drive that the program runs on.
    if (separatorAt(0)) return 1;
    return path.size() > 1 && path[1] == ':' && separatorAt(2) ? 3 : 0;
}

std::string AbsolutePath(const std::string& path) {
    const std::wstring wide = WidePath(path);
    std::wstring full(::GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(::GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full.empty() ? path : BytesOfWide(full);
}

std::optional<std::string> RealPath(const std::string& path) {
    const Handle opened = OpenAt(path, FILE_READ_ATTRIBUTES);
    if (!opened.Open()) return std::nullopt;
    std::wstring real(::GetFinalPathNameByHandleW(opened.Get(), nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
    real.resize(
        ::GetFinalPathNameByHandleW(opened.Get(), real.data(), static_cast<DWORD>(real.size()), FILE_NAME_NORMALIZED));
    if (real.empty()) return std::nullopt;
    constexpr std::wstring_view kShare = L"\\\\?\\UNC\\", kMark = L"\\\\?\\";
    if (real.starts_with(kShare)) return BytesOfWide(L"\\\\" + real.substr(kShare.size()));
    return BytesOfWide(real.starts_with(kMark) ? real.substr(kMark.size()) : real);
}

Lies WhatLiesAt(const std::string& path) {
    const DWORD attributes = ::GetFileAttributesW(WidePath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return Lies::Nothing;
    const bool link = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    const bool folder = link ? IsFolderByFacts(path) : (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return folder ? Lies::Folder : Lies::Other;
}

bool IsLink(const std::string& path) {
    WIN32_FIND_DATAW facts{};
    const HANDLE search = ::FindFirstFileW(WidePath(path).c_str(), &facts);
    if (search == INVALID_HANDLE_VALUE) return false;
    ::FindClose(search);
    // Files that lie elsewhere and come when they are read are such points too, but no links.
    return (facts.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           (facts.dwReserved0 == IO_REPARSE_TAG_SYMLINK || facts.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
}

bool LeadsSomewhere(const std::string& path) {
    const Lies lies = WhatLiesAt(path);
    return lies == Lies::Folder || (lies == Lies::Other && (!IsLink(path) || FactsOf(path)));
}

bool IsSameFolder(const std::string& one, const std::string& other) {
    const auto first = FactsOf(one), second = FactsOf(other);
    return first && second && (first->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
           first->dwVolumeSerialNumber == second->dwVolumeSerialNumber &&
           first->nFileIndexHigh == second->nFileIndexHigh && first->nFileIndexLow == second->nFileIndexLow;
}

} // namespace tessa
