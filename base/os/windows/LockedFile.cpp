#include "base/os/LockedFile.h"

#include "base/os/windows/Handle.h"
#include "base/os/windows/UserAlone.h"
#include "base/os/windows/WidePath.h"

namespace tessa {

namespace LockedFile {

namespace {

std::intptr_t NumberOf(HANDLE file) {
    return file == INVALID_HANDLE_VALUE ? kNone : reinterpret_cast<std::intptr_t>(file);
}
HANDLE FileOf(std::intptr_t number) { return reinterpret_cast<HANDLE>(number); }

} // namespace

std::intptr_t Open(const std::string& path) {
    UserAlone user;
    const std::wstring wide = WidePath(path);
    const HANDLE file = ::CreateFileW(wide.c_str(), GENERIC_READ | GENERIC_WRITE, kShareAll, user.ForNew(), OPEN_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE) return NumberOf(file);
    // Who may only read a file can lock it all the same, and so finds out whether somebody else has.
    const DWORD error = ::GetLastError();
    if (error != ERROR_ACCESS_DENIED && error != ERROR_WRITE_PROTECT) return kNone;
    return NumberOf(
        ::CreateFileW(wide.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

Tried Try(std::intptr_t file) {
    // A byte far behind the end: what is locked here nobody else can read or write.
    OVERLAPPED place{};
    place.OffsetHigh = 0x7FFFFFFF;
    if (::LockFileEx(FileOf(file), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place))
        return Tried::Held;
    const DWORD error = ::GetLastError();
    return error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING ? Tried::Taken : Tried::Refused;
}

void Close(std::intptr_t file) { ::CloseHandle(FileOf(file)); }

} // namespace LockedFile

} // namespace tessa
