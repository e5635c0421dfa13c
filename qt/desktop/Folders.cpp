#include "qt/desktop/Folders.h"

#include <QDir>
#include <QFileInfo>

#include <unistd.h>

namespace tessa::qt {

namespace {

constexpr auto kUserAlone = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;

QString XdgFolder(const char* variable, const QString& underHome) {
    const QString set = qEnvironmentVariable(variable);
    // A relative path in these variables is to be ignored: the base directory rules of freedesktop.org.
    const QString base = QDir::isAbsolutePath(set) ? set : QDir::homePath() + u'/' + underHome;
    return QDir::cleanPath(base) + QStringLiteral("/tessaview");
}

// A folder "bin" is where many programs are installed, so that none may call it its own.
bool IsUsersOwn(const QFileInfo& folder) {
    return folder.fileName() != u"bin" && folder.isDir() && folder.ownerId() == ::geteuid() && folder.isWritable();
}

void SayNotMade(const QString& folder) { qWarning("tessaview: the folder %s cannot be made", qPrintable(folder)); }

void Make(const QString& folder) {
    if (!QDir().mkpath(folder)) SayNotMade(folder);
}

// What was visited, downloaded and set is nobody else's business. A folder that is there already has the rights that
// its owner gave it. It may hold more than what is ours.
void MakePrivate(const QString& folder) {
    if (QFileInfo(folder).isDir()) return;
    const bool parent = QDir().mkpath(QFileInfo(folder).path());
    if (!parent || (!QDir().mkdir(folder, kUserAlone) && !QFileInfo(folder).isDir())) SayNotMade(folder);
}

// One that bears our name holds nothing else, so what an earlier version left open to others is closed.
void MakeOwnPrivate(const QString& folder) {
    MakePrivate(folder);
    if (QFileInfo(folder).ownerId() == ::geteuid()) QFile::setPermissions(folder, kUserAlone);
}

QString FavoritesFolder(const QString& all) {
    const QString name = QStringLiteral("/Favorites");
    if (!all.isEmpty()) return all + name;
    if (const QString old = QDir::homePath() + name; QFileInfo(old).isDir()) return old;
    return XdgFolder("XDG_DATA_HOME", QStringLiteral(".local/share")) + name;
}

} // namespace

QString Folders::ProgramFile() { return QFile::symLinkTarget(QStringLiteral("/proc/self/exe")); }

Folders Folders::Find(const QString& programFile) {
    Folders folders;
    const QString home = qEnvironmentVariable("TESSAVIEW_HOME");
    if (!home.isEmpty()) {
        const QString all = QDir::cleanPath(QDir().absoluteFilePath(home));
        folders = {all, all, all + QStringLiteral("/engine"), all + QStringLiteral("/cache"), all, {}};
    } else {
        const QFileInfo own(QFileInfo(programFile).absolutePath());
        const QString data = XdgFolder("XDG_DATA_HOME", QStringLiteral(".local/share"));
        const QString config = XdgFolder("XDG_CONFIG_HOME", QStringLiteral(".config"));
        folders = {IsUsersOwn(own) ? own.absoluteFilePath() : data,       config, data + QStringLiteral("/engine"),
                   XdgFolder("XDG_CACHE_HOME", QStringLiteral(".cache")), config, {}};
    }
    folders.favorites = FavoritesFolder(home.isEmpty() ? QString() : folders.program);
    home.isEmpty() ? MakeOwnPrivate(folders.state) : MakePrivate(folders.state);
    // Groups and Favorites lie there, unless the user keeps them elsewhere.
    if (home.isEmpty()) MakeOwnPrivate(XdgFolder("XDG_DATA_HOME", QStringLiteral(".local/share")));
    for (const QString& folder : {folders.program, folders.GroupFolder(), folders.settings}) Make(folder);
    return folders;
}

} // namespace tessa::qt
