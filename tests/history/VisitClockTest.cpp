#include "history/VisitClock.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using namespace VisitClock;

constexpr std::int64_t kToday = 1'795'000'000; // in November 2026

TEST(VisitClock, AClockBeforeTheProgramWasMadeIsNotBelieved) {
    EXPECT_EQ(VisitTime(kToday, 0), kToday);
    EXPECT_EQ(VisitTime(kToday, kToday + 100), kToday);
    EXPECT_EQ(VisitTime(0, kToday), kToday);
    EXPECT_EQ(VisitTime(1'000'000'000, kToday), kToday);
    EXPECT_EQ(VisitTime(-5, 0), 0);
}

/// Whether each of the times is trusted, one after the other: "+" or "-".
std::string Trust(std::initializer_list<std::int64_t> times) {
    Noted noted;
    std::string trust;
    for (const std::int64_t now : times) {
        const Judged judged = Judge(now, noted);
        noted = judged.Next;
        trust += judged.Trusted ? '+' : '-';
    }
    return trust;
}

TEST(VisitClock, NothingIsTooOldRightAfterAJump) {
    const std::int64_t year = 365 * kDay;
    EXPECT_EQ(Trust({kToday, kToday + 60, kToday + 7 * kDay}), "+++");
    EXPECT_EQ(Trust({kToday, kToday + 30 * kDay}), "++");
    // A wrong clock that is put right again never has its way.
    EXPECT_EQ(Trust({kToday, kToday + 50 * year, kToday + 50 * year + 60, kToday + 120}), "+---");
    // After a long journey it is believed a day later.
    EXPECT_EQ(Trust({kToday, kToday + 60 * kDay, kToday + 60 * kDay + 3600, kToday + 61 * kDay + 1}), "+--+");
    EXPECT_EQ(Trust({kToday, kToday - 10 * kDay, kToday - 9 * kDay + 1}), "+-+");
    // The summer time, and a clock that is set a little.
    EXPECT_EQ(Trust({kToday, kToday - 3600, kToday}), "+++");
    EXPECT_EQ(Trust({kToday, 0, kToday + 60}), "+-+");
}

} // namespace

} // namespace tessa
