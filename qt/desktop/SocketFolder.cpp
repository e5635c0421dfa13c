#include "qt/desktop/SocketFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/un.h>
#include <unistd.h>

namespace tessa::qt {

namespace {

constexpr auto kOthersMayWrite = QFileDevice::WriteGroup | QFileDevice::WriteOther;

QString RuntimeFolder(const QString& stateFolder) {
    const QString set = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QFileInfo folder(set);
    const bool users = QDir::isAbsolutePath(set) && folder.isDir() && folder.ownerId() == ::geteuid();
    return users && folder.isWritable() && !(folder.permissions() & kOthersMayWrite) ? set : stateFolder;
}

bool FitsAnAddress(const QString& folder, qsizetype longestName) {
    constexpr auto kRoom = static_cast<qsizetype>(sizeof(sockaddr_un::sun_path)) - 1;
    return QFile::encodeName(folder).size() + 1 + longestName <= kRoom;
}

} // namespace

SocketFolder::~SocketFolder() {
    if (m_descriptor >= 0) ::close(m_descriptor);
}

void SocketFolder::Open(const QString& stateFolder, qsizetype longestName) {
    m_path = RuntimeFolder(stateFolder);
    if (m_descriptor >= 0 || FitsAnAddress(m_path, longestName)) return;
    m_descriptor = ::open(QFile::encodeName(m_path).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    // The same folder, named by our hold on it.
    if (m_descriptor >= 0) m_path = QStringLiteral("/proc/self/fd/%1").arg(m_descriptor);
}

bool SocketFolder::IsWritable() const { return QFileInfo(m_path).isWritable(); }

} // namespace tessa::qt
