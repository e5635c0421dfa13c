#include "pages/SitePermissions.h"

#include "tests/fakes/FakeSettings.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

/// Two instances of the program and the settings that they share.
struct TwoInstances : testing::Test {
    FakeSettings settings;
    SitePermissions one{settings}, other{settings};
    const SiteDecision camera{u"https://a.example", SitePermission::Camera, true};
    const SiteDecision popups{u"https://b.example", SitePermission::Popups, true};
};

TEST_F(TwoInstances, WhatOneRevokesWhileTheOtherRemembersStaysRevoked) {
    one.Remember(camera);
    settings.afterOpen = [&] { other.Forget(camera.Site, camera.Permission); };
    one.Remember(popups);
    EXPECT_EQ(one.All(), std::vector{popups});
}

TEST_F(TwoInstances, WhatOneRemembersWhileTheOtherRevokesStays) {
    one.Remember(camera);
    settings.afterOpen = [&] { other.Remember(popups); };
    one.Forget(camera.Site, camera.Permission);
    EXPECT_EQ(one.All(), std::vector{popups});
}

TEST_F(TwoInstances, OneAnswerASiteAndWishIsKeptTheLatest) {
    one.Remember(camera);
    SiteDecision blocked = camera;
    blocked.Allowed = false;
    settings.afterOpen = [&] { other.Remember(camera); };
    one.Remember(blocked);
    EXPECT_EQ(one.All(), std::vector{blocked});
}

TEST_F(TwoInstances, AfterAThousandTheOldestGoes) {
    for (int i = 0; i <= 1000; ++i) one.Remember({u"https://" + Decimal(i) + u".example", SitePermission::Fonts, true});
    EXPECT_EQ(one.All().size(), 1000U);
    EXPECT_EQ(one.All().front().Site, u"https://1.example");
}

} // namespace

} // namespace tessa
