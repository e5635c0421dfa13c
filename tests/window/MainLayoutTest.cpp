#include "window/MainLayout.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using MainLayout::Inputs;

TEST(MainLayout, TheStripFillsTheInnerAreaAboveTheStatusBar) {
    EXPECT_EQ(MainLayout::TabStripPlace({{1000}, {700}, {24}}), (Rect{{0}, {0}, {1000}, {676}}));
    EXPECT_EQ(MainLayout::TabStripPlace({{1000}, {700}, {0}}), (Rect{{0}, {0}, {1000}, {700}}));
    EXPECT_EQ(MainLayout::TabStripPlace({{1000}, {10}, {24}}), (Rect{{0}, {0}, {1000}, {0}})) << "never negative";
}

TEST(MainLayout, TheViewLiesBelowTheTabsOrAboveThem) {
    Inputs inputs{{1000}, {700}, {24}};
    EXPECT_EQ(MainLayout::ViewPlace(inputs), (Rect{{0}, {22}, {1000}, {654}}));
    inputs.placement = TabPlacement::Bottom;
    EXPECT_EQ(MainLayout::ViewPlace(inputs), (Rect{{0}, {0}, {1000}, {654}}));
}

TEST(MainLayout, AHigherTabRowTakesItsRoomFromTheView) {
    EXPECT_EQ(MainLayout::ViewPlace({{1000}, {700}, {0}, {40}}), (Rect{{0}, {40}, {1000}, {660}}));
}

TEST(MainLayout, AWindowLowerThanItsBarsStillGivesAHeight_Deliberate) {
    EXPECT_EQ(MainLayout::ViewPlace({{1000}, {30}, {24}}).height, Pixels{16});
}

} // namespace

} // namespace tessa
