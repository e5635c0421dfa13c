#include "startpage/HomePages.h"

#include "base/OwnAddresses.h"
#include "tests/Desk.h"

namespace tessa {

namespace {

/// Three tabs, of which the first and the third show the home page.
class HomePagesTest : public testing::Test {
protected:
    HomePagesTest() {
        m_desk.StartWithTabs(3);
        for (const int index : {1, 3}) m_desk.PageLoads(index, OwnAddresses::kStart, u"TessaView");
        m_desk.PageLoads(2, u"http://a/", u"A");
        for (const int index : {1, 2, 3}) m_desk.views.Calls(index);
    }
    HomePages::Shown Refresh() { return m_desk.main.RefreshHomePages(); }
    /// What was asked of the views: "1:refresh 2: 3:refresh".
    std::string Calls() {
        std::string all;
        for (const int index : {1, 2, 3})
            all += (all.empty() ? "" : " ") + std::to_string(index) + ":" + m_desk.views.Calls(index);
        return all;
    }

    Desk m_desk;
};

TEST_F(HomePagesTest, EveryHomePageIsMadeAnewAndNoOtherPage) {
    EXPECT_EQ(Refresh(), HomePages::Shown::Now);
    EXPECT_EQ(Calls(), "1:refresh 2: 3:refresh");
}

TEST_F(HomePagesTest, WhatTheUserHasTypedIsNotLost) {
    m_desk.views.At(1).activity.HoldsInput = true;
    EXPECT_EQ(Refresh(), HomePages::Shown::Now);
    EXPECT_EQ(Calls(), "1: 2: 3:refresh");
}

TEST_F(HomePagesTest, OneThatLoadsIsSeenToAgain) {
    m_desk.views.At(3).activity.Loading = true;
    EXPECT_EQ(Refresh(), HomePages::Shown::Later);
    EXPECT_EQ(Calls(), "1:refresh 2: 3:");
}

TEST_F(HomePagesTest, OneThatSleepsOrHasNoPageYetIsLeftAlone) {
    m_desk.views.At(1).asleep = true;
    m_desk.views.At(3).hasLife = false;
    EXPECT_EQ(Refresh(), HomePages::Shown::Now);
    EXPECT_EQ(Calls(), "1: 2: 3:");
}

TEST_F(HomePagesTest, WhatIsLearntWhileOneComesIsShownWhenItHasCome) {
    int changes = 0;
    m_desk.main.HomeFactsChanged.ConnectForLife([&changes] { ++changes; });
    auto& visits = m_desk.visits;
    visits.slow = true;
    visits.overview.Sites = {{u"a.org", u"http://a.org/", 5, {}}};
    StartContent content;
    m_desk.main.AddHomeFacts(content);
    visits.Answer();
    EXPECT_EQ(changes, 1);
    m_desk.PageLoads(2, u"http://b/", u"B");
    EXPECT_EQ(changes, 1);
    m_desk.PageLoads(2, OwnAddresses::kStart, u"TessaView");
    EXPECT_EQ(changes, 2);
}

} // namespace

} // namespace tessa
