#pragma once
#include <QFile>
#include <QString>
#include <string>

namespace tessa::qt {

/// The bytes that name a file on disk, for what works below Qt.
[[nodiscard]] inline std::string PathBytes(const QString& path) { return QFile::encodeName(path).toStdString(); }

} // namespace tessa::qt
