#include "qt/QtBuildInfo.h"

#include "mainwindow/frmSplash.h"
#include "qt/QtText.h"

#include <QGuiApplication>
#include <QStringList>
#include <QSysInfo>
#include <QtWebEngineCore>

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

QString QtBuildInfo::Engine() {
    return QStringLiteral("Qt WebEngine %1, based on Chromium %2")
        .arg(QLatin1String(qWebEngineVersion()), QLatin1String(qWebEngineChromiumVersion()));
}

QString QtBuildInfo::Qt() { return QStringLiteral("Qt %1").arg(QLatin1String(qVersion())); }

QString QtBuildInfo::Text() {
    const frmSplash form;
    QStringList lines{
        ToQt(form.Label1.Caption()) + u' ' + ToQt(form.Label2.Caption()), Engine(), Qt(),
        QStringLiteral("Built with Qt " QT_VERSION_STR ", %1, for %2").arg(Compiler(), QSysInfo::buildAbi()),
        QStringLiteral("%1, kernel %2").arg(QSysInfo::prettyProductName(), QSysInfo::kernelVersion())};
    if (const QString platform = Platform(); !platform.isEmpty())
        lines << QStringLiteral("Windows by %1").arg(platform);
    return lines.join(u'\n');
}
