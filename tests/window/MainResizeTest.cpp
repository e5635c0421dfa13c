#include "tests/Desk.h"

namespace tessa {

namespace {

class MainResizeTest : public testing::Test {
protected:
    void SetUp() override {
        desk.StartWithTabs(2);
        Resize(1000, 700);
    }
    void Resize(std::int32_t width, std::int32_t height) {
        desk.window.innerWidth = {width};
        desk.window.innerHeight = {height};
        desk.Resize();
    }
    FakeView& View() { return desk.views.At(1); }

    Desk desk;
    const std::int32_t status = desk.StatusBarHeight().value;
};

TEST_F(MainResizeTest, StripAndViewFollowTheWindow) {
    Resize(800, 500);
    EXPECT_EQ(desk.window.strip, (Rect{{0}, {0}, {800}, {500 - status}}));
    EXPECT_EQ(View().place, (Rect{{0}, {22}, {800}, {500 - status - 22}}));
}

TEST_F(MainResizeTest, AHiddenStatusBarLeavesItsHeightToStripAndView) {
    desk.Click(u"mnuViewStatusbar");
    desk.Resize();
    EXPECT_EQ(desk.window.strip.height, Pixels{700});
    EXPECT_EQ(View().place.height, Pixels{700 - 22});
    desk.Click(u"mnuViewStatusbar");
    desk.Resize();
    EXPECT_EQ(desk.window.strip.height, Pixels{700 - status});
}

TEST_F(MainResizeTest, WhileMinimizedTheStripMovesAndTheViewStays) {
    const Rect before = View().place;
    desk.window.state = WindowState::Minimized;
    Resize(160, 30);
    EXPECT_EQ(desk.window.strip.width, Pixels{160});
    EXPECT_EQ(View().place, before);
}

TEST_F(MainResizeTest, AWindowLowerThanItsBarsStillGivesTheViewAHeight_Deliberate) {
    Resize(1000, 30);
    EXPECT_EQ(View().place.height, Pixels{22 + status - 30});
    EXPECT_EQ(desk.window.strip.height, Pixels{30 > status ? 30 - status : 0});
}

} // namespace

} // namespace tessa
