#include "tiles/TileLayout.h"

#include "tiles/TileText.h"

#include <gtest/gtest.h>
#include <numeric>

namespace tessa {

namespace {

std::string Written(const std::optional<TileLayout>& layout) { return layout ? ToUtf8(TileText(*layout)) : "(none)"; }

TileLayout LayoutFrom(TextView text) {
    const auto layout = TileLayoutIn(text);
    EXPECT_TRUE(layout) << ToUtf8(text);
    return layout.value_or(TileLayout());
}

std::vector<std::int32_t> UpTo(std::int32_t last) {
    std::vector<std::int32_t> numbers(static_cast<std::size_t>(last));
    std::iota(numbers.begin(), numbers.end(), 1);
    return numbers;
}

TEST(TileLayout, TabsStandInColumnsAndInRows) {
    struct Row {
        std::vector<std::int32_t> numbers;
        const char *columns, *rows;
    };
    for (const Row& row : std::vector<Row>{{{}, "(none)", "(none)"},
                                           {{7}, "(none)", "(none)"},
                                           {{7, 7}, "(none)", "(none)"},
                                           {{7, 0}, "(none)", "(none)"},
                                           {{7, -2, 3}, "h(7 3)", "v(7 3)"},
                                           {{1, 2}, "h(1 2)", "v(1 2)"},
                                           {{3, 1, 2, 1}, "h(3 1 2)", "v(3 1 2)"}}) {
        EXPECT_EQ(Written(TileLayouts::Columns(row.numbers)), row.columns);
        EXPECT_EQ(Written(TileLayouts::Rows(row.numbers)), row.rows);
    }
}

TEST(TileLayout, AGridIsAboutAsHighAsItIsWide) {
    const std::vector<const char*> all{"(none)",
                                       "(none)",
                                       "h(1 2)",
                                       "v(h(1 2) 3)",
                                       "v(h(1 2) h(3 4))",
                                       "v(h(1 2 3) h(4 5))",
                                       "v(h(1 2 3) h(4 5 6))",
                                       "v(h(1 2 3) h(4 5) h(6 7))",
                                       "v(h(1 2 3) h(4 5 6) h(7 8))",
                                       "v(h(1 2 3) h(4 5 6) h(7 8 9))"};
    for (std::size_t count = 0; count < all.size(); ++count)
        EXPECT_EQ(Written(TileLayouts::Grid(UpTo(static_cast<std::int32_t>(count)))), all[count]);
}

TEST(TileLayout, OneIsLargeAndTheOthersAreSmall) {
    EXPECT_EQ(Written(TileLayouts::Main(2, UpTo(4))), "h(2:2000 v(1 3 4))");
    EXPECT_EQ(Written(TileLayouts::Main(2, UpTo(2))), "h(2:2000 1)");
    EXPECT_EQ(Written(TileLayouts::Main(9, {1})), "h(9:2000 1)") << "it need not be among them";
    EXPECT_EQ(Written(TileLayouts::Main(1, {1})), "(none)");
    EXPECT_EQ(Written(TileLayouts::Main(0, UpTo(3))), "(none)");
}

TEST(TileLayout, ANewPaneComesToAnEdgeOfAnother) {
    struct Row {
        TextView before;
        std::int32_t at;
        TileEdge edge;
        const char* after;
    };
    for (const Row& row : std::vector<Row>{{u"h(1 2)", 1, TileEdge::Left, "h(9:500 1:500 2)"},
                                           {u"h(1 2)", 1, TileEdge::Right, "h(1:500 9:500 2)"},
                                           {u"h(1 2)", 2, TileEdge::Right, "h(1 2:500 9:500)"},
                                           {u"h(1 2)", 2, TileEdge::Top, "h(1 v(9 2))"},
                                           {u"h(1 2)", 2, TileEdge::Bottom, "h(1 v(2 9))"},
                                           {u"h(1 2:300)", 2, TileEdge::Bottom, "h(1 v(2 9):300)"},
                                           {u"h(1 v(2 3))", 3, TileEdge::Left, "h(1 v(2 h(9 3)))"},
                                           {u"h(1 v(2 3))", 3, TileEdge::Bottom, "h(1 v(2 3:500 9:500))"},
                                           {u"h(1:1 2)", 1, TileEdge::Left, "h(9:1 1:1 2)"}}) {
        TileLayout layout = LayoutFrom(row.before);
        EXPECT_TRUE(TileLayouts::Split(layout, row.at, row.edge, 9));
        EXPECT_EQ(Written(layout), row.after);
    }
}

TEST(TileLayout, WhatCannotBeSplitStaysAsItIs) {
    TileLayout layout = LayoutFrom(u"h(1 2)");
    EXPECT_FALSE(TileLayouts::Split(layout, 3, TileEdge::Left, 9)) << "there is no such pane";
    EXPECT_FALSE(TileLayouts::Split(layout, 1, TileEdge::Left, 2)) << "it is there already";
    EXPECT_FALSE(TileLayouts::Split(layout, 1, TileEdge::Left, 0));
    EXPECT_FALSE(TileLayouts::Split(layout, 1, TileEdge::Left, TileLayout::kMostNumber + 1));
    EXPECT_EQ(Written(layout), "h(1 2)");
}

TEST(TileLayout, NoDeeperAndNoLongerThanItCanBeWrittenDown) {
    TileLayout deep = LayoutFrom(u"h(1 2)");
    std::int32_t added = 3;
    for (; added < 100; ++added) {
        const TileEdge edge = added % 2 == 0 ? TileEdge::Right : TileEdge::Bottom;
        if (!TileLayouts::Split(deep, added - 1, edge, added)) break;
    }
    EXPECT_EQ(added, static_cast<std::int32_t>(TileLayout::kMostDepth) + 2);
    EXPECT_EQ(TileLayoutIn(TileText(deep)), deep);

    auto many = TileLayouts::Columns(UpTo(static_cast<std::int32_t>(TileLayout::kMostPanes) + 5));
    ASSERT_TRUE(many);
    EXPECT_EQ(many->Numbers().size(), TileLayout::kMostPanes);
    EXPECT_FALSE(TileLayouts::Split(*many, 1, TileEdge::Left, 5000));
    EXPECT_EQ(TileLayoutIn(TileText(*many)), many);
}

TEST(TileLayout, ThoseBesideAPaneTakeItsRoom) {
    struct Row {
        TextView before;
        std::int32_t gone;
        const char* after;
    };
    for (const Row& row : std::vector<Row>{{u"h(1 2)", 1, "(none)"},
                                           {u"h(1 2)", 7, "h(1 2)"},
                                           {u"h(1 2 3)", 2, "h(1 3)"},
                                           {u"h(1:300 v(2 3):700)", 3, "h(1:300 2:700)"},
                                           {u"h(1 v(2 3))", 1, "v(2 3)"},
                                           {u"v(h(1 2) 3)", 3, "h(1 2)"},
                                           {u"h(1 v(2 h(3 4)))", 2, "h(1 3:500 4:500)"},
                                           {u"h(1 v(2:5 h(3:1 4:3):7):800)", 2, "h(1 3:200 4:600)"},
                                           {u"h(1 2 3) full linked", 2, "h(1 3) full linked"}})
        EXPECT_EQ(Written(TileLayouts::Without(LayoutFrom(row.before), row.gone)), row.after) << ToUtf8(row.before);
}

TEST(TileLayout, PanesGetOtherNumbers) {
    const auto become = [](std::int32_t number) { return number == 2 ? 0 : number == 4 ? 1 : number * 10; };
    EXPECT_EQ(Written(TileLayouts::Renumbered(LayoutFrom(u"h(1 v(2 3) 4)"), become)), "h(10 30 1)");
    EXPECT_EQ(Written(TileLayouts::Renumbered(LayoutFrom(u"h(1 2)"), become)), "(none)");
    const auto same = [](std::int32_t) { return 5; };
    EXPECT_EQ(Written(TileLayouts::Renumbered(LayoutFrom(u"h(1 2 3)"), same)), "(none)") << "each number once";
    const auto large = [](std::int32_t number) { return number + TileLayout::kMostNumber - 2; };
    EXPECT_EQ(Written(TileLayouts::Renumbered(LayoutFrom(u"h(1 2 3)"), large)), "h(32766 32767)");
}

TEST(TileLayout, PartsBecomeEquallyLarge) {
    TileLayout layout = LayoutFrom(u"h(1:300 v(2:1 3):700)");
    TileLayouts::Equalise(layout, {});
    EXPECT_EQ(Written(layout), "h(1 v(2:1 3))");
    TileLayouts::Equalise(layout, {1});
    EXPECT_EQ(Written(layout), "h(1 v(2 3))");
    TileLayouts::Equalise(layout, {0});
    TileLayouts::Equalise(layout, {5, 1});
    EXPECT_EQ(Written(layout), "h(1 v(2 3))") << "a pane, and nothing, have no parts";
}

TEST(TileLayout, TwoPartsShareWhatTheyHaveTogether) {
    TileLayout layout = LayoutFrom(u"h(1:4000 2:4000 3:4000)");
    TileLayouts::Resize(layout, {}, 0, 300, 100);
    EXPECT_EQ(Written(layout), "h(1:6000 2:2000 3:4000)");
    TileLayouts::Resize(layout, {}, 1, 0, 100);
    EXPECT_EQ(Written(layout), "h(1:6000 2:1 3:5999)") << "none is ever without any room";
    TileLayout small = LayoutFrom(u"h(1:1 2:1)");
    TileLayouts::Resize(small, {}, 0, 33, 67);
    EXPECT_EQ(Written(small), "h(1:66 2:134)") << "as fine as asked for";
    const std::string before = Written(layout);
    TileLayouts::Resize(layout, {}, 2, 1, 1);
    TileLayouts::Resize(layout, {0}, 0, 1, 1);
    TileLayouts::Resize(layout, {}, 0, -1, 100);
    TileLayouts::Resize(layout, {}, 0, 0, 0);
    EXPECT_EQ(Written(layout), before);
    TileLayouts::Resize(layout, {}, 0, INT32_MAX, INT32_MAX);
    EXPECT_EQ(Written(layout), "h(1:3001 2:3000 3:5999)");
}

TEST(TileLayout, KnowsItsPanesAndTheOneBesideEach) {
    const TileLayout layout = LayoutFrom(u"h(4 v(2 3) 1)");
    EXPECT_EQ(layout.Numbers(), (std::vector<std::int32_t>{4, 2, 3, 1}));
    EXPECT_TRUE(layout.Has(3));
    EXPECT_FALSE(layout.Has(5));
    EXPECT_EQ(layout.Neighbour(4), 2);
    EXPECT_EQ(layout.Neighbour(1), 3) << "the last hands over to the one before";
    EXPECT_EQ(layout.Neighbour(5), 0);
}

} // namespace

} // namespace tessa
