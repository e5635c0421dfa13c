#include "downloads/PageSaves.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using Step = PageSaves::Step;

Text File(std::size_t number) { return u"https://a.example/" + Decimal(static_cast<std::int64_t>(number)); }

Step WantByItself(PageSaves& saves, TextView address) { return saves.Want(std::nullopt, false, address); }

/// A page that has saved as many files as it may unasked.
PageSaves Busy() {
    PageSaves saves;
    for (std::size_t i = 0; i < DownloadRule::kFree; ++i) EXPECT_EQ(WantByItself(saves, File(i)), Step::Save);
    return saves;
}

TEST(PageSaves, WhatIsDecidedForTheSiteHolds) {
    PageSaves saves;
    for (int i = 0; i < 10; ++i) EXPECT_EQ(saves.Want(true, false, File(1)), Step::Save);
    EXPECT_EQ(saves.Want(false, true, File(1)), Step::Refuse);
    for (std::size_t i = 0; i < DownloadRule::kFree; ++i) EXPECT_EQ(WantByItself(saves, File(i)), Step::Save);
}

TEST(PageSaves, MoreThanAFewFilesAreAskedAboutOnce) {
    PageSaves saves = Busy();
    EXPECT_EQ(WantByItself(saves, File(11)), Step::Ask);
    EXPECT_EQ(WantByItself(saves, File(12)), Step::Wait);
    EXPECT_EQ(saves.Answer(true), (std::vector<Text>{File(11), File(12)}));
    EXPECT_EQ(WantByItself(saves, File(13)), Step::Save);
    EXPECT_TRUE(saves.Answer(true).empty()) << "what was fetched is not fetched again";
}

TEST(PageSaves, ARefusalHoldsUntilAPersonGoesElsewhere) {
    PageSaves saves = Busy();
    EXPECT_EQ(WantByItself(saves, File(11)), Step::Ask);
    EXPECT_TRUE(saves.Answer(false).empty());
    EXPECT_EQ(WantByItself(saves, File(12)), Step::Refuse);
    EXPECT_EQ(saves.Want(std::nullopt, true, File(12)), Step::Refuse) << "a click does not end it";
    saves.BeginAnew();
    EXPECT_EQ(WantByItself(saves, File(13)), Step::Save);
}

TEST(PageSaves, WhoClicksForEachFileIsNotAsked) {
    PageSaves saves = Busy();
    for (std::size_t i = 0; i < 10; ++i) EXPECT_EQ(saves.Want(std::nullopt, true, File(i)), Step::Save);
}

TEST(PageSaves, TwentyFilesWait) {
    PageSaves saves = Busy();
    for (std::size_t i = 0; i < 30; ++i) EXPECT_EQ(WantByItself(saves, File(i)), i == 0 ? Step::Ask : Step::Wait);
    const auto fetched = saves.Answer(true);
    ASSERT_EQ(fetched.size(), 20U);
    EXPECT_EQ(fetched.back(), File(19));
}

TEST(PageSaves, WhatLiesInThePageItselfDoesNotWait) {
    PageSaves saves = Busy();
    EXPECT_EQ(WantByItself(saves, u"blob:https://a.example/1"), Step::Ask);
    for (const TextView each : {u"data:,x", u"file:///x", u"HTTP://a/"})
        EXPECT_EQ(WantByItself(saves, each), Step::Wait);
    EXPECT_EQ(saves.Answer(true), std::vector<Text>{u"HTTP://a/"});
}

TEST(PageSaves, AQuestionStaysOpenWhenTheRestBeginsAnew) {
    PageSaves saves = Busy();
    EXPECT_EQ(WantByItself(saves, File(11)), Step::Ask);
    saves.BeginAnew();
    for (std::size_t i = 0; i < DownloadRule::kFree; ++i) EXPECT_EQ(WantByItself(saves, File(i)), Step::Save);
    EXPECT_EQ(WantByItself(saves, File(12)), Step::Wait);
    EXPECT_EQ(saves.Answer(true), (std::vector<Text>{File(11), File(12)}));
}

} // namespace

} // namespace tessa
