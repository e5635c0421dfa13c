#include "qt/program/QtReportSource.h"

#include "base/os/Log.h"
#include "qt/base/QtLog.h"

#include <QTemporaryDir>
#include <algorithm>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

TEST(QtReportSource, ReadsVersionsDrawingAndTheLog) {
    const QTemporaryDir folder;
    QtLog log(folder.path());
    Log::Note(LogLevel::Info, LogPart::Engine, "was noted for the report");
    const Report::Facts facts = QtReportSource(log).Read();
    EXPECT_NE(facts.Build.find(u"Qt "), Text::npos);
    EXPECT_FALSE(facts.Drawing.empty());
    EXPECT_TRUE(std::ranges::any_of(
        facts.Log, [](const std::string& line) { return line.find("was noted for the report") != std::string::npos; }));
}

} // namespace

} // namespace tessa::qt
