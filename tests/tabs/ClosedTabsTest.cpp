#include "tests/Desk.h"

namespace tessa {

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
    [[nodiscard]] bool CanReopen() { return desk.Tool(u"xtrReopenTab").Enabled(); }

    Desk desk;
};

TEST_F(ClosedTabsTest, TheTabClosedLastComesBackFirstAtItsPlaceWithItsHistory) {
    Start(4);
    desk.Close(2);
    desk.Close(4);
    EXPECT_EQ(desk.Strip(), "[1*] 3");
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.Strip(), "1 3 [5*]");
    EXPECT_EQ(desk.views.Calls(5), "go about:blank, restore history 4");
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.Strip(), "1 [6*] 3 5");
    EXPECT_EQ(desk.views.At(6).location, u"http://2/");
}

TEST_F(ClosedTabsTest, TellsWhatWasClosedLast) {
    Start(5);
    desk.Close(2);
    desk.CloseRightOf(2);
    // As the home page shows it.
    StartContent content;
    desk.main.AddHomeFacts(content);
    Text all;
    for (const StartLink& each : content.Closed) all += each.Title + u"=" + each.Address + u" ";
    EXPECT_EQ(all, u"4=http://4/ 5=http://5/ 2=http://2/ ");
}

TEST_F(ClosedTabsTest, ThereIsNothingToReopenBeforeSomethingWasClosed) {
    Start(2);
    EXPECT_FALSE(CanReopen());
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.Strip(), "[1*] 2");
    desk.Close(2);
    EXPECT_TRUE(CanReopen());
    desk.Click(u"xtrReopenTab");
    EXPECT_FALSE(CanReopen());
}

TEST_F(ClosedTabsTest, BlankPagesAreNotKept) {
    Start(3);
    desk.views.At(2).location = u"about:blank";
    desk.views.At(3).location = u"";
    desk.Close(2);
    desk.Close(3);
    EXPECT_FALSE(CanReopen());
}

TEST_F(ClosedTabsTest, TheFirstViewIsKeptThoughItIsNeverDestroyed) {
    Start(2);
    desk.Close(1);
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.views.Calls(3), "go about:blank, restore history 1");
    EXPECT_EQ(desk.Strip(), "[3*] 2");
}

TEST_F(ClosedTabsTest, ALastTabThatStaysOpenIsNotKept) {
    Start(1);
    desk.messages.answer = Answer::No;
    desk.Close(1);
    EXPECT_FALSE(CanReopen());
}

TEST_F(ClosedTabsTest, TheOldestAreForgotten) {
    Start(static_cast<int>(ClosedTabs::kMost) + 3);
    while (desk.CountTabs() > 1) desk.Close(desk.TabAt(2).Tag);
    for (std::size_t i = 0; i < ClosedTabs::kMost; ++i) desk.Click(u"xtrReopenTab");
    EXPECT_FALSE(CanReopen());
    EXPECT_EQ(desk.CountTabs(), ClosedTabs::kMost + 1);
}

TEST_F(ClosedTabsTest, WhatOneCommandHasClosedComesBackInOrderByOne) {
    Start(8);
    desk.ClickTab(3);
    desk.Click(u"mnuCloseAll");
    ASSERT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.Tool(u"xtrReopenTab").Caption(), u"&Reopen 7 Tabs");
    desk.views.Calls(1);
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.Strip(), "1 9 [10*] 11 12 13 14 15");
    EXPECT_EQ(desk.Captions(), "1 Loading... [Loading...*] Loading... Loading... 6 7 8") << "the first few are awake";
    EXPECT_EQ(desk.views.Calls(9), "go about:blank, restore history 2");
    EXPECT_EQ(desk.views.Calls(12), "go about:blank, restore history 5");
    EXPECT_EQ(desk.views.Calls(13), "go about:blank, restore history 6 later");
    EXPECT_EQ(desk.views.Calls(1), "back") << "the tab that was left was blanked";
    EXPECT_FALSE(CanReopen());
    EXPECT_EQ(desk.Tool(u"xtrReopenTab").Caption(), u"&Reopen Closed Tab");
}

TEST_F(ClosedTabsTest, WhatWasInFrontBeforeTheCommandIsInFrontAgain) {
    Start(9);
    desk.ClickTab(8);
    desk.Click(u"mnuCloseAll");
    ASSERT_EQ(desk.Strip(), "[1*]");
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.Strip(), "1 10 11 12 13 14 15 [16*] 17");
    EXPECT_EQ(desk.views.Calls(16), "go about:blank, restore history 8") << "it is looked at, so it is awake";
    EXPECT_EQ(desk.views.Calls(15), "go about:blank, restore history 7 later");
}

TEST_F(ClosedTabsTest, ATabThatWasBlankedInFrontIsInFrontAgain) {
    Start(3);
    desk.ClickTab(1);
    desk.Click(u"mnuCloseAll");
    desk.ClickTab(1);
    desk.NewTab(InFront::Yes);
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.Strip(), "[1*] 5 6 4");
}

TEST_F(ClosedTabsTest, WhereTheTabInFrontHasStayedTheLeftmostComesToTheFront) {
    Start(5);
    desk.CloseRightOf(2);
    ASSERT_EQ(desk.Strip(), "[1*] 2");
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.Strip(), "1 2 [6*] 7 8");
}

TEST_F(ClosedTabsTest, ATabThatWasLeftKeepsWhatItHasShownSince) {
    Start(2);
    desk.Click(u"mnuCloseAll");
    desk.views.At(1).location = u"http://new/";
    desk.views.Calls(1);
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.views.Calls(1), "");
}

TEST_F(ClosedTabsTest, EachCommandIsTakenBackByItself) {
    Start(5);
    desk.Close(5);
    desk.CloseRightOf(2);
    desk.Close(2);
    desk.CloseRightOf(1);
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.CountTabs(), 2U);
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.CountTabs(), 4U);
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.CountTabs(), 5U);
    EXPECT_EQ(ToUtf8(desk.views.At(7).location) + " " + ToUtf8(desk.views.At(8).location), "http://3/ http://4/");
}

TEST_F(ClosedTabsTest, ManyTabsOfOldCommandsAreForgotten) {
    constexpr int kTabs = static_cast<int>(ClosedTabs::kMostTabs) / 2 + 10;
    Start(kTabs);
    desk.Click(u"mnuCloseAll");
    for (int i = 0; i < kTabs; ++i) ResumeNext(desk.NewTab(InFront::No)->Navigate(u"http://again/"));
    desk.Click(u"mnuCloseAll");
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.CountTabs(), static_cast<std::size_t>(kTabs) + 1);
    EXPECT_FALSE(CanReopen());
}

TEST_F(ClosedTabsTest, APlaceThatIsNoMoreIsTheLast) {
    Start(3);
    desk.Close(3);
    desk.Close(2);
    desk.Click(u"xtrReopenTab");
    desk.Close(1);
    desk.Click(u"xtrReopenTab");
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.CountTabs(), 3U);
    EXPECT_EQ(desk.views.At(6).location, u"http://3/");
    EXPECT_EQ(desk.Strip(), "5 4 [6*]");
}

} // namespace

} // namespace tessa
