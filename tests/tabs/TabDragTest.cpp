#include "tabs/TabDrag.h"

#include <gtest/gtest.h>
#include <string>

namespace tessa {

namespace {

/// Nine tabs: 1 is pinned, 3 and 4 are the group "a", 6, 7 and 9 the group "b".
class TabDragTest : public testing::Test {
protected:
    TabDragTest() {
        for (int index = 1; index <= 9; ++index) strip.Add(0, Key(index))->Tag = index;
        strip.SetPinned(&Of(1), true);
        a = strip.NewGroup(&Of(3), u"a", TabColour::Red);
        strip.SetGroup(&Of(4), a);
        b = strip.NewGroup(&Of(6), u"b", TabColour::Blue);
        strip.SetGroup(&Of(7), b);
        strip.SetGroup(&Of(9), b);
    }
    static Text Key(int index) { return u"Tab" + Decimal(index); }
    Tab& Of(int index) { return *strip.Find(Key(index)); }
    void Choose(const std::vector<int>& tags) {
        for (const int tag : tags) strip.SetChosen(&Of(tag), true);
    }
    /// The tabs from the left; those that are held in brackets.
    [[nodiscard]] std::string Order() const {
        std::string all;
        for (std::size_t position = 1; position <= strip.Count(); ++position) {
            const Tab& tab = *strip.FindAt(position);
            const std::string tag = std::to_string(tab.Tag);
            all += (all.empty() ? "" : " ") + (drag.Holds(tab) ? "[" + tag + "]" : tag);
        }
        return all;
    }
    void StepTo(int tag) { drag.StepOver(drag.At(strip.PositionOf(&Of(tag)))); }
    /// The group for a pointer near to the left, near to the right, and behind the head at the right.
    [[nodiscard]] std::string Here() const {
        const auto name = [](const TabGroup* group) { return group ? ToUtf8(group->Name()) : std::string("-"); };
        return name(drag.GroupHere({.NearLeft = true})) + name(drag.GroupHere({})) +
               name(drag.GroupHere({.Behind = true}));
    }
    [[nodiscard]] std::string Indexes() const {
        std::string all;
        for (const std::int32_t each : drag.Indexes()) all += std::to_string(each);
        return all;
    }

    TabStrip strip;
    TabGroup *a = nullptr, *b = nullptr;
    TabDrag drag{strip};
};

TEST_F(TabDragTest, ASingleTabGoesFromPlaceToPlace) {
    EXPECT_FALSE(drag.Any());
    drag.Take(Of(2));
    EXPECT_TRUE(drag.Any());
    EXPECT_FALSE(drag.Moved());
    StepTo(4);
    EXPECT_EQ(Order(), "1 3 4 [2] 5 6 7 8 9");
    EXPECT_TRUE(drag.Moved());
    StepTo(9);
    EXPECT_EQ(Order(), "1 3 4 5 6 7 8 9 [2]");
    StepTo(3);
    EXPECT_EQ(Order(), "1 [2] 3 4 5 6 7 8 9");
    drag.LetGo();
    EXPECT_FALSE(drag.Any());
    EXPECT_EQ(Order(), "1 2 3 4 5 6 7 8 9");
}

TEST_F(TabDragTest, PinnedTabsAndOthersNeverMix) {
    drag.Take(Of(4));
    StepTo(1);
    EXPECT_EQ(Order(), "1 [4] 2 3 5 6 7 8 9");
    strip.SetPinned(&Of(2), true);
    strip.SetPinned(&Of(3), true);
    Choose({1, 3, 5});
    drag.Take(Of(1));
    StepTo(9);
    EXPECT_EQ(Order(), "2 [1] [3] 4 5 6 7 8 9") << "and 5 stays where it is";
    EXPECT_EQ(Here(), "---");
    EXPECT_FALSE(drag.MayJoin(b));
}

TEST_F(TabDragTest, AllThatAreChosenGoTogether) {
    Choose({2, 5, 8});
    drag.Take(Of(5));
    EXPECT_TRUE(drag.HoldsSeveral());
    EXPECT_EQ(Indexes(), "528") << "that under the pointer first";
    StepTo(7);
    EXPECT_EQ(Order(), "1 3 4 6 7 [2] [5] [8] 9");
    StepTo(3);
    EXPECT_EQ(Order(), "1 [2] [5] [8] 3 4 6 7 9");
    drag.Take(Of(4));
    EXPECT_FALSE(drag.HoldsSeveral()) << "one that is not chosen goes alone";
}

TEST_F(TabDragTest, AGroupGoesAsAWholeAndBetweenNoOther) {
    drag.TakeGroup(Of(6));
    EXPECT_TRUE(drag.IsGroup());
    EXPECT_FALSE(drag.MayJoin(a));
    StepTo(5);
    EXPECT_EQ(Order(), "1 2 3 4 [6] [7] [9] 5 8") << "its parts come together";
    EXPECT_EQ(drag.At(3), (TabDrag::Span{3, 4}));
    StepTo(4);
    EXPECT_EQ(Order(), "1 2 [6] [7] [9] 3 4 5 8");
    StepTo(3);
    EXPECT_EQ(Order(), "1 2 3 4 [6] [7] [9] 5 8");
    StepTo(1);
    EXPECT_EQ(Order(), "1 [6] [7] [9] 2 3 4 5 8");
    EXPECT_EQ(Here(), "bbb");
}

TEST_F(TabDragTest, TheGroupIsThatOfBothNeighboursOrOfTheNearerOne) {
    drag.Take(Of(2));
    EXPECT_EQ(Here(), "--a") << "before a group";
    StepTo(3);
    EXPECT_EQ(Here(), "aaa");
    StepTo(4);
    EXPECT_EQ(Here(), "a--") << "behind its last tab";
    StepTo(5);
    EXPECT_EQ(Here(), "--b");
    StepTo(8);
    EXPECT_EQ(Here(), "--b") << "before another part of a group";
    StepTo(9);
    EXPECT_EQ(Here(), "b--");
    strip.SetFolded(b, true);
    EXPECT_EQ(Here(), "---") << "nobody sees the tabs of a folded group";
    EXPECT_TRUE(drag.MayJoin(b));
}

TEST_F(TabDragTest, ATabStaysInItsGroupBesideItAndLeavesItElsewhere) {
    drag.Take(Of(4));
    StepTo(3);
    EXPECT_EQ(Here(), "--a") << "before its first tab, before its head or behind that";
    StepTo(3);
    EXPECT_EQ(Here(), "a--");
    StepTo(5);
    EXPECT_EQ(Here(), "--b");
    StepTo(6);
    EXPECT_EQ(Here(), "bbb");
}

TEST_F(TabDragTest, AllTabsOfAGroupTogetherStayOneUnlessTheyComeIntoAnother) {
    Choose({3, 4});
    drag.Take(Of(4));
    StepTo(5);
    EXPECT_EQ(Here(), "aab");
    StepTo(6);
    EXPECT_EQ(Here(), "bbb");
}

TEST_F(TabDragTest, TabsArePutBeforeAnotherFromBothSides) {
    drag.Take(Of(2));
    drag.PutBefore(6);
    EXPECT_EQ(Order(), "1 3 4 5 [2] 6 7 8 9");
    drag.PutBefore(2);
    EXPECT_EQ(Order(), "1 [2] 3 4 5 6 7 8 9");
    drag.PutBefore(3);
    drag.PutBefore(2);
    drag.PutBefore(99);
    EXPECT_EQ(Order(), "1 [2] 3 4 5 6 7 8 9") << "it is there already, or nothing is";
    Choose({5, 2, 9});
    drag.Take(Of(9));
    drag.PutBefore(3);
    EXPECT_EQ(Order(), "1 [2] [5] [9] 3 4 6 7 8");
}

TEST_F(TabDragTest, TabsMayComeAndGoMeanwhile) {
    Choose({2, 5, 8});
    drag.Take(Of(5));
    StepTo(6);
    EXPECT_EQ(Order(), "1 3 4 6 [2] [5] [8] 7 9");
    strip.Remove(&Of(2));
    strip.Add(6, u"New")->Tag = 10;
    EXPECT_EQ(Order(), "1 3 4 6 [5] 10 [8] 7 9");
    StepTo(7);
    EXPECT_EQ(Order(), "1 3 4 6 10 7 [5] [8] 9");
    strip.Remove(&Of(5));
    EXPECT_FALSE(drag.Any()) << "that under the pointer has gone";
    StepTo(9);
    EXPECT_EQ(Order(), "1 3 4 6 10 7 [8] 9");
    drag.TakeGroup(Of(3));
    for (const int tag : {3, 4}) strip.Remove(&Of(tag));
    EXPECT_FALSE(drag.Any());
    StepTo(9);
    EXPECT_EQ(drag.GroupHere({.NearLeft = true}), nullptr);
    EXPECT_EQ(Order(), "1 6 10 7 8 9");
}

} // namespace

} // namespace tessa
