#include "startpage/HomeFacts.h"

#include "groups/TessaGroups.h"
#include "tests/fakes/BareTabs.h"
#include "tests/fakes/FakeProgram.h"
#include "tests/fakes/FakeVisits.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

/// A group of three pages.
class HomeFactsTest : public testing::Test {
protected:
    HomeFactsTest() {
        m_clock.now = 1'795'000'000;
        m_facts.Changed.ConnectForLife([this] { ++m_changes; });
        EXPECT_EQ(
            TessaGroups::Write(m_groups + u"News.tvg", {{1, u"http://a/"}, {2, u"http://b/#x"}, {3, u"http://c/"}}),
            Outcome::Done);
        EXPECT_EQ(TessaGroups::Write(m_groups + u"Empty.tvg", {{1, u"http://e/"}}), Outcome::Done);
    }
    void Visit(TextView address, std::int64_t when, std::int32_t share) {
        HistoryVisit visit{Text(address), u"site", u"Title"};
        visit.When = when;
        visit.Share = share;
        visit.Group = u"News";
        m_visits.Keep(visit);
    }
    Text News() {
        m_facts.Ask();
        StartContent content;
        content.Groups = {{u"News", {}}, {u"Empty", {}}, {u"Other", {}}};
        m_facts.AddTo(content);
        EXPECT_EQ(content.Groups[1].News + content.Groups[2].News, u"");
        return content.Groups[0].News;
    }

    TemporaryFolder m_folder;
    // With the separator at its end.
    Text m_groups = [this] {
        Text path = m_folder.PathText("x");
        path.pop_back();
        return path;
    }();
    FakeVisits m_visits;
    FakeClock m_clock;
    BareTabs m_tabs;
    ClosedTabs m_closed{m_tabs.tabs, m_tabs.pcPage, m_tabs.Browser, m_tabs.groups};
    HomeFacts m_facts{{m_visits, m_clock, m_closed, m_groups}};
    int m_changes = 0;
};

TEST_F(HomeFactsTest, AGroupSaysHowManyOfItsPagesAreNew) {
    EXPECT_EQ(News(), u"");
    Visit(u"http://a/", m_clock.now, 20);
    EXPECT_EQ(News(), u"1 of 3 new since yesterday");
    Visit(u"http://b/", m_clock.now - 86'400, 1);
    EXPECT_EQ(News(), u"2 of 3 new since yesterday");
    Visit(u"http://c/", m_clock.now, 0);
    EXPECT_EQ(News(), u"2 of 3 new since yesterday");
    Visit(u"http://b/", m_clock.now - 3 * 86'400, 50);
    EXPECT_EQ(News(), u"1 of 3 new since yesterday");
}

TEST_F(HomeFactsTest, ThePageIsMadeAnewOnlyWhenSomethingElseIsToBeShown) {
    m_facts.Ask();
    EXPECT_EQ(m_changes, 0);
    Visit(u"http://a/", m_clock.now, 20);
    m_facts.Ask();
    m_facts.Ask();
    EXPECT_EQ(m_changes, 1);
    m_visits.overview.Sites = {{u"a.org", u"http://a.org/", 5, {}}, {u"once.org", u"http://once.org/", 1, {}}};
    m_facts.Ask();
    m_facts.Ask();
    EXPECT_EQ(m_changes, 2);
    StartContent content;
    m_facts.AddTo(content);
    ASSERT_EQ(content.Sites.size(), 1U);
    EXPECT_EQ(content.Sites[0].Title, u"a.org");
    m_facts.Forget();
    EXPECT_EQ(m_changes, 3);
    m_facts.AddTo(content);
    EXPECT_TRUE(content.Sites.empty());
}

TEST_F(HomeFactsTest, AnAnswerWhileThePageComesIsToldOnceMoreWhenItHasCome) {
    StartContent content;
    m_facts.AddTo(content);
    Visit(u"http://a/", m_clock.now, 20);
    m_facts.Ask();
    EXPECT_EQ(m_changes, 1);
    m_facts.PageCame();
    EXPECT_EQ(m_changes, 2);
    m_facts.AddTo(content);
    m_facts.PageCame();
    EXPECT_EQ(m_changes, 2);
}

TEST_F(HomeFactsTest, ItMayGoBeforeTheStoreAnswers) {
    m_visits.slow = true;
    {
        HomeFacts facts({m_visits, m_clock, m_closed, m_groups});
        facts.Ask();
    }
    m_visits.Answer();
}

} // namespace

} // namespace tessa
