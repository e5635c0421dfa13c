// Tests: TabGroup
#include "forms/TabStrip.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace tessa {

namespace {

/// "^1 2 a(3 4*)": pinned tabs, groups by their names, the selected tab.
std::string GroupState(const TabStrip& strip) {
    std::string all;
    for (std::size_t i = 1; i <= strip.Count(); ++i) {
        const auto* tab = strip.FindAt(i);
        all += (i > 1 ? " " : "") + std::string(tab->Pinned() ? "^" : "") + ToUtf8(tab->Key());
        if (tab->Group()) all += ToUtf8(tab->Group()->Name());
        if (tab == strip.SelectedItem()) all += "*";
    }
    return all;
}

class TabStripGroups : public testing::Test {
protected:
    TabStripGroups() {
        for (int i = 1; i <= 5; ++i) strip.Add(0, Decimal(i));
        strip.GroupGone.ConnectForLife([this](std::int32_t id) { gone += std::to_string(id) + " "; });
    }
    Tab* At(std::size_t position) { return strip.FindAt(position); }

    TabStrip strip;
    std::string gone;
};

TEST_F(TabStripGroups, AGroupLivesAsLongAsItHasTabs) {
    auto* group = strip.NewGroup(At(2), u"a", TabColour::Red);
    strip.SetGroup(At(4), group);
    EXPECT_EQ(GroupState(strip), "1* 2a 3 4a 5") << "they need not stand beside each other";
    EXPECT_EQ(group->Count(), 2U);
    EXPECT_EQ(strip.TabsOf(group), (std::vector<Tab*>{At(2), At(4)}));
    EXPECT_EQ(At(4)->Colour(), TabColour::Red);
    strip.SetGroup(At(2), nullptr);
    EXPECT_EQ(At(2)->Colour(), TabColour::None);
    EXPECT_EQ(gone, "");
    strip.Remove(At(4));
    EXPECT_EQ(gone, "1 ");
    EXPECT_EQ(strip.FindGroup(1), nullptr);
    EXPECT_TRUE(strip.Groups().empty());
    EXPECT_EQ(strip.NewGroup(At(1), u"b", TabColour::Blue)->Id(), 2) << "no number comes again";
}

TEST_F(TabStripGroups, AGroupThatHasGoneComesBackByItsNumber) {
    strip.NewGroup(At(2), u"a", TabColour::Red);
    strip.NewGroup(At(2), u"b", TabColour::Blue);
    EXPECT_EQ(gone, "1 ") << "a tab is in one group";
    EXPECT_EQ(strip.NewGroup(At(3), u"a", TabColour::Red, 1)->Id(), 1);
    EXPECT_EQ(GroupState(strip), "1* 2b 3a 4 5");
}

TEST_F(TabStripGroups, GroupsStandInTheOrderOfTheirFirstTabs) {
    strip.NewGroup(At(4), u"a", TabColour::Red);
    auto* b = strip.NewGroup(At(2), u"b", TabColour::Blue);
    strip.SetGroup(At(5), b);
    ASSERT_EQ(strip.Groups().size(), 2U);
    EXPECT_EQ(strip.Groups()[0]->Name(), u"b");
    strip.Move(At(4), 1);
    EXPECT_EQ(strip.Groups()[0]->Name(), u"a");
}

TEST_F(TabStripGroups, OfAFoldedGroupOnlyTheSelectedTabIsSeen) {
    auto* group = strip.NewGroup(At(2), u"a", TabColour::Red);
    strip.SetGroup(At(3), group);
    strip.SetFolded(group, true);
    EXPECT_FALSE(strip.IsShown(*At(2)));
    EXPECT_TRUE(strip.IsShown(*At(1)));
    strip.Select(At(3));
    EXPECT_FALSE(strip.IsShown(*At(2)));
    EXPECT_TRUE(strip.IsShown(*At(3)));
    EXPECT_TRUE(group->Folded());
}

TEST_F(TabStripGroups, WhatLoadsIsCounted) {
    auto* group = strip.NewGroup(At(2), u"a", TabColour::Red);
    strip.SetQueued(At(3), true);
    strip.SetGroup(At(3), group);
    EXPECT_EQ(group->Loading(), 1U);
    strip.SetImage(At(3), TabImage::Red);
    strip.SetImage(At(2), TabImage::Red);
    EXPECT_EQ(group->Loading(), 2U);
    strip.SetQueued(At(3), false);
    EXPECT_EQ(group->Loading(), 2U) << "it loads still";
    strip.SetImage(At(3), TabImage::None);
    EXPECT_EQ(group->Loading(), 1U);
    strip.SetGroup(At(2), nullptr);
    EXPECT_EQ(group->Loading(), 0U);
    strip.SetImage(At(2), TabImage::None);
    EXPECT_EQ(group->Loading(), 0U);
}

TEST_F(TabStripGroups, PinnedTabsStandBeforeAllOthers) {
    strip.SetPinned(At(4), true);
    strip.SetPinned(At(3), true);
    EXPECT_EQ(GroupState(strip), "^4 ^2 1* 3 5");
    strip.Add(1, u"6");
    EXPECT_EQ(GroupState(strip), "^4 ^2 6 1* 3 5") << "a new tab comes behind them";
    strip.Move(At(5), 1);
    EXPECT_EQ(GroupState(strip), "^4 ^2 3 6 1* 5");
    strip.Move(At(1), 5);
    EXPECT_EQ(GroupState(strip), "^2 ^4 3 6 1* 5") << "a pinned one stays among its like";
    strip.SetPinned(At(1), false);
    EXPECT_EQ(GroupState(strip), "^4 2 3 6 1* 5");
    strip.Remove(At(1));
    EXPECT_EQ(strip.PinnedCount(), 0U);
    strip.Add(1, u"7");
    EXPECT_EQ(GroupState(strip), "7 2 3 6 1* 5");
}

TEST_F(TabStripGroups, APinnedTabIsOfNoGroup) {
    auto* group = strip.NewGroup(At(2), u"a", TabColour::Red);
    strip.SetGroup(At(3), group);
    strip.SetPinned(At(3), true);
    EXPECT_EQ(GroupState(strip), "^3 1* 2a 4 5");
    strip.SetGroup(At(1), group);
    EXPECT_EQ(GroupState(strip), "3a 1* 2a 4 5") << "and is none any more in a group";
    EXPECT_EQ(strip.PinnedCount(), 0U);
}

TEST_F(TabStripGroups, WhatChangesIsToldAndNothingElse) {
    int touched = 0;
    strip.Touched.ConnectForLife([&] { ++touched; });
    auto* group = strip.NewGroup(At(2), u"a", TabColour::Red);
    const auto tells = [&](const std::function<void()>& change) {
        const int before = touched;
        change();
        return touched > before;
    };
    EXPECT_TRUE(tells([&] { strip.SetFolded(group, true); }));
    EXPECT_FALSE(tells([&] { strip.SetFolded(group, true); }));
    EXPECT_TRUE(tells([&] { strip.SetGroupColour(group, TabColour::Green); }));
    EXPECT_FALSE(tells([&] { strip.SetGroupColour(group, TabColour::Green); }));
    EXPECT_TRUE(tells([&] { strip.SetGroupName(group, u"b"); }));
    EXPECT_FALSE(tells([&] { strip.SetGroupName(group, u"b"); }));
    EXPECT_TRUE(tells([&] { strip.SetQueued(At(2), true); }));
    EXPECT_TRUE(tells([&] { strip.SetPinned(At(2), true); }));
    EXPECT_FALSE(tells([&] { strip.SetPinned(At(1), true); }));
}

TEST_F(TabStripGroups, WhateverIsDonePinsStandFirstAndCountsAreRight) {
    std::mt19937 random(20);
    for (int round = 0; round < 20'000; ++round) {
        const std::size_t count = strip.Count();
        Tab* tab = count == 0 ? nullptr : At(random() % count + 1);
        const unsigned what = random() % 8;
        const auto groups = strip.Groups();
        if (what == 0 || !tab)
            strip.Add(random() % 12, u"n" + Decimal(round));
        else if (what == 1 && count > 3)
            strip.Remove(tab);
        else if (what == 2)
            strip.Move(tab, random() % 12);
        else if (what == 3)
            strip.SetPinned(tab, random() % 2 == 0);
        else if (what == 4)
            strip.NewGroup(tab, u"g", TabColour::Red);
        else if (what == 5)
            strip.SetGroup(tab, groups.empty() ? nullptr : groups[random() % groups.size()]);
        else if (what == 6)
            strip.SetQueued(tab, random() % 2 == 0);
        else
            strip.SetImage(tab, random() % 2 == 0 ? TabImage::Red : TabImage::None);
        std::size_t pins = 0, ofGroups = 0;
        for (std::size_t i = 1; i <= strip.Count(); ++i) {
            if (!At(i)->Pinned()) continue;
            ++pins;
            ASSERT_EQ(pins, i);
            ASSERT_EQ(At(i)->Group(), nullptr);
        }
        ASSERT_EQ(strip.PinnedCount(), pins);
        for (const TabGroup* each : strip.Groups()) {
            const auto tabs = strip.TabsOf(each);
            ASSERT_EQ(each->Count(), tabs.size());
            ASSERT_LE(each->Loading(), tabs.size());
            ofGroups += tabs.size();
        }
        ASSERT_LE(ofGroups + pins, strip.Count());
    }
}

} // namespace

} // namespace tessa
