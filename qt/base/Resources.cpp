#include "qt/base/Resources.h"

#include <QFile>

// Stands outside of any namespace, as Qt's macro demands.
static void LoadResources() { Q_INIT_RESOURCE(tessaview); }

namespace tessa::qt {

void Resources::Load() { LoadResources(); }

QString Resources::ReadText(const QString& name) {
    Load();
    QFile file(QStringLiteral(":/") + name);
    return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace tessa::qt
