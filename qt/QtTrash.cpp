#include "qt/QtTrash.h"

#include "qt/QtText.h"

#include <QFile>

Outcome QtTrash::Take(TextView path) { return QFile::moveToTrash(ToQt(path)) ? Outcome::Done : Outcome::Failed; }
