#include "sessions/Session.h"

#include <gtest/gtest.h>
#include <random>

namespace tessa {

namespace {

Session Three() {
    return {.Time = 1700000000,
            .Ended = true,
            .Settled = true,
            .Selected = 2,
            .Blanks = 3,
            .Pages = {{u"http://one/", u"One"}, {u"http://two/?q=\u00e4", u"\u4e8c"}, {u"http://three/", u""}}};
}

TEST(Session, ComesBackFromItsBytes) {
    EXPECT_EQ(SessionFromBytes(SessionBytes(Three())), Three());
    EXPECT_EQ(SessionFromBytes(SessionBytes({})), Session());
}

TEST(Session, IsARecordAndOneForEachPage) {
    EXPECT_EQ(SessionBytes({.Time = 17, .Selected = 1, .Pages = {{u"http://one/", u"One"}}}),
              "[Session]\nEnded=0\nSelected=1\nSettled=0\nTime=17\n[Page]\nAddress=http://one/\nTitle=One\n");
}

TEST(Session, KeepsTheNamesThatTabsWereGiven) {
    Session session;
    session.Pages = {{u"http://a/", u"Title", u"My\nname"}, {u"http://b/", u"Other", u""}};
    const auto back = SessionFromBytes(SessionBytes(session));
    ASSERT_TRUE(back);
    EXPECT_EQ(back->Pages[0].Name, u"My name");
    EXPECT_EQ(back->Pages[1].Name, u"");
    EXPECT_EQ(SessionBytes(session).find("Name"), SessionBytes(session).rfind("Name")) << "none is written for none";
}

TEST(Session, OfTheFirstVersionsIsReadToo) {
    const auto read =
        SessionFromBytes("TessaView session 1\ntime=1700000000\nended=1\nsettled=1\nselected=2\nblanks=3\n"
                         "page=http://one/\tOne\npage=http://two/?q=\xC3\xA4\t\xE4\xBA\x8C\n"
                         "page=http://three/\t\npage=http://cut");
    EXPECT_EQ(read, Three());
}

TEST(Session, LineEndsAndTabsInATitleBecomeBlanks) {
    const Session session{.Pages = {{u"http://one/", u"a\tb\r\npage=c"}}};
    const auto read = SessionFromBytes(SessionBytes(session));
    ASSERT_EQ(read->Pages.size(), 1U);
    EXPECT_EQ(read->Pages[0], (SessionPage{u"http://one/", u"a b  page=c"}));
}

TEST(Session, IsToldByItsTimeItsFirstTitlesAndItsBlankTabs) {
    const SessionPage a{u"http://a/", u"A"}, b{u"http://b/", u""};
    using Pages = std::vector<SessionPage>;
    EXPECT_EQ(SessionWords({.Pages = {a}}, u"Today, 10:14"), u"Today, 10:14: \u201cA\u201d");
    EXPECT_EQ(SessionWords({.Pages = {a, b}}, u""), u"\u201cA\u201d and \u201chttp://b/\u201d");
    EXPECT_EQ(SessionWords({.Blanks = 1, .Pages = {a}}, u""), u"\u201cA\u201d and a blank tab");
    EXPECT_EQ(SessionWords({.Pages = Pages(4, a)}, u""),
              u"\u201cA\u201d, \u201cA\u201d, \u201cA\u201d and \u201cA\u201d");
    EXPECT_EQ(SessionWords({.Blanks = 2, .Pages = Pages(5, a)}, u""),
              u"\u201cA\u201d, \u201cA\u201d, \u201cA\u201d, 2 more pages and 2 blank tabs");
    const SessionPage lengthy{u"http://l/", Text(60, u'l')};
    EXPECT_EQ(SessionWords({.Pages = {lengthy}}, u""), u"\u201c" + Text(40, u'l') + u"...\u201d");
}

TEST(Session, SaysWhichPagesLieSideBySide) {
    Session session = Three();
    session.Tiles = {u"h(3 1)", u"v(2 9)"};
    const std::string bytes = SessionBytes(session);
    EXPECT_NE(bytes.find("\nTiles=\"h(3 1)\", \"v(2 9)\"\n"), std::string::npos) << bytes;
    session.Tiles = {u"h(3 1)"};
    EXPECT_EQ(SessionFromBytes(bytes), session) << "there is no ninth page";
}

TEST(Session, SaysWhichPagesBelongTogetherAndArePinned) {
    Session session = Three();
    session.Groups = {
        .Groups = {{.Path = u"/a.tvg", .Name = u"a", .Members = {{2, u"http://two/"}, {3, std::nullopt}}}},
        .Pins = {1}};
    EXPECT_EQ(SessionFromBytes(SessionBytes(session)), session);
    const Session part = PartOf(session, {2, 0});
    EXPECT_EQ(part.Groups.Groups.at(0).Members, (std::vector<KeptMember>{{1, std::nullopt}}));
    EXPECT_EQ(part.Groups.Pins, std::vector<std::int32_t>{2});
    session.Groups.Pins = {1, 4};
    EXPECT_EQ(SessionFromBytes(SessionBytes(session))->Groups.Pins, std::vector<std::int32_t>{1});
}

TEST(Session, LayoutsThatCannotBeAreLeftOut) {
    const std::string pages = "[Page]\nAddress=http://1/\n[Page]\nAddress=http://2/\n[Page]\nAddress=http://3/\n";
    const auto tiles = [&](const std::string& line) {
        return SessionFromBytes("[Session]\n" + line + "\n" + pages)->Tiles;
    };
    EXPECT_EQ(tiles("Time=1"), std::vector<Text>());
    EXPECT_EQ(tiles("Tiles="), std::vector<Text>());
    EXPECT_EQ(tiles("Tiles=h(1 2)"), std::vector<Text>()) << "a text and no list";
    EXPECT_EQ(tiles("Tiles=\"x\", \"h(1\", \"h(1 2)\""), std::vector<Text>{u"h(1 2)"});
    EXPECT_EQ(tiles("Tiles=\"h(1 2)\", \"v(2 3)\""), std::vector<Text>{u"h(1 2)"}) << "page 2 lies in one alone";
}

TEST(Session, APartOfItKeepsWhatItsPagesWereToEachOther) {
    Session session = Three();
    session.Tiles = {u"h(1 v(2 3)) linked"};
    const Session part = PartOf(session, {1, 2, 7});
    EXPECT_EQ(part.Pages, (std::vector<SessionPage>{session.Pages[1], session.Pages[2]}));
    EXPECT_EQ(part.Selected, 1u);
    EXPECT_EQ(part.Tiles, std::vector<Text>{u"v(1 2) linked"});
    EXPECT_EQ(PartOf(session, {0}).Selected, 0u);
    EXPECT_TRUE(PartOf(session, {0}).Tiles.empty());
    EXPECT_EQ(PartOf(session, {0, 1, 2}), session);
}

TEST(Session, AnythingElseIsNone) {
    for (const std::string_view bytes : {"", "\n", "page=http://one/\n", "TessaView session 2\npage=a\n",
                                         "TessaView session 1", "TessaView session 1\r\n"})
        EXPECT_EQ(SessionFromBytes(bytes), std::nullopt) << bytes;
}

TEST(Session, OfATextThatBreaksOffTheWholeLinesCount) {
    const std::string whole = SessionBytes(Three());
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const auto read = SessionFromBytes(whole.substr(0, length));
        if (!read) continue;
        EXPECT_LE(read->Selected, read->Pages.size());
        for (std::size_t i = 0; i < read->Pages.size(); ++i) {
            EXPECT_EQ(read->Pages[i].Address, Three().Pages[i].Address);
            const bool last = i + 1 == read->Pages.size();
            if (!last || !read->Pages[i].Title.empty()) {
                EXPECT_EQ(read->Pages[i].Title, Three().Pages[i].Title);
            }
        }
    }
    const std::string first = "TessaView session 1\npage=http://one/\tOne\npage=http://two/\tTwo\n";
    EXPECT_EQ(SessionFromBytes(first.substr(0, first.size() - 1))->Pages.size(), 1U);
}

TEST(Session, NumbersThatAreNoneAreZero) {
    const auto read = SessionFromBytes("[Session]\nTime=x\nSelected=-1\nEnded=2\nBlanks=\n[Page]\nAddress=a\n");
    EXPECT_EQ(*read, (Session{.Pages = {{u"a", u""}}}));
    EXPECT_EQ(SessionFromBytes("[Session]\nTime=99999999999999999999\nSelected=2\n[Page]\nAddress=a\n"),
              (Session{.Pages = {{u"a", u""}}}));
}

TEST(Session, DamageCostsWhatItHits) {
    const auto read =
        SessionFromBytes("[Session]\nnonsense\nSelected=1\n[Page]\nAddress=a\nTitle=\\q\n[Page]\nTitle=b\n"
                         "[Other]\nAddress=c\n[Page]\nAddress=d\nMore=1\n");
    EXPECT_EQ(*read, (Session{.Selected = 1, .Pages = {{u"a", u""}, {u"d", u""}}}));
}

TEST(Session, OfTheFirstVersionsNumbersThatAreNoneAreZeroAndHugeOnesEnd) {
    const auto read = SessionFromBytes("TessaView session 1\ntime=x\nselected=-1\nended=2\npage=a\n");
    EXPECT_EQ(read->Time, 0);
    EXPECT_EQ(read->Selected, 0U);
    EXPECT_FALSE(read->Ended);
    const auto huge = SessionFromBytes("TessaView session 1\ntime=" + std::string(400, '9') + "\nselected=99999\n");
    EXPECT_GT(huge->Time, 0);
    EXPECT_EQ(huge->Selected, 0U);
}

TEST(Session, AnyBytesAreReadSoundlyAndComeBackFromTheirOwn) {
    std::minstd_rand random(4711);
    const std::string_view pieces[] = {"TessaView session 1\n",
                                       "[Session]\n",
                                       "[Page]\n",
                                       "Address=",
                                       "Title=",
                                       "Selected=",
                                       "Time=",
                                       "page=",
                                       "time=",
                                       "ended=",
                                       "settled=",
                                       "selected=",
                                       "\n",
                                       "\r\n",
                                       "\t",
                                       "=",
                                       "1",
                                       "99999999999",
                                       "-",
                                       "http://one/",
                                       std::string_view("\0", 1),
                                       "\x1B",
                                       "\xC3\xA4",
                                       "\xED\xA0\x80",
                                       "\x81",
                                       "\xFF"};
    for (int round = 0; round < 5000; ++round) {
        std::string bytes(random() % 8 ? pieces[random() % 2] : std::string_view());
        for (auto i = random() % 60; i > 0; --i) bytes += pieces[random() % std::size(pieces)];
        const auto read = SessionFromBytes(bytes);
        if (!read) continue;
        EXPECT_LE(read->Selected, read->Pages.size());
        EXPECT_GE(read->Time, 0);
        const auto again = SessionFromBytes(SessionBytes(*read));
        ASSERT_TRUE(again);
        EXPECT_EQ(again->Pages.size(), read->Pages.size()) << bytes;
        EXPECT_EQ(SessionFromBytes(SessionBytes(*again)), again) << bytes;
    }
}

TEST(Session, ReadsAHundredThousandPagesAndOneOfTenMegabytes) {
    std::string bytes = "TessaView session 1\nselected=100001\npage=" + std::string(10'000'000, 'x') + '\n';
    for (int page = 0; page < 100'000; ++page) bytes += "page=http://one/\tOne\n";
    const auto read = SessionFromBytes(bytes);
    ASSERT_EQ(read->Pages.size(), 100'001U);
    EXPECT_EQ(read->Pages[0].Address.size(), 10'000'000U);
    EXPECT_EQ(read->Selected, 100'001U);
    EXPECT_EQ(SessionFromBytes(SessionBytes(*read)), read);
}

TEST(Session, BlankPagesAndTheHomePageAreNotWorthKeeping) {
    EXPECT_FALSE(IsWorthKeeping(u""));
    EXPECT_FALSE(IsWorthKeeping(u"about:blank"));
    EXPECT_FALSE(IsWorthKeeping(u"tessaview:start"));
    EXPECT_TRUE(IsWorthKeeping(u"http://one/"));
    EXPECT_TRUE(IsWorthKeeping(u"about:blank#top"));
}

} // namespace

} // namespace tessa
