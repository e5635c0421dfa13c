#include "base/os/FreeNames.h"

#include "base/os/windows/WidePath.h"

#include <windows.h>

namespace tessa {

namespace {

Named NamedAs(BOOL done) {
    if (done) return Named::Done;
    const DWORD error = ::GetLastError();
    return error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS ? Named::Taken : Named::Failed;
}

} // namespace

Named RenameToFree(const std::string& from, const std::string& to) {
    return NamedAs(::MoveFileExW(WidePath(from).c_str(), WidePath(to).c_str(), 0));
}

Named MakeNewFolder(const std::string& path) { return NamedAs(::CreateDirectoryW(WidePath(path).c_str(), nullptr)); }

} // namespace tessa
