#include "qt/base/DrawingChoice.h"

#include "qt/base/Strings.h"

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
#include <array>
#include <utility>

namespace tessa::qt {

namespace {

// Where the kernel shows graphics processors. Those with a "render" node can be used, those of NVIDIA's own driver, and
// the one of Linux inside Windows.
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
    QStringList parts{QSysInfo::machineHostName(), QSysInfo::kernelVersion(), Drivers(), processors.join(u' ')};
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "LIBGL_ALWAYS_SOFTWARE", "GALLIUM_DRIVER",
                             "MESA_LOADER_DRIVER_OVERRIDE", "QT_XCB_GL_INTEGRATION", "QT_OPENGL"})
        parts << qEnvironmentVariable(name);
    return parts.join(u'|');
}

Drawing::Machine ThisComputer() {
    const QStringList processors = Processors();
    return {.Surroundings = FromQt(Surroundings(processors)),
            .HasProcessor = !processors.isEmpty(),
            .Renderer = DrawingChoice::Renderer,
            .Command = FromQt(qEnvironmentVariable("TESSAVIEW_DRAWING"))};
}

// What tells Qt's parts for X and for Wayland to do without OpenGL. Programs that this one starts are not to hear it.
struct Refusal {
    const char* variable;
    const char* value;
};
constexpr std::array kRefusals{Refusal{"QT_XCB_GL_INTEGRATION", "none"},
                               Refusal{"QT_WAYLAND_DISABLE_HW_INTEGRATION", "1"}};
QList<const char*> s_refused;

void RefuseOpenGl() {
    for (const auto& [variable, value] : kRefusals) {
        if (qEnvironmentVariableIsSet(variable)) continue;
        qputenv(variable, value);
        s_refused << variable;
    }
}

void DrawInSoftware() { QQuickWindow::setSceneGraphBackend(QStringLiteral("software")); }

} // namespace

void DrawingChoice::Prepare(SettingsStorageFactory& settings) {
    const bool software = Drawing::KnownWay(ThisComputer(), settings) == DrawingWay::Software;
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts, !software);
    if (!software) return;
    DrawInSoftware();
    RefuseOpenGl();
}

void DrawingChoice::Choose(SettingsStorageFactory& settings) {
    // Newer versions of Qt have not looked at it yet, and would later, when it is gone.
    if (!s_refused.empty()) QOpenGLContext().create();
    for (const char* variable : std::exchange(s_refused, {})) qunsetenv(variable);
    if (!InSoftware() && Drawing::Choose(ThisComputer(), settings) == DrawingWay::Software) DrawInSoftware();
}

bool DrawingChoice::IsExpected(const QString& message) {
    // The text first: Qt says something, too, when its scene graph is gone and can no longer be asked.
    return (message.contains(u"neither GLX nor EGL are enabled") ||
            message.contains(u"No suitable graphics backend found")) &&
           InSoftware();
}

bool DrawingChoice::InSoftware() { return QQuickWindow::sceneGraphBackend() == u"software"; }

Text DrawingChoice::Renderer() {
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    if (!surface.isValid() || !context.create() || !context.makeCurrent(&surface)) return {};
    return FromQt(QString::fromLatin1(reinterpret_cast<const char*>(context.functions()->glGetString(GL_RENDERER))));
}

} // namespace tessa::qt
