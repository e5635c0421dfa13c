// Tests: NewsWords
#include "history/NewsKey.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

struct SamePair {
    Text one, other;
};

TEST(NewsKey, WhatChangesByItselfDoesNotCount) {
    const SamePair rows[]{
        {u"It is 14:05", u"It is 15:42:10"},
        {u"9:05 am", u"11:59 pm"},
        {u"Updated 5 minutes ago", u"Updated 2 hours ago"},
        {u"Posted just now", u"Posted 3 days ago"},
        {u"vor 5 Minuten", u"vor 2 Stunden"},
        {u"il y a 3 jours", u"il y a 2 heures"},
        {u"hace 3 horas", u"hace 5 minutos"},
        {u"by Ann, 3h ago", u"by Ann, 5m ago"},
        {u"Monday, November 23, 2026", u"Tuesday, December 1, 2026"},
        {u"23. November 2026", u"1. Dezember 2026"},
        {u"Last change: 2026-11-23", u"Last change: 2025-01-02"},
        {u"Built 2026-11-23T10:00:00Z", u"Built 2026-11-24T11:30:12Z"},
        {u"On 11/23/26 by Ann", u"On 12/1/26 by Ann"},
        {u"1,234 views", u"1,240 views"},
        {u"1 comment", u"15 comments"},
        {u"Comments: 15", u"Comments: 16"},
        {u"12.5k followers", u"13k followers"},
        {u"37 users online, 5 guests", u"41 users online, 9 guests"},
        {u"345 Aufrufe", u"400 Aufrufe"},
        {u"17 people are viewing this", u"23 people are viewing this"},
        {u"Visitors now: 12", u"Visitors now: 18"},
        {u"2026\u5E7411\u670823\u65E5", u"2025\u5E741\u67082\u65E5"},
        {u"3\u5206\u524D\u306B\u66F4\u65B0", u"10\u5206\u524D\u306B\u66F4\u65B0"},
        {u"  Same   words", u"same words"},
    };
    for (const SamePair& row : rows)
        EXPECT_EQ(ToUtf8(NewsKey::MaskedOf(row.one)), ToUtf8(NewsKey::MaskedOf(row.other)));
}

TEST(NewsKey, WhatSomebodyWantsToKnowCounts) {
    const SamePair rows[]{
        {u"19.99 \u20AC", u"17.99 \u20AC"},
        {u"$5", u"$6"},
        {u"12\u00B0", u"7\u00B0"},
        {u"Rain 30%", u"Rain 80%"},
        {u"Platform 3", u"Platform 5"},
        {u"Build 1234 passed", u"Build 1235 failed"},
        {u"Delay: 10 minutes", u"Delay: 25 minutes"},
        {u"+10 min", u"+25 min"},
        {u"Version 3.2.159", u"Version 3.2.160"},
        {u"May the best win", u"March the best win"},
        {u"Temperature 1.2.3", u"Temperature 1.2.4"},
        {u"\u5929\u6C17", u"\u96E8"},
    };
    for (const SamePair& row : rows)
        EXPECT_NE(ToUtf8(NewsKey::MaskedOf(row.one)), ToUtf8(NewsKey::MaskedOf(row.other)));
}

TEST(NewsKey, AClockOrACounterAloneSaysNothing) {
    for (const Text passage : {u"14:05", u"1,234", u"5m", u"3h ago", u"\u2022", u"---", u"Monday", u"2026-11-23", u"",
                               u"12 Nov 2026", u"10\u6642\u300C5\u5206\u300D", u"(17)"})
        EXPECT_EQ(NewsKey::Of(passage), 0U) << ToUtf8(passage) << ": " << ToUtf8(NewsKey::MaskedOf(passage));
    for (const Text passage : {u"No", u"\u5929", u"5 \u20AC", u"A1"})
        EXPECT_NE(NewsKey::Of(passage), 0U) << ToUtf8(passage);
}

TEST(NewsKey, IsTheSameAtEachRun) {
    EXPECT_EQ(NewsKey::Of(u"hello"), NewsKey::Of(u"Hello,"));
    EXPECT_EQ(NewsKey::Of(u"hello"), 3645188298146990999U);
}

TEST(NewsKey, AnAdvertisementSaysSo) {
    for (const Text sign : {u"Advertisement", u"Sponsored by Acme", u"- Anzeige -", u"PUBLICIT\u00C9", u"Promoted"})
        EXPECT_TRUE(NewsKey::SaysAdvertisement(sign)) << ToUtf8(sign);
    for (const Text other : {u"", u"Advice", u"The advertisement was good"})
        EXPECT_FALSE(NewsKey::SaysAdvertisement(other)) << ToUtf8(other);
    EXPECT_FALSE(NewsKey::SaysAdvertisement(u"Sponsored " + Text(300, u'x')));
}

} // namespace

} // namespace tessa
