// Tests: SearchFolding
#include "history/SearchText.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using namespace SearchText;

struct TextPair {
    Text given, expected;
};

TEST(SearchText, CaseAccentsAndWidthDoNotCount) {
    const TextPair rows[]{
        {u"Hello", u"hello"},
        {u"\u00C9t\u00E9 \u00DCber \u00C5ngstr\u00F6m", u"ete uber angstrom"},
        {u"\u0141\u00F3d\u017A \u010Ce\u0161k\u00E1", u"\u0142odz ceska"},
        {u"\u0130stanbul", u"istanbul"},
        {u"\u0391\u03B8\u03AE\u03BD\u03B1\u03C2", u"\u03B1\u03B8\u03B7\u03BD\u03B1\u03C3"},
        {u"\u041C\u043E\u0441\u043A\u0432\u0430 \u0401\u043B\u043A\u0430",
         u"\u043C\u043E\u0441\u043A\u0432\u0430 \u0435\u043B\u043A\u0430"},
        {u"H\u00E0 N\u1ED9i", u"ha noi"},
        {u"\uFF21\uFF42\uFF13", u"ab3"},
        {u"stra\u00DFe \u00E6", u"stra\u00DFe \u00E6"},
        {u"\u4E2D\u6587 \U00020000", u"\u4E2D\u6587 \U00020000"},
    };
    for (const TextPair& row : rows) EXPECT_EQ(ToUtf8(Folded(row.given)), ToUtf8(row.expected));
}

TEST(SearchText, TheIndexHasWordsAndPairsOfCharacters) {
    const TextPair rows[]{
        {u"", u""},
        {u"...!", u""},
        {u"Hello, World", u"hello world"},
        {u"https://example.org/a-b?c=1", u"https example org a b c 1"},
        {u"\u5929", u"\u5929"},
        {u"\u5929\u6C17", u"\u5929\u6C17 \u6C17"},
        {u"\u5929\u6C17\u4E88\u5831", u"\u5929\u6C17 \u6C17\u4E88 \u4E88\u5831 \u5831"},
        {u"iPhone\u624B\u673A", u"iphone \u624B\u673A \u673A"},
        {u"\u5929\u6C17\u3002\u96E8", u"\u5929\u6C17 \u6C17 \u96E8"},
        {u"\u0E2A\u0E27\u0E31\u0E2A", u"\u0E2A\u0E27 \u0E27\u0E31 \u0E31\u0E2A \u0E2A"},
        {u"\U00020000\U00020001", u"\U00020000\U00020001 \U00020001"},
        {u"cafe\u0301", u"cafe"},
        {Text(u"a\0b", 3), u"a b"},
    };
    for (const TextPair& row : rows) EXPECT_EQ(ToUtf8(ForIndex(row.given)), ToUtf8(row.expected));
}

TEST(SearchText, WhatIsTypedIsNoOperatorOfTheIndex) {
    const TextPair rows[]{
        {u"", u""},
        {u"  \"\" * - ( ) : ^ ", u""},
        {u"hello", u"\"hello\"*"},
        {u"hello wor", u"\"hello\"* \"wor\"*"},
        {u"AND OR NOT NEAR(a b)", u"\"and\"* \"or\"* \"not\"* \"near a\"* \"b\"*"},
        {u"title:x", u"\"title x\"*"},
        {u"foo-bar", u"\"foo bar\"*"},
        {u"\"exact words\" more", u"\"exact words\" \"more\"*"},
        {u"\"not closed", u"\"not\"* \"closed\"*"},
        {u"a\"b\"c", u"\"a\"* \"b\" \"c\"*"},
        {u"x' OR 1=1 --", u"\"x\"* \"or\"* \"1 1\"*"},
        {u"\u5929", u"\"\u5929\"*"},
        {u"\u5929\u6C17", u"\"\u5929\u6C17\""},
        {u"\u5929\u6C17\u4E88", u"\"\u5929\u6C17 \u6C17\u4E88\""},
        {u"iPhone\u624B\u673A", u"\"iphone\"* \"\u624B\u673A\""},
        {u"\u5929\u3000\u6C17", u"\"\u5929\"* \"\u6C17\"*"},
        {Text(u"a\0b", 3), u"\"a b\"*"},
    };
    for (const TextPair& row : rows) EXPECT_EQ(ToUtf8(QueryOf(PiecesOf(row.given))), ToUtf8(row.expected));
}

TEST(SearchText, NoMorePiecesAreSearchedThanSixteen) {
    Text typed;
    for (int i = 0; i < 100; ++i) typed += u"w ";
    EXPECT_EQ(PiecesOf(typed).size(), 16U);
    EXPECT_LT(QueryOf(PiecesOf(Text(100'000, u'x'))).size(), 600U);
}

/// The text with what was found in brackets.
Text Bracketed(TextView typed, TextView text) {
    Text shown(text);
    const auto pieces = PiecesOf(typed);
    const auto places = PlacesOf(pieces.at(0), text, 100);
    for (auto each = places.rbegin(); each != places.rend(); ++each) {
        shown.insert(each->At + each->Units, u"]");
        shown.insert(each->At, u"[");
    }
    return shown;
}

struct PlaceRow {
    Text typed, text, expected;
};

TEST(SearchText, PiecesAreFoundWhereTheyStand) {
    const PlaceRow rows[]{
        {u"wor", u"Hello World, sword, words", u"Hello [Wor]ld, sword, [wor]ds"},
        {u"\"word\"", u"word words WORD.", u"[word] words [WORD]."},
        {u"foo-bar", u"Foo Bar foo, barn foo x bar", u"[Foo Bar] [foo, bar]n foo x bar"},
        {u"ete", u"\u00C9t\u00E9 e\u0301te\u0301", u"[\u00C9t\u00E9] [e\u0301te\u0301]"},
        {u"\u6C17\u4E88", u"\u5929\u6C17\u4E88\u5831\u3001\u6C17\u4E88",
         u"\u5929[\u6C17\u4E88]\u5831\u3001[\u6C17\u4E88]"},
        {u"\u0E27\u0E31", u"\u0E2A\u0E27\u0E31\u0E2A", u"\u0E2A[\u0E27\u0E31]\u0E2A"},
        {u"\u624B", u"iPhone\u624B\u673A", u"iPhone[\u624B]\u673A"},
        {u"x", u"", u""},
        {u"abc", u"ab", u"ab"},
        {u"\u05E9\u05DC", u"\u05E9\u05DC\u05D5\u05DD", u"[\u05E9\u05DC]\u05D5\u05DD"},
    };
    for (const PlaceRow& row : rows) EXPECT_EQ(ToUtf8(Bracketed(row.typed, row.text)), ToUtf8(row.expected));
    EXPECT_TRUE(PlacesOf({}, u"text", 5).empty());
    EXPECT_EQ(PlacesOf(PiecesOf(u"a")[0], u"a a a a", 2).size(), 2U);
}

} // namespace

} // namespace tessa
