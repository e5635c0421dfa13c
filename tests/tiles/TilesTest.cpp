// Tests: ShownTabs
#include "tiles/Tiles.h"

#include "tests/Desk.h"
#include "tiles/TileText.h"

namespace tessa {

namespace {

/// Tabs 1, 2, ... and a person who puts them side by side.
class TilesDesk : public Desk {
public:
    explicit TilesDesk(int count) { StartWithTabs(count); }
    /// The layout that is shown, and whether each of its pages is.
    [[nodiscard]] std::string Layout() {
        const auto* layout = tiles.Shown();
        return (layout ? ToUtf8(TileText(*layout)) : "alone") + ": " + views.Shown();
    }
    void Show(TextView layout) { tiles.Show(TileLayoutIn(layout).value()); }

    Tiles& tiles = main.Tiles();
};

TEST(Tiles, ByDesignEachTabIsShownAlone) {
    TilesDesk desk(3);
    EXPECT_EQ(desk.Layout(), "alone: 1*");
    desk.ClickTab(2);
    EXPECT_EQ(desk.Layout(), "alone: 2*");
    EXPECT_TRUE(desk.tiles.Kept([](std::int32_t index) { return index; }).empty());
}

TEST(Tiles, EachPageOfTheSelectedTabsLayoutIsShown) {
    TilesDesk desk(4);
    desk.Show(u"h(1 v(2 3))");
    EXPECT_EQ(desk.Layout(), "h(1 v(2 3)): 1* 2 3");
    EXPECT_EQ(desk.Strip(), "[1*] 2 3 4");
    for (const int shown : {1, 2, 3}) {
        EXPECT_EQ(desk.views.At(shown).left, Twips{0}) << shown;
        EXPECT_TRUE(desk.views.At(shown).tabStop);
        EXPECT_TRUE(desk.views.At(shown).visible);
    }
    EXPECT_EQ(desk.views.At(4).left, kParkedLeft);
}

TEST(Tiles, ATabInAPaneGetsTheFocusThere) {
    TilesDesk desk(3);
    desk.Show(u"h(1 2)");
    desk.views.At(2).location = u"http://two/";
    desk.ClickTab(2);
    EXPECT_EQ(desk.Layout(), "h(1 2): 1 2*");
    EXPECT_EQ(desk.views.focused, 2);
    EXPECT_EQ(desk.Address(), "http://two/");
}

TEST(Tiles, ATabInNoPaneIsShownAloneAndTheLayoutComesBack) {
    TilesDesk desk(3);
    desk.Show(u"h(1 2)");
    desk.ClickTab(3);
    EXPECT_EQ(desk.Layout(), "alone: 3*");
    for (const int parked : {1, 2}) EXPECT_EQ(desk.views.At(parked).left, kParkedLeft);
    desk.ClickTab(1);
    EXPECT_EQ(desk.Layout(), "h(1 2): 1* 2");
}

TEST(Tiles, ANewTabIsShownAlone) {
    TilesDesk desk(2);
    desk.Show(u"h(1 2)");
    desk.NewTab(InFront::No);
    EXPECT_EQ(desk.Layout(), "h(1 2): 1* 2");
    desk.NewTab(InFront::Yes);
    EXPECT_EQ(desk.Layout(), "alone: 4*");
}

TEST(Tiles, SeveralLayoutsKeepTheirTabsApart) {
    TilesDesk desk(5);
    desk.Show(u"h(1 2)");
    desk.Show(u"v(3 4 5)");
    EXPECT_EQ(desk.Strip(), "1 2 [3*] 4 5") << "one of them comes to the front";
    EXPECT_EQ(desk.Layout(), "v(3 4 5): 3* 4 5");
    desk.ClickTab(1);
    EXPECT_EQ(desk.Layout(), "h(1 2): 1* 2");
    desk.Show(u"h(1 4)");
    EXPECT_EQ(desk.Layout(), "h(1 4): 1* 4");
    desk.ClickTab(2);
    EXPECT_EQ(desk.Layout(), "alone: 2*") << "nothing was left beside it";
    desk.ClickTab(5);
    EXPECT_EQ(desk.Layout(), "v(3 5): 3 5*");
}

TEST(Tiles, ATabIsShownBesideTheOneInFront) {
    TilesDesk desk(4);
    EXPECT_TRUE(desk.tiles.ShowBeside(2));
    EXPECT_EQ(desk.Layout(), "h(1 2): 1* 2");
    EXPECT_TRUE(desk.tiles.ShowBeside(3));
    EXPECT_EQ(desk.Layout(), "h(1:500 3:500 2): 1* 2 3");
    EXPECT_FALSE(desk.tiles.ShowBeside(1)) << "it is the one in front";
    EXPECT_FALSE(desk.tiles.ShowBeside(9)) << "it is no tab";
    EXPECT_TRUE(desk.tiles.ShowBeside(2)) << "it is there already";
    EXPECT_EQ(desk.Layout(), "h(1:500 3:500 2): 1* 2 3");
}

TEST(Tiles, SeveralTabsShareTheRoomOfTheOneInFront) {
    struct Row {
        TextView before;
        std::vector<std::int32_t> beside;
        const char* after;
    };
    for (const Row& row : std::vector<Row>{
             {u"", {2, 3, 4}, "h(1 2 3 4): 1* 2 3 4"},
             {u"h(1 5)", {2}, "h(1:500 2:500 5): 1* 2 5"},
             {u"h(1 5)", {2, 3, 4}, "h(1:25000 2:25000 3:25000 4:25000 5:100000): 1* 2 3 4 5"},
             {u"h(1 5)", {3, 2}, "h(1:33334 3:33333 2:33333 5:100000): 1* 2 3 5"},
             {u"v(1 5)", {4, 2, 3}, "v(h(1:500 4:500 2:500 3:500) 5): 1* 2 3 4 5"},
             {u"h(5 v(1 4))", {2, 3}, "h(5 v(h(1:667 2:667 3:666) 4)): 1* 2 3 4 5"},
             {u"h(1:999999 5)", {2, 3}, "h(1:333333 2:333333 3:333333 5): 1* 2 3 5"},
             {u"h(1:1 5:1)", {2, 3, 4}, "h(1:25 2:25 3:25 4:25 5:100): 1* 2 3 4 5"},
             {u"h(1 2)", {2, 3, 4}, "h(1:33334 3:33333 4:33333 2:100000): 1* 2 3 4"},
             {u"h(1 2)", {1, 3, 9}, "h(1:500 3:500 2): 1* 2 3"},
         }) {
        SCOPED_TRACE(row.after);
        TilesDesk desk(5);
        if (!row.before.empty()) desk.tiles.Show(*TileLayoutIn(row.before));
        desk.ClickTab(1);
        EXPECT_TRUE(desk.tiles.ShowBeside(row.beside));
        EXPECT_EQ(desk.Layout(), row.after);
    }
    TilesDesk desk(2);
    EXPECT_FALSE(desk.tiles.ShowBeside(std::vector<std::int32_t>{}));
    EXPECT_FALSE(desk.tiles.ShowBeside(std::vector<std::int32_t>{1, 9}));
    EXPECT_EQ(desk.Layout(), "alone: 1*");
}

TEST(Tiles, ADroppedTabComesToThatEdgeAndToTheFront) {
    struct Row {
        TextView before;
        std::int32_t dropped, at;
        TileEdge edge;
        const char* after;
    };
    for (const Row& row : std::vector<Row>{{u"", 3, 1, TileEdge::Left, "h(3 1): 1 3*"},
                                           {u"", 3, 1, TileEdge::Right, "h(1 3): 1 3*"},
                                           {u"", 3, 1, TileEdge::Top, "v(3 1): 1 3*"},
                                           {u"", 3, 1, TileEdge::Bottom, "v(1 3): 1 3*"},
                                           {u"", 1, 1, TileEdge::Bottom, "alone: 1*"},
                                           {u"h(1 2)", 3, 2, TileEdge::Top, "h(1 v(3 2)): 1 2 3*"},
                                           {u"h(1 2)", 2, 1, TileEdge::Top, "v(2 1): 1 2*"},
                                           {u"h(1 2) linked", 2, 1, TileEdge::Top, "v(2 1) linked: 1 2*"},
                                           {u"h(1 2 3)", 1, 3, TileEdge::Bottom, "h(2 v(3 1)): 1* 2 3"},
                                           {u"h(1 2) full", 3, 1, TileEdge::Left, "h(3:500 1:500 2): 1 2 3*"}}) {
        TilesDesk desk(3);
        if (!row.before.empty()) desk.Show(row.before);
        EXPECT_EQ(desk.tiles.Drop(row.dropped, row.at, row.edge), row.dropped != row.at);
        EXPECT_EQ(desk.Layout(), row.after);
    }
}

TEST(Tiles, ADraggedTabLeavesThePageThatWasInFrontBefore) {
    TilesDesk desk(3);
    desk.Show(u"h(1 2)");
    desk.ClickTab(3);
    desk.tiles.BeginDrag(3);
    EXPECT_EQ(desk.Layout(), "h(1 2): 1* 2") << "there is something to drop it on";
    desk.ClickTab(2);
    desk.tiles.BeginDrag(2);
    EXPECT_EQ(desk.Layout(), "h(1 2): 1 2*") << "its own layout is";
}

TEST(Tiles, NothingIsDroppedOnWhenThereIsNothingElse) {
    TilesDesk desk(1);
    desk.tiles.BeginDrag(1);
    EXPECT_EQ(desk.Layout(), "alone: 1*");
    EXPECT_FALSE(desk.tiles.Drop(1, 9, TileEdge::Left));
    EXPECT_FALSE(desk.tiles.Drop(9, 1, TileEdge::Left));
    TilesDesk closed(2);
    closed.ClickTab(2);
    closed.Close(1);
    closed.tiles.BeginDrag(2);
    EXPECT_EQ(closed.Layout(), "alone: 2*") << "what was in front before has gone";
}

TEST(Tiles, ClosingThePaneInFocusGivesTheNextOneRoomAndKeyboard) {
    TilesDesk desk(4);
    desk.Show(u"h(1 v(3 4))");
    desk.Close(1);
    EXPECT_EQ(desk.Layout(), "v(3 4): 3* 4") << "not the tab right of it";
    EXPECT_EQ(desk.views.focused, 3);
    desk.Close(3);
    EXPECT_EQ(desk.Layout(), "alone: 4*");
    EXPECT_EQ(desk.Strip(), "2 [4*]");
}

TEST(Tiles, ClosingAnotherPaneLeavesTheFocus) {
    TilesDesk desk(3);
    desk.Show(u"h(1 2 3)");
    desk.ClickTab(3);
    desk.Close(1);
    EXPECT_EQ(desk.Layout(), "h(2 3): 2 3*");
    desk.ClickTab(1);
    desk.ClickTab(2);
    desk.CloseOtherTabs();
    EXPECT_EQ(desk.Layout(), "alone: 2*");
}

TEST(Tiles, TabsOfOneCaptionCloseOnlyTheirOwnPane) {
    TilesDesk desk(3);
    for (int index = 1; index <= 3; ++index) desk.PageIsCalled(index, u"same");
    desk.Show(u"h(1 2 3)");
    desk.ClickTab(2);
    desk.Close(2);
    EXPECT_EQ(desk.Layout(), "h(1 3): 1 3*");
}

/// Closes a tab of that layout and brings it back.
std::string Reopened(TextView layout, int closed) {
    TilesDesk desk(5);
    for (const int index : {1, 2, 3, 4, 5}) desk.PageLoads(index, u"http://" + Decimal(index) + u"/", Decimal(index));
    desk.Show(layout);
    desk.Close(closed);
    desk.Click(u"xtrReopenTab");
    return desk.Layout();
}

TEST(Tiles, AReopenedTabReturnsToItsPane) {
    EXPECT_EQ(Reopened(u"h(1 v(2 3))", 2), "h(1 v(6 3)): 1 3 6*");
    EXPECT_EQ(Reopened(u"h(1:300 2)", 2), "h(1:300 6): 1 6*") << "the other one was alone by then";
    EXPECT_EQ(Reopened(u"v(h(4 1) h(2 5)) linked", 4), "v(h(6 1) h(2 5)) linked: 1 2 5 6*");
    EXPECT_EQ(Reopened(u"h(2 3)", 1), "alone: 6*") << "it was in none";
}

TEST(Tiles, TabsThatCloseTogetherReturnToTheirPanes) {
    TilesDesk desk(5);
    for (const int index : {1, 2, 3, 4, 5}) desk.PageLoads(index, u"http://" + Decimal(index) + u"/", Decimal(index));
    desk.Show(u"v(h(2:400 3) 4)");
    desk.CloseRightOf(1);
    EXPECT_EQ(desk.Layout(), "alone: 1*");
    desk.Click(u"xtrReopenTab");
    ASSERT_EQ(desk.CountTabs(), 5U);
    desk.ClickTab(2);
    const std::string two = std::to_string(desk.TabAt(2).Tag), three = std::to_string(desk.TabAt(3).Tag),
                      four = std::to_string(desk.TabAt(4).Tag);
    EXPECT_EQ(ToUtf8(TileText(*desk.tiles.Shown())), "v(h(" + two + ":400 " + three + ") " + four + ")");
}

TEST(Tiles, WhereTheOthersLieOtherwiseByNowItComesBesideOne) {
    TilesDesk desk(4);
    for (const int index : {1, 2, 3, 4}) desk.PageLoads(index, u"http://" + Decimal(index) + u"/", Decimal(index));
    desk.Show(u"h(1 2 3)");
    desk.Close(2);
    desk.Show(u"v(3 1 4)");
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.Layout().substr(0, 15), "v(h(3 5) 1 4): ") << "beside the one that had got the keyboard";
    desk.Close(5);
    desk.tiles.Dissolve();
    desk.Show(u"h(1 4)");
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.CountTabs(), 4U);
}

TEST(Tiles, ATabThatIsMovedKeepsItsPane) {
    TilesDesk desk(3);
    desk.Show(u"h(1 2)");
    desk.MoveTab(1, 3);
    EXPECT_EQ(desk.Strip(), "2 3 [1*]");
    EXPECT_EQ(desk.Layout(), "h(1 2): 1* 2");
}

TEST(Tiles, ATabCanBeTakenOutAndTheOthersStay) {
    TilesDesk desk(3);
    desk.Show(u"h(1 2 3)");
    desk.tiles.TakeOut(3);
    EXPECT_EQ(desk.Layout(), "h(1 2): 1* 2");
    desk.tiles.TakeOut(1);
    EXPECT_EQ(desk.Layout(), "alone: 2*") << "the layout was what was looked at";
    desk.tiles.TakeOut(2);
    EXPECT_EQ(desk.CountTabs(), 3u);
}

TEST(Tiles, ALayoutCanBeGivenUp) {
    TilesDesk desk(4);
    desk.tiles.Dissolve();
    desk.Show(u"h(3 4)");
    desk.Show(u"h(1 2)");
    desk.ClickTab(2);
    desk.tiles.Dissolve();
    EXPECT_EQ(desk.Layout(), "alone: 2*");
    desk.ClickTab(3);
    EXPECT_EQ(desk.Layout(), "h(3 4): 3* 4") << "the other one is not concerned";
}

TEST(Tiles, ThePaneInFocusCanHaveAllTheRoom) {
    TilesDesk desk(3);
    desk.tiles.ToggleFull(1);
    EXPECT_EQ(desk.Layout(), "alone: 1*");
    desk.Show(u"h(1 2)");
    desk.tiles.ToggleFull(2);
    EXPECT_EQ(desk.Layout(), "h(1 2) full: 2*") << "the others cost nothing meanwhile";
    desk.ClickTab(1);
    EXPECT_EQ(desk.Layout(), "h(1 2) full: 1*");
    desk.tiles.ToggleFull(1);
    EXPECT_EQ(desk.Layout(), "h(1 2): 1* 2");
}

TEST(Tiles, LinkedPanesFollowEachOther) {
    TilesDesk desk(3);
    desk.tiles.ToggleLinked();
    EXPECT_TRUE(desk.tiles.LinkedWith(1).empty());
    desk.Show(u"h(1 2 3)");
    EXPECT_TRUE(desk.tiles.LinkedWith(1).empty());
    desk.tiles.ToggleLinked();
    EXPECT_EQ(desk.tiles.LinkedWith(2), (std::vector<std::int32_t>{1, 3}));
    desk.tiles.ToggleLinked();
    EXPECT_TRUE(desk.tiles.LinkedWith(2).empty());
}

TEST(Tiles, ADividerOfTheShownLayoutIsMovedAndPutBack) {
    TilesDesk desk(2);
    const TileDivider divider{.Path = {}, .Place = {{100}, {0}, {4}, {50}}, .From = 0, .To = 204};
    desk.tiles.MoveDivider(divider, 52, 10);
    desk.tiles.Equalise({});
    desk.Show(u"h(1:10000 2:10000)");
    desk.tiles.MoveDivider(divider, 52, 10);
    EXPECT_EQ(desk.Layout(), "h(1:5000 2:15000): 1* 2");
    desk.tiles.Equalise({});
    EXPECT_EQ(desk.Layout(), "h(1 2): 1* 2");
}

TEST(Tiles, TellsOfEachChange) {
    TilesDesk desk(3);
    int changes = 0;
    const auto connection = desk.tiles.Changed.Connect([&changes] { ++changes; });
    const auto told = [&changes] { return std::exchange(changes, 0) > 0; };
    desk.ClickTab(2);
    desk.PageIsCalled(1, u"x");
    EXPECT_FALSE(told()) << "without a layout nobody need know";
    desk.Show(u"h(1 2)");
    EXPECT_TRUE(told());
    desk.PageIsCalled(1, u"y");
    EXPECT_FALSE(told());
    desk.ClickTab(1);
    EXPECT_TRUE(told());
    desk.tiles.ShowHeaders(true);
    EXPECT_FALSE(told());
    desk.tiles.ShowHeaders(false);
    EXPECT_TRUE(told());
    desk.tiles.ToggleLinked();
    EXPECT_TRUE(told());
    desk.Close(1);
    EXPECT_TRUE(told());
}

TEST(Tiles, LayoutsAreKeptByOtherNumbersAndComeBack) {
    TilesDesk desk(5);
    desk.Show(u"h(1 v(2 3)) linked");
    desk.Show(u"v(4 5)");
    const auto kept = desk.tiles.Kept([](std::int32_t index) { return index == 2 ? 0 : 10 - index; });
    EXPECT_EQ(kept, (std::vector<Text>{u"h(9 7) linked", u"v(6 5)"}));

    TilesDesk other(4);
    other.tiles.Restore({u"nonsense", u"h(1 2 3)", u"v(3 4)", u"h(2 5)", u"v(99 4)"}, {2, 3, 0, 4, 1});
    EXPECT_EQ(other.Layout(), "alone: 1*") << "v(3 4) has lost a page, h(2 5) a tab that another one has";
    other.ClickTab(2);
    EXPECT_EQ(other.Layout(), "h(2 3): 2* 3");
    other.tiles.Restore({u"h(1 2)"}, {1, 9});
    other.ClickTab(1);
    EXPECT_EQ(other.Layout(), "alone: 1*") << "there is no tab 9";
}

TEST(Tiles, PagesAreLaidWithTheWindow) {
    TilesDesk desk(3);
    desk.Show(u"h(1 2)");
    for (const int index : {1, 2, 3}) desk.views.At(index).place = {};
    desk.Resize();
    EXPECT_EQ(desk.views.At(1).place, desk.views.At(2).place) << "each in the same area, which has the panes";
    EXPECT_NE(desk.views.At(1).place, Rect());
    EXPECT_EQ(desk.views.At(3).place, Rect());
}

TEST(Tiles, TwoHundredTabsLieSideBySide) {
    TilesDesk desk(200);
    std::vector<std::int32_t> all;
    for (std::int32_t index = 1; index <= 200; ++index) all.push_back(index);
    desk.tiles.Show(TileLayouts::Grid(all).value());
    EXPECT_EQ(desk.tiles.BesideOf(1).size(), 199u);
    for (int index = 200; index > 1; --index) desk.Close(index);
    EXPECT_EQ(desk.Layout(), "alone: 1*");
}

} // namespace

} // namespace tessa
