#include "qt/program/ReportSource.h"

#include "base/os/Log.h"
#include "qt/base/ProgramLog.h"

#include <QTemporaryDir>
#include <algorithm>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

TEST(ReportSource, ReadsVersionsDrawingAndTheLog) {
    const QTemporaryDir folder;
    ProgramLog log(folder.path());
    Log::Note(LogLevel::Info, LogPart::Engine, "was noted for the report");
    const Report::Facts facts = ReportSource(log).Read();
    EXPECT_NE(facts.Build.find(u"Qt "), Text::npos);
    EXPECT_FALSE(facts.Drawing.empty());
    EXPECT_TRUE(std::ranges::any_of(
        facts.Log, [](const std::string& line) { return line.find("was noted for the report") != std::string::npos; }));
}

} // namespace

} // namespace tessa::qt
