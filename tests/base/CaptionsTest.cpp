#include "base/Captions.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(Captions, OneLineShowsWhatCannotBeShown) {
    EXPECT_EQ(OneLine(u"News"), u"News");
    EXPECT_EQ(OneLine(u"a\nb\tc\u007f\u0085\u2028"), u"a\uFFFDb\uFFFDc\uFFFD\uFFFD\uFFFD");
}

TEST(Captions, OneLineKeepsForeignWritingButNotMarksThatTurnIt) {
    EXPECT_EQ(OneLine(u"\u05E9\u05DC\u05D5\u05DD \U0001F600"), u"\u05E9\u05DC\u05D5\u05DD \U0001F600");
    EXPECT_EQ(OneLine(u"a\u202Egvt.b\u200F\u2066"), u"a\uFFFDgvt.b\uFFFD\uFFFD");
}

TEST(Captions, OneLineMarksWhatIsNoTextInTheNameOfAFile) {
    EXPECT_EQ(OneLine(PathFromBytes("b\xFC-\xF0\x9F\x98\x80\xE2\x82.tvg")), u"b\uFFFD-\U0001F600\uFFFD\uFFFD.tvg");
}

TEST(Captions, AMenuCaptionHasNoAccessKeyOfTheNames) { EXPECT_EQ(MenuCaption(u"R&D && x\t"), u"R&&D &&&& x\uFFFD"); }

TEST(Captions, TheAccessKeyIsTheOneBehindTheFirstMark) {
    EXPECT_EQ(AccessKeyOf(u"&File"), u'F');
    EXPECT_EQ(AccessKeyOf(u"Sho&p"), u'P');
    EXPECT_EQ(AccessKeyOf(u"R&&D &now &x"), u'N');
    EXPECT_EQ(AccessKeyOf(u"&\u00E4"), u'\u00E4');
    for (const TextView none : {TextView(), TextView(u"File"), TextView(u"R&&D"), TextView(u"File&"), TextView(u"&")})
        EXPECT_EQ(AccessKeyOf(none), std::nullopt);
}

TEST(Captions, ATextComesBackFromItsCaption) {
    for (const TextView text : {u"", u"&", u"R&D && x", u"a&", u"a\tb"})
        EXPECT_EQ(PlainCaption(EscapedCaption(text)), text) << ToUtf8(text);
    EXPECT_EQ(EscapedCaption(u"R&D\t"), u"R&&D\t");
}

TEST(Captions, ACaptionReadsWithoutItsMarks) {
    EXPECT_EQ(PlainCaption(u"Save &As..."), u"Save As...");
    EXPECT_EQ(PlainCaption(u"R&&D&"), u"R&D") << "a mark of nothing";
    EXPECT_EQ(WithoutAccessKey(u"Save &As..."), u"Save As");
    EXPECT_EQ(WithoutAccessKey(u"E&xit"), u"Exit");
    EXPECT_EQ(WithoutAccessKey(u"..."), u"");
}

} // namespace

} // namespace tessa
