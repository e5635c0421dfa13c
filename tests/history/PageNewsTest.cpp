#include "history/PageNews.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

std::vector<Passage> Page(TextView gathered) {
    Text lines(gathered);
    for (char16_t& unit : lines)
        if (unit == u'|') unit = u'\n';
    return Passages::Read(lines).Passages;
}

/// The new passages: "Two|Four".
Text NewIn(const PageNews& news, const std::vector<Passage>& passages) {
    Text all;
    for (const std::size_t each : news.New) all += (all.empty() ? u"" : u"|") + passages[each].Words;
    return all;
}

struct NewsRow {
    Text before, now, expected;
    int share;
};

TEST(PageNews, IsWhatWasNotThereBefore) {
    const NewsRow rows[]{
        {u"pOne|pTwo", u"pOne|pTwo", u"", 0},
        {u"pOne|pTwo", u"pTwo|pOne", u"", 0},
        {u"pOne|pTwo", u"pOne", u"", 0},
        {u"pOne", u"pTwo|pOne", u"Two", 50},
        {u"", u"pOne|pTwo", u"One|Two", 100},
        {u"pOne", u"", u"", 0},
        {u"pOne", u"pTwo|pOne|pTwo", u"Two", 33},
        {u"pIt is 10:00|pOne", u"pIt is 11:00|pOne", u"", 0},
        {u"pOne", u"pOne|aBuy this now", u"", 0},
        {u"pOne", u"pOne|pSponsored|pBuy this now", u"", 0},
        {u"pOne", u"pOne|pSponsored|pBuy this now|pTwo", u"Two", 50},
        {u"hOld heading|pOne", u"hNew heading|pOne", u"New heading", 78},
        {u"pOne", u"pOne|p15", u"", 0},
    };
    for (const NewsRow& row : rows) {
        const auto now = Page(row.now);
        const auto compared = NewsOf::Compare(NewsOf::FirstTime(Page(row.before)), now);
        EXPECT_EQ(ToUtf8(NewIn(compared.News, now)), ToUtf8(row.expected)) << ToUtf8(row.now);
        EXPECT_EQ(compared.News.Share, row.share) << ToUtf8(row.now);
    }
}

/// The news of each visit after the first, apart by "/".
Text NewsOfVisits(const std::vector<Text>& visits) {
    PageAsRead read = NewsOf::FirstTime(Page(visits.front()));
    Text all;
    for (std::size_t i = 1; i < visits.size(); ++i) {
        const auto now = Page(visits[i]);
        const auto compared = NewsOf::Compare(read, now);
        read = NewsOf::FromBytes(NewsOf::ToBytes(compared.Now));
        EXPECT_EQ(read, compared.Now);
        all += (i == 1 ? u"" : u"/") + NewIn(compared.News, now);
    }
    return all;
}

TEST(PageNews, WhatChangedAtEachOfTheLastVisitsCountsForNothing) {
    EXPECT_EQ(ToUtf8(NewsOfVisits({u"pTop|pquote A|pEnd", u"pTop|pquote B|pEnd", u"pTop|pquote C|pEnd",
                                   u"pTop|pquote D|pEnd", u"pTop|pquote E|pEnd"})),
              "quote B/quote C//");
}

TEST(PageNews, APlaceThatWasQuietOnceCountsAgain) {
    EXPECT_EQ(
        ToUtf8(NewsOfVisits({u"pTop|pA one", u"pTop|pB two", u"pTop|pC three", u"pTop|pC three", u"pTop|pD four"})),
        "B two/C three//D four");
}

TEST(PageNews, AListThatGrowsAtItsTopIsNewEachTime) {
    EXPECT_EQ(ToUtf8(NewsOfVisits({u"hNews|pa a", u"hNews|pb b|pa a", u"hNews|pc c|pb b|pa a", u"hNews|pd d|pc c|pb b",
                                   u"hNews|pe e|pd d|pc c"})),
              "b b/c c/d d/e e");
}

TEST(PageNews, AHeadingAndALongTextCountAtEachVisit) {
    const Text a(200, u'a'), b(200, u'b'), c(200, u'c'), d(200, u'd');
    EXPECT_EQ(ToUtf8(NewsOfVisits({u"pTop|hA|p" + a, u"pTop|hB|p" + b, u"pTop|hC|p" + c, u"pTop|hD|p" + d})),
              ToUtf8(u"B|" + b + u"/C|" + c + u"/D|" + d));
}

TEST(PageNews, ItsFirstWordsAreThoseOfATextRatherThanAHeading) {
    const auto news = [](TextView now) { return NewsOf::Compare({}, Page(now)).News.FirstWords; };
    EXPECT_EQ(news(u"hHeading|pWords"), u"Words");
    EXPECT_EQ(news(u"hHeading"), u"Heading");
    EXPECT_EQ(news(u"p" + Text(100, u'x')), Text(80, u'x') + u"...");
    EXPECT_EQ(news(u""), u"");
}

TEST(PageNews, TheSmallestNewsIsOnePercent) {
    EXPECT_EQ(
        NewsOf::Compare(NewsOf::FirstTime(Page(u"p" + Text(9000, u'x'))), Page(u"p" + Text(9000, u'x') + u"|pNew"))
            .News.Share,
        1);
}

TEST(PageNews, DamagedBytesArePagesNeverRead) {
    const std::string bytes = NewsOf::ToBytes({{1, 2, 3}, {{7, 2}}});
    EXPECT_EQ(NewsOf::FromBytes(bytes), (PageAsRead{{1, 2, 3}, {{7, 2}}}));
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        const PageAsRead read = NewsOf::FromBytes(std::string_view(bytes).substr(0, size));
        EXPECT_TRUE(read == PageAsRead() || read == (PageAsRead{{1, 2, 3}, {}})) << size;
    }
    EXPECT_EQ(NewsOf::FromBytes("\x02" + bytes.substr(1)), PageAsRead());
    EXPECT_EQ(NewsOf::FromBytes(std::string("\x01\xFF\xFF\xFF\xFF", 5) + "abc"), PageAsRead());
}

} // namespace

} // namespace tessa
