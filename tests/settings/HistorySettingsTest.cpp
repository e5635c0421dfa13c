#include "settings/HistorySettings.h"

#include "tests/fakes/FakeSettings.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(HistorySettings, KeepWhatTheUserHasSet) {
    FakeSettings storage;
    EXPECT_EQ(HistorySettings(storage).Get(), HistoryValues());
    const HistoryValues values{
        .nothing = true, .texts = false, .days = 7, .megabytes = 100, .leftOut = u"bank.example, a.org"};
    HistorySettings(storage).Set(values);
    EXPECT_EQ(HistorySettings(storage).Get(), values);
}

TEST(HistorySettings, WhatIsOutOfRangeCountsAsNeverWritten) {
    FakeSettings storage;
    for (const std::int32_t days : {0, -5, 3651}) {
        for (const std::int32_t megabytes : {0, -1, 9, 100'001}) {
            HistorySettings(storage).Set({.days = days, .megabytes = megabytes});
            EXPECT_EQ(HistorySettings(storage).Get(), HistoryValues()) << days << ' ' << megabytes;
        }
    }
}

TEST(HistorySettings, ATextIsNotInTheReport) {
    FakeSettings storage;
    HistorySettings(storage).Set({.days = 7, .leftOut = u"bank.example"});
    for (const Text& each : HistorySettings(storage).Differences()) EXPECT_EQ(each.find(u"bank"), Text::npos);
    EXPECT_FALSE(HistorySettings(storage).Differences().empty());
}

} // namespace

} // namespace tessa
