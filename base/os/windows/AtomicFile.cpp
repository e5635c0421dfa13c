#include "base/os/AtomicFile.h"

#include "base/os/Paths.h"
#include "base/os/TemporaryNames.h"
#include "base/os/windows/Handle.h"
#include "base/os/windows/Names.h"
#include "base/os/windows/UserAlone.h"
#include "base/os/windows/WidePath.h"

#include <aclapi.h>
#include <algorithm>
#include <chrono>
#include <ntsecapi.h>
#include <thread>

namespace tessa {

namespace {

constexpr int kMostNewNames = 1000;
/// While somebody reads a file it cannot be replaced; readers are quick.
constexpr std::chrono::milliseconds kReadersPatience{2000}, kPauseForReaders{5};
constexpr DWORD kMostAtOnce = DWORD{1} << 30;

bool WriteAll(const Handle& file, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto most = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), kMostAtOnce));
        if (!::WriteFile(file.Get(), bytes.data(), most, &written, nullptr) || written == 0) return false;
        bytes.remove_prefix(written);
    }
    return ::FlushFileBuffers(file.Get()) != 0;
}

std::string Resolved(const std::string& path) { return RealPath(path).value_or(path); }

std::string RandomBytes() {
    std::string bytes(TemporaryNames::kLetters, '\0');
    (void)::RtlGenRandom(bytes.data(), static_cast<ULONG>(bytes.size()));
    return bytes;
}

/// A new file beside another; `path` is its path. Not open when it cannot be made, `GetLastError` says why.
Handle NewFileBeside(const std::string& target, SECURITY_ATTRIBUTES* readers, std::string& path) {
    for (int attempt = 1;; ++attempt) {
        path = TemporaryNames::Start(target) + TemporaryNames::Letters(RandomBytes());
        Handle file(::CreateFileW(WidePath(path).c_str(), GENERIC_WRITE | READ_CONTROL | WRITE_DAC, kShareAll, readers,
                                  CREATE_NEW, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_WRITE_THROUGH, nullptr));
        if (file.Open() || ::GetLastError() != ERROR_FILE_EXISTS || attempt == kMostNewNames) return file;
    }
}

// Who may read and write it, and whether it is hidden. Its owner is the user, who alone can give files away.
void KeepRights(const Handle& file, const std::string& temporary, const std::string& old) {
    PACL rights = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (::GetNamedSecurityInfoW(WidePath(old).data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                                &rights, nullptr, &descriptor) == ERROR_SUCCESS) {
        ::SetSecurityInfo(file.Get(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, rights, nullptr);
        ::LocalFree(descriptor);
    }
    const DWORD attributes = ::GetFileAttributesW(WidePath(old).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) ::SetFileAttributesW(WidePath(temporary).c_str(), attributes);
}

bool Replace(const std::string& temporary, const std::string& target) {
    const auto deadline = std::chrono::steady_clock::now() + kReadersPatience;
    // Written through: when the call returns, the folder is on disk too.
    while (!::MoveFileExW(WidePath(temporary).c_str(), WidePath(target).c_str(),
                          MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        const DWORD error = ::GetLastError();
        const bool isRead = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
        if (!isRead || IsFolder(target) || std::chrono::steady_clock::now() >= deadline) return false;
        std::this_thread::sleep_for(kPauseForReaders);
    }
    return true;
}

// Whether it is the folder's rights, not the room on the disk, that keep a new file out.
bool FolderRefuses(DWORD error) { return error == ERROR_ACCESS_DENIED || error == ERROR_WRITE_PROTECT; }

bool SetLength(const Handle& file, std::size_t bytes) {
    LARGE_INTEGER length{};
    length.QuadPart = static_cast<LONGLONG>(bytes);
    return ::SetFilePointerEx(file.Get(), length, nullptr, FILE_BEGIN) && ::SetEndOfFile(file.Get());
}

Outcome WriteInPlace(const std::string& path, std::string_view bytes) {
    const Handle file = OpenAt(path, GENERIC_WRITE);
    LARGE_INTEGER old{};
    if (!file.Open() || !::GetFileSizeEx(file.Get(), &old)) return Outcome::Failed;
    // A write that ends for want of room half way would leave neither the old file nor the new one.
    const auto before = static_cast<std::size_t>(old.QuadPart);
    if (bytes.size() > before && !SetLength(file, bytes.size())) {
        SetLength(file, before);
        return Outcome::Failed;
    }
    LARGE_INTEGER start{};
    ::SetFilePointerEx(file.Get(), start, nullptr, FILE_BEGIN);
    return WriteAll(file, bytes) && SetLength(file, bytes.size()) ? Outcome::Done : Outcome::Failed;
}

bool IsTakenByAnother(const std::string& path) { return IsFolder(path) || !IsWritable(path); }

} // namespace

std::optional<std::string> ReadWholeFile(const std::string& path, std::size_t most) {
    const Handle file(::CreateFileW(WidePath(path).c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    // A device of that name is no file.
    if (!file.Open() || ::GetFileType(file.Get()) != FILE_TYPE_DISK || !::GetFileSizeEx(file.Get(), &size))
        return std::nullopt;
    std::string bytes(std::min(static_cast<std::size_t>(size.QuadPart), most), '\0');
    std::size_t have = 0;
    while (have < bytes.size()) {
        DWORD got = 0;
        const auto wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - have, kMostAtOnce));
        if (!::ReadFile(file.Get(), bytes.data() + have, wanted, &got, nullptr)) return std::nullopt;
        if (got == 0) break;
        have += got;
    }
    bytes.resize(have);
    return bytes;
}

bool FileExists(const std::string& path) { return WhatLiesAt(path) != Lies::Nothing; }

bool FolderExists(const std::string& path) { return IsFolder(TemporaryNames::FolderToOpen(path)); }

bool IsWritable(const std::string& path) {
    const DWORD attributes = ::GetFileAttributesW(WidePath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) != 0) return false;
    // Somebody who reads it now does so not for long.
    return OpenAt(path, FILE_WRITE_DATA).Open() || ::GetLastError() == ERROR_SHARING_VIOLATION;
}

Outcome WriteWholeFile(const std::string& path, std::string_view bytes, Readers readers) {
    const std::string target = Resolved(path);
    const bool exists = FileExists(target);
    if (exists && IsTakenByAnother(target)) return Outcome::Failed;
    UserAlone user;
    std::string temporary;
    bool written = false;
    {
        const bool asUsual = !exists && readers == Readers::AsUsual;
        const Handle file = NewFileBeside(target, asUsual ? nullptr : user.ForNew(), temporary);
        if (!file.Open())
            return exists && FolderRefuses(::GetLastError()) ? WriteInPlace(target, bytes) : Outcome::Failed;
        if (exists && readers == Readers::AsUsual) KeepRights(file, temporary, target);
        written = WriteAll(file, bytes);
    }
    // An open file cannot be renamed.
    if (written && Replace(temporary, target)) return Outcome::Done;
    ::DeleteFileW(WidePath(temporary).c_str());
    return Outcome::Failed;
}

Outcome TryWholeFile(const std::string& path, std::string_view bytes) {
    const std::string target = Resolved(path);
    if (FileExists(target) && IsTakenByAnother(target)) return Outcome::Failed;
    UserAlone user;
    std::string temporary;
    bool written = false;
    {
        const Handle file = NewFileBeside(target, user.ForNew(), temporary);
        if (!file.Open()) return Outcome::Failed;
        written = WriteAll(file, bytes);
    }
    ::DeleteFileW(WidePath(temporary).c_str());
    return written ? Outcome::Done : Outcome::Failed;
}

void RemoveLeftovers(const std::string& path) {
    const std::string target = Resolved(path), folder = TemporaryNames::FolderToOpen(target);
    EachIn(folder, [&](const std::string& name, DWORD) {
        if (TemporaryNames::IsOf(target, name)) ::DeleteFileW(WidePath(folder + "/" + name).c_str());
    });
}

Outcome RemoveFile(const std::string& path) {
    if (!FileExists(path)) return Outcome::Done;
    // A link that leads nowhere has nothing to protect.
    if (LeadsSomewhere(path) && !IsWritable(path)) return Outcome::Failed;
    return ::DeleteFileW(WidePath(path).c_str()) ? Outcome::Done : Outcome::Failed;
}

} // namespace tessa
