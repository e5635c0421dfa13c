#include "qt/desktop/DesktopPrograms.h"

#include "base/ini/IniFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QStringList>

namespace tessa::qt {

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
    for (const QString& desktop : qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts)) {
        const QString list = desktop.toLower() + QStringLiteral("-mimeapps.list");
        addFrom(Paths::locateAll(Paths::GenericConfigLocation, list), "Default Applications");
    }
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

QString EntryFile(const QString& id) { return QStandardPaths::locate(QStandardPaths::ApplicationsLocation, id); }

QString CommandOf(const QString& id) {
    const QString file = EntryFile(id);
    if (file.isEmpty() || Read(file, "Desktop Entry", QStringLiteral("Terminal")) == u"true") return {};
    return WithoutCodes(Read(file, "Desktop Entry", QStringLiteral("Exec")));
}

// By the entry that we install, or, for one that somebody wrote himself, by the file that it starts.
bool IsThisProgram(const QString& id) {
    if (id == u"tessaview.desktop") return true;
    const QStringList words = QProcess::splitCommand(Read(EntryFile(id), "Desktop Entry", QStringLiteral("Exec")));
    const QString started = QStandardPaths::findExecutable(words.value(0));
    const QString own = QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath();
    return !started.isEmpty() && QFileInfo(started).canonicalFilePath() == own;
}

// The desktop's programs cannot be seen from in there; its portal knows them.
bool InSandbox() { return QFile::exists(QStringLiteral("/.flatpak-info")) || qEnvironmentVariableIsSet("SNAP"); }

} // namespace

namespace DesktopPrograms {

QString CommandFor(const QString& scheme) {
    for (const QString& id : Choices(QStringLiteral("x-scheme-handler/") + scheme)) {
        if (const QString command = CommandOf(id); !command.isEmpty()) return IsThisProgram(id) ? QString() : command;
    }
    return {};
}

bool OpensElsewhere(const QString& scheme) {
    if (InSandbox()) return true;
    for (const QString& id : Choices(QStringLiteral("x-scheme-handler/") + scheme)) {
        if (!EntryFile(id).isEmpty()) return !IsThisProgram(id);
    }
    return false;
}

} // namespace DesktopPrograms

} // namespace tessa::qt
