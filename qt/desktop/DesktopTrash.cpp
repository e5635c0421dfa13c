#include "qt/desktop/DesktopTrash.h"

#include "base/os/FreeNames.h"
#include "qt/base/Strings.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace tessa::qt {

Outcome DesktopTrash::Take(TextView path) {
    const QString file = ToQt(path);
    // Qt knows files by text alone; of a name that is none it would make another file's.
    if (QFile::encodeName(file).toStdString() != PathToBytes(path)) return Outcome::Failed;
    QString place;
    if (!QFile::moveToTrash(file, &place)) return Outcome::Failed;
    m_taken.push_back({Text(path), place});
    return Outcome::Done;
}

Outcome DesktopTrash::Restore(TextView path) {
    const auto last =
        std::find_if(m_taken.rbegin(), m_taken.rend(), [&](const Taken& each) { return each.path == path; });
    if (last == m_taken.rend() || last->place.isEmpty()) return Outcome::Failed;
    const QString place = last->place;
    if (RenameToFree(QFile::encodeName(place).toStdString(), PathToBytes(path)) != Named::Done) return Outcome::Failed;
    m_taken.erase(std::next(last).base());
    // Else the desktop would still list what is no longer there.
    const QFileInfo taken(place);
    QFile::remove(QStringLiteral("%1/../info/%2.trashinfo").arg(taken.path(), taken.fileName()));
    return Outcome::Done;
}

} // namespace tessa::qt
