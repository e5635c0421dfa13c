#include "history/Snippets.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using SearchText::PiecesOf;

Text Shown(const Snippet& snippet) {
    Text all;
    for (const SnippetPart& each : snippet) all += each.Marked ? u"[" + each.Words + u"]" : each.Words;
    return all;
}

struct SnippetRow {
    Text typed, text;
    std::size_t most;
    Text expected;
};

TEST(Snippets, ShowWhereTheWordsStand) {
    const SnippetRow rows[]{
        {u"", u"A short text", 100, u"A short text"},
        {u"", u"A text that is longer than that", 10, u"A text that ..."},
        {u"short", u"A short text", 100, u"A [short] text"},
        {u"nothing", u"A short text", 100, u"A short text"},
        {u"end", u"One two three four five six seven eight nine ten the end", 24, u"...the [end]"},
        {u"a ab", u"abc", 10, u"[ab]c"},
        {u"one two", u"two one two", 100, u"[two] [one] [two]"},
        {u"\u6C17", u"\u5929\u6C17\u4E88\u5831", 100, u"\u5929[\u6C17]\u4E88\u5831"},
        {u"x", u"", 10, u""},
        {u"q", Text(100, u'\xD83D'), 10, Text(10, u'\xD83D') + u"..."},
    };
    for (const SnippetRow& row : rows)
        EXPECT_EQ(ToUtf8(Shown(Snippets::Of(PiecesOf(row.typed), row.text, row.most))), ToUtf8(row.expected))
            << ToUtf8(row.typed);
}

TEST(Snippets, ACutGoesThroughNoCharacter) {
    Text text;
    for (int i = 0; i < 60; ++i) text += u"\U0001F600";
    for (std::size_t most = 1; most < 40; ++most) {
        const Text shown = Shown(Snippets::Of({}, text, most));
        for (std::size_t i = 0; i < shown.size(); ++i) EXPECT_FALSE(IsUnpaired(shown, i)) << most;
    }
}

TEST(Snippets, EachWordMayStandInAnotherText) {
    EXPECT_TRUE(Snippets::HoldAll(PiecesOf(u"one two"), {u"has one", u"and Two"}));
    EXPECT_FALSE(Snippets::HoldAll(PiecesOf(u"one three"), {u"has one", u"and two"}));
    EXPECT_TRUE(Snippets::HoldAll({}, {}));
}

TEST(Snippets, ThePassagesWithMostWordsAreShownInTheOrderOfThePage) {
    const std::vector<Passage> passages{{PassageKind::Words, u"only apples"},
                                        {PassageKind::Words, u"nothing"},
                                        {PassageKind::Heading, u"apples and pears"},
                                        {PassageKind::Words, u"only pears"},
                                        {PassageKind::Words, u"pears and apples"}};
    Text found;
    for (const FoundPassage& each : Snippets::Best(PiecesOf(u"apples pears"), passages, {}, 3, 100))
        found += Decimal(static_cast<std::int64_t>(each.Number)) + u":" + Shown(each.Shown) + u"|";
    EXPECT_EQ(ToUtf8(found), "0:only [apples]|2:[apples] and [pears]|4:[pears] and [apples]|");
    EXPECT_TRUE(Snippets::Best(PiecesOf(u"plums"), passages, {}, 3, 100).empty());
    // A heading that is the title once more says nothing beneath it.
    const auto beneath = Snippets::Best(PiecesOf(u"apples pears"), passages, u"apples and pears", 1, 100);
    ASSERT_EQ(beneath.size(), 1U);
    EXPECT_EQ(beneath.front().Number, 4U);
}

} // namespace

} // namespace tessa
