// Tests: SystemSteadyClock
#include "qt/desktop/DesktopClock.h"

#include "qt/base/Strings.h"
#include "qt/desktop/SystemSteadyClock.h"

#include <QDateTime>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

TEST(DesktopClockTest, SaysTodayAndYesterdayAndElseTheDate) {
    const auto at = [](const QDateTime& time) { return ToQt(DesktopClock().Words(time.toSecsSinceEpoch())); };
    const QDateTime noon(QDate::currentDate(), QTime(12, 0));
    EXPECT_TRUE(at(noon).startsWith(u"Today, "));
    EXPECT_TRUE(at(noon.addDays(-1)).startsWith(u"Yesterday, "));
    const QDateTime old(QDate(2024, 2, 29), QTime(9, 5));
    EXPECT_TRUE(at(old).contains(u"2024")) << qPrintable(at(old));
    EXPECT_TRUE(at(old).contains(u"9:05")) << qPrintable(at(old));
    EXPECT_FALSE(at(old).contains(u":00"));
}

TEST(DesktopClockTest, CountsSecondsFromTheSameTimeAsItsWords) {
    const DesktopClock clock;
    EXPECT_TRUE(ToQt(clock.Words(clock.Now())).startsWith(u"Today, "));
}

TEST(DesktopClockTest, TheSteadyClockNeverGoesBack) {
    const SystemSteadyClock clock;
    const auto first = clock.Now();
    EXPECT_GT(first.count(), 0);
    EXPECT_GE(clock.Now(), first);
}

} // namespace

} // namespace tessa::qt
