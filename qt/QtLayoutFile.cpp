#include "qt/QtLayoutFile.h"

#include "common/AtomicFile.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

QtLayoutFile::QtLayoutFile(const QString& folder)
    : m_folder(folder), m_path(QFile::encodeName(folder + QStringLiteral("/user.tb")).toStdString()) {}

std::optional<std::string> QtLayoutFile::Read() {
    if (!FileExists(m_path)) return std::string();
    return ReadWholeFile(m_path);
}

Outcome QtLayoutFile::Write(const std::string& bytes) {
    // A folder that cannot be made takes no file either.
    QDir().mkpath(m_folder);
    const bool isNew = !FileExists(m_path);
    if (WriteWholeFile(m_path, bytes) == Outcome::Failed) return Outcome::Failed;
    if (isNew) ::chmod(m_path.c_str(), S_IRUSR | S_IWUSR);
    return Outcome::Done;
}
