#include "tabpanel/TabFilter.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

bool Finds(TextView typed, const std::vector<TextView>& said) { return TabFilter(typed).Fits(said); }

TEST(TabFilter, NothingTypedLeavesNothingOut) {
    EXPECT_FALSE(TabFilter().Any());
    EXPECT_FALSE(TabFilter(u" \t\u3000 ").Any());
    EXPECT_TRUE(Finds(u"", {}));
}

TEST(TabFilter, EachWordHasToBeSomewhere) {
    EXPECT_TRUE(Finds(u"gard 8080", {u"The Garden", u"http://host:8080/"}));
    EXPECT_TRUE(Finds(u"arde", {u"The Garden"})) << "words need not begin there";
    EXPECT_FALSE(Finds(u"garden pond", {u"The Garden", u"http://host/"}));
    EXPECT_FALSE(Finds(u"denhttp", {u"Garden", u"http://host/"})) << "no word goes from one text to the other";
}

TEST(TabFilter, CaseAccentsAndWidthDoNotCount) {
    EXPECT_TRUE(Finds(u"ELEVE", {u"\u00C9l\u00E8ve"}));
    EXPECT_TRUE(Finds(u"e\u0301l", {u"\u00C9l\u00E8ve"})) << "an accent of its own";
    EXPECT_TRUE(Finds(u"\uFF21\uFF22", {u"ab"}));
    EXPECT_TRUE(Finds(u"\u0416\u0423\u041A", {u"\u0436\u0443\u043A"}));
}

TEST(TabFilter, AnyCharactersAreLookedForAsTheyStand) {
    EXPECT_TRUE(Finds(u"://", {u"http://host/"}));
    EXPECT_TRUE(Finds(u".*[", {u"a.*[b"}));
    EXPECT_FALSE(Finds(u".*", {u"anything"}));
    EXPECT_TRUE(Finds(u"\u05E9\u05DC", {u"\u05E9\u05DC\u05D5\u05DD"}));
    EXPECT_TRUE(Finds(u"\u4E2D", {u"\u65E5\u4E2D\u53CB"}));
    EXPECT_TRUE(Finds(Text{0xD83D}, {Text{0xD83D, 0xDE00}})) << "half a character does no harm";
    EXPECT_FALSE(Finds(Text(5000, u'x'), {u"x"}));
}

} // namespace

} // namespace tessa
