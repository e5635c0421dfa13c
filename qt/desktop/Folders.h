#pragma once
#include <QString>

namespace tessa::qt {

/// Where the program keeps its files. All folders end without a separator and, but for the Favorites, are made when
/// first asked for.
struct Folders {
    QString program;   ///< user.tb and TessaGroups/
    QString settings;  ///< settings.ini
    QString data;      ///< the engine's profile
    QString cache;     ///< the engine's cache
    QString state;     ///< names the instance: two state folders never meet
    QString favorites; ///< the user's Favorites; made when the first is added

    /// With $TESSAVIEW_HOME, that for everything. Otherwise the folder of the running program for the program's files,
    /// and the desktop's usual folders for the rest. The program's folder counts only when it is the user's own and
    /// writable, and no "bin" that other programs share.
    static Folders Find(const QString& programFile);
    /// The path of the program that runs; known before there is an application object.
    static QString ProgramFile();
    [[nodiscard]] QString GroupFolder() const { return program + QStringLiteral("/TessaGroups/"); }
};

} // namespace tessa::qt
