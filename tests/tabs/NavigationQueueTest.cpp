#include "tabs/NavigationQueue.h"

#include <gtest/gtest.h>
#include <string>

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
    EXPECT_EQ(StartAll(queue), First(NavigationQueue::kAtATime));
    EXPECT_EQ(StartAll(queue), "");
}

TEST(NavigationQueue, EachPageThatEndsLetsTheNextOneStart) {
    auto queue = Group(20);
    StartAll(queue);
    queue.Remove(20);
    StartAll(queue);
    queue.Remove(2);
    EXPECT_EQ(StartAll(queue), std::to_string(NavigationQueue::kAtATime + 1));
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
    EXPECT_EQ(queue.Deadline(), NavigationQueue::kFrontPatience);
    EXPECT_EQ(StartAll(queue, NavigationQueue::kFrontPatience - Time{1}), "");
    EXPECT_EQ(StartAll(queue, NavigationQueue::kFrontPatience), "1 2");
    EXPECT_EQ(queue.Deadline(), std::nullopt) << "nothing waits any more";
}

TEST(NavigationQueue, PagesThatHangBehindGiveTheirPlacesUp) {
    auto queue = Group(20);
    StartAll(queue);
    queue.Remove(20);
    StartAll(queue);
    EXPECT_EQ(queue.Deadline(), NavigationQueue::kLoadPatience);
    EXPECT_NE(StartAll(queue, NavigationQueue::kLoadPatience), "");
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

} // namespace
