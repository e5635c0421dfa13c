#include "pages/ExternalSchemes.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(ExternalSchemes, WhatTheEngineShowsAndMailAreNotExternal) {
    for (const TextView own : {u"http", u"https", u"file", u"data", u"blob", u"about", u"javascript", u"view-source",
                               u"tessaview", u"mailto", u"chrome-untrusted", u""})
        EXPECT_FALSE(ExternalSchemes::IsExternal(own)) << ToUtf8(own);
    for (const TextView other : {u"tel", u"ftp", u"magnet", u"zoommtg", u"x-foo.bar+1", u"httpx"})
        EXPECT_TRUE(ExternalSchemes::IsExternal(other)) << ToUtf8(other);
}

TEST(ExternalSchemes, EachSchemeAndSiteIsAskedAboutOnce) {
    ExternalSchemes schemes;
    EXPECT_EQ(schemes.RuleFor(u"tel", u"a.example"), ExternalRule::Ask);
    schemes.Remember(u"tel", u"a.example", true);
    schemes.Remember(u"tel", u"b.example", false);
    EXPECT_EQ(schemes.RuleFor(u"tel", u"a.example"), ExternalRule::Open);
    EXPECT_EQ(schemes.RuleFor(u"tel", u"b.example"), ExternalRule::Refuse);
    EXPECT_EQ(schemes.RuleFor(u"tel", u"c.example"), ExternalRule::Ask) << "another site";
    EXPECT_EQ(schemes.RuleFor(u"magnet", u"a.example"), ExternalRule::Ask) << "another scheme";
    EXPECT_EQ(schemes.RuleFor(u"tel", u""), ExternalRule::Ask) << "the user's own";
}

} // namespace

} // namespace tessa
