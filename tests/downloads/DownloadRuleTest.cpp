#include "downloads/DownloadRule.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(DownloadRule, LetsAPageSaveAFewFilesByItself) {
    DownloadRule rule;
    EXPECT_TRUE(rule.Take() && rule.Take() && rule.Take());
    EXPECT_FALSE(rule.Take());
    rule.PersonNavigated();
    EXPECT_TRUE(rule.Take());
    rule.Allow();
    for (int i = 0; i < 100; ++i) EXPECT_TRUE(rule.Take());
}

TEST(DownloadRule, ARefusalOutlastsClicks) {
    DownloadRule rule;
    for (std::size_t i = 0; i < DownloadRule::kFree; ++i) EXPECT_TRUE(rule.Take());
    rule.PersonActed();
    EXPECT_TRUE(rule.Take()) << "what is clicked for is wanted";
    rule.Refuse();
    rule.PersonActed();
    EXPECT_FALSE(rule.Take());
    EXPECT_TRUE(rule.Refused());
    rule.PersonNavigated();
    EXPECT_TRUE(rule.Take());
}

} // namespace

} // namespace tessa
