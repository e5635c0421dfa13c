#include "base/os/AppendedFile.h"

#include "base/os/windows/Handle.h"
#include "base/os/windows/UserAlone.h"
#include "base/os/windows/WidePath.h"

namespace tessa {

void AppendForUser(const std::string& path, std::string_view bytes) {
    UserAlone user;
    // Without the right to write elsewhere in the file, each write goes behind what others have written by then.
    constexpr DWORD kRights = FILE_READ_DATA | FILE_APPEND_DATA | READ_CONTROL | WRITE_DAC | SYNCHRONIZE;
    const Handle file(::CreateFileW(WidePath(path).c_str(), kRights, kShareAll, user.ForNew(), OPEN_ALWAYS,
                                    FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    BY_HANDLE_FILE_INFORMATION facts{};
    if (!file.Open() || ::GetFileType(file.Get()) != FILE_TYPE_DISK) return;
    if (!::GetFileInformationByHandle(file.Get(), &facts)) return;
    if ((facts.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) return;
    user.Close(file.Get());
    // Where the end is and writing there are two steps under Wine. The lock goes with the handle.
    OVERLAPPED farBehind{};
    farBehind.OffsetHigh = MAXLONG;
    ::LockFileEx(file.Get(), LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &farBehind);
    DWORD written = 0;
    ::WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

std::optional<std::size_t> FileSize(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA facts{};
    if (!::GetFileAttributesExW(WidePath(path).c_str(), GetFileExInfoStandard, &facts)) return std::nullopt;
    if ((facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return std::nullopt;
    return static_cast<std::size_t>(facts.nFileSizeHigh) << 32 | facts.nFileSizeLow;
}

void EmptyFile(const std::string& path) {
    const Handle file(::CreateFileW(WidePath(path).c_str(), GENERIC_WRITE, kShareAll, nullptr, TRUNCATE_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
}

} // namespace tessa
