// Tests: HistoryRecords, HistoryRemoval
#include "tests/qt/history/StoredPages.h"

#include "history/VisitClock.h"
#include "qt/history/HistoryDatabase.h"
#include "qt/history/HistoryRecords.h"
#include "qt/history/HistorySearch.h"

#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

constexpr std::int64_t kToday = 1'795'000'000;
constexpr std::int64_t kDay = VisitClock::kDay;
constexpr std::int64_t kRoomy = 1'000'000'000;

class HistoryLimitTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(m_database.Open(), HistoryDatabase::State::Ready); }
    void Keep(TextView name, std::int64_t when, const Text& words = u"words") {
        m_records.Keep(StoredPages::VisitOf(u"https://a/" + Text(name), name, words, when));
    }
    Text Titles() {
        Text titles;
        for (const HistoryEntry& each : HistorySearch(m_database).Find({.Most = 1000}).Entries) titles += each.Title;
        EXPECT_EQ(m_database.TakeTrouble(), HistoryDatabase::Trouble::None);
        return titles;
    }

    QTemporaryDir m_home;
    HistoryDatabase m_database{m_home.path() + QStringLiteral("/history"), QStringLiteral("limit")};
    HistoryRecords m_records{m_database};
};

TEST_F(HistoryLimitTest, WhatIsOlderGoes) {
    Keep(u"a", kToday - 91 * kDay);
    Keep(u"b", kToday - 89 * kDay);
    Keep(u"c", kToday);
    m_records.Limit(kToday, 90, kRoomy);
    EXPECT_EQ(Titles(), u"cb");
    m_records.Limit(kToday + kDay / 2, 1, kRoomy);
    EXPECT_EQ(Titles(), u"c");
}

TEST_F(HistoryLimitTest, AClockThatJumpsCostsNothing) {
    Keep(u"a", kToday - kDay);
    m_records.Limit(kToday, 90, kRoomy);
    m_records.Limit(kToday + 20000 * kDay, 90, kRoomy);
    m_records.Limit(kToday + 20000 * kDay + 3600, 90, kRoomy);
    Keep(u"b", kToday + 20000 * kDay);
    m_records.Limit(kToday + 60, 90, kRoomy);
    EXPECT_EQ(Titles(), u"ba");
    // Found in the order of the visits, whatever the clock said then.
    Keep(u"c", kToday + 120);
    EXPECT_EQ(Titles(), u"cba");
}

TEST_F(HistoryLimitTest, TheOldestGoWhereThereIsNoRoom) {
    Text words;
    for (int i = 0; i < 3000; ++i) words += u"word" + Decimal(i * 7919 % 100'003) + u" ";
    for (char16_t name = u'a'; name <= u'z'; ++name) Keep(Text(1, name), kToday, words + Text(1, name));
    m_records.Limit(kToday, 90, kRoomy);
    EXPECT_EQ(Titles().size(), 26U);
    QSqlQuery size = m_database.Run(QStringLiteral("PRAGMA page_count"));
    ASSERT_TRUE(size.next());
    const std::int64_t bytes = size.value(0).toLongLong() * 4096;
    m_records.Limit(kToday, 90, bytes / 2);
    const Text left = Titles();
    EXPECT_LT(left.size(), 16U);
    EXPECT_GT(left.size(), 5U);
    EXPECT_EQ(left.front(), u'z');
    m_records.Limit(kToday, 90, 1);
    EXPECT_EQ(Titles(), u"");
}

} // namespace

} // namespace tessa::qt
