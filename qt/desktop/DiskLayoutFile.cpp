#include "qt/desktop/DiskLayoutFile.h"

#include "base/os/AtomicFile.h"
#include "qt/base/PathBytes.h"

#include <QDir>

namespace tessa::qt {

DiskLayoutFile::DiskLayoutFile(const QString& folder)
    : m_folder(folder), m_path(PathBytes(folder + QStringLiteral("/user.tb"))) {}

std::optional<std::string> DiskLayoutFile::Read() {
    if (!FileExists(m_path)) return std::string();
    return ReadWholeFile(m_path);
}

Outcome DiskLayoutFile::Write(const std::string& bytes) {
    // A folder that cannot be made takes no file either.
    QDir().mkpath(m_folder);
    return WriteWholeFile(m_path, bytes, Readers::UserAlone);
}

} // namespace tessa::qt
