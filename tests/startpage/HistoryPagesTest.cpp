#include "startpage/HistoryPages.h"

#include "base/OwnAddresses.h"
#include "base/os/AtomicFile.h"
#include "groups/TessaGroups.h"
#include "tests/fakes/TemporaryFolder.h"
#include "tests/history/ReadingDesk.h"

namespace tessa {

namespace {

/// Three pages were read; the first tab shows the history.
class HistoryPagesTest : public testing::Test {
protected:
    HistoryPagesTest() {
        for (const TextView name : {u"a", u"b", u"c"}) m_desk.Read(1, u"http://" + Text(name) + u"/", u"pWords");
        m_desk.PageLoads(1, OwnAddresses::kHistory, u"History");
        Ask(u"find?n=1&words=");
    }
    void Ask(TextView message) { m_desk.main.AskHistory(1, message); }
    /// What the page was told last.
    Text Told(int index = 1) {
        const auto& messages = m_desk.views.At(index).messages;
        return messages.empty() ? Text() : messages.back();
    }

    ReadingDesk m_desk;
};

TEST_F(HistoryPagesTest, TheCommandShowsThePageOnce) {
    m_desk.NewTab(InFront::Yes);
    m_desk.Click(u"xtrHistory");
    EXPECT_EQ(m_desk.Strip(), "[1*] 2");
    m_desk.PageLoads(1, u"http://a/", u"A");
    m_desk.Press({'H', Keys::kCtrl});
    EXPECT_EQ(m_desk.CountTabs(), 3U);
    EXPECT_EQ(m_desk.views.Calls(3), "go about:blank, go tessaview:history");
}

TEST_F(HistoryPagesTest, TheCommandHasAPageThatIsThereLookAnew) {
    const std::size_t told = m_desk.views.At(1).messages.size();
    m_desk.Click(u"xtrHistory");
    const auto& messages = m_desk.views.At(1).messages;
    ASSERT_EQ(messages.size(), told + 2);
    EXPECT_TRUE(messages.at(told).starts_with(u"groups"));
    EXPECT_EQ(messages.back(), u"anew");
}

TEST_F(HistoryPagesTest, AListIsToldToThePageAlone) {
    EXPECT_TRUE(Told().starts_with(u"list 1 0 0 1\n3 pages\n"));
    m_desk.visits.slow = true;
    Ask(u"find?n=2&words=");
    const Text before = Told();
    // The page has gone elsewhere until the answer comes.
    m_desk.PageLoads(1, u"http://evil/", u"Evil");
    m_desk.visits.Answer();
    EXPECT_EQ(Told(), before);
    Ask(u"find?n=3&words=");
    m_desk.visits.Answer();
    EXPECT_EQ(Told(), before);
}

TEST_F(HistoryPagesTest, SelectedPagesOpenInTabs) {
    Ask(u"open?ids=3,1,77");
    EXPECT_EQ(m_desk.CountTabs(), 3U);
    EXPECT_EQ(m_desk.views.Calls(2), "go about:blank, go http://c/");
    EXPECT_EQ(m_desk.views.Calls(3), "go about:blank, go http://a/");
    Ask(u"open?ids=");
    EXPECT_EQ(m_desk.CountTabs(), 3U);
}

TEST_F(HistoryPagesTest, ManyPagesOpenAfterAQuestion) {
    for (int i = 0; i < 20; ++i) m_desk.visits.Keep({u"http://many/" + Decimal(i), u"many", u"Many"});
    Ask(u"find?n=2&words=");
    Text ids = u"open?ids=";
    for (int i = 4; i < 24; ++i) ids += Decimal(i) + u",";
    m_desk.messages.answer = Answer::No;
    Ask(ids);
    EXPECT_EQ(m_desk.CountTabs(), 1U);
    EXPECT_EQ(m_desk.messages.asked.back(), u"Open 20 tabs?");
    m_desk.messages.answer = Answer::Yes;
    Ask(ids);
    EXPECT_EQ(m_desk.CountTabs(), 21U);
}

TEST_F(HistoryPagesTest, ASelectionIsKeptAsATessaGroup) {
    const TemporaryFolder folder;
    m_desk.files.chosen = folder.PathText("Mine");
    Ask(u"keep?ids=3,2");
    const CStrings group = TessaGroups::Load(folder.PathText("Mine.tvg"));
    Text all;
    for (const CString& each : group) all += each.Key + u" ";
    EXPECT_EQ(all, u"http://c/ http://b/ ");
    EXPECT_EQ(m_desk.Said(), "2 pages were kept as a TessaGroup.");
    m_desk.files.chosen = u"/nowhere/at/all";
    Ask(u"keep?ids=3,2");
    EXPECT_EQ(m_desk.Said(), "The TessaGroup could not be written.");
}

TEST_F(HistoryPagesTest, PagesAreForgotten) {
    Ask(u"delete?ids=2");
    EXPECT_EQ(m_desk.visits.Addresses(), u"http://c/ http://a/");
    EXPECT_EQ(m_desk.Said(), "One page was forgotten.");
    EXPECT_EQ(Told(), u"again");
    Ask(u"delete?ids=");
    Ask(u"delete-site?site=");
    Ask(u"delete-day?from=5&until=5");
    EXPECT_EQ(m_desk.visits.Addresses(), u"http://c/ http://a/");
    m_desk.messages.answer = Answer::No;
    Ask(u"delete-site?site=c");
    EXPECT_EQ(m_desk.visits.Addresses(), u"http://c/ http://a/");
    EXPECT_EQ(m_desk.messages.asked.back(), u"Forget all pages of c?");
    m_desk.messages.answer = Answer::Yes;
    Ask(u"delete-site?site=c");
    EXPECT_EQ(m_desk.visits.Addresses(), u"http://a/");
    Ask(u"delete-day?from=1794960000&until=1795046400");
    EXPECT_EQ(m_desk.visits.Addresses(), u"");
}

TEST_F(HistoryPagesTest, ThePageIsToldOfTheGroupsWhenItComes) {
    m_desk.visits.overview.Groups = {u"News"};
    m_desk.PageLoads(1, OwnAddresses::kHistory, u"History");
    EXPECT_EQ(Told(), u"groups\nNews");
}

} // namespace

} // namespace tessa
