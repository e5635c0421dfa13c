#include "tiles/TilePlaces.h"

#include "tiles/TileText.h"

#include <gtest/gtest.h>
#include <sstream>

namespace tessa {

namespace {

TileLayout LayoutNamed(TextView text) { return TileLayoutIn(text).value(); }

Rect Area(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
    return {{left}, {top}, {width}, {height}};
}

std::string Words(const Rect& rect) {
    std::ostringstream words;
    words << rect.left.value << ',' << rect.top.value << ' ' << rect.width.value << 'x' << rect.height.value;
    return words.str();
}

/// The pages, then the dividers: "1 at 0,0 100x50; | 100,0 5x50".
std::string Laid(TextView layout, const Rect& area, const TileMeasures& measures, std::int32_t focus = 1) {
    const TilePlaces places = PlacesOf(LayoutNamed(layout), focus, area, measures);
    std::string all;
    for (const TilePane& each : places.Panes)
        all += (all.empty() ? "" : "; ") + std::to_string(each.Number) + " at " + Words(each.Page);
    for (const TileDivider& each : places.Dividers) all += (each.Upright ? "; | " : "; - ") + Words(each.Place);
    return all;
}

TEST(TilePlaces, PanesShareTheAreaByTheirWeights) {
    const TileMeasures plain{.Divider = 5, .Header = 0, .Frame = 0};
    EXPECT_EQ(Laid(u"h(1 2)", Area(0, 0, 205, 50), plain), "1 at 0,0 100x50; 2 at 105,0 100x50; | 100,0 5x50");
    EXPECT_EQ(Laid(u"v(1 2)", Area(10, 20, 50, 105), plain), "1 at 10,20 50x50; 2 at 10,75 50x50; - 10,70 50x5");
    EXPECT_EQ(Laid(u"h(1:1 2:3)", Area(0, 0, 405, 9), plain), "1 at 0,0 100x9; 2 at 105,0 300x9; | 100,0 5x9");
    EXPECT_EQ(Laid(u"h(1 v(2 3))", Area(0, 0, 205, 105), plain),
              "1 at 0,0 100x105; 2 at 105,0 100x50; 3 at 105,55 100x50; | 100,0 5x105; - 105,50 100x5");
    EXPECT_EQ(Laid(u"h(1 2 3)", Area(0, 0, 110, 9), plain),
              "1 at 0,0 33x9; 2 at 38,0 34x9; 3 at 77,0 33x9; | 33,0 5x9; | 72,0 5x9")
        << "no pixel is left over";
}

TEST(TilePlaces, AHeaderStandsAboveEachPageThatHasRoomForIt) {
    const TileMeasures measures{.Divider = 5, .Header = 20, .Frame = 2};
    EXPECT_EQ(Laid(u"h(1 2)", Area(0, 0, 205, 50), measures), "1 at 0,20 100x30; 2 at 105,20 100x30; | 100,0 5x50");
    const auto low = PlacesOf(LayoutNamed(u"v(1:1 2:3)"), 1, Area(0, 0, 100, 125), measures);
    EXPECT_EQ(Words(low.Find(1)->Header), "0,0 100x0") << "it is lower than two headers";
    EXPECT_EQ(Words(low.Find(1)->Page), "0,0 100x30");
    EXPECT_EQ(Words(low.Find(2)->Header), "0,35 100x20");
}

TEST(TilePlaces, WithoutHeadersAFrameShowsTheFocus) {
    const TileMeasures measures{.Divider = 5, .Header = 0, .Frame = 2};
    EXPECT_EQ(Laid(u"h(1 2)", Area(0, 0, 205, 50), measures), "1 at 2,2 96x46; 2 at 107,2 96x46; | 100,0 5x50");
    EXPECT_EQ(Laid(u"h(1 2)", Area(0, 0, 21, 50), measures), "1 at 0,0 8x50; 2 at 13,0 8x50; | 8,0 5x50")
        << "not where it would take all of the page";
}

TEST(TilePlaces, OnePaneCanHaveAllTheRoom) {
    const TileMeasures measures{.Divider = 5, .Header = 20, .Frame = 0};
    EXPECT_EQ(Laid(u"h(1 v(2 3)) full", Area(0, 0, 200, 100), measures, 3), "3 at 0,20 200x80");
    EXPECT_EQ(Laid(u"h(1 2) full", Area(0, 0, 205, 100), {}, 7), "1 at 0,0 100x100; 2 at 105,0 100x100; | 100,0 5x100")
        << "when it is one of them";
}

TEST(TilePlaces, NoAreaIsTooSmall) {
    const TileMeasures measures{.Divider = 5, .Header = 20, .Frame = 2};
    EXPECT_EQ(Laid(u"h(1 2 3)", Area(0, 0, 10, 30), measures), "1 at 0,0 3x30; 2 at 3,0 4x30; 3 at 7,0 3x30")
        << "dividers go first";
    EXPECT_EQ(Laid(u"h(1 2)", Area(5, 5, 0, 0), measures), "1 at 5,5 0x0; 2 at 5,5 0x0");
    EXPECT_EQ(Laid(u"v(1 2)", Area(5, 5, -4, -4), measures), "1 at 5,5 0x0; 2 at 5,5 0x0");
    EXPECT_EQ(Laid(u"h(1:1 2:1000000)", Area(0, 0, 105, 9), measures), "1 at 0,0 0x9; 2 at 5,0 100x9; | 0,0 5x9");
}

TEST(TilePlaces, TwoHundredPanesLieSideBySideWithoutGapOrOverlap) {
    std::vector<std::int32_t> numbers;
    for (std::int32_t number = 1; number <= 200; ++number) numbers.push_back(number);
    const TileMeasures measures{.Divider = 5, .Header = 24, .Frame = 0};
    for (const Rect& area : {Area(0, 30, 1280, 800), Area(0, 0, 100, 100)}) {
        const auto places = PlacesOf(TileLayouts::Grid(numbers).value(), 1, area, measures);
        ASSERT_EQ(places.Panes.size(), 200u);
        std::int64_t covered = 0;
        for (const TilePane& each : places.Panes)
            covered += std::int64_t{each.Whole.width.value} * each.Whole.height.value;
        std::int64_t parted = 0;
        for (const TileDivider& each : places.Dividers)
            parted += std::int64_t{each.Place.width.value} * each.Place.height.value;
        EXPECT_EQ(covered + parted, std::int64_t{area.width.value} * area.height.value);
    }
}

TEST(TilePlaces, FindsWhatLiesAtAPoint) {
    const auto places = PlacesOf(LayoutNamed(u"h(1 v(2 3))"), 1, Area(0, 30, 205, 105), {.Divider = 5});
    EXPECT_EQ(places.PaneAt(0, 30)->Number, 1);
    EXPECT_EQ(places.PaneAt(204, 134)->Number, 3);
    EXPECT_EQ(places.PaneAt(102, 50), nullptr) << "a divider";
    EXPECT_EQ(places.PaneAt(0, 29), nullptr);
    EXPECT_EQ(places.DividerAt(102, 50)->Path, TilePath{});
    EXPECT_EQ(places.DividerAt(150, 82)->Path, TilePath{1});
    EXPECT_EQ(places.DividerAt(10, 50), nullptr);
    EXPECT_EQ(places.Find(4), nullptr);
}

TEST(TilePlaces, EachPaneHasItsDividers) {
    const TilePlaces places = PlacesOf(LayoutNamed(u"h(1 v(2 3) 4)"), 1, Area(7, 9, 310, 105), {.Divider = 5});
    const auto of = [&](std::int32_t number, bool upright) {
        const auto* divider = places.DividerOf(number, upright);
        return divider ? Words(divider->Place) : std::string("none");
    };
    EXPECT_EQ(of(1, true), "107,9 5x105");
    EXPECT_EQ(of(1, false), "none");
    EXPECT_EQ(of(2, true), "212,9 5x105") << "that at its right edge";
    EXPECT_EQ(of(2, false), of(3, false));
    EXPECT_EQ(of(2, false), "112,59 100x5");
    EXPECT_EQ(of(4, true), "212,9 5x105") << "the last one has none at its right";
    EXPECT_EQ(of(9, true), "none");
}

TEST(TilePlaces, ADividerGoesWhereItIsDragged) {
    const Rect area = Area(100, 0, 205, 50);
    TileLayout layout = LayoutNamed(u"h(1 2)");
    const auto move = [&](std::int32_t to, std::int32_t least) {
        const auto places = PlacesOf(layout, 1, area, {.Divider = 5});
        MoveDivider(layout, places.Dividers.front(), to, least);
        return Words(PlacesOf(layout, 1, area, {.Divider = 5}).Dividers.front().Place);
    };
    EXPECT_EQ(move(252, 20), "250,0 5x50") << "its middle to that place";
    EXPECT_EQ(move(0, 20), "120,0 5x50") << "no pane becomes smaller than that";
    EXPECT_EQ(move(5000, 20), "280,0 5x50");
    EXPECT_EQ(move(150, 500), "200,0 5x50") << "when there is not enough for both, they share it";
    for (std::int32_t to = 130; to < 270; ++to)
        EXPECT_EQ(move(to, 20), std::to_string(to - 2) + ",0 5x50") << "to the pixel";
}

TEST(TilePlaces, OnlyTheTwoPartsBesideADividerChange) {
    const Rect area = Area(0, 0, 310, 110);
    TileLayout layout = LayoutNamed(u"h(1 v(2 3) 4)");
    auto places = PlacesOf(layout, 1, area, {.Divider = 5});
    MoveDivider(layout, places.Dividers[0], 52, 20);
    EXPECT_EQ(Words(PlacesOf(layout, 1, area, {.Divider = 5}).Find(4)->Whole), Words(places.Find(4)->Whole));
    EXPECT_EQ(PlacesOf(layout, 1, area, {.Divider = 5}).Find(1)->Whole.width.value, 50);
    places = PlacesOf(layout, 1, area, {.Divider = 5});
    const auto down = std::ranges::find(places.Dividers, false, &TileDivider::Upright);
    MoveDivider(layout, *down, 42, 20);
    EXPECT_EQ(PlacesOf(layout, 1, area, {.Divider = 5}).Find(2)->Whole.height.value, 40);
}

TEST(TilePlaces, TheEdgesOfAPaneAreItsOuterThirds) {
    const Rect place = Area(100, 200, 300, 90);
    const auto word = [&](std::int32_t x, std::int32_t y) -> std::string {
        const auto edge = EdgeAt(place, x, y);
        return !edge ? "none" : std::vector<const char*>{"left", "right", "top", "bottom"}[static_cast<int>(*edge)];
    };
    EXPECT_EQ(word(100, 245), "left");
    EXPECT_EQ(word(198, 245), "left");
    EXPECT_EQ(word(399, 245), "right");
    EXPECT_EQ(word(250, 200), "top");
    EXPECT_EQ(word(250, 289), "bottom");
    EXPECT_EQ(word(250, 245), "none");
    EXPECT_EQ(word(99, 245), "none");
    EXPECT_EQ(word(250, 290), "none");
    EXPECT_EQ(EdgeAt(Area(0, 0, 0, 0), 0, 0), std::nullopt);
    EXPECT_EQ(Words(HalfAt(place, TileEdge::Left)), "100,200 150x90");
    EXPECT_EQ(Words(HalfAt(place, TileEdge::Right)), "250,200 150x90");
    EXPECT_EQ(Words(HalfAt(place, TileEdge::Top)), "100,200 300x45");
    EXPECT_EQ(Words(HalfAt(place, TileEdge::Bottom)), "100,245 300x45");
}

} // namespace

} // namespace tessa
