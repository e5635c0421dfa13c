#include "qt/desktop/DesktopDefaultBrowser.h"

#include "base/ini/IniFile.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>
#include <array>

namespace tessa::qt {

namespace {

constexpr int kPatienceAtStart = 1500; // milliseconds; the tool needs about a tenth of it
constexpr std::size_t kLongestDesktopList = 4096;
constexpr std::array kDecisiveTypes{"x-scheme-handler/http", "x-scheme-handler/https", "text/html"};

QString Entry() { return QStringLiteral("tessaview.desktop"); }

bool Installed() { return !QStandardPaths::locate(QStandardPaths::ApplicationsLocation, Entry()).isEmpty(); }

QString SettingsTool() { return QStandardPaths::findExecutable(QStringLiteral("xdg-settings")); }

// The user's lists in the order in which they count: those of the desktops that run, then the common one.
std::vector<std::string> UsersLists() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    std::vector<std::string> lists;
    for (const QString& desktop : qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts))
        lists.push_back(
            QFile::encodeName(folder + u'/' + desktop.toLower() + QStringLiteral("-mimeapps.list")).toStdString());
    lists.push_back(QFile::encodeName(folder + QStringLiteral("/mimeapps.list")).toStdString());
    return lists;
}

// The first entry of the first list that says anything about the type.
std::string UsersChoice(const std::vector<std::string>& lists, const char* type) {
    for (const std::string& list : lists) {
        const std::string value = GetPrivateProfileString(list, "Default Applications", type, "", kLongestDesktopList);
        if (!value.empty()) return value.substr(0, value.find(';'));
    }
    return {};
}

bool UsersListsNameUs() {
    const auto lists = UsersLists();
    return std::ranges::all_of(kDecisiveTypes,
                               [&](const char* type) { return UsersChoice(lists, type) == Entry().toStdString(); });
}

QProcessEnvironment ToolsEnvironment() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // With this variable the tool answers for it instead of the desktop, and refuses to change anything.
    environment.remove(QStringLiteral("BROWSER"));
    return environment;
}

// The tool's first line; empty when it fails or takes too long.
QByteArray AnswerOf(const QString& tool) {
    QProcess process;
    process.setProcessEnvironment(ToolsEnvironment());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(tool, {QStringLiteral("check"), QStringLiteral("default-web-browser"), Entry()});
    const bool ended = process.waitForFinished(kPatienceAtStart);
    if (!ended || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) return {};
    return process.readLine().trimmed();
}

} // namespace

bool DesktopDefaultBrowser::KnownDefault() { return !Installed() || UsersListsNameUs() || SettingsTool().isEmpty(); }

bool DesktopDefaultBrowser::IsDefault(TextView, TextView) { return KnownDefault() || AnswerOf(SettingsTool()) != "no"; }

Outcome DesktopDefaultBrowser::MakeDefault(TextView, TextView) {
    const QString tool = SettingsTool();
    if (!Installed() || tool.isEmpty()) return Outcome::Failed;
    QProcess process;
    process.setProcessEnvironment(ToolsEnvironment());
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setProgram(QStringLiteral("timeout"));
    process.setArguments(
        {QStringLiteral("60"), tool, QStringLiteral("set"), QStringLiteral("default-web-browser"), Entry()});
    return process.startDetached() ? Outcome::Done : Outcome::Failed;
}

} // namespace tessa::qt
