#include "qt/QtTrash.h"

#include "qt/QtText.h"

#include <QFile>

Outcome QtTrash::Take(TextView path) {
    const QString file = ToQt(path);
    // Qt knows files by text alone; of a name that is none it would make another file's.
    if (QFile::encodeName(file).toStdString() != PathToBytes(path)) return Outcome::Failed;
    return QFile::moveToTrash(file) ? Outcome::Done : Outcome::Failed;
}
