// Tests: SiteDomain, SafeRegex
#include "blocking/libraries/SiteDomain.h"
#include "blocking/libraries/SafeRegex.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(SiteDomain, IsWhatSomebodyHasRegistered) {
    const std::vector<std::pair<const char*, const char*>> cases{{"www.example.com", "example.com"},
                                                                 {"a.b.example.co.uk", "example.co.uk"},
                                                                 {"example.com", "example.com"},
                                                                 {"com", "com"},
                                                                 {"localhost", "localhost"},
                                                                 {"127.0.0.1", "127.0.0.1"},
                                                                 {"[::1]", "[::1]"},
                                                                 {"a.github.io", "a.github.io"},
                                                                 {"", ""},
                                                                 {"www.xn--f1a.com", "xn--f1a.com"}};
    for (const auto& [host, site] : cases) EXPECT_EQ(SiteDomainOf(host), site) << host;
}

TEST(SafeRegex, TakesItsTimeFromTheTextAlone) {
    const SafeRegex bomb("(a+)+$", SafeRegex::Letters::AsTheyStand);
    EXPECT_FALSE(bomb.Finds(std::string(100000, 'a') + "b"));
    EXPECT_TRUE(SafeRegex("AD[0-9]", SafeRegex::Letters::BigAsSmall).Finds("ad1"));
    EXPECT_FALSE(SafeRegex("AD[0-9]", SafeRegex::Letters::AsTheyStand).Finds("ad1"));
    for (const char* bad : {"(?=x)", "(", "[", "\\1", "((((a{1000}){1000}){1000}){1000})"}) {
        const SafeRegex regex(bad, SafeRegex::Letters::AsTheyStand);
        EXPECT_FALSE(regex.IsValid()) << bad;
        EXPECT_FALSE(regex.Finds("x"));
    }
}

} // namespace

} // namespace tessa
