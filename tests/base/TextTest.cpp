// Tests: Units
#include "base/Text.h"

#include <gtest/gtest.h>
#include <random>

namespace tessa {

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

TEST(Text, AnyNameOfAFileComesBackByItsBytes) {
    std::string allBytes;
    for (int byte = 1; byte < 256; ++byte) allBytes.push_back(static_cast<char>(byte));
    for (const std::string& name : {std::string("b\xFC.tvg"), std::string("gr\xC3\xBC\xC3\x9F \xF0\x9F\x98\x80"),
                                    std::string("\xED\xA0\x80\xED\xB2\x80"), std::string("\xF0\x9F\x98\x80\x98"),
                                    std::string("\xE2\x82"), allBytes, allBytes + allBytes, std::string()})
        EXPECT_EQ(PathToBytes(PathFromBytes(name)), name);
    std::string random;
    std::minstd_rand numbers(20);
    for (int i = 0; i < 100'000; ++i) random.push_back(static_cast<char>(numbers() >> 8));
    EXPECT_EQ(PathToBytes(PathFromBytes(random)), random);
}

TEST(Text, ANameOfAFileIsTextWhereItCanBe) {
    EXPECT_EQ(PathFromBytes("gr\xC3\xBC\xC3\x9F"), u"gr\u00FC\u00DF");
    EXPECT_EQ(PathFromBytes("b\xFC.tvg"), (Text{u'b', char16_t{0xDCFC}, u'.', u't', u'v', u'g'}));
    EXPECT_EQ(PathToBytes(u"gr\u00FC\u00DF \U0001F600"), "gr\xC3\xBC\xC3\x9F \xF0\x9F\x98\x80");
    // Units that no name of a file gives: half a character, and a pair that looks like a kept byte.
    EXPECT_EQ(PathToBytes(Text{char16_t{0xD83D}, char16_t{0xDC00}, char16_t{0xDC80}}), "\xF0\x9F\x90\x80\x80");
    EXPECT_EQ(PathToBytes(Text{char16_t{0xDC80}, char16_t{0xD83D}, char16_t{0xDC80}}), "\x80\xF0\x9F\x92\x80");
    EXPECT_EQ(PathToBytes(Text{u'a', char16_t{0xD83D}, u'b', char16_t{0xDD00}}), "a\xEF\xBF\xBD"
                                                                                 "b\xEF\xBF\xBD");
}

TEST(Text, TheCutLosesTheCharacterThatItGoesThroughAndNoOther) {
    EXPECT_EQ(FromFirstBytes("gr\xC3\xBC\xC3\x9F", 5), u"gr\u00FC");
    EXPECT_EQ(FromFirstBytes("gr\xC3\xBC\xC3\x9F", 6), u"gr\u00FC\u00DF");
    EXPECT_EQ(FromFirstBytes("\xC3\xBC\xC3\x9Fx", 4), u"\u00FC\u00DF") << "the cut falls between two";
    for (const std::size_t most : {3U, 4U, 5U}) EXPECT_EQ(FromFirstBytes("\xC3\xBC\xF0\x9F\x98\x80", most), u"\u00FC");
    EXPECT_EQ(FromFirstBytes("\xF0\x9F\x98\x80", 2), u"");
    EXPECT_EQ(FromFirstBytes("abc", 0), u"");
    EXPECT_EQ(FromFirstBytes("abc", 9), u"abc");
}

TEST(Text, TheCutOfTextThatIsNoUtf8LosesNothing) {
    EXPECT_EQ(FromFirstBytes("caf\xE9 noir", 4), u"caf\u00E9");
    EXPECT_EQ(FromFirstBytes("caf\xE9", 4), u"caf\u00E9") << "and what ends there is not cut";
    EXPECT_EQ(FromFirstBytes("\xE9\xE9\xC3\xBCx", 3), u"\u00E9\u00E9\u00C3");
}

TEST(Text, ACutHalvesNoCharacterOfTwoUnits) {
    EXPECT_EQ(FirstUnits(u"a\U0001F600b", 2), u"a");
    EXPECT_EQ(FirstUnits(u"a\U0001F600b", 3), u"a\U0001F600");
    EXPECT_EQ(FirstUnits(u"a\U0001F600", 3), u"a\U0001F600");
    EXPECT_EQ(FirstUnits(u"\U0001F600", 1), u"");
    EXPECT_EQ(FirstUnits(u"abc", 0), u"");
    EXPECT_EQ(FirstUnits(u"", 5), u"");
    EXPECT_EQ(FirstUnits(Text{u'a', char16_t{0xD83D}, u'b'}, 2), (Text{u'a', char16_t{0xD83D}}));
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

TEST(Text, OnlyCapitalLettersOfAsciiBecomeSmall) {
    EXPECT_EQ(InSmallLetters(u"AZaz@[`{09:\u00C4\u0130"), u"azaz@[`{09:\u00C4\u0130");
    EXPECT_EQ(InSmallLetters(u""), u"");
}

TEST(Text, HalfACharacterAtTheEndIsDropped) {
    for (const auto& [text, whole] : {
             std::pair(Text{u'a', char16_t{0xD83D}}, Text(u"a")),
             std::pair(Text(u"a\U0001F600"), Text(u"a\U0001F600")),
             std::pair(Text{u'a', char16_t{0xDE00}}, Text{u'a', char16_t{0xDE00}}), // the second half of none
             std::pair(Text{char16_t{0xDBFF}}, Text()),
             std::pair(Text{char16_t{0xD800}, char16_t{0xD800}}, Text{char16_t{0xD800}}),
             std::pair(Text(), Text()),
         }) {
        Text cut = text;
        DropHalf(cut);
        EXPECT_EQ(cut, whole);
    }
}

TEST(Text, SurrogatesAreToldApart) {
    for (const char16_t high : {0xD800, 0xDBFF}) EXPECT_TRUE(IsHighSurrogate(high) && !IsLowSurrogate(high));
    for (const char16_t low : {0xDC00, 0xDFFF}) EXPECT_TRUE(IsLowSurrogate(low) && !IsHighSurrogate(low));
    for (const char16_t other : {0xD7FF, 0xE000}) EXPECT_FALSE(IsLowSurrogate(other) || IsHighSurrogate(other));
}

TEST(Text, OnlyItsEndsAreTrimmed) {
    const auto isStar = [](auto each) { return each == '*'; };
    EXPECT_EQ(TrimmedOf(TextView(u"**a*b*"), isStar), u"a*b");
    EXPECT_EQ(TrimmedOf(TextView(u"**"), isStar), u"");
    EXPECT_EQ(TrimmedOf(std::string_view(), isStar), "");
    EXPECT_EQ(TrimmedOf(std::string_view("a "), isStar), "a ");
}

} // namespace

} // namespace tessa
