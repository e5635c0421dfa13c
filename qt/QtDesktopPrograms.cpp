#include "qt/QtDesktopPrograms.h"

#include "common/IniFile.h"

#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QStringList>

namespace {

constexpr std::size_t kLongest = 4096;

QString Read(const QString& file, const char* section, const QString& key) {
    const std::string name = key.toStdString();
    return QString::fromStdString(
        GetPrivateProfileString(QFile::encodeName(file).toStdString(), section, name, "", kLongest));
}

// In the order in which the desktop looks at them.
QStringList Choices(const QString& type) {
    QStringList ids;
    const auto addFrom = [&](const QStringList& files, const char* section) {
        for (const QString& file : files) ids += Read(file, section, type).split(u';', Qt::SkipEmptyParts);
    };
    using Paths = QStandardPaths;
    addFrom(Paths::locateAll(Paths::GenericConfigLocation, QStringLiteral("mimeapps.list")), "Default Applications");
    addFrom(Paths::locateAll(Paths::ApplicationsLocation, QStringLiteral("mimeapps.list")), "Default Applications");
    addFrom(Paths::locateAll(Paths::ApplicationsLocation, QStringLiteral("mimeinfo.cache")), "MIME Cache");
    return ids;
}

// The codes stand for addresses, icons and names, of which there are none here.
QString WithoutCodes(QString command) {
    static const QRegularExpression code(QStringLiteral("\\s*%[a-zA-Z]"));
    return command.remove(code).replace(QStringLiteral("%%"), QStringLiteral("%")).trimmed();
}

QString CommandOf(const QString& id) {
    const QString file = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, id);
    if (file.isEmpty() || Read(file, "Desktop Entry", QStringLiteral("Terminal")) == u"true") return {};
    return WithoutCodes(Read(file, "Desktop Entry", QStringLiteral("Exec")));
}

} // namespace

namespace QtDesktopPrograms {

QString CommandFor(const QString& scheme) {
    for (const QString& id : Choices(QStringLiteral("x-scheme-handler/") + scheme)) {
        if (const QString command = CommandOf(id); !command.isEmpty()) return command;
    }
    return {};
}

} // namespace QtDesktopPrograms
