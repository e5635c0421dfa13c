#include "qt/QtDrawing.h"

#include "qt/QtText.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QQuickWindow>
#include <QSysInfo>

namespace {

// Where the kernel shows graphics processors: those with a "render" node can be used, those of NVIDIA's
// own driver, and the one that Windows lends its Linux.
const QStringList kDevices{QStringLiteral("/dev/dri"), QStringLiteral("/dev")};
const QStringList kDeviceNames{QStringLiteral("renderD*"), QStringLiteral("nvidia[0-9]*"), QStringLiteral("dxg")};

QStringList Processors() {
    QStringList found;
    for (const QString& folder : kDevices) found << QDir(folder).entryList(kDeviceNames, QDir::System);
    return found;
}

// A driver that was installed or taken away has changed one of these folders.
QString Drivers() {
    const QString libraries = QLibraryInfo::path(QLibraryInfo::LibrariesPath);
    QStringList changes;
    for (const QString& folder : {libraries, libraries + QStringLiteral("/dri")})
        changes << QFileInfo(folder).lastModified().toString(Qt::ISODateWithMs);
    return changes.join(u' ');
}

QString Surroundings(const QStringList& processors) {
    QStringList parts{QSysInfo::machineHostName(), QSysInfo::kernelVersion(), QGuiApplication::platformName(),
                      Drivers(), processors.join(u' ')};
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "LIBGL_ALWAYS_SOFTWARE", "GALLIUM_DRIVER",
                             "MESA_LOADER_DRIVER_OVERRIDE", "QT_XCB_GL_INTEGRATION", "QT_OPENGL"})
        parts << qEnvironmentVariable(name);
    return parts.join(u'|');
}

} // namespace

void QtDrawing::Choose(SettingsStorageFactory& settings) {
    const QStringList processors = Processors();
    const Drawing::Machine machine{.Surroundings = FromQt(Surroundings(processors)),
                                   .HasProcessor = !processors.isEmpty(),
                                   .Renderer = Renderer,
                                   .Command = FromQt(qEnvironmentVariable("TESSAVIEW_DRAWING"))};
    if (Drawing::Choose(machine, settings) == DrawingWay::Software)
        QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
}

bool QtDrawing::InSoftware() { return QQuickWindow::sceneGraphBackend() == u"software"; }

Text QtDrawing::Renderer() {
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    if (!surface.isValid() || !context.create() || !context.makeCurrent(&surface)) return {};
    return FromQt(QString::fromLatin1(reinterpret_cast<const char*>(context.functions()->glGetString(GL_RENDERER))));
}
