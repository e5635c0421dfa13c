#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

#include <algorithm>
#include <random>
#include <utility>

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

/// The same user, in some of whose pages he has done something. They are asked before they close.
class AwaitedTabs : public ClosedTabsTest {
protected:
    /// That page is asked, and answers when the test says so.
    void Touch(const std::vector<int>& indexes) {
        for (const int each : indexes) desk.views.At(each).mayHold = desk.views.At(each).slow = true;
    }
    void PageAnswers(int index, bool holds) {
        const auto told = std::exchange(desk.views.At(index).told, nullptr);
        ASSERT_TRUE(told);
        told(holds);
    }
    void UserAnswers(int index, bool leaves) {
        const auto answered = std::exchange(desk.views.At(index).answered, nullptr);
        ASSERT_TRUE(answered);
        answered(leaves);
    }
    /// The pages of the tabs by their numbers.
    [[nodiscard]] std::string Pages() {
        std::string all;
        for (std::size_t position = 1; position <= desk.CountTabs(); ++position) {
            std::string page = ToUtf8(desk.views.At(desk.TabAt(position).Tag).location);
            if (page.starts_with("http://")) page = page.substr(7, page.size() - 8);
            all += (all.empty() ? "" : " ") + page;
        }
        return all;
    }
    void Choose(const std::vector<std::int32_t>& indexes) {
        desk.ChooseTabs(indexes);
        desk.Click(u"xtrChosenClose");
    }
    void Reopen() { desk.Click(u"xtrReopenTab"); }
};

TEST_F(AwaitedTabs, PagesThatAnswerLaterBelongToTheCommandThatAskedThem) {
    struct Case {
        const char* about;
        std::vector<int> touched, answers;
        const char* left;
    };
    for (const Case& each : std::vector<Case>{
             {"the first", {2}, {2}, "1 6"},
             {"the last", {5}, {5}, "1 6"},
             {"two, in their order", {3, 4}, {3, 4}, "1 6"},
             {"two, the other way", {2, 5}, {5, 2}, "1 6"},
             {"all of them", {2, 3, 4, 5}, {4, 2, 5, 3}, "1 6"},
         }) {
        SCOPED_TRACE(each.about);
        Desk desk;
        desk.StartWithTabs(6);
        for (int i = 1; i <= 6; ++i) desk.views.At(i).location = u"http://" + Decimal(i) + u"/";
        for (const int index : each.touched) desk.views.At(index).mayHold = desk.views.At(index).slow = true;
        desk.ChooseTabs({2, 3, 4, 5});
        desk.Click(u"xtrChosenClose");
        for (const int index : each.answers) {
            const auto told = desk.views.At(index).told;
            told(false);
        }
        EXPECT_EQ(desk.CountTabs(), 2U);
        EXPECT_EQ(desk.Tool(u"xtrReopenTab").Caption(), u"&Reopen 4 Tabs");
        desk.Click(u"xtrReopenTab");
        std::string pages;
        for (std::size_t position = 1; position <= desk.CountTabs(); ++position)
            pages += ToUtf8(desk.views.At(desk.TabAt(position).Tag).location).substr(7);
        EXPECT_EQ(pages, "1/2/3/4/5/6/");
        EXPECT_FALSE(desk.Tool(u"xtrReopenTab").Enabled());
    }
}

TEST_F(AwaitedTabs, OneThatIsNotLeftIsNoPartOfIt) {
    Start(5);
    Touch({3});
    Choose({2, 3, 4});
    PageAnswers(3, true);
    EXPECT_EQ(desk.Strip(), "1 [3*] 5");
    UserAnswers(3, false);
    EXPECT_EQ(desk.Tool(u"xtrReopenTab").Caption(), u"&Reopen 2 Tabs");
    Reopen();
    EXPECT_EQ(Pages(), "1 2 3 4 5");
    desk.Close(3);
    PageAnswers(3, false);
    EXPECT_EQ(desk.Tool(u"xtrReopenTab").Caption(), u"&Reopen Closed Tab") << "closed later, it is one of its own";
}

TEST_F(AwaitedTabs, ACommandThatHasClosedNothingIsNone) {
    Start(4);
    desk.Close(4);
    Touch({2, 3});
    Choose({2, 3});
    EXPECT_EQ(desk.Tool(u"xtrReopenTab").Caption(), u"&Reopen Closed Tab") << "what is awaited is not closed yet";
    for (const int each : {2, 3}) {
        PageAnswers(each, true);
        UserAnswers(each, false);
    }
    Reopen();
    EXPECT_EQ(Pages(), "1 2 3 4");
    EXPECT_FALSE(CanReopen());
}

TEST_F(AwaitedTabs, WhatIsClosedMeanwhileComesBackByItself) {
    Start(8);
    Touch({4});
    Choose({2, 3, 4});
    desk.Close(6);
    desk.Close(1);
    EXPECT_EQ(Pages(), "4 5 7 8");
    PageAnswers(4, false);
    EXPECT_EQ(Pages(), "5 7 8");
    Reopen();
    EXPECT_EQ(Pages(), "1 5 7 8");
    Reopen();
    EXPECT_EQ(Pages(), "1 5 6 7 8");
    Reopen();
    EXPECT_EQ(Pages(), "1 2 3 4 5 6 7 8");
    EXPECT_FALSE(CanReopen());
}

TEST_F(AwaitedTabs, TwoCommandsAwaitTheirOwn) {
    Start(9);
    Touch({3, 7});
    Choose({2, 3});
    Choose({3, 5, 7, 8});
    PageAnswers(7, false);
    PageAnswers(3, false);
    EXPECT_EQ(Pages(), "1 4 6 9");
    EXPECT_EQ(desk.Tool(u"xtrReopenTab").Caption(), u"&Reopen 3 Tabs");
    Reopen();
    EXPECT_EQ(Pages(), "1 4 5 6 7 8 9");
    Reopen();
    EXPECT_EQ(Pages(), "1 2 3 4 5 6 7 8 9");
}

TEST_F(AwaitedTabs, WhoHasBeenBroughtBackMeanwhileStays) {
    Start(5);
    Touch({2, 3});
    Choose({2, 3, 4});
    PageAnswers(3, true);
    Reopen();
    EXPECT_EQ(Pages(), "1 2 3 4 5");
    EXPECT_FALSE(desk.views.At(3).answered) << "its user is asked no more";
    desk.views.Calls(2);
    PageAnswers(2, false);
    EXPECT_EQ(desk.views.Calls(2), "refresh") << "it has taken its leave, so it comes anew";
    EXPECT_EQ(Pages(), "1 2 3 4 5");
    EXPECT_FALSE(CanReopen());
    desk.views.At(2).told = nullptr;
    desk.Close(2);
    PageAnswers(2, false);
    EXPECT_EQ(Pages(), "1 3 4 5") << "it can be closed as ever";
}

TEST_F(AwaitedTabs, TheTabInFrontThatStaysIsInFrontAgain) {
    Start(5);
    desk.ClickTab(3);
    Touch({3});
    Choose({2, 3, 4});
    desk.ClickTab(1);
    Reopen();
    EXPECT_EQ(desk.Captions(), "1 Loading... [3*] Loading... 5");
}

TEST_F(AwaitedTabs, TheTabInFrontThatAnswersLaterIsInFrontAgain) {
    Start(8);
    desk.ClickTab(7);
    Touch({7});
    Choose({2, 3, 4, 5, 6, 7});
    PageAnswers(7, false);
    Reopen();
    EXPECT_EQ(Pages(), "1 2 3 4 5 6 7 8");
    EXPECT_EQ(desk.views.At(desk.SelectedTab().Tag).location, u"http://7/");
}

TEST_F(AwaitedTabs, TheLeftmostIsThatOfAllThatCameBack) {
    Start(5);
    Touch({4});
    Choose({3, 4});
    PageAnswers(4, false);
    desk.ClickTab(1);
    Reopen();
    EXPECT_EQ(desk.views.At(desk.SelectedTab().Tag).location, u"http://3/");
}

TEST_F(AwaitedTabs, OneThatIsBlankedLaterIsUnblanked) {
    Start(3);
    Touch({1});
    desk.Click(u"mnuCloseAll");
    EXPECT_EQ(Pages(), "1");
    PageAnswers(1, false);
    EXPECT_EQ(Pages(), "about:blank");
    desk.views.Calls(1);
    Reopen();
    EXPECT_EQ(desk.views.Calls(1), "back");
    EXPECT_EQ(desk.Strip(), "[1*] 4 5");
}

TEST_F(AwaitedTabs, OneThatIsToBeBlankedKeepsItsPageWhenItIsTakenBack) {
    Start(3);
    Touch({1});
    desk.Click(u"mnuCloseAll");
    PageAnswers(1, true);
    Reopen();
    EXPECT_EQ(Pages(), "1 2 3");
    EXPECT_FALSE(desk.views.At(1).answered);
}

TEST_F(AwaitedTabs, InWhateverOrderPagesAnswerAllTabsAreBackInTheirPlaces) {
    std::mt19937 random(20);
    const auto any = [&random](std::size_t below) { return static_cast<std::size_t>(random() % below); };
    for (int round = 0; round < 200; ++round) {
        SCOPED_TRACE(round);
        Desk desk;
        desk.StartWithTabs(10);
        std::vector<std::int32_t> left, awaited;
        std::string before, after;
        for (int i = 1; i <= 10; ++i) {
            left.push_back(i);
            before += ToUtf8(Decimal(i)) + "/";
            desk.views.At(i).location = u"http://" + Decimal(i) + u"/";
            desk.views.At(i).mayHold = desk.views.At(i).slow = any(2) == 0;
        }
        for (int step = 0; step < 12; ++step) {
            std::ranges::shuffle(left, random);
            if (any(3) > 0 && left.size() > 3) {
                const std::vector<std::int32_t> some(left.end() - 1 - static_cast<std::ptrdiff_t>(any(3)), left.end());
                left.resize(left.size() - some.size());
                for (const std::int32_t each : some) {
                    if (desk.views.At(each).slow) awaited.push_back(each);
                }
                if (some.size() == 1) {
                    desk.Close(some.front());
                } else {
                    desk.ChooseTabs(some);
                    desk.Click(u"xtrChosenClose");
                }
            } else if (!awaited.empty()) {
                const auto told = desk.views.At(awaited.back()).told;
                told(false);
                awaited.pop_back();
            }
        }
        while (desk.Tool(u"xtrReopenTab").Enabled()) desk.Click(u"xtrReopenTab");
        for (std::size_t position = 1; position <= desk.CountTabs(); ++position)
            after += ToUtf8(desk.views.At(desk.TabAt(position).Tag).location).substr(7);
        EXPECT_EQ(after, before);
    }
}

TEST_F(AwaitedTabs, PinsAndPanesComeBackWithThem) {
    Start(6);
    desk.Pin(1);
    desk.Pin(2);
    desk.LaySideBySide(u"h(2 v(3 4) 5)");
    Touch({2, 4});
    Choose({2, 3, 4});
    PageAnswers(4, false);
    PageAnswers(2, false);
    EXPECT_EQ(desk.Units(), "^1 [5*] 6");
    Reopen();
    EXPECT_EQ(Pages(), "1 2 3 4 5 6");
    EXPECT_EQ(desk.Units(), "^1 [^7*] 9 8 5 6");
    EXPECT_EQ(desk.SideBySide(), "h(7 v(9 8) 5)");
}

TEST_F(AwaitedTabs, AClosedGroupIsOneAgainWhicheverPageAnswersLater) {
    for (const int late : {1, 2, 3}) {
        SCOPED_TRACE(late);
        Desk desk;
        desk.StartWithTabs(1);
        const TemporaryFolder folder;
        folder.Write("News.tvg", "[TessaGroup]\nurl1=http://a/\nurl2=http://b/\nurl3=http://c/\n");
        desk.OpenGroup(folder.PathText("News.tvg"));
        ASSERT_EQ(desk.CountTabs(), 4U);
        const std::int32_t index = desk.TabAt(static_cast<std::size_t>(late) + 1).Tag;
        desk.views.At(index).mayHold = desk.views.At(index).slow = true;
        desk.OpenGroupMenu(2);
        desk.Click(u"xtrTabGroupClose");
        EXPECT_EQ(desk.CountTabs(), 2U);
        const auto told = desk.views.At(index).told;
        told(false);
        ASSERT_EQ(desk.CountTabs(), 1U);
        EXPECT_EQ(desk.Said(), "The tabs of News were closed. [Undo]");
        desk.Undo();
        // The views are others, and what is seen is the same.
        EXPECT_EQ(desk.GroupAt(2).Name(), u"News");
        for (const std::size_t position : {2U, 3U, 4U}) {
            EXPECT_EQ(desk.TabAt(position).Group(), &desk.GroupAt(2));
            EXPECT_EQ(ToUtf8(desk.views.At(desk.TabAt(position).Tag).location), position == 2   ? "http://a/"
                                                                                : position == 3 ? "http://b/"
                                                                                                : "http://c/");
        }
        EXPECT_EQ(desk.SelectedTab().Key(), desk.TabAt(4).Key());
        EXPECT_FALSE(desk.IsGroupToSave(2));
    }
}

TEST_F(AwaitedTabs, UndoIsAboutWhatWasSaidAndNotAboutWhatWasClosedSince) {
    Start(4);
    const TemporaryFolder folder;
    folder.Write("News.tvg", "[TessaGroup]\nurl1=http://a/\nurl2=http://b/\n");
    desk.ClickTab(2);
    desk.OpenGroup(folder.PathText("News.tvg"));
    ASSERT_EQ(Pages(), "1 2 a b 3 4");
    desk.OpenGroupMenu(3);
    desk.Click(u"xtrTabGroupClose");
    desk.Close(1);
    desk.Close(3);
    EXPECT_EQ(desk.Said(), "The tabs of News were closed. [Undo]");
    desk.Undo();
    EXPECT_EQ(Pages(), "2 a b 4");
    desk.Undo();
    EXPECT_EQ(Pages(), "2 a b 4") << "once is enough";
    Reopen();
    Reopen();
    EXPECT_EQ(Pages(), "1 2 a b 3 4");
}

TEST_F(AwaitedTabs, WhereNothingCanComeBackNoUndoIsOffered) {
    desk.StartWithTabs(2);
    desk.views.At(2).location = u"http://2/";
    desk.Close(2);
    const TemporaryFolder folder;
    folder.Write("News.tvg", "[TessaGroup]\nurl1=about:blank\nurl2=about:blank\n");
    desk.OpenGroup(folder.PathText("News.tvg"));
    desk.OpenGroupMenu(2);
    desk.Click(u"xtrTabGroupClose");
    EXPECT_EQ(desk.Said(), "The tabs of News were closed.");
}

} // namespace

} // namespace tessa
