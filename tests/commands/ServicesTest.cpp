#include "commands/Services.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

std::string Target(std::string_view url, const ServiceTemplates& templates = {}) {
    return Services::TargetOf(url, templates).value_or("(stays)");
}

TEST(Services, OtherAddressesStay) {
    EXPECT_EQ(Target("https://example.org/?Keywords=x"), "(stays)");
    EXPECT_EQ(Target("https://search.tessaview.example.evil.org/?Keywords=x"), "(stays)");
    EXPECT_EQ(Target("search.tessaview.example"), "(stays)");
    EXPECT_EQ(Target(""), "(stays)");
}

TEST(Services, WordsReachTheSearchServiceAsTheyAreSent) {
    const std::string asked = "https://search.tessaview.example/d/search/p/tessaview/?Keywords=a%20%26%20b%23c%25%2B";
    EXPECT_EQ(Target(asked), "https://duckduckgo.com/?q=a%20%26%20b%23c%25%2B");
    EXPECT_EQ(Target(asked, {u"http://one.example/find?x=%s&y=1", {}, {}}),
              "http://one.example/find?x=a%20%26%20b%23c%25%2B&y=1");
}

TEST(Services, TheSearchStartPageIsThatOfTheService) {
    const std::string asked = "https://search.tessaview.example/d/redirect?Partner=tessaview&url=http%3a%2f%2fx";
    EXPECT_EQ(Target(asked), "https://duckduckgo.com/");
    EXPECT_EQ(Target(asked, {u"http://one.example:81/find?x=%s", {}, {}}), "http://one.example:81/");
}

TEST(Services, ShopLinksAskForTheLinksName) {
    EXPECT_EQ(Target("https://ads.tessaview.example/ad.asp?id=cds"), "https://duckduckgo.com/?q=buy+Music");
    EXPECT_EQ(Target("https://ads.tessaview.example/ad.asp?id=homesloans", {{}, u"http://s/%s", {}}),
              "http://s/Homes%20%26%20Loans");
    EXPECT_EQ(Target("https://ads.tessaview.example/ad.asp?id=other", {{}, u"http://s/%s", {}}), "http://s/other");
}

TEST(Services, FindLinksLeadToTheirService) {
    EXPECT_EQ(Target("https://find.tessaview.example/find.asp?id=reference"), "https://www.wikipedia.org/");
    EXPECT_EQ(Target("https://find.tessaview.example/find.asp?id=weather", {{}, {}, u"http://f/?q=%s"}),
              "http://f/?q=Weather");
    EXPECT_EQ(Target("https://find.tessaview.example/find.asp"), "https://duckduckgo.com/?q=");
}

} // namespace

} // namespace tessa
