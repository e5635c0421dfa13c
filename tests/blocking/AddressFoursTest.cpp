#include "blocking/AddressFours.h"

#include <gtest/gtest.h>
#include <string>

namespace tessa {

namespace {

// The rarest of one pattern among several.
PackedFours RarestAmong(std::string_view pattern, const std::vector<std::string_view>& others) {
    FourCounts counts;
    counts.Count(pattern);
    for (const std::string_view each : others) counts.Count(each);
    return counts.RarestOf(pattern);
}

bool MayHold(std::string_view address, std::string_view pattern) {
    AddressFours fours;
    fours.Read(address);
    return fours.MayHold(RarestAmong(pattern, {}));
}

TEST(AddressFours, AnAddressThatHoldsThePatternIsNeverRuledOut) {
    const std::string address = "https://www.example.com/path/ads_banner.js?a=1";
    for (std::size_t begin = 0; begin < address.size(); ++begin)
        for (std::size_t length = 0; length <= address.size() - begin; ++length)
            EXPECT_TRUE(MayHold(address, address.substr(begin, length))) << begin << ' ' << length;
}

TEST(AddressFours, AnAddressWithoutThemIsRuledOut) {
    EXPECT_FALSE(MayHold("https://a.example/", "/banner/"));
    EXPECT_FALSE(MayHold("", "/banner/"));
    EXPECT_FALSE(MayHold("ban", "/banner/"));
}

TEST(AddressFours, WhatStandsForOthersIsNoFour) {
    EXPECT_TRUE(MayHold("https://a.example/bann-1-er", "bann*er^"));
    EXPECT_TRUE(MayHold("https://a.example/bann", "bann^"));
    EXPECT_FALSE(MayHold("https://a.example/", "bann*er^"));
    for (const std::string_view each : {"", "abc", "*", "^", "ab*cd", "a^bc", "***^^^*", "abc*def^ghi"})
        EXPECT_EQ(RarestAmong(each, {}), 0U) << each;
}

TEST(AddressFours, ThoseThatFewPatternsHaveAreTaken) {
    const std::string_view rare = "zzqx";
    EXPECT_EQ(RarestAmong("/adszzqx", {"/ads", "/adsz", "/adszz", "/adszzq"}) & 0xFFFFU, NameOfFour(rare.data()));
}

TEST(AddressFours, AVeryLongAddressIsNotRuledOut) {
    EXPECT_TRUE(MayHold(std::string(100'000, 'a'), "/banner/"));
    EXPECT_FALSE(MayHold(std::string(4000, 'a'), "/banner/"));
}

} // namespace

} // namespace tessa
