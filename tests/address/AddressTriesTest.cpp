#include "address/AddressTries.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

const Text kSecure = u"https://host/", kOld = u"http://host/";

AddressTries Typed() {
    AddressTries tries;
    tries.Begin(kSecure, kOld);
    return tries;
}

TEST(AddressTries, TheSecondComesWhenNoHostAnswersTheFirst) {
    auto tries = Typed();
    EXPECT_FALSE(tries.ShowsErrors());
    EXPECT_TRUE(tries.IsFirst(kSecure, true));
    EXPECT_EQ(tries.AfterFailure({.Address = kSecure, .Full = kSecure, .Unconnected = true}), kOld);
    EXPECT_TRUE(tries.ShowsErrors()) << "the second is the last";
    tries.Begin(kOld, {});
    EXPECT_EQ(tries.AfterFailure({.Address = kOld, .Full = kOld, .Unconnected = true, .Shown = true}), std::nullopt);
}

TEST(AddressTries, AHostThatAnswersGetsNoSecond) {
    auto tries = Typed();
    EXPECT_FALSE(tries.IsFirst(kSecure, false));
    EXPECT_EQ(tries.AfterFailure({.Address = kSecure, .Full = kSecure, .Shown = true}), std::nullopt);
    EXPECT_TRUE(tries.ShowsErrors());
}

TEST(AddressTries, AFailureThatNobodySawIsLoadedAgainToBeSeen) {
    auto tries = Typed();
    EXPECT_EQ(tries.AfterFailure({.Address = kSecure, .Full = u"https://me@host/"}), u"https://me@host/");
    EXPECT_EQ(tries.AfterFailure({.Address = kSecure, .Full = kSecure}), std::nullopt) << "once";
}

// The engine may not have heard yet that it is to show errors again.
TEST(AddressTries, HowTheSecondFailsIsShownToo) {
    auto tries = Typed();
    EXPECT_EQ(tries.AfterFailure({.Address = kSecure, .Full = kSecure, .Unconnected = true}), kOld);
    tries.Begin(kOld, {});
    EXPECT_EQ(tries.AfterFailure({.Address = kOld, .Full = kOld, .Unconnected = true}), kOld);
    EXPECT_EQ(tries.AfterFailure({.Address = kOld, .Full = kOld, .Unconnected = true}), std::nullopt) << "once";
}

TEST(AddressTries, WhatThePageShowsNextIsNotDisturbed) {
    auto tries = Typed();
    EXPECT_EQ(tries.AfterFailure({.Address = kSecure, .Full = kSecure, .Awaits = true}), std::nullopt);
}

TEST(AddressTries, OtherAddressesHaveNoSecond) {
    auto tries = Typed();
    EXPECT_FALSE(tries.IsFirst(u"https://other/", true));
    tries.DropUnlessFor(kSecure);
    EXPECT_FALSE(tries.ShowsErrors());
    tries.DropUnlessFor(u"https://other/");
    EXPECT_TRUE(tries.ShowsErrors());
    EXPECT_FALSE(tries.IsFirst(kSecure, true));
}

TEST(AddressTries, APageThatCameEndsThem) {
    auto tries = Typed();
    tries.NoteSuccess();
    EXPECT_TRUE(tries.ShowsErrors());
    EXPECT_EQ(tries.AfterFailure({.Address = kSecure, .Full = kSecure, .Unconnected = true}), std::nullopt);
}

TEST(AddressTries, AnAddressWithItsSchemeIsTriedOnce) {
    AddressTries tries;
    tries.Begin(kSecure, {});
    EXPECT_TRUE(tries.ShowsErrors());
    EXPECT_EQ(tries.AfterFailure({.Address = kSecure, .Full = kSecure, .Unconnected = true}), std::nullopt);
}

// The engine may show the error of the next load as little: it hears of the change too late.
TEST(AddressTries, AfterATryThatWasHiddenTheNextErrorMayBeHiddenToo) {
    auto tries = Typed();
    tries.Begin(u"https://other/", {});
    EXPECT_EQ(tries.AfterFailure({.Address = u"https://other/", .Full = u"https://other/"}), u"https://other/");
}

} // namespace

} // namespace tessa
