#include "qt/base/BuildInfo.h"

#include "qt/base/DrawingChoice.h"
#include "qt/base/Strings.h"
#include "startpage/EngineAge.h"
#include "window/frmSplash.h"

#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QStringList>
#include <QSysInfo>
#include <QtWebEngineCore>
#include <chrono>

namespace tessa::qt {

namespace {

QString Compiler() {
#ifdef __clang__
    return QStringLiteral("Clang " __clang_version__);
#else
    return QStringLiteral("GCC " __VERSION__);
#endif
}

QString Platform() {
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) ? QGuiApplication::platformName() : QString();
}

} // namespace

QString BuildInfo::Engine() {
    return QStringLiteral("Qt WebEngine %1, based on Chromium %2, with security fixes of %3")
        .arg(QLatin1String(qWebEngineVersion()), QLatin1String(qWebEngineChromiumVersion()),
             QLatin1String(qWebEngineChromiumSecurityPatchVersion()));
}

Text BuildInfo::EngineNotice() {
    const auto today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
    return EngineAge::Notice(qWebEngineChromiumSecurityPatchVersion(), today);
}

QString BuildInfo::Qt() { return QStringLiteral("Qt %1").arg(QLatin1String(qVersion())); }

QString BuildInfo::Text() {
    const frmSplash form;
    QStringList lines{
        ToQt(form.Label1.Caption()) + u' ' + ToQt(form.Label2.Caption()), Engine(), Qt(),
        QStringLiteral("Built with Qt " QT_VERSION_STR ", %1, for %2").arg(Compiler(), QSysInfo::buildAbi()),
        QStringLiteral("%1, kernel %2").arg(QSysInfo::prettyProductName(), QSysInfo::kernelVersion())};
    if (const QString platform = Platform(); !platform.isEmpty())
        lines << QStringLiteral("Windows by %1").arg(platform);
    return lines.join(u'\n');
}

QString BuildInfo::Drawing() {
    if (DrawingChoice::InSoftware()) return QStringLiteral("%1, by the processor alone").arg(Platform());
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    if (!surface.isValid() || !context.create() || !context.makeCurrent(&surface))
        return QStringLiteral("%1, without OpenGL").arg(Platform());
    const auto* renderer = reinterpret_cast<const char*>(context.functions()->glGetString(GL_RENDERER));
    const auto* version = reinterpret_cast<const char*>(context.functions()->glGetString(GL_VERSION));
    return QStringLiteral("%1, OpenGL %2 by %3")
        .arg(Platform(), QString::fromLatin1(version), QString::fromLatin1(renderer));
}

} // namespace tessa::qt
