#include "pages/LoadWords.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

std::string EndedFrom(LoadEnd end, std::int32_t status = 0, TextView host = u"a.example") {
    return ToUtf8(LoadWords::Ended(end, host, status));
}

TEST(LoadWordsTest, OnlyWhatHasLoadedIsDone) {
    EXPECT_EQ(EndedFrom(LoadEnd::Done), "Done");
    for (int i = static_cast<int>(LoadEnd::Stopped); i <= static_cast<int>(LoadEnd::Failed); ++i)
        EXPECT_EQ(EndedFrom(static_cast<LoadEnd>(i), 404).find("Done"), std::string::npos) << i;
}

TEST(LoadWordsTest, WhatFailedIsTold) {
    EXPECT_EQ(EndedFrom(LoadEnd::NoHost), "a.example could not be found.");
    EXPECT_EQ(EndedFrom(LoadEnd::Refused), "a.example did not take the connection.");
    EXPECT_EQ(EndedFrom(LoadEnd::TimedOut), "a.example did not answer.");
    EXPECT_EQ(EndedFrom(LoadEnd::Offline), "This computer is not connected to a network.");
    EXPECT_EQ(EndedFrom(LoadEnd::Certificate), "a.example could not prove who it is.");
    EXPECT_EQ(EndedFrom(LoadEnd::NoFile), "There is no such file.");
    EXPECT_EQ(EndedFrom(LoadEnd::Failed), "The page could not be loaded.");
    EXPECT_EQ(EndedFrom(LoadEnd::Stopped), "");
}

TEST(LoadWordsTest, AnAnswerIsToldWithItsNumber) {
    EXPECT_EQ(EndedFrom(LoadEnd::Answered, 404), "a.example has no such page (404).");
    EXPECT_EQ(EndedFrom(LoadEnd::Answered, 403), "a.example does not show this page to you (403).");
    EXPECT_EQ(EndedFrom(LoadEnd::Answered, 503), "a.example could not deliver the page (503).");
    EXPECT_EQ(EndedFrom(LoadEnd::Answered, 429), "a.example refused to deliver the page (429).");
}

TEST(LoadWordsTest, AHostCannotPushTheWordsAway) {
    EXPECT_EQ(EndedFrom(LoadEnd::NoHost, 0, u""), "The server could not be found.");
    EXPECT_EQ(EndedFrom(LoadEnd::NoHost, 0, Text(250, u'x')), std::string(60, 'x') + "... could not be found.");
}

TEST(LoadWordsTest, ALoadBeginsAndAPageDiesInWords) {
    EXPECT_EQ(ToUtf8(LoadWords::kBegun), "Connecting...");
    EXPECT_EQ(ToUtf8(LoadWords::kDied), "The page has stopped working.");
}

TEST(LoadWordsTest, ALinkIsAPlainLineOfBoundedLength) {
    EXPECT_EQ(LoadWords::Link(u""), u"");
    EXPECT_EQ(LoadWords::Link(u"https://a.example/%E2%80%AE"), u"https://a.example/%E2%80%AE");
    EXPECT_EQ(LoadWords::Link(u"https://a.example/\u202Eb\nc"), u"https://a.example/ b c");
    EXPECT_EQ(LoadWords::Link(Text(1000, u'x')), Text(1000, u'x'));
    EXPECT_EQ(LoadWords::Link(Text(1001, u'x')), Text(1000, u'x') + u"...");
}

} // namespace

} // namespace tessa
