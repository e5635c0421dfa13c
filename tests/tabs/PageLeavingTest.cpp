// Tests: ClosingQuestions
#include "settings/SettingsStore.h"
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

#include <utility>

namespace tessa {

namespace {

/// A user whose pages hold what he has entered.
class PageLeavingTest : public testing::Test {
protected:
    void Hold(int index) {
        desk.views.At(index).mayHold = true;
        desk.views.At(index).holds = true;
    }
    /// What the user is asked over the page of that view.
    void AnswerOver(int index, bool leaves) {
        const auto answered = std::exchange(desk.views.At(index).answered, nullptr);
        ASSERT_TRUE(answered);
        answered(leaves);
    }

    Desk desk;
};

TEST_F(PageLeavingTest, APageInWhichNobodyDidAnythingClosesAtOnce) {
    desk.StartWithTabs(3);
    desk.views.At(2).holds = true;
    desk.Close(2);
    EXPECT_EQ(desk.Strip(), "[1*] 3");
}

TEST_F(PageLeavingTest, APageThatLetsGoClosesWithoutAWord) {
    desk.StartWithTabs(3);
    desk.views.At(2).mayHold = true;
    desk.Close(2);
    EXPECT_EQ(desk.Strip(), "[1*] 3");
}

TEST_F(PageLeavingTest, APageThatHoldsComesToTheFrontAndItsUserDecides) {
    desk.StartWithTabs(3);
    Hold(3);
    desk.views.Calls(3);
    desk.Close(3);
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
    EXPECT_EQ(desk.views.Calls(3), "asked, asks user") << "not even stopped";
    AnswerOver(3, false);
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
    desk.Close(3);
    AnswerOver(3, true);
    EXPECT_EQ(desk.Strip(), "1 [2*]");
    EXPECT_FALSE(desk.views.Has(3));
}

TEST_F(PageLeavingTest, IsAskedOnceHoweverOftenItIsClosed) {
    desk.StartWithTabs(2);
    Hold(2);
    desk.views.At(2).slow = true;
    desk.views.Calls(2);
    desk.Close(2);
    desk.Close(2);
    desk.views.At(2).told(true);
    desk.Close(2);
    EXPECT_EQ(desk.views.Calls(2), "asked, asks user");
}

TEST_F(PageLeavingTest, TheLastTabThatStaysHasNotBeenAsked) {
    desk.StartWithTabs(1);
    Hold(1);
    desk.views.Calls(1);
    desk.Close(1);
    EXPECT_EQ(desk.messages.asked.size(), 1U);
    EXPECT_TRUE(desk.messages.own.empty());
    EXPECT_EQ(desk.views.Calls(1), "stop") << "a page that was asked for good may have taken its leave";
}

TEST_F(PageLeavingTest, ThePageOfTheLastTabIsAskedAboutBehindItsTab) {
    desk.StartWithTabs(1);
    Hold(1);
    desk.messages.answer = Answer::Yes;
    desk.views.Calls(1);
    desk.Close(1);
    ASSERT_EQ(desk.messages.asked.size(), 2U);
    EXPECT_EQ(desk.messages.asked[0], u"Do you want to close the last browser tab and exit this application?");
    ASSERT_EQ(desk.messages.own.size(), 1U);
    EXPECT_EQ(desk.messages.own[0].Heading, u"A page holds unsent text");
    EXPECT_FALSE(desk.views.Has(1));
}

TEST_F(PageLeavingTest, APageThatClosesItselfIsNotAsked) {
    desk.StartWithTabs(2);
    Hold(2);
    desk.PageClosesItself(2);
    EXPECT_EQ(desk.Strip(), "[1*]");
}

TEST_F(PageLeavingTest, OfSeveralTheOthersClose) {
    desk.StartWithTabs(5);
    desk.PageLoads(2, u"http://two/", u"2");
    Hold(2);
    Hold(4);
    desk.CloseOtherTabs();
    EXPECT_EQ(desk.Strip(), "1 [2*] 4");
    EXPECT_EQ(desk.views.At(1).location, u"about:blank");
    EXPECT_EQ(desk.views.At(2).location, u"http://two/");
    AnswerOver(4, true);
    AnswerOver(2, false);
    EXPECT_EQ(desk.Strip(), "1 [2*]");
}

TEST_F(PageLeavingTest, TheTabThatIsLeftIsBlankedOnceItsPageLetsGo) {
    desk.StartWithTabs(2);
    desk.PageLoads(1, u"http://one/", u"One");
    Hold(1);
    desk.CloseOtherTabs();
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.views.At(1).location, u"http://one/");
    AnswerOver(1, true);
    EXPECT_EQ(desk.views.At(1).location, u"about:blank");
}

TEST_F(PageLeavingTest, AnAnswerForATabThatHasGoneDoesNothing) {
    desk.StartWithTabs(3);
    Hold(2);
    desk.views.At(2).slow = true;
    desk.Close(2);
    const auto told = desk.views.At(2).told;
    desk.PageClosesItself(2);
    told(true);
    EXPECT_EQ(desk.Strip(), "[1*] 3");
}

TEST_F(PageLeavingTest, AtTheEndAllPagesThatHoldAreInOneList) {
    desk.StartWithTabs(4);
    for (const int index : {2, 3, 4}) Hold(index);
    desk.views.At(1).mayHold = true;
    desk.Click(u"mnuExit");
    ASSERT_EQ(desk.messages.own.size(), 1U);
    EXPECT_EQ(desk.messages.own[0].Heading, u"3 pages hold unsent text");
    EXPECT_EQ(desk.messages.own[0].Details, u"2\n3\n4\n");
    EXPECT_EQ(desk.messages.own[0].Keeps, u"&Stay");
    EXPECT_EQ(desk.Strip(), "1 [2*] 3 4") << "the first of them is shown";
    desk.messages.answer = Answer::Yes;
    desk.Click(u"mnuExit");
    EXPECT_FALSE(desk.views.Has(1)) << "the window has gone";
    EXPECT_EQ(desk.messages.own.size(), 2U);
}

TEST_F(PageLeavingTest, TheWindowClosesItselfWhenPagesAnswerLater) {
    desk.StartWithTabs(2);
    for (const int index : {1, 2}) {
        desk.views.At(index).mayHold = true;
        desk.views.At(index).slow = true;
    }
    desk.Click(u"mnuExit");
    desk.Click(u"mnuExit");
    desk.views.At(2).told(false);
    EXPECT_TRUE(desk.views.Has(1));
    const auto last = desk.views.At(1).told;
    last(false);
    EXPECT_FALSE(desk.views.Has(1));
    EXPECT_TRUE(desk.messages.own.empty());
}

TEST_F(PageLeavingTest, ATabThatGoesMeanwhileHoldsNobody) {
    desk.StartWithTabs(2);
    desk.views.At(2).mayHold = true;
    desk.views.At(2).slow = true;
    desk.Click(u"mnuExit");
    desk.PageClosesItself(2);
    EXPECT_FALSE(desk.views.Has(1));
}

TEST_F(PageLeavingTest, ATabWhoseEndClosesTheWindowIsNoneOfTheLastSites) {
    desk.StartWithTabs(3);
    for (const int index : {1, 2, 3}) desk.PageLoads(index, u"http://" + Decimal(index) + u"/", Decimal(index));
    desk.views.At(2).mayHold = true;
    desk.views.At(2).slow = true;
    desk.Click(u"mnuExit");
    desk.PageClosesItself(2);
    EXPECT_FALSE(desk.views.Has(1)) << "the window has gone";
    EXPECT_EQ(SettingsStore(desk.settings).LastSites.Get(), (std::vector<Text>{u"http://1/", u"http://3/"}));
}

TEST_F(PageLeavingTest, TabsThatCloseTogetherGoBeforeTheUserIsAsked) {
    desk.StartWithTabs(4);
    Hold(2);
    desk.views.At(4).mayHold = true;
    desk.views.At(4).slow = true;
    desk.Click(u"mnuExit");
    desk.views.At(4).mayHold = false;
    desk.messages.whileOpen = [&] { EXPECT_EQ(desk.Strip(), "[1*] 2"); };
    desk.CloseRightOf(2);
    EXPECT_EQ(desk.messages.own.size(), 1U);
}

TEST_F(PageLeavingTest, AWindowThatStaysForADownloadAsksItsPagesAnew) {
    desk.StartWithTabs(1);
    Hold(1);
    desk.messages.answer = Answer::Yes;
    desk.main.Downloads().Begin({.Address = u"http://a/file"}, std::make_shared<FakeTransfer>());
    desk.messages.answer = Answer::No;
    desk.Click(u"mnuExit");
    desk.Click(u"mnuExit");
    EXPECT_TRUE(desk.views.Has(1));
    EXPECT_EQ(desk.messages.own.size(), 2U);
    EXPECT_EQ(desk.messages.asked.size(), 2U);
}

TEST_F(PageLeavingTest, AGroupTakesNoTabFromAPageThatHolds) {
    desk.StartWithTabs(2);
    desk.PageLoads(1, u"http://one/", u"One");
    Hold(1);
    desk.Set(u"TGCloseOthersFirst", u"true");
    const TemporaryFolder folder;
    folder.Write("g.tvg", "[TessaGroup]\nurl1=http://a/\nurl2=http://b/\n");
    desk.OpenGroup(folder.PathText("g.tvg"));
    EXPECT_EQ(desk.views.At(1).location, u"http://one/");
    EXPECT_EQ(desk.CountTabs(), 3U);
}

} // namespace

} // namespace tessa
