#include "tests/Desk.h"

namespace {

class ClosedTabsTest : public testing::Test {
protected:
    void Start(int tabs) {
        desk.StartWithTabs(tabs);
        for (int i = 1; i <= tabs; ++i) {
            desk.views.At(i).location = u"http://" + Decimal(i) + u"/";
            desk.views.At(i).history = "history " + std::to_string(i);
        }
    }
    [[nodiscard]] bool CanReopen() { return desk.main.actBar.Find(u"xtrReopenTab")->Enabled(); }

    Desk desk;
};

TEST_F(ClosedTabsTest, TheTabClosedLastComesBackFirstAtItsPlaceWithItsHistory) {
    Start(4);
    desk.main.CloseBrowserTab(2);
    desk.main.CloseBrowserTab(4);
    EXPECT_EQ(desk.Strip(), "[1*] 3");
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.Strip(), "1 3 [5*]");
    EXPECT_EQ(desk.views.Calls(5), "go about:blank, restore history 4");
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.Strip(), "1 [6*] 3 5");
    EXPECT_EQ(desk.views.At(6).location, u"http://2/");
}

TEST_F(ClosedTabsTest, ThereIsNothingToReopenBeforeSomethingWasClosed) {
    Start(2);
    EXPECT_FALSE(CanReopen());
    desk.main.Closed.Reopen();
    EXPECT_EQ(desk.Strip(), "[1*] 2");
    desk.main.CloseBrowserTab(2);
    EXPECT_TRUE(CanReopen());
    desk.Click(u"xtrReopenTab");
    EXPECT_FALSE(CanReopen());
}

TEST_F(ClosedTabsTest, BlankPagesAreNotKept) {
    Start(3);
    desk.views.At(2).location = u"about:blank";
    desk.views.At(3).location = u"";
    desk.main.CloseBrowserTab(2);
    desk.main.CloseBrowserTab(3);
    EXPECT_FALSE(CanReopen());
}

TEST_F(ClosedTabsTest, TheFirstViewIsKeptThoughItIsNeverDestroyed) {
    Start(2);
    desk.main.CloseBrowserTab(1);
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.views.Calls(3), "go about:blank, restore history 1");
    EXPECT_EQ(desk.Strip(), "[3*] 2");
}

TEST_F(ClosedTabsTest, ALastTabThatStaysOpenIsNotKept) {
    Start(1);
    desk.messages.answer = Answer::No;
    desk.main.CloseBrowserTab(1);
    EXPECT_FALSE(CanReopen());
}

TEST_F(ClosedTabsTest, TheOldestAreForgotten) {
    Start(static_cast<int>(ClosedTabs::kMost) + 3);
    desk.main.Tabs.CloseOtherTabs();
    ASSERT_EQ(desk.main.pcPage.Count(), 1U);
    for (std::size_t i = 0; i < ClosedTabs::kMost; ++i) desk.main.Closed.Reopen();
    EXPECT_FALSE(CanReopen());
    EXPECT_EQ(desk.main.pcPage.Count(), ClosedTabs::kMost + 1);
}

TEST_F(ClosedTabsTest, APlaceThatIsNoMoreIsTheLast) {
    Start(3);
    desk.main.CloseBrowserTab(3);
    desk.main.CloseBrowserTab(2);
    desk.main.Closed.Reopen();
    desk.main.CloseBrowserTab(1);
    desk.main.Closed.Reopen();
    desk.main.Closed.Reopen();
    EXPECT_EQ(desk.main.pcPage.Count(), 3U);
    EXPECT_EQ(desk.views.At(6).location, u"http://3/");
    EXPECT_EQ(desk.Strip(), "5 4 [6*]");
}

} // namespace
