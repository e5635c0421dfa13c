#include "qt/desktop/QtShell.h"

#include "qt/base/QtText.h"
#include "qt/desktop/QtDesktopPrograms.h"

#include <QDir>
#include <QProcess>
#include <QSysInfo>

namespace tessa::qt {

std::optional<Text> QtShell::EnvironmentVariable(TextView name) const {
    const QByteArray key = ToQt(name).toLocal8Bit();
    if (!qEnvironmentVariableIsSet(key.constData())) return std::nullopt;
    return FromQt(qEnvironmentVariable(key.constData()));
}

Outcome QtShell::Start(const std::vector<Text>& words) {
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

Text QtShell::ProgramFor(TextView scheme) const { return FromQt(QtDesktopPrograms::CommandFor(ToQt(scheme))); }

Text QtShell::SystemName() const {
    return FromQt(QStringLiteral("%1, Qt %2").arg(QSysInfo::prettyProductName(), QLatin1String(qVersion())));
}

} // namespace tessa::qt
