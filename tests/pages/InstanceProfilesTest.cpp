#include "pages/InstanceProfiles.h"

#include <gtest/gtest.h>

#include <string>

namespace tessa {

namespace {

using InstanceProfiles::Claim;

/// Which number an instance gets, and which it has tried: "2: 1 2". A letter stands for each profile: free, taken or
/// impossible; those beyond are free.
std::string Chosen(const std::string& profiles) {
    std::string tried;
    const int number = InstanceProfiles::Lowest([&](int each) {
        tried += ' ' + std::to_string(each);
        const auto place = static_cast<std::size_t>(each - 1);
        const char is = place < profiles.size() ? profiles[place] : 'f';
        return is == 't' ? Claim::TakenByAnother : is == 'i' ? Claim::Impossible : Claim::Held;
    });
    return std::to_string(number) + ':' + tried;
}

TEST(InstanceProfiles, TheLowestThatIsFreeIsHeld) {
    EXPECT_EQ(Chosen(""), "1: 1");
    EXPECT_EQ(Chosen("t"), "2: 1 2");
    EXPECT_EQ(Chosen("tt"), "3: 1 2 3");
    EXPECT_EQ(Chosen("ft"), "1: 1");
    EXPECT_EQ(Chosen("tft"), "2: 1 2");
}

TEST(InstanceProfiles, OneThatIsImpossibleEndsTheSearch) {
    EXPECT_EQ(Chosen("i"), "0: 1");
    EXPECT_EQ(Chosen("ti"), "0: 1 2");
}

TEST(InstanceProfiles, TheSearchHasAnEnd) {
    const std::string all(InstanceProfiles::kMost, 't');
    EXPECT_EQ(Chosen(all).substr(0, 2), "0:");
    EXPECT_EQ(Chosen(all.substr(1)).substr(0, 4), std::to_string(InstanceProfiles::kMost) + ':');
}

TEST(InstanceProfiles, TheFirstHasNoNumberInItsName) {
    EXPECT_EQ(InstanceProfiles::Suffix(1), u"");
    EXPECT_EQ(InstanceProfiles::Suffix(2), u"-2");
    EXPECT_EQ(InstanceProfiles::Suffix(10), u"-10");
}

TEST(InstanceProfiles, OnlyWhatNobodyExpectsIsSaid) {
    const auto first = InstanceProfiles::WordsFor(1);
    EXPECT_EQ(first.Sign + first.Tip + first.Notice, u"");
    const auto third = InstanceProfiles::WordsFor(3);
    EXPECT_EQ(third.Sign, u"Profile 3");
    EXPECT_EQ(third.Tip, u"This window keeps cookies, logins and what pages store in a profile of its own, apart from "
                         u"the other windows of TessaView.");
    EXPECT_EQ(third.Notice, u"Another TessaView is open. This window has cookies and logins of its own: Profile 3.");
    const auto none = InstanceProfiles::WordsFor(0);
    EXPECT_EQ(none.Sign, u"Nothing kept");
    EXPECT_EQ(none.Tip, u"Cookies, logins and what pages store are forgotten when this window closes.");
    EXPECT_EQ(none.Notice,
              u"The folder for cookies cannot be used. This window forgets cookies and logins when it closes.");
}

} // namespace

} // namespace tessa
