#include "history/ReadingRound.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

struct RoundRow {
    const char* tabs; ///< "u" unread, "r" read, "-" nothing to read
    std::int32_t front, next;
    std::size_t left;
};

TEST(ReadingRound, GoesToTheNextTabThatWasNotRead) {
    const RoundRow rows[]{
        {"", 0, 0, 0},    {"u", 1, 0, 0},   {"ru", 1, 2, 1},  {"rru", 1, 3, 1},  {"ur", 2, 1, 1},
        {"uur", 2, 1, 1}, {"uuu", 2, 3, 2}, {"r-r", 1, 0, 0}, {"r-u", 1, 3, 1},  {"rrr", 2, 0, 0},
        {"uu", 0, 1, 2},  {"uu", 9, 1, 2},  {"-", 1, 0, 0},   {"uruu", 3, 4, 2},
    };
    for (const RoundRow& row : rows) {
        std::vector<TabOfRound> tabs;
        for (const char* each = row.tabs; *each; ++each)
            tabs.push_back({static_cast<std::int32_t>(tabs.size()) + 1, *each != '-', *each == 'r'});
        EXPECT_EQ(ReadingRound::Next(tabs, row.front), row.next) << row.tabs << row.front;
        EXPECT_EQ(ReadingRound::CountLeft(tabs, row.front), row.left) << row.tabs << row.front;
    }
}

TEST(ReadingRound, SaysHowManyAreLeft) {
    EXPECT_EQ(ReadingRound::WordsFor(0), u"This is the last page that was left to read.");
    EXPECT_EQ(ReadingRound::WordsFor(1), u"One more page is left to read.");
    EXPECT_EQ(ReadingRound::WordsFor(12), u"12 more pages are left to read.");
}

} // namespace

} // namespace tessa
