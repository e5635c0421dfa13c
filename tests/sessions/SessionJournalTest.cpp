// Tests: CameBack
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

/// The journal of a window whose program schedules nothing by itself.
class JournalDesk : public Desk {
public:
    JournalDesk() {
        journal.Schedule.ConnectForLife([this] { ++scheduled; });
        clock.now = 1000;
        journal.Say.ConnectForLife([this](TextView message) { said.emplace_back(message); });
    }
    /// The pages that were written last, "*" behind the one in front.
    [[nodiscard]] std::string Written() const { return Shown(sessions.own); }
    void Keep(const Session& session, TextView id) { sessions.earlier.push_back({Text(id), SessionBytes(session)}); }
    [[nodiscard]] std::optional<Session> Kept(std::size_t i) const {
        return SessionFromBytes(sessions.earlier[i].Bytes);
    }

    // What its program and the list of earlier sessions do with the journal.
    void Reopen(TextView id) { journal.Reopen(id); }
    void Dismiss(TextView id) { journal.Settle(id); }
    void Forget(TextView id) { journal.Forget(id); }
    /// The session that is offered; empty for none.
    [[nodiscard]] Text Offered() {
        journal.OfferBy(offer);
        return offer.offered;
    }
    [[nodiscard]] std::size_t CountEarlier() const { return journal.Earlier().size(); }

    SessionJournal& journal = main.Sessions();
    int scheduled = 0;
    std::vector<Text> said;

private:
    static std::string Shown(const std::string& bytes) {
        const auto session = SessionFromBytes(bytes);
        if (!session) return "(none)";
        std::string all;
        for (std::size_t i = 0; i < session->Pages.size(); ++i)
            all += (i ? " " : "") + ToUtf8(session->Pages[i].Address) + (session->Selected == i + 1 ? "*" : "");
        return all;
    }
};

Session Crashed(std::vector<SessionPage> pages, std::size_t selected = 1) {
    return {.Time = 500, .Selected = selected, .Pages = std::move(pages)};
}

TEST(SessionJournal, SchedulesOneWriteForManyChanges) {
    JournalDesk desk;
    desk.StartWithTabs(3);
    EXPECT_EQ(desk.scheduled, 1);
    desk.WriteSession();
    desk.PageLoads(2, u"http://two/", u"Two");
    desk.PageLoads(3, u"http://three/", u"Three");
    EXPECT_EQ(desk.scheduled, 2);
}

TEST(SessionJournal, WritesTheAddressesAndTitlesInTheOrderOfTheTabs) {
    JournalDesk desk;
    desk.StartWithTabs(3);
    desk.PageLoads(1, u"http://one/", u"One");
    desk.PageLoads(2, u"about:blank", u"");
    desk.PageLoads(3, u"http://three/", u"Three");
    desk.ClickTab(3);
    desk.WriteSession();
    EXPECT_EQ(desk.Written(), "http://one/ http://three/*");
    const auto session = SessionFromBytes(desk.sessions.own);
    EXPECT_EQ(session->Time, 1000);
    EXPECT_FALSE(session->Ended);
    EXPECT_EQ(session->Pages[1].Title, u"Three");
}

TEST(SessionJournal, PagesThatLieSideBySideAreWrittenDownAndComeBack) {
    JournalDesk desk;
    desk.StartWithTabs(5);
    desk.PageLoads(1, u"about:blank", u"");
    for (const int index : {2, 3, 4, 5}) desk.PageLoads(index, u"http://" + Decimal(index) + u"/", Decimal(index));
    desk.LaySideBySide(u"v(h(4 1) h(2 5)) linked");
    desk.LaySideBySide(u"h(1 3)");
    desk.ClickTab(4);
    EXPECT_GE(desk.scheduled, 1);
    desk.WriteSession();
    const auto written = SessionFromBytes(desk.sessions.own);
    ASSERT_TRUE(written);
    EXPECT_EQ(written->Tiles, (std::vector<Text>{u"v(3 h(1 4)) linked"})) << "a blank page does not come back";

    JournalDesk later;
    later.Keep(*written, u"x");
    later.StartWithTabs(2);
    later.Reopen(u"x");
    EXPECT_EQ(later.Strip(), "1 3 4 [5*] 6 2");
    EXPECT_EQ(later.views.Shown(), "3 5* 6");
    ASSERT_TRUE(later.main.Tiles().Shown());
    EXPECT_EQ(later.SideBySide(), "v(5 h(3 6)) linked");
    EXPECT_EQ(later.Written(), "home: http://2/ http://3/ http://4/* http://5/");
    EXPECT_EQ(SessionFromBytes(later.sessions.own)->Tiles, std::vector<Text>{u"v(4 h(2 5)) linked"});
}

TEST(SessionJournal, AChangedLayoutIsWritten) {
    JournalDesk desk;
    desk.StartWithTabs(3);
    for (const int index : {1, 2, 3}) desk.PageLoads(index, u"http://" + Decimal(index) + u"/", u"t");
    desk.WriteSession();
    desk.scheduled = 0;
    desk.LaySideBySide(u"h(1 2)");
    EXPECT_EQ(desk.scheduled, 1);
    desk.WriteSession();
    EXPECT_EQ(SessionFromBytes(desk.sessions.own)->Tiles, std::vector<Text>{u"h(1 2)"});
    desk.LayAlone();
    EXPECT_EQ(desk.scheduled, 2);
    desk.WriteSession();
    EXPECT_TRUE(SessionFromBytes(desk.sessions.own)->Tiles.empty());
}

TEST(SessionJournal, GroupsAndPinnedTabsComeBack) {
    TemporaryFolder folder;
    folder.Write("News.tvg", "[TessaGroup]\r\nurl1=http://a/\r\nurl2=http://b/\r\n");
    JournalDesk desk;
    desk.StartWithTabs(2);
    desk.PageLoads(1, u"http://1/", u"1");
    desk.PageLoads(2, u"http://2/", u"2");
    desk.OpenGroup(folder.PathText("News.tvg"));
    desk.WriteSession();
    desk.scheduled = 0;
    desk.FoldGroup(2);
    EXPECT_EQ(desk.scheduled, 1);
    desk.WriteSession();
    desk.Pin(2);
    EXPECT_EQ(desk.scheduled, 2);
    desk.WriteSession();
    EXPECT_EQ(desk.Units(), "^2 1 News-2(3 [4*])");
    const auto written = SessionFromBytes(desk.sessions.own);
    ASSERT_TRUE(written);

    JournalDesk later;
    later.Keep(*written, u"x");
    later.StartWithTabs(1);
    later.Reopen(u"x");
    EXPECT_EQ(later.Units(), "^2 1 3 News-(4 [5*])");
    later.WriteSession();
    EXPECT_EQ(SessionFromBytes(later.sessions.own)->Groups.Groups.at(0).Members,
              (std::vector<KeptMember>{{4, u"http://a/"}, {5, u"http://b/"}}));
}

TEST(SessionJournal, APinnedTabThatCameBackGivesWayToItsPageAlone) {
    for (const TextView pinned : {u"http://one/", u"http://other/"}) {
        JournalDesk desk;
        desk.settings.PutList(u"LastSites", {u"http://one/", u"http://two/"});
        desk.settings.Put(u"LastGroups", u"[Pins]\nTabs=\"1\"\n");
        Session session = Crashed({{Text(pinned), u"P"}, {u"http://b/", u"B"}});
        session.Groups.Pins = {1};
        desk.Keep(session, u"x");
        desk.Start();
        EXPECT_EQ(desk.Units(), "^1 [2*]");
        desk.Reopen(u"x");
        EXPECT_EQ(desk.Units(), pinned == u"http://one/" ? "[^3*] 4" : "^1 [^3*] 4");
    }
}

TEST(SessionJournal, APageThatMayNotOpenLeavesItsPane) {
    JournalDesk desk;
    Session session = Crashed({{u"http://a/", u"A"}, {u"chrome://kill", u"B"}, {u"http://c/", u"C"}});
    session.Tiles = {u"h(1 2 3)"};
    desk.Keep(session, u"x");
    desk.StartWithTabs(1);
    desk.Reopen(u"x");
    EXPECT_EQ(desk.SideBySide(), "h(2 3)");
}

TEST(SessionJournal, NothingIsWrittenTwice) {
    JournalDesk desk;
    desk.StartWithTabs(1);
    desk.PageLoads(1, u"http://one/", u"One");
    desk.WriteSession();
    const int writes = desk.sessions.writes;
    desk.clock.now = 2000;
    desk.WriteSession();
    EXPECT_EQ(desk.sessions.writes, writes);
}

TEST(SessionJournal, ASessionWithoutPagesIsRemoved) {
    JournalDesk desk;
    desk.StartWithTabs(1);
    desk.PageLoads(1, u"http://one/", u"One");
    desk.WriteSession();
    desk.PageLoads(1, u"about:blank", u"");
    desk.WriteSession();
    EXPECT_EQ(desk.sessions.own, "");
}

TEST(SessionJournal, ClosingTheWindowEndsTheSessionWell) {
    JournalDesk desk;
    desk.StartWithTabs(1);
    desk.PageLoads(1, u"http://one/", u"One");
    desk.Unload();
    const auto session = SessionFromBytes(desk.sessions.own);
    ASSERT_TRUE(session);
    EXPECT_TRUE(session->Ended);
    EXPECT_EQ(desk.Written(), "http://one/*");
}

TEST(SessionJournal, AWriteThatComesTooLateLeavesTheEndedSessionAlone) {
    JournalDesk desk;
    desk.StartWithTabs(2);
    desk.PageLoads(1, u"http://one/", u"One");
    desk.Unload();
    desk.WriteSession();
    EXPECT_EQ(desk.Written(), "http://one/*");
    EXPECT_TRUE(SessionFromBytes(desk.sessions.own)->Ended);
}

TEST(SessionJournal, AFailingDiskDisturbsNobody) {
    JournalDesk desk;
    desk.sessions.refuses = true;
    desk.StartWithTabs(1);
    desk.PageLoads(1, u"http://one/", u"One");
    desk.ExpectSkipped(1);
    desk.WriteSession();
}

TEST(SessionJournal, WhatCouldNotBeWrittenIsTriedAgainWithoutAChangeOfTabs) {
    JournalDesk desk;
    desk.StartWithTabs(1);
    desk.PageLoads(1, u"http://one/", u"One");
    desk.sessions.refuses = true;
    desk.ExpectSkipped(3);
    for (int write = 1; write <= 3; ++write) {
        desk.scheduled = 0;
        desk.WriteSession();
        EXPECT_EQ(desk.scheduled, 1) << write;
    }
    EXPECT_EQ(desk.said, std::vector<Text>{u"The open pages could not be written down: a crash would lose them."});
    EXPECT_EQ(desk.Written(), "(none)");
    desk.sessions.refuses = false;
    desk.scheduled = 0;
    desk.WriteSession();
    EXPECT_EQ(desk.Written(), "http://one/*");
    EXPECT_EQ(desk.scheduled, 0) << "there is nothing left to try";
}

TEST(SessionJournal, ASecondTroubleIsSaidAgain) {
    JournalDesk desk;
    desk.StartWithTabs(1);
    desk.ExpectSkipped(2);
    for (const TextView address : {u"http://one/", u"http://two/"}) {
        desk.PageLoads(1, address, u"Title");
        desk.sessions.refuses = true;
        desk.WriteSession();
        desk.sessions.refuses = false;
        desk.WriteSession();
    }
    EXPECT_EQ(desk.said.size(), 2U);
}

TEST(SessionJournal, AWriteThatFailsLateIsTriedAgainToo) {
    JournalDesk desk;
    desk.StartWithTabs(1);
    desk.PageLoads(1, u"http://one/", u"One");
    desk.sessions.slow = true;
    desk.WriteSession();
    desk.scheduled = 0;
    desk.sessions.refuses = true;
    desk.ExpectSkipped(1);
    desk.sessions.Arrive();
    EXPECT_EQ(desk.scheduled, 1);
    desk.sessions.refuses = false;
    desk.WriteSession();
    desk.sessions.Arrive();
    EXPECT_EQ(desk.Written(), "http://one/*");
}

TEST(SessionJournal, OffersTheNewestSessionThatEndedBadly) {
    JournalDesk desk;
    Session ended = Crashed({{u"http://well/", u""}});
    ended.Ended = true;
    Session settled = Crashed({{u"http://settled/", u""}});
    settled.Settled = true;
    desk.Keep(ended, u"e");
    desk.Keep(settled, u"d");
    desk.Keep(Crashed({}), u"c");
    desk.Keep(Crashed({{u"http://newer/", u""}}), u"b");
    desk.Keep(Crashed({{u"http://older/", u""}}), u"a");
    EXPECT_EQ(desk.Offered(), u"b");
    desk.Dismiss(u"b");
    EXPECT_EQ(desk.Offered(), u"a") << "two crashes in a row lose nothing";
    desk.Dismiss(u"a");
    EXPECT_EQ(desk.Offered(), u"");
    EXPECT_EQ(desk.CountEarlier(), 5U) << "settled sessions are still kept";
}

TEST(SessionJournal, ReopensAllPagesWithTheRightOneInFront) {
    JournalDesk desk;
    desk.Keep(Crashed({{u"http://a/", u"A"}, {u"http://b/", u"B"}, {u"http://c/", u"C"}}, 2), u"x");
    desk.StartWithTabs(1);
    desk.Reopen(u"x");
    EXPECT_EQ(desk.Strip(), "1 2 [3*] 4");
    EXPECT_EQ(desk.views.At(2).location, u"http://a/");
    EXPECT_EQ(desk.views.At(4).location, u"http://c/");
    EXPECT_TRUE(desk.Kept(0)->Settled);
}

TEST(SessionJournal, ReopenedPagesAreCalledAsBeforeUntilTheyAreLoaded) {
    JournalDesk desk;
    const Text title = u"A title that is much longer than what a tab of the strip shows of one";
    desk.Keep(Crashed({{u"http://a/", title}, {u"http://b/", u""}}), u"x");
    desk.StartWithTabs(1);
    desk.Reopen(u"x");
    EXPECT_EQ(desk.TabOf(2).Title(), title);
    EXPECT_LT(desk.TabOf(2).Caption().size(), title.size());
    EXPECT_EQ(desk.TabOf(3).Title(), kUntitledCaption);
    // The next crash may come before they are.
    desk.WriteSession();
    EXPECT_EQ(SessionFromBytes(desk.sessions.own)->Pages[1].Title, title);
    EXPECT_EQ(SessionFromBytes(desk.sessions.own)->Pages[2].Title, u"");
    desk.PageLoads(2, u"http://a/", u"Another");
    EXPECT_EQ(desk.TabOf(2).Title(), u"Another");
    desk.WriteSession();
    EXPECT_EQ(SessionFromBytes(desk.sessions.own)->Pages[1].Title, u"Another");
}

TEST(SessionJournal, CountsTheTabsThatShowNothing) {
    JournalDesk desk;
    desk.StartWithTabs(4);
    desk.PageLoads(1, u"http://one/", u"One");
    desk.PageLoads(2, u"about:blank", u"");
    desk.PageLoads(3, u"tessaview:start", u"Home");
    desk.PageLoads(4, u"about:blank", u"");
    desk.WriteSession();
    EXPECT_EQ(SessionFromBytes(desk.sessions.own)->Blanks, 2U);
}

TEST(SessionJournal, ReopenedPagesTakeThePlaceOfUntouchedOnesThatCameBack) {
    JournalDesk desk;
    desk.settings.PutList(u"LastSites", {u"http://one/", u"http://two/"});
    desk.Keep(Crashed({{u"http://a/", u"A"}, {u"http://b/", u"B"}}, 1), u"x");
    desk.Start();
    desk.PageLoads(1, u"http://one/", u"One");
    desk.Reopen(u"x");
    EXPECT_EQ(desk.Strip(), "[3*] 4");
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.CountTabs(), 4U) << "what gave way comes back together";
}

TEST(SessionJournal, PagesThatCameBackAndWereTouchedStay) {
    JournalDesk desk;
    desk.settings.PutList(u"LastSites", {u"http://1/", u"http://2/", u"http://3/", u"http://4/", u"http://5/"});
    desk.Keep(Crashed({{u"http://a/", u"A"}}), u"x");
    desk.Start();
    for (const int each : {1, 2, 3, 4, 5}) desk.PageLoads(each, u"http://" + Decimal(each) + u"/", Decimal(each));
    desk.views.At(1).mayHold = true;
    desk.PageMayGo(2, HistoryCommand::NavigateForward, true);
    desk.PageLoads(3, u"http://elsewhere/", u"3");
    desk.PageMayGo(3, HistoryCommand::NavigateBack, true);
    desk.PageBegins(4, u"http://soon/");
    desk.Reopen(u"x");
    EXPECT_EQ(desk.Strip(), "1 2 3 4 [6*]");
}

TEST(SessionJournal, APageThatItsSiteHasSentOnIsUntouched) {
    JournalDesk desk;
    desk.settings.PutList(u"LastSites", {u"http://1/", u"http://2/"});
    desk.Keep(Crashed({{u"http://a/", u"A"}}), u"x");
    desk.Start();
    desk.PageLoads(1, u"https://www.1/", u"1");
    desk.Bar().NoteTyped();
    desk.PageLoads(2, u"http://other/", u"2");
    desk.Reopen(u"x");
    EXPECT_EQ(desk.Strip(), "[3*] 2") << "what was typed before the page came is the user's";
}

TEST(SessionJournal, NothingGivesWayWhenNothingOpensOrTheListOpensIt) {
    JournalDesk desk;
    desk.settings.PutList(u"LastSites", {u"http://1/", u"http://2/"});
    desk.Keep(Crashed({{u"javascript:1", u"A"}}), u"x");
    desk.Start();
    desk.Reopen(u"x");
    EXPECT_EQ(desk.Strip(), "1 [2*]");
    desk.journal.OpenAndSettle(Crashed({{u"http://a/", u"A"}}), u"y");
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
}

TEST(SessionJournal, AReopenedSessionIsSettledOnlyWhenItsPagesAreWrittenDown) {
    JournalDesk desk;
    desk.Keep(Crashed({{u"http://a/", u"A"}}), u"x");
    desk.StartWithTabs(1);
    desk.sessions.refuses = true;
    desk.ExpectSkipped(2);
    desk.Reopen(u"x");
    EXPECT_FALSE(desk.Kept(0)->Settled) << "a crash now would lose its pages";
    desk.WriteSession();
    EXPECT_FALSE(desk.Kept(0)->Settled);
    desk.sessions.refuses = false;
    desk.WriteSession();
    EXPECT_EQ(desk.Written(), "home: http://a/*");
    EXPECT_TRUE(desk.Kept(0)->Settled);
}

TEST(SessionJournal, AReopenedSessionIsNotSettledByAWriteThatBeganBefore) {
    JournalDesk desk;
    desk.Keep(Crashed({{u"http://a/", u"A"}}), u"x");
    desk.StartWithTabs(1);
    desk.PageLoads(1, u"http://one/", u"One");
    desk.sessions.slow = true;
    desk.WriteSession();
    ASSERT_EQ(desk.Offered(), u"x");
    desk.Reopen(u"x");
    EXPECT_FALSE(desk.Kept(0)->Settled);
    EXPECT_EQ(desk.Offered(), u"") << "the user has answered, whenever the disk hears of it";
    desk.sessions.Arrive();
    EXPECT_EQ(desk.Written(), "http://one/ http://a/*");
    EXPECT_TRUE(desk.Kept(0)->Settled);
}

TEST(SessionJournal, AnEarlierSessionThatCannotBeSettledIsSaidOnceAndTriedWithTheNextWrite) {
    JournalDesk desk;
    desk.Keep(Crashed({{u"http://a/", u"A"}}), u"x");
    desk.StartWithTabs(1);
    desk.sessions.refusesRewrite = true;
    desk.ExpectSkipped(2);
    desk.Reopen(u"x");
    desk.WriteSession();
    EXPECT_EQ(desk.said, std::vector<Text>{u"An earlier session could not be changed and may be offered again."});
    desk.sessions.refusesRewrite = false;
    desk.WriteSession();
    EXPECT_TRUE(desk.Kept(0)->Settled);
    const int writes = desk.sessions.writes;
    desk.WriteSession();
    EXPECT_EQ(desk.sessions.writes, writes);
}

TEST(SessionJournal, AnUnknownSessionChangesNothing) {
    JournalDesk desk;
    desk.Keep(Crashed({{u"http://a/", u"A"}}), u"x");
    desk.StartWithTabs(1);
    desk.Reopen(u"y");
    desk.Dismiss(u"y");
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_FALSE(desk.Kept(0)->Settled);
}

TEST(SessionJournal, AForgottenSessionIsGone) {
    JournalDesk desk;
    desk.Keep(Crashed({{u"http://a/", u"A"}}), u"x");
    desk.Forget(u"x");
    EXPECT_EQ(desk.CountEarlier(), 0U);
}

TEST(SessionJournal, ASessionThatCannotBeReadIsPassedOver) {
    JournalDesk desk;
    desk.sessions.earlier.push_back({u"bad", "garbage"});
    desk.Keep(Crashed({{u"http://a/", u"A"}}), u"x");
    EXPECT_EQ(desk.Offered(), u"x");
    EXPECT_EQ(desk.CountEarlier(), 1U);
}

} // namespace

} // namespace tessa
