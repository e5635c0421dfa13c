#include "pages/PopupWords.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

std::string Popups(const std::vector<Text>& places, PopupsHeld held = PopupsHeld::All) {
    return ToUtf8(PopupWords(u"a.example", places, held));
}

TEST(PopupWords, NameHowManyAndWhose) {
    EXPECT_EQ(Popups({u"ads.example"}), "a.example wants to open a window of ads.example.");
    EXPECT_EQ(Popups({u"x", u"x", u"y"}), "a.example wants to open 3 windows of x and y.");
    EXPECT_EQ(Popups({u"x", u"y", u"z", u"w"}), "a.example wants to open 4 windows of x, y, z and w.");
    EXPECT_EQ(Popups({u"x", u"y", u"z", u"w", u"v"}),
              "a.example wants to open 5 windows of x, y, z and 2 other sites.");
}

TEST(PopupWords, LeaveOutWhatIsOfNobody) {
    EXPECT_EQ(Popups({u""}), "a.example wants to open a window.");
    EXPECT_EQ(Popups({u"", u"x"}), "a.example wants to open 2 windows of x.");
}

TEST(PopupWords, SayWhenThereAreMore) {
    EXPECT_EQ(Popups({u"x", u"x"}, PopupsHeld::First), "a.example wants to open more than 2 windows of x.");
}

} // namespace

} // namespace tessa
