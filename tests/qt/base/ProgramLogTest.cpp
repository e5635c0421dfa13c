#include "qt/base/ProgramLog.h"

#include "base/os/Log.h"
#include "qt/base/BuildInfo.h"
#include "tests/fakes/TemporaryFolder.h"

#include <QLoggingCategory>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

Q_LOGGING_CATEGORY(lcWindows, "qt.qpa.test")

TEST(ProgramLog, TakesWhatQtSaysWithItsLevelButNoAddress) {
    const TemporaryFolder folder;
    const QString path = QString::fromStdString(folder.Path("x")).chopped(2);
    std::string all;
    {
        ProgramLog log(path);
        qCWarning(lcWindows, "no screen for https://bank.example/account today");
        qCCritical(lcWindows, "failed");
        qCDebug(lcWindows, "chatter");
        Log::Note(LogLevel::Info, LogPart::Program, "mine");
        for (const std::string& line : log.File().LastLines(10)) all += line.substr(line.find(' ') + 1) + '\n';
    }
    EXPECT_EQ(all, "warning desktop: qt.qpa.test no screen for ... today\n"
                   "error desktop: qt.qpa.test failed\n"
                   "info program: mine\n");
    qCWarning(lcWindows, "later");
    EXPECT_EQ(folder.Read("log").find("later"), std::string::npos);
}

TEST(BuildInfo, SaysWhatDraws) { EXPECT_TRUE(BuildInfo::Drawing().startsWith(QStringLiteral("offscreen, "))); }

} // namespace

} // namespace tessa::qt
