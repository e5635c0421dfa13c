#include "common/Text.h"

#include <gtest/gtest.h>

namespace {

TEST(Text, ReadsUtf8AndFallsBackToWindows1252) {
    EXPECT_EQ(FromBytes("gr\xC3\xBC\xC3\x9F"), u"grüß");
    EXPECT_EQ(FromBytes("gr\xFC\xDF"), u"grüß");
    EXPECT_EQ(FromBytes("\x80 5"), u"\u20AC 5");
    EXPECT_EQ(FromBytes("\x81"), Text(1, char16_t{0x81}));
}

TEST(Text, RefusesOverlongAndSurrogateUtf8) {
    EXPECT_FALSE(FromUtf8("\xC0\x80"));
    EXPECT_FALSE(FromUtf8("\xED\xA0\x80"));
    EXPECT_FALSE(FromUtf8("\xF4\x90\x80\x80"));
    EXPECT_FALSE(FromUtf8("\xE2\x82"));
    EXPECT_EQ(FromUtf8("\xF0\x9F\x98\x80"), u"\U0001F600");
}

TEST(Text, WritesUtf8WithUnpairedSurrogatesReplaced) {
    EXPECT_EQ(ToUtf8(u"\U0001F600"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(ToUtf8(Text{u'a', char16_t{0xD800}, u'b'}), "a\xEF\xBF\xBD"
                                                          "b");
    EXPECT_EQ(ToUtf8(Text{char16_t{0xDC00}}), "\xEF\xBF\xBD");
}

TEST(Text, WholeNumbersStayInTheir32BitRange) {
    EXPECT_EQ(Decimal(-17), u"-17");
    EXPECT_EQ(WholeNumber(u"+12"), 12);
    EXPECT_EQ(WholeNumber(u"-2147483648"), INT32_MIN);
    EXPECT_EQ(WholeNumber(u"2147483647"), INT32_MAX);
    EXPECT_FALSE(WholeNumber(u"2147483648"));
    EXPECT_FALSE(WholeNumber(u"-"));
    EXPECT_FALSE(WholeNumber(u""));
    EXPECT_FALSE(WholeNumber(u"1.5"));
    EXPECT_FALSE(WholeNumber(u"99999999999999999999999999"));
}

} // namespace
