// Tests: CKeyValues, CStrings
#include "base/CKeyValues.h"
#include "base/CStrings.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

std::string Names(const CKeyValues& items) {
    std::string names;
    for (const auto& item : items) names += ToUtf8(item.Key) + "=" + ToUtf8(item.Value) + " ";
    return names;
}

TEST(CStrings, KeepsTheOrderInWhichItemsCame) {
    CStrings strings;
    strings.Add(u"b");
    strings.Add(u"a", u"first");
    strings.Add(u"b");
    std::string all;
    for (const auto& item : strings) all += ToUtf8(item.Key);
    EXPECT_EQ(all, "bab");
    EXPECT_EQ(strings.Count(), 3u);
    EXPECT_EQ(strings.FindItem(Text(u"first"))->Key, u"a");
    EXPECT_EQ(strings.FindItem(std::size_t{3})->Key, u"b");
}

TEST(CStrings, FindsNothingOutsideItsRangeOrByAnUnknownKey) {
    CStrings strings;
    strings.Add(u"a");
    EXPECT_EQ(strings.FindItem(std::size_t{0}), nullptr);
    EXPECT_EQ(strings.FindItem(std::size_t{2}), nullptr);
    EXPECT_EQ(strings.FindItem(Text(u"")), nullptr);
    EXPECT_EQ(strings.FindItem(Text(u"a")), nullptr);
}

TEST(CStrings, RefusesAKeyInUse) {
    CStrings strings;
    EXPECT_NE(strings.Add(u"a", u"k"), nullptr);
    EXPECT_EQ(strings.Add(u"b", u"k"), nullptr);
    strings.Remove(Text(u"k"));
    EXPECT_EQ(strings.Count(), 0u);
    EXPECT_NE(strings.Add(u"b", u"k"), nullptr);
}

TEST(CKeyValues, SortsInBinaryOrder) {
    CKeyValues items;
    items.Add(u"beta", u"1");
    items.Add(u"Alpha", u"2");
    items.Add(u"alpha", u"3");
    EXPECT_EQ(Names(items), "Alpha=2 alpha=3 beta=1 ");
}

TEST(CKeyValues, EqualKeysKeepTheirArrivalOrder) {
    CKeyValues items;
    items.Add(u"a", u"1");
    items.Add(u"b", u"2");
    items.Add(u"a", u"3");
    EXPECT_EQ(Names(items), "a=1 a=3 b=2 ");
    EXPECT_EQ(items.FindItem(Text(u"a"))->Value, u"1");
    items.Remove(std::size_t{2});
    EXPECT_EQ(Names(items), "a=1 b=2 ");
    items.Remove(Text(u"zz"));
    EXPECT_EQ(items.Count(), 2u);
}

} // namespace

} // namespace tessa
