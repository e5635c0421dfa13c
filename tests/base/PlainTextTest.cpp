#include "base/PlainText.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(PlainText, KeepsOrdinaryWordsAsTheyAre) {
    EXPECT_EQ(PlainLine(u"Gr\u00FC\u00DFe aus \u6771\u4EAC", 100), u"Gr\u00FC\u00DFe aus \u6771\u4EAC");
}

TEST(PlainText, TakesOutWhatTurnsTheDirectionAround) {
    EXPECT_EQ(PlainLine(u"evil\u202Egpj.exe\u202C\u2066x\u2069", 100), u"evil gpj.exe x");
}

TEST(PlainText, MakesOneLineOfControlsAndRunsOfBlanks) {
    EXPECT_EQ(PlainLine(u"  a\r\n\t b\u200B\uFEFFd  ", 100), u"a b d");
    EXPECT_EQ(PlainLine(TextView(u"a\0b", 3), 100), u"a b");
    EXPECT_EQ(PlainLine(u" a \u2028 e ", 100), u"a e");
}

TEST(PlainText, CutsWhatIsTooLongButNoCharacterInHalf) {
    EXPECT_EQ(PlainLine(u"abcd", 4), u"abcd");
    EXPECT_EQ(PlainLine(u"abcde", 4), u"abcd...");
    EXPECT_EQ(PlainLine(u"abc\U0001F600d", 4), u"abc...");
    EXPECT_EQ(PlainLine(Text(1'000'000, u'x'), 3), u"xxx...");
}

TEST(PlainText, KeepsAFewLinesApart) {
    EXPECT_EQ(PlainLines(u"one\r\ntwo", 5, 10), u"one\ntwo");
    EXPECT_EQ(PlainLines(u"1\n2\n3", 2, 10), u"1\n2\n...");
    EXPECT_EQ(PlainLines(u"", 5, 10), u"");
}

TEST(PlainText, AControlCharacterEndsNoFieldOfAFile) {
    EXPECT_EQ(WithoutControls("a\tb\r\nc\x1F d"), "a b  c  d");
    EXPECT_EQ(WithoutControls("gr\xC3\xBC\xC3\x9F\x7F"), "gr\xC3\xBC\xC3\x9F\x7F");
}

} // namespace

} // namespace tessa
