#include "settings/Numeric.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(Numeric, TakesSignsDecimalsExponentsAndBlanksAround) {
    for (const TextView text : {u"0", u"007", u"-5", u"+5", u"2.5", u".5", u"5.", u"-.5", u"1e3", u"1E-3", u"2.5e+1",
                                u" 7 ", u"\t7", u"99999999999999999999", u"1e999999999999999999999"}) {
        EXPECT_TRUE(IsNumeric(text)) << ToUtf8(text);
    }
}

TEST(Numeric, RefusesEverythingElse) {
    for (const TextView text :
         {u"",    u" ",  u"-",     u".",   u"-.",  u"abc",   u"1a",  u"1e",   u"1e+",    u"e5",
          u"--5", u"5-", u"1.2.3", u"1 2", u"- 5", u"1,000", u"2,5", u"0x10", u"\u0663", u"\uFF15"}) {
        EXPECT_FALSE(IsNumeric(text)) << ToUtf8(text);
        EXPECT_FALSE(RoundedNumber(text)) << ToUtf8(text);
    }
    EXPECT_FALSE(IsNumeric(Text(1, char16_t{0})));
}

TEST(Numeric, RoundsToTheNearestAndHalvesToEven) {
    EXPECT_EQ(RoundedNumber(u"2.5"), 2);
    EXPECT_EQ(RoundedNumber(u"3.5"), 4);
    EXPECT_EQ(RoundedNumber(u"0.5"), 0);
    EXPECT_EQ(RoundedNumber(u"1.5"), 2);
    EXPECT_EQ(RoundedNumber(u"-2.5"), -2);
    EXPECT_EQ(RoundedNumber(u"-1.5"), -2);
    EXPECT_EQ(RoundedNumber(u"2.49999999999999999999999"), 2);
    EXPECT_EQ(RoundedNumber(u"2.50000000000000000000001"), 3);
    EXPECT_EQ(RoundedNumber(u".51"), 1);
    EXPECT_EQ(RoundedNumber(u"0.05e1"), 0);
    EXPECT_EQ(RoundedNumber(u"0.051e1"), 1);
    EXPECT_EQ(RoundedNumber(u"9.5"), 10);
}

TEST(Numeric, MovesThePointByTheExponent) {
    EXPECT_EQ(RoundedNumber(u"1e3"), 1000);
    EXPECT_EQ(RoundedNumber(u"12345e-2"), 123);
    EXPECT_EQ(RoundedNumber(u"1e-400"), 0);
    EXPECT_EQ(RoundedNumber(u"0e999999999999"), 0);
    EXPECT_EQ(RoundedNumber(u"0.000001e7"), 10);
    EXPECT_EQ(RoundedNumber(Text(u"1") + Text(400, u'0') + u"e-400"), 1);
    EXPECT_EQ(RoundedNumber(Text(u"0.") + Text(400, u'0') + u"7"), 0);
}

TEST(Numeric, AnswersNothingBeyond32Bits) {
    EXPECT_EQ(RoundedNumber(u"2147483647"), INT32_MAX);
    EXPECT_EQ(RoundedNumber(u"2147483647.4"), INT32_MAX);
    EXPECT_FALSE(RoundedNumber(u"2147483647.5"));
    EXPECT_FALSE(RoundedNumber(u"2147483648"));
    EXPECT_EQ(RoundedNumber(u"-2147483648.5"), INT32_MIN);
    EXPECT_FALSE(RoundedNumber(u"-2147483649"));
    EXPECT_FALSE(RoundedNumber(u"1e10"));
    EXPECT_FALSE(RoundedNumber(u"99999999999999999999"));
    EXPECT_FALSE(RoundedNumber(u"1e99999999999999999999"));
}

} // namespace

} // namespace tessa
