#include "qt/desktop/DesktopShell.h"

#include "qt/base/Strings.h"
#include "qt/desktop/DesktopPrograms.h"

#include <QDir>
#include <QProcess>
#include <QSysInfo>

namespace tessa::qt {

std::optional<Text> DesktopShell::EnvironmentVariable(TextView name) const {
    const QByteArray key = ToQt(name).toLocal8Bit();
    if (!qEnvironmentVariableIsSet(key.constData())) return std::nullopt;
    return FromQt(qEnvironmentVariable(key.constData()));
}

Outcome DesktopShell::Start(const std::vector<Text>& words) {
    if (words.empty()) return Outcome::Failed;
    QStringList all;
    for (const Text& word : words) all << ToQt(word);
    QProcess process;
    process.setProgram(all.takeFirst());
    process.setArguments(all);
    process.setWorkingDirectory(QDir::homePath());
    process.setStandardInputFile(QProcess::nullDevice());
    return process.startDetached() ? Outcome::Done : Outcome::Failed;
}

Text DesktopShell::ProgramFor(TextView scheme) const { return FromQt(DesktopPrograms::CommandFor(ToQt(scheme))); }

Text DesktopShell::SystemName() const {
    return FromQt(QStringLiteral("%1, Qt %2").arg(QSysInfo::prettyProductName(), QLatin1String(qVersion())));
}

} // namespace tessa::qt
