#include "tests/Desk.h"

namespace tessa {

namespace {

TEST(BrowserEvents, ABackgroundPageThatLoadsChangesOnlyItsTab) {
    Desk desk;
    desk.StartWithTabs(2);
    desk.PageLoads(1, u"http://one/", u"One");
    desk.views.focused = desk.views.front = 0;
    desk.PageLoads(2, u"http://two/", u"Two");
    desk.views.At(2).events.StatusTextChange(2, u"from behind");
    desk.views.At(2).events.CommandStateChange(2, HistoryCommand::NavigateBack, true);
    EXPECT_EQ(desk.Captions(), "[One*] Two");
    EXPECT_EQ(desk.Address(), "http://one/");
    EXPECT_EQ(desk.views.focused, 0);
    EXPECT_EQ(desk.views.front, 0);
    EXPECT_EQ(desk.Enabled(), "Refresh");
    EXPECT_EQ(desk.Status(), "");
    desk.ClickTab(2);
    EXPECT_EQ(desk.Enabled(), "Back Refresh") << "the flags were kept for the time when it is selected";
}

TEST(BrowserEvents, TheSelectedPageTakesTheFocusWhenItsDocumentIsComplete) {
    Desk desk;
    desk.Start();
    desk.views.focused = desk.views.front = 0;
    desk.views.At(1).events.DocumentComplete(1, PageLevel::Top, u"http://one/");
    EXPECT_EQ(desk.views.focused, 1);
    EXPECT_EQ(desk.views.front, 1);
}

TEST(BrowserEvents, AFrameMarksTheTabBusyAndLeavesTheAddressAlone) {
    Desk desk;
    desk.Start();
    desk.PageLoads(1, u"http://one/", u"One");
    auto& events = desk.views.At(1).events;
    events.BeforeNavigate2(1, PageLevel::Frame, u"http://frame/");
    EXPECT_EQ(desk.Captions(), "[One!*]");
    EXPECT_EQ(desk.Address(), "http://one/");
    events.DocumentComplete(1, PageLevel::Frame, u"http://frame/");
    EXPECT_EQ(desk.Captions(), "[One*]");
    EXPECT_EQ(desk.Address(), "http://one/");
}

TEST(BrowserEvents, TheAddressFollowsTwiceATargetAndWhereItLed) {
    Desk desk;
    desk.Start();
    auto& events = desk.views.At(1).events;
    desk.views.At(1).busy = true;
    events.BeforeNavigate2(1, PageLevel::Top, u"http://short/");
    EXPECT_EQ(desk.Address(), "http://short/");
    EXPECT_EQ(desk.Enabled(), "Stop");
    events.NavigateComplete2(1, PageLevel::Top, u"http://long/");
    EXPECT_EQ(desk.Address(), "http://long/");
}

TEST(BrowserEvents, ACompletedNavigationClearsTheBusyMarkBeforeTheDocumentIs_Deliberate) {
    Desk desk;
    desk.Start();
    auto& events = desk.views.At(1).events;
    events.BeforeNavigate2(1, PageLevel::Top, u"http://one/");
    EXPECT_EQ(desk.TabAt(1).Image(), TabImage::Red);
    events.NavigateComplete2(1, PageLevel::Top, u"http://one/");
    EXPECT_EQ(desk.TabAt(1).Image(), TabImage::None);
}

TEST(BrowserEvents, TheCompletionOfAnyFrameClearsTheBusyMark_Deliberate) {
    Desk desk;
    desk.Start();
    auto& events = desk.views.At(1).events;
    events.BeforeNavigate2(1, PageLevel::Top, u"http://one/");
    events.NavigateComplete2(1, PageLevel::Frame, u"http://frame/");
    EXPECT_EQ(desk.TabAt(1).Image(), TabImage::None);
}

TEST(BrowserEvents, AFramesNavigationThatIsDroppedClearsTheBusyMarkAndLeavesTheKeyboard) {
    Desk desk;
    desk.StartWithTabs(2);
    desk.PageLoads(1, u"http://one/", u"One");
    desk.views.focused = desk.views.front = 0;
    for (const std::int16_t index : {1, 2}) {
        auto& events = desk.views.At(index).events;
        events.BeforeNavigate2(index, PageLevel::Frame, u"http://frame/");
        EXPECT_EQ(desk.TabAt(static_cast<std::size_t>(index)).Image(), TabImage::Red);
        events.NavigationDropped(index);
        EXPECT_EQ(desk.TabAt(static_cast<std::size_t>(index)).Image(), TabImage::None);
    }
    EXPECT_EQ(desk.views.focused, 0);
    EXPECT_EQ(desk.views.front, 0);
    EXPECT_EQ(desk.Address(), "http://one/");
}

TEST(BrowserEvents, HistoryStateEnablesBackAndForward) {
    Desk desk;
    desk.Start();
    auto& events = desk.views.At(1).events;
    events.CommandStateChange(1, HistoryCommand::NavigateBack, true);
    events.CommandStateChange(1, HistoryCommand::NavigateForward, true);
    EXPECT_EQ(desk.Enabled(), "Back Forward");
    events.CommandStateChange(1, HistoryCommand::UpdateCommands, false);
    EXPECT_EQ(desk.Enabled(), "Back Forward");
    events.CommandStateChange(1, HistoryCommand::NavigateForward, false);
    EXPECT_EQ(desk.Enabled(), "Back");
    events.CommandStateChange(1, HistoryCommand::NavigateBack, false);
    EXPECT_EQ(desk.Enabled(), "");
}

TEST(BrowserEvents, DownloadsOfAnyViewReadTheSelectedViewsState) {
    Desk desk;
    desk.StartWithTabs(2);
    desk.views.At(1).busy = true;
    desk.views.At(2).events.DownloadComplete(2);
    EXPECT_EQ(desk.Enabled(), "Stop");
    desk.views.At(1).busy = false;
    desk.views.At(2).events.DownloadBegin(2);
    EXPECT_EQ(desk.Enabled(), "Refresh");
}

TEST(BrowserEvents, APageThatWantsANewWindowGetsATabWhereTheSettingSays) {
    Desk desk;
    desk.StartWithTabs(2);
    desk.Set(u"OpenNewInFront", u"false");
    const auto* behind = desk.views.At(1).events.NewWindow2(1, NewWindowPlace::AsSet);
    EXPECT_EQ(behind, &desk.views.At(3));
    EXPECT_EQ(desk.Strip(), "[1*] 3 2");
    desk.Set(u"OpenNewInFront", u"true");
    const auto* inFront = desk.views.At(2).events.NewWindow2(2, NewWindowPlace::AsSet);
    EXPECT_EQ(inFront, &desk.views.At(4));
    EXPECT_EQ(desk.Strip(), "1 [4*] 3 2") << "right of the selected tab, not of the one that asked";
    desk.views.refuses = true;
    EXPECT_EQ(desk.views.At(2).events.NewWindow2(2, NewWindowPlace::AsSet), nullptr);
}

TEST(BrowserEvents, WhatACommandOpensComesInFrontWhateverTheSettingSays) {
    Desk desk;
    desk.StartWithTabs(1);
    desk.Set(u"OpenNewInFront", u"false");
    desk.views.At(1).events.NewWindow2(1, NewWindowPlace::InFront);
    EXPECT_EQ(desk.Strip(), "1 [2*]");
}

TEST(BrowserEvents, OnlyTheSelectedViewsStatusTextIsShown) {
    Desk desk;
    desk.StartWithTabs(2);
    desk.views.At(1).events.StatusTextChange(1, u"http://link/");
    desk.views.At(2).events.StatusTextChange(2, u"http://other/");
    EXPECT_EQ(desk.Status(), "http://link/");
    desk.views.At(1).events.StatusTextChange(1, u"");
    EXPECT_EQ(desk.Status(), "");
}

TEST(BrowserEvents, APageThatClosesItselfClosesItsTabByTheSameRules) {
    Desk desk;
    desk.StartWithTabs(2);
    auto& events = desk.views.At(2).events;
    events.WindowClosing(2);
    EXPECT_EQ(desk.Strip(), "[1*]");
    events.WindowClosing(1);
    EXPECT_EQ(desk.messages.asked.size(), 1u);
    EXPECT_EQ(desk.Strip(), "[1*]");
}

TEST(BrowserEvents, APageWhoseTabHasGoneClosesNothingMore) {
    Desk desk;
    desk.StartWithTabs(2);
    auto& events = desk.views.At(1).events;
    events.WindowClosing(1);
    events.WindowClosing(1);
    EXPECT_EQ(desk.Strip(), "[2*]");
    EXPECT_TRUE(desk.messages.asked.empty());
}

TEST(BrowserEvents, APageThatAsksMarksItsTabAndNothingElse) {
    Desk desk;
    desk.StartWithTabs(2);
    auto& events = desk.views.At(2).events;
    events.AttentionChange(2, true);
    EXPECT_TRUE(desk.TabOf(2).Asks());
    EXPECT_FALSE(desk.TabOf(1).Asks());
    EXPECT_EQ(desk.Strip(), "[1*] 2");
    events.AttentionChange(2, false);
    EXPECT_FALSE(desk.TabOf(2).Asks());
    desk.Close(2);
    events.AttentionChange(2, true);
    EXPECT_EQ(desk.Strip(), "[1*]") << "a tab that has gone cannot ask";
}

TEST(BrowserEvents, EventsOfAViewThatIsGoneDoNothing) {
    Desk desk;
    desk.StartWithTabs(2);
    auto& events = desk.views.At(2).events;
    desk.Close(2);
    events.TitleChange(2, u"late");
    events.BeforeNavigate2(2, PageLevel::Top, u"http://late/");
    events.DocumentComplete(2, PageLevel::Top, u"http://late/");
    events.NavigationDropped(2);
    events.CommandStateChange(2, HistoryCommand::NavigateBack, true);
    EXPECT_EQ(desk.Captions(), "[1*]");
    EXPECT_EQ(desk.Enabled(), "Refresh");
}

} // namespace

} // namespace tessa
