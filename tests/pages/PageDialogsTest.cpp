#include "pages/PageDialogs.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(PageDialogRule, OffersSilenceFromTheSecondDialogOn) {
    PageDialogRule rule;
    EXPECT_FALSE(rule.OffersSilence());
    rule.Shown();
    EXPECT_TRUE(rule.OffersSilence());
    rule.Shown();
    EXPECT_TRUE(rule.OffersSilence());
    EXPECT_FALSE(rule.Silenced()) << "only the user silences";
}

TEST(PageDialogRule, LetsAPageSpeakAgainOnceAPersonHasGoneElsewhere) {
    PageDialogRule rule;
    rule.Shown();
    rule.Silence();
    EXPECT_TRUE(rule.Silenced());
    rule.PersonNavigated();
    EXPECT_FALSE(rule.Silenced());
    EXPECT_FALSE(rule.OffersSilence());
}

} // namespace

} // namespace tessa
