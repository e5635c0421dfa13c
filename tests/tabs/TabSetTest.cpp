// Tests: TabKeys, TabSetClosing, ViewArray
#include "tests/Desk.h"

#include <utility>

namespace tessa {

namespace {

TEST(TabSet, PutsANewTabRightOfTheSelectedOneWhateverInFrontSays) {
    for (const auto inFront : {InFront::No, InFront::Yes}) {
        Desk desk;
        desk.StartWithTabs(5);
        desk.ClickTab(3);
        desk.NewTab(inFront);
        EXPECT_EQ(desk.Strip(), inFront == InFront::Yes ? "1 2 3 [6*] 4 5" : "1 2 [3*] 6 4 5");
    }
}

TEST(TabSet, ANewTabBehindLeavesSelectionAddressAndFocus) {
    Desk desk;
    desk.StartWithTabs(2);
    desk.PageLoads(1, u"http://one/", u"One");
    desk.NewTab(InFront::No);
    EXPECT_EQ(desk.Captions(), "[One*] Loading... 2");
    EXPECT_EQ(desk.Address(), "http://one/");
    EXPECT_EQ(desk.views.focused, 1);
    EXPECT_EQ(desk.views.front, 1);
}

TEST(TabSet, ANewViewIsVisibleBlankAndOutOfTheWay) {
    Desk desk;
    desk.Start();
    desk.NewTab(InFront::No);
    const auto& view = desk.views.At(2);
    EXPECT_TRUE(view.visible);
    EXPECT_EQ(view.left, kParkedLeft);
    EXPECT_FALSE(view.tabStop);
    EXPECT_EQ(desk.views.Calls(2), "go about:blank");
    EXPECT_EQ(desk.TabOf(2).Tag, 2);
}

TEST(TabSet, ActivationShowsTheSelectedViewAndParksTheOthers) {
    Desk desk;
    desk.StartWithTabs(3);
    desk.views.At(2).location = u"http://two/";
    desk.views.At(2).busy = true;
    desk.ClickTab(2);
    EXPECT_EQ(desk.Strip(), "1 [2*] 3");
    EXPECT_EQ(desk.views.front, 2);
    EXPECT_EQ(desk.views.focused, 2);
    EXPECT_EQ(desk.views.At(2).left, Twips{0});
    EXPECT_TRUE(desk.views.At(2).tabStop);
    for (const int parked : {1, 3}) {
        EXPECT_EQ(desk.views.At(parked).left, kParkedLeft);
        EXPECT_FALSE(desk.views.At(parked).tabStop);
    }
    EXPECT_TRUE(desk.views.At(1).visible) << "parked views keep running";
    EXPECT_EQ(desk.Address(), "http://two/");
    EXPECT_EQ(desk.Enabled(), "Stop");
}

TEST(TabSet, ATabActivatedInAMinimizedWindowHasItsPlaceOnceTheWindowIsBack) {
    Desk desk;
    desk.StartWithTabs(3);
    desk.window.state = WindowState::Minimized;
    desk.window.innerWidth = {800};
    desk.ClickTab(2);
    EXPECT_EQ(desk.views.At(2).left, kParkedLeft) << "nothing is laid out meanwhile";
    EXPECT_TRUE(desk.views.At(2).tabStop);
    EXPECT_EQ(desk.views.front, 2);
    desk.window.state = WindowState::Normal;
    desk.Resize();
    EXPECT_EQ(desk.views.At(2).place, (Rect{{0}, {22}, {800}, {654}}));
    EXPECT_EQ(desk.views.At(2).left, Twips{0});
}

TEST(TabSet, ATabActivatedInAMinimizedWindowIsParkedLikeAnyOther) {
    Desk desk;
    desk.StartWithTabs(3);
    desk.window.state = WindowState::Minimized;
    desk.ClickTab(2);
    desk.ClickTab(3);
    EXPECT_FALSE(desk.views.At(2).tabStop);
    EXPECT_EQ(desk.views.At(2).left, kParkedLeft);
    EXPECT_TRUE(desk.views.At(3).tabStop);
}

TEST(TabSet, TheFirstTabLoadsUntilItsFirstTitleAndTakesTheKeyboardFromTheStart) {
    Desk desk;
    desk.Load(u"http://one/");
    EXPECT_EQ(desk.Captions(), "[Loading...*]");
    EXPECT_TRUE(desk.views.At(1).tabStop);
    desk.PageLoads(1, u"http://one/", u"One");
    EXPECT_EQ(desk.Captions(), "[One*]");
}

TEST(TabSet, CutsATitleOneCharacterOverTheLimit) {
    Desk desk;
    desk.Start();
    desk.Set(u"TitleLengthLimit", u"5");
    desk.PageIsCalled(1, u"12345");
    EXPECT_EQ(desk.Captions(), "[12345*]");
    desk.PageIsCalled(1, u"123456");
    EXPECT_EQ(desk.Captions(), "[12345...*]");
}

TEST(TabSet, CutsNoCharacterOfATitleInTwo) {
    Desk desk;
    desk.Start();
    desk.Set(u"TitleLengthLimit", u"5");
    desk.PageIsCalled(1, u"1234\U0001F600567");
    EXPECT_EQ(desk.TabAt(1).Caption(), u"1234...");
}

TEST(TabSet, ShowsEveryTitleWholeWithoutALimit) {
    Desk desk;
    desk.Start();
    const Text title(300, u'x');
    for (const std::int32_t limit : {0, -1}) {
        desk.Set(u"TitleLengthLimit", Decimal(limit));
        desk.PageIsCalled(1, title);
        EXPECT_EQ(desk.TabAt(1).Caption(), title);
        desk.PageIsCalled(1, u"");
    }
}

TEST(TabSet, AsksBeforeItClosesTheLastTab) {
    for (const auto answer : {Answer::No, Answer::Cancel}) {
        Desk desk;
        desk.Start();
        desk.views.At(1).busy = true;
        desk.messages.answer = answer;
        desk.Close(1);
        ASSERT_EQ(desk.messages.asked.size(), 1u);
        EXPECT_EQ(ToUtf8(desk.messages.asked[0]),
                  "Do you want to close the last browser tab and exit this application?");
        EXPECT_EQ(desk.Strip(), "[1*]");
        EXPECT_FALSE(desk.views.At(1).busy) << "the page is stopped before the question";
        EXPECT_EQ(desk.log.Take(), "show, no splash") << "the window is not closed";
    }
}

TEST(TabSet, ClosesTheWindowWithTheLastTabOnYes) {
    Desk desk;
    desk.Start();
    desk.messages.answer = Answer::Yes;
    desk.log.Take();
    desk.Close(1);
    EXPECT_EQ(desk.log.Take(), "close");
    EXPECT_TRUE(desk.views.living.empty());
}

TEST(TabSet, ClosingABackgroundTabKeepsTheSelectedOne) {
    Desk desk;
    desk.StartWithTabs(4);
    desk.ClickTab(3);
    desk.Close(2);
    EXPECT_EQ(desk.Strip(), "1 [3*] 4");
    EXPECT_FALSE(desk.views.Has(2));
    EXPECT_EQ(desk.views.front, 3);
}

TEST(TabSet, ClosingTheSelectedTabSelectsItsRightNeighbourElseTheLeft) {
    Desk desk;
    desk.StartWithTabs(3);
    desk.ClickTab(2);
    desk.Close(2);
    EXPECT_EQ(desk.Strip(), "1 [3*]");
    EXPECT_EQ(desk.views.front, 3);
    desk.Close(3);
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.views.front, 1);
}

TEST(TabSet, TwoTabsWithOneCaptionCountAsTheSameTab_Deliberate) {
    Desk desk;
    desk.StartWithTabs(3);
    desk.PageIsCalled(3, u"1");
    desk.Close(3);
    // The selection is the strip's own choice then, and that tab is brought forward.
    EXPECT_EQ(desk.Strip(), "[1*] 2");
    EXPECT_EQ(desk.views.front, 1);
}

TEST(TabSet, WhatTheStripChoosesHoldsOnlyAfterATabWithTheSelectedOnesCaption_Deliberate) {
    for (const bool oneCaption : {false, true}) {
        Desk desk;
        desk.StartWithTabs(3);
        if (oneCaption) desk.PageIsCalled(3, u"1");
        auto& strip = desk.main.pcPage;
        // Something else has the strip select the middle tab while the last one goes.
        Connection choosing = strip.Touched.Connect([&strip, chosen = false]() mutable {
            if (strip.Count() == 2 && !std::exchange(chosen, true)) strip.Select(strip.Find(u"Tab2"));
        });
        desk.Close(3);
        choosing.End();
        EXPECT_EQ(desk.Strip(), oneCaption ? "1 [2*]" : "[1*] 2");
        EXPECT_EQ(desk.views.front, oneCaption ? 2 : 1);
    }
}

TEST(TabSet, ClosingTheFirstViewsTabHidesItAndKeepsItsIndex) {
    Desk desk;
    desk.StartWithTabs(2);
    desk.Close(1);
    EXPECT_EQ(desk.Strip(), "[2*]");
    EXPECT_TRUE(desk.views.Has(1));
    EXPECT_FALSE(desk.views.At(1).visible);
    desk.NewTab(InFront::Yes);
    EXPECT_EQ(desk.Strip(), "2 [3*]");
}

TEST(TabSet, IndexesAreNeverReused) {
    Desk desk;
    desk.StartWithTabs(3);
    desk.Close(3);
    desk.NewTab(InFront::No);
    EXPECT_EQ(desk.Strip(), "[1*] 4 2");
}

TEST(TabSet, CloseOthersKeepsTheLeftmostTabAndBlanksIt) {
    Desk desk;
    desk.StartWithTabs(4);
    desk.ClickTab(3);
    desk.views.Calls(1);
    desk.CloseOtherTabs();
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank");
    EXPECT_TRUE(desk.messages.asked.empty());
}

TEST(TabSet, CloseOthersWithOneTabOnlyBlanksIt) {
    Desk desk;
    desk.Start();
    desk.views.Calls(1);
    desk.CloseOtherTabs();
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank");
}

TEST(TabSet, BeyondSixteenBitsThereIsNoTabAndTheUserIsTold) {
    Desk desk;
    desk.Start();
    desk.UseIndexesUpTo(ViewArray::kLastIndex - 1);
    EXPECT_NE(desk.NewTab(InFront::Yes), nullptr);
    EXPECT_EQ(desk.Status(), "");
    EXPECT_EQ(desk.NewTab(InFront::Yes), nullptr);
    EXPECT_EQ(desk.Strip(), "1 [32767*]");
    EXPECT_EQ(desk.Status(), "No more tabs can be opened until TessaView is started again.");
    desk.EmptyStatus();
    desk.Click(u"mnuNewBlank");
    EXPECT_EQ(desk.Strip(), "1 [32767*]");
    EXPECT_EQ(desk.Status(), "No more tabs can be opened until TessaView is started again.");
}

TEST(TabSet, MarksAndTitlesOfAGoneTabDoNothing) {
    Desk desk;
    desk.StartWithTabs(2);
    desk.Close(2);
    desk.PageBegins(2, u"http://late/");
    desk.PageIsCalled(2, u"late");
    desk.Close(17);
    EXPECT_EQ(desk.Captions(), "[1*]");
}

TEST(TabSet, GoesOnWhenTheEngineRefuses) {
    Desk desk;
    desk.StartWithTabs(2);
    desk.views.At(2).refuses = true;
    desk.ExpectSkipped(1);
    desk.Close(2);
    EXPECT_EQ(desk.Strip(), "[1*]");
    desk.views.refuses = true;
    EXPECT_EQ(desk.NewTab(InFront::Yes), nullptr);
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.Status(), "");
    desk.views.refuses = false;
    EXPECT_NE(desk.NewTab(InFront::Yes), nullptr);
    EXPECT_EQ(desk.Strip(), "1 [4*]");
}

TEST(TabSet, ATabThatGoesWhileTheQuestionIsOpenIsNoHarm) {
    Desk desk;
    desk.Start();
    desk.messages.whileOpen = [&] { desk.NewTab(InFront::Yes); };
    desk.messages.answer = Answer::No;
    desk.Close(1);
    EXPECT_EQ(desk.Strip(), "1 [2*]");
}

TEST(TabSet, TheStatusBarTakesItsRoomFromThePage) {
    Desk desk;
    desk.Start();
    const auto before = desk.views.At(1).place;
    desk.Click(u"mnuViewStatusbar");
    EXPECT_FALSE(desk.ShowsStatusBar());
    EXPECT_FALSE(desk.Tool(u"mnuViewStatusbar").Checked());
    EXPECT_EQ(desk.views.At(1).place.height.value, before.height.value + desk.StatusBarHeight().value);
    desk.Click(u"mnuViewStatusbar");
    EXPECT_EQ(desk.views.At(1).place, before);
}

TEST(TabSet, TheBarIsLaidOutAnewBetweenTheCheckMarkAndTheStatusBar) {
    Desk desk;
    desk.Start();
    std::string seen;
    const Connection view = desk.Bar().LayoutWanted.Connect([&] {
        seen += desk.Tool(u"mnuViewStatusbar").Checked() ? "checked " : "unchecked ";
        seen += desk.ShowsStatusBar() ? "shown " : "hidden ";
    });
    desk.Click(u"mnuViewStatusbar");
    desk.Click(u"mnuViewStatusbar");
    EXPECT_EQ(seen, "unchecked shown checked hidden ");
}

} // namespace

} // namespace tessa
