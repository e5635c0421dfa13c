#include "tabs/NavigationQueue.h"

#include <gtest/gtest.h>
#include <string>

namespace tessa {

namespace {

using Time = NavigationQueue::Time;

// Starts all that may start at that time: "3 1 2".
std::string StartAll(NavigationQueue& queue, Time now = Time{0}) {
    std::string all;
    while (const auto next = queue.Next(now)) all += (all.empty() ? "" : " ") + std::to_string(*next);
    return all;
}

NavigationQueue Group(int count) {
    NavigationQueue queue;
    for (int i = 1; i <= count; ++i) queue.Add(i);
    queue.SetFront(count);
    return queue;
}

std::string First(std::size_t count) {
    std::string all;
    for (std::size_t i = 1; i <= count; ++i) all += (all.empty() ? "" : " ") + std::to_string(i);
    return all;
}

TEST(NavigationQueue, TheFrontPageStartsAloneAndTheOthersWhenItHasLoaded) {
    auto queue = Group(20);
    EXPECT_EQ(StartAll(queue), "20");
    queue.Remove(20);
    EXPECT_EQ(StartAll(queue), First(NavigationQueue::kLeast));
    EXPECT_EQ(StartAll(queue), "");
}

TEST(NavigationQueue, EachPageThatEndsLetsTheNextOneStart) {
    auto queue = Group(20);
    StartAll(queue);
    queue.Remove(20);
    StartAll(queue);
    queue.Remove(2);
    EXPECT_EQ(StartAll(queue), std::to_string(NavigationQueue::kLeast + 1));
}

TEST(NavigationQueue, APageBroughtToTheFrontNeedNotWait) {
    auto queue = Group(20);
    StartAll(queue);
    queue.SetFront(15);
    EXPECT_EQ(StartAll(queue), "15");
    EXPECT_EQ(StartAll(queue), "") << "the new front page has the machine for itself";
}

TEST(NavigationQueue, AFrontPageThatHangsHoldsTheOthersUpForALimitedTime) {
    auto queue = Group(3);
    StartAll(queue);
    EXPECT_EQ(queue.Deadline(Time{0}), NavigationQueue::kFrontPatience);
    EXPECT_EQ(StartAll(queue, NavigationQueue::kFrontPatience - Time{1}), "");
    EXPECT_EQ(StartAll(queue, NavigationQueue::kFrontPatience), "1 2");
    EXPECT_EQ(queue.Deadline(NavigationQueue::kFrontPatience), std::nullopt) << "nothing waits any more";
}

TEST(NavigationQueue, PagesThatHangBehindGiveTheirPlacesUp) {
    auto queue = Group(20);
    StartAll(queue);
    queue.Remove(20);
    StartAll(queue);
    EXPECT_EQ(queue.Deadline(Time{0}), NavigationQueue::kLoadPatience);
    EXPECT_EQ(queue.Deadline(NavigationQueue::kLoadPatience), std::nullopt) << "that has passed";
    EXPECT_NE(StartAll(queue, NavigationQueue::kLoadPatience), "");
}

TEST(NavigationQueue, WhatIsShownBesideTheFrontStartsRightAfterIt) {
    auto queue = Group(20);
    queue.SetBeside({17, 3, 99});
    EXPECT_EQ(StartAll(queue), "20 3 17") << "without waiting for it";
    queue.Remove(20);
    EXPECT_EQ(StartAll(queue), "1 2") << "they count among those that load";
}

TEST(NavigationQueue, ManyThatAreShownStartAsManyAtATimeAsEver) {
    auto queue = Group(20);
    queue.SetBeside({11, 12, 13, 14, 15, 16, 20});
    EXPECT_EQ(StartAll(queue), "20 11 12 13 14");
    queue.Remove(20);
    EXPECT_EQ(StartAll(queue), "") << "no other comes before those that are shown";
    queue.Remove(12);
    queue.Remove(13);
    EXPECT_EQ(StartAll(queue), "15 16");
    queue.Remove(11);
    EXPECT_EQ(StartAll(queue), "1");
    queue.SetBeside({});
    queue.Remove(14);
    EXPECT_EQ(StartAll(queue), "2");
}

TEST(NavigationQueue, WithLittleMemoryShownPagesLoadOneByOne) {
    auto queue = Group(9);
    queue.SetTight(true);
    queue.SetBeside({4, 5});
    EXPECT_EQ(StartAll(queue), "9 4");
    queue.Remove(4);
    EXPECT_EQ(StartAll(queue), "5");
}

TEST(NavigationQueue, AShownPageThatHangsGivesItsPlaceUp) {
    auto queue = Group(9);
    queue.SetTight(true);
    queue.SetBeside({4, 5});
    StartAll(queue);
    queue.Remove(9);
    EXPECT_EQ(queue.Deadline(Time{0}), NavigationQueue::kLoadPatience);
    EXPECT_EQ(StartAll(queue, NavigationQueue::kLoadPatience), "5");
}

TEST(NavigationQueue, AViewThatIsGoneDoesNotStart) {
    auto queue = Group(3);
    queue.Remove(1);
    queue.Remove(3);
    EXPECT_EQ(StartAll(queue), "2");
}

TEST(NavigationQueue, AViewThatWaitsKeepsItsPlace) {
    auto queue = Group(3);
    queue.Add(1);
    EXPECT_EQ(queue.Waiting(), 3u);
    EXPECT_EQ(StartAll(queue), "3");
    queue.Remove(3);
    EXPECT_EQ(StartAll(queue), "1 2");
    EXPECT_EQ(queue.Loading(), 2u);
}

TEST(NavigationQueue, MoreCoresLoadMorePages) {
    EXPECT_EQ(NavigationQueue(1).AtATime(), 4u);
    EXPECT_EQ(NavigationQueue(2).AtATime(), 4u);
    EXPECT_EQ(NavigationQueue(8).AtATime(), 16u);
}

TEST(NavigationQueue, IdleCoresTakeMorePages) {
    auto queue = Group(20);
    StartAll(queue);
    queue.Remove(20);
    StartAll(queue);
    queue.NoteIdle(0.9, Time{100});
    EXPECT_EQ(StartAll(queue, Time{100}), "5 6");
    queue.NoteIdle(0.3, Time{150});
    EXPECT_EQ(StartAll(queue, Time{150}), "");
    queue.NoteIdle(0.9, Time{200});
    queue.NoteIdle(0, Time{250});
    EXPECT_EQ(StartAll(queue, Time{250}), "") << "that was idle and is no more";
}

TEST(NavigationQueue, TheFrontPageKeepsItsCoresWhileItWorks) {
    auto queue = Group(20);
    StartAll(queue);
    queue.NoteIdle(1.5, Time{50});
    EXPECT_EQ(StartAll(queue, Time{50}), "");
    queue.NoteIdle(6.5, Time{100});
    EXPECT_EQ(StartAll(queue, Time{100}), First(8))
        << "what it does not need is for others, but not for any number of them";
}

TEST(NavigationQueue, WhatWasIdleBeforeTheFrontPageCameIsForIt) {
    auto queue = Group(20);
    queue.NoteIdle(2, Time{0});
    EXPECT_EQ(StartAll(queue), "20");
    queue.Remove(20);
    StartAll(queue);
    queue.NoteIdle(2, Time{50});
    queue.Add(30);
    queue.SetFront(30);
    EXPECT_EQ(StartAll(queue, Time{50}), "30");
}

TEST(NavigationQueue, WhileTheFrontPageWaitsForItsServerOthersLoad) {
    auto queue = Group(20);
    StartAll(queue);
    queue.NoteSign(20, Time{100});
    queue.NoteIdle(1.5, Time{299});
    EXPECT_EQ(StartAll(queue, Time{299}), "");
    queue.NoteIdle(1.5, Time{300});
    EXPECT_EQ(StartAll(queue, Time{300}), "1 2 3");
    queue.NoteSign(20, Time{310});
    queue.NoteIdle(1.5, Time{350});
    EXPECT_EQ(StartAll(queue, Time{350}), "") << "its answer has come";
    queue.NoteSign(19, Time{350});
    EXPECT_EQ(queue.Loading(), 4u) << "a page that does not load gives no sign";
}

TEST(NavigationQueue, HoweverIdleTheMachineIsNotAllLoadAtOnce) {
    auto queue = Group(200);
    StartAll(queue);
    queue.Remove(200);
    StartAll(queue);
    queue.NoteIdle(100, Time{50});
    StartAll(queue, Time{50});
    EXPECT_EQ(queue.Loading(), NavigationQueue::kMost);
}

TEST(NavigationQueue, InVeryLittleMemoryPagesLoadOneByOneBehindTheFront) {
    auto queue = Group(20);
    queue.SetTight(true);
    EXPECT_EQ(StartAll(queue), "20");
    queue.Remove(20);
    EXPECT_EQ(StartAll(queue), "1");
    queue.Remove(1);
    EXPECT_EQ(StartAll(queue), "2");
    queue.SetFront(15);
    EXPECT_EQ(StartAll(queue), "15") << "who is looked at need not wait";
    queue.Remove(15);
    queue.SetTight(false);
    EXPECT_EQ(StartAll(queue), "3 4 5");
}

TEST(NavigationQueue, InVeryLittleMemoryNoneWaitsForEverForOneThatHangs) {
    auto queue = Group(5);
    queue.SetTight(true);
    std::string started = StartAll(queue);
    for (int i = 1; i <= 4; ++i) started += " " + StartAll(queue, i * NavigationQueue::kLoadPatience);
    EXPECT_EQ(started, "5 1 2 3 4");
}

} // namespace

} // namespace tessa
