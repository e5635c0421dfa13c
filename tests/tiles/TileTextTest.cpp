#include "tiles/TileText.h"

#include <gtest/gtest.h>
#include <random>

namespace tessa {

namespace {

TEST(TileText, WhatIsWrittenIsRead) {
    for (const TextView text : {u"h(1 2)", u"v(1 2)", u"h(1 v(2 3))", u"h(1:500 v(2:2 3):32)", u"h(1 2) full",
                                u"v(7 h(1 32767:1000000)) linked", u"h(1 2) full linked", u"h(1 h(2 3))"}) {
        const auto layout = TileLayoutIn(text);
        ASSERT_TRUE(layout) << ToUtf8(text);
        EXPECT_EQ(ToUtf8(TileText(*layout)), ToUtf8(text));
    }
}

TEST(TileText, BlanksMayStandBetweenAllParts) {
    const auto layout = TileLayoutIn(u"  h( 1 : 20  2 )  full  linked  ");
    ASSERT_TRUE(layout);
    EXPECT_EQ(ToUtf8(TileText(*layout)), "h(1:20 2) full linked");
}

TEST(TileText, SeveralGetOtherNumbers) {
    const auto become = [](std::int32_t number) { return number == 3 ? 0 : number + 10; };
    EXPECT_EQ(TileTextsBecome({u"h(1 v(2 3)) linked", u"x", u"h(3 4)", u"v(5:2 6)"}, become),
              (std::vector<Text>{u"h(11 12) linked", u"v(15:2 16)"}));
}

TEST(TileText, WhatIsNoLayoutIsNone) {
    for (const TextView text : {u"",
                                u" ",
                                u"1",
                                u"h",
                                u"h(",
                                u"h()",
                                u"h(1)",
                                u"h(1 2",
                                u"h(1 2))",
                                u"h(1 2) 3",
                                u"x(1 2)",
                                u"h (1 2)",
                                u"h(1 1)",
                                u"h(0 1)",
                                u"h(-1 2)",
                                u"h(1 32768)",
                                u"h(1 99999999999999999999)",
                                u"h(1: 2)",
                                u"h(1:0 2)",
                                u"h(1:1000001 2)",
                                u"h(1 2):5",
                                u"h(1,2)",
                                u"h(1 v(2))",
                                u"h(1 v())",
                                u"h(1 2) linked full",
                                u"h(1 2) all",
                                u"H(1 2)",
                                u"h(1\t2)",
                                u"h(1 2)\n"})
        EXPECT_FALSE(TileLayoutIn(text)) << ToUtf8(text);
}

TEST(TileText, NothingIsReadThatIsTooDeep) {
    const auto nested = [](std::size_t depth) {
        Text text;
        for (std::size_t i = 1; i <= depth; ++i)
            text += (i % 2 == 1 ? u"h(" : u"v(") + Decimal(static_cast<std::int64_t>(i)) + u" ";
        return text + u"999" + Text(depth, u')');
    };
    EXPECT_TRUE(TileLayoutIn(nested(TileLayout::kMostDepth)));
    EXPECT_FALSE(TileLayoutIn(nested(TileLayout::kMostDepth + 1)));
    EXPECT_FALSE(TileLayoutIn(Text(1'000'000, u'(')));
    Text open;
    for (int i = 0; i < 100'000; ++i) open += u"h(";
    EXPECT_FALSE(TileLayoutIn(open)) << "and no stack is used up by it";
}

// What the fuzzer does, for everybody: texts of what layouts are made of.
TEST(TileText, AnyTextGivesALayoutThatComesBackOrNone) {
    std::mt19937 random(20);
    const TextView kUnits = u"hv((()) 123:9 full linked";
    std::size_t read = 0;
    for (int round = 0; round < 200'000; ++round) {
        Text text = round % 2 == 0 ? Text() : Text(u"h(1 ");
        for (std::size_t length = random() % 14; length > 0; --length) text += kUnits[random() % kUnits.size()];
        const auto layout = TileLayoutIn(text);
        if (!layout) continue;
        ++read;
        ASSERT_GE(layout->Numbers().size(), 2u) << ToUtf8(text);
        ASSERT_EQ(TileLayoutIn(TileText(*layout)), layout) << ToUtf8(text);
    }
    EXPECT_GT(read, 100u) << "some of them are layouts";
}

} // namespace

} // namespace tessa
