// Tests: HistoryRequests, HistoryPageStyle
#include "startpage/HistoryPage.h"

#include "tests/fakes/FakeProgram.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using Kind = HistoryRequest::Kind;

bool Holds(const Text& text, TextView part) { return text.find(part) != Text::npos; }

HistoryEntry Entry(std::int64_t id, TextView title, std::string passages = {}) {
    HistoryEntry entry;
    entry.Id = id;
    entry.Address = u"https://www.example.org/" + Text(title);
    entry.Site = u"example.org";
    entry.Title = title;
    entry.Last = 86'400 * 10;
    entry.Visits = 1;
    entry.Passages = std::move(passages);
    return entry;
}

Text Shown(const HistoryRequest& request, std::vector<HistoryEntry> entries, bool more = false) {
    FakeClock clock;
    clock.words = u"Monday, 23 November 2026, 14:30";
    return HistoryPage::Answer(request, {std::move(entries), more}, clock);
}

TEST(HistoryPage, AsksForWhatItsScriptSays) {
    const auto find = HistoryPage::RequestIn(u"find?n=12&words=caf%C3%A9%20au&site=a.org&group=My%20News&below=99");
    ASSERT_TRUE(find);
    EXPECT_EQ(find->What, Kind::Find);
    EXPECT_EQ(find->Number, 12);
    EXPECT_EQ(find->Words, u"caf\u00E9 au");
    EXPECT_EQ(find->Site, u"a.org");
    EXPECT_EQ(find->Group, u"My News");
    EXPECT_EQ(find->Below, 99);
    const auto open = HistoryPage::RequestIn(u"open?ids=1,2,x,3,");
    ASSERT_TRUE(open);
    EXPECT_EQ(open->What, Kind::Open);
    EXPECT_EQ(open->Ids, (std::vector<std::int64_t>{1, 2, 3}));
    EXPECT_EQ(HistoryPage::RequestIn(u"keep?ids=5")->What, Kind::Keep);
    EXPECT_EQ(HistoryPage::RequestIn(u"delete?ids=5")->What, Kind::Delete);
    EXPECT_EQ(HistoryPage::RequestIn(u"delete-site?site=a.org")->Site, u"a.org");
    const auto day = HistoryPage::RequestIn(u"delete-day?from=86400&until=172800");
    EXPECT_EQ(day->From, 86'400);
    EXPECT_EQ(day->Until, 172'800);
}

TEST(HistoryPage, WhatNoScriptOfOursSaysIsNoQuestion) {
    for (const Text message : {u"", u"find", u"?", u"other?x=1", u"Find?n=1", u" find?n=1"})
        EXPECT_FALSE(HistoryPage::RequestIn(message)) << ToUtf8(message);
    const auto odd = HistoryPage::RequestIn(u"find?n=-5&below=1e9&ids=99999999999999999999&words=%FF%FE&x&=&&");
    ASSERT_TRUE(odd);
    EXPECT_EQ(odd->Number, 0);
    EXPECT_EQ(odd->Below, 0);
    EXPECT_TRUE(odd->Ids.empty());
    EXPECT_EQ(odd->Words, u"");
    Text many = u"open?ids=";
    for (int i = 1; i < 5000; ++i) many += Decimal(i) + u",";
    EXPECT_EQ(HistoryPage::RequestIn(many)->Ids.size(), 1000U);
}

TEST(HistoryPage, TheStoreIsAskedForThat) {
    HistoryRequest request;
    request.Words = u"red apples";
    request.Site = u"a.org";
    request.Below = 7;
    const HistoryQuery query = HistoryPage::QueryOf(request);
    EXPECT_EQ(query.Match, u"\"red\"* \"apples\"*");
    EXPECT_EQ(query.Site, u"a.org");
    EXPECT_EQ(query.Below, 7);
    EXPECT_TRUE(query.Passages);
    EXPECT_FALSE(HistoryPage::QueryOf({}).Passages);
}

TEST(HistoryPage, ShowsPagesByDaysWithTheirMatches) {
    HistoryRequest request{.Number = 3, .Words = u"apples"};
    const Text shown = Shown(request, {Entry(9, u"Red apples", "pWe ate apples.\n"), Entry(8, u"Other")}, true);
    EXPECT_TRUE(shown.starts_with(u"list 3 0 1 8\nThe latest 2 pages\n<h2>Monday, 23 November 2026 <button"));
    EXPECT_TRUE(Holds(shown, u"data-from=\"864000\" data-until=\"950400\""));
    EXPECT_TRUE(Holds(shown, u"<li data-id=\"9\">"));
    EXPECT_TRUE(Holds(shown, u"<b><bdi>Red <mark>apples</mark></bdi></b></a><time>14:30</time>"));
    EXPECT_TRUE(Holds(shown, u"<p><bdi>We ate <mark>apples</mark>.</bdi></p>"));
    EXPECT_TRUE(Holds(shown, u"href=\"https://www.example.org/Red apples\""));
    EXPECT_EQ(shown.find(u"<h2>"), shown.rfind(u"<h2>"));
    EXPECT_TRUE(shown.ends_with(u"</ol>"));
    EXPECT_EQ(Shown({.Number = 4}, {}), u"list 4 0 0 0\nNothing is remembered here.\n");
    EXPECT_EQ(Shown(request, {}), u"list 3 0 0 0\nNothing was found.\n");
    EXPECT_TRUE(Shown({.Below = 5}, {Entry(4, u"A")}).starts_with(u"list 0 1 0 4\nAll pages are shown.\n"));
    EXPECT_TRUE(Holds(Shown({}, {Entry(4, u"A")}), u"\nOne page\n"));
}

TEST(HistoryPage, WhatPagesCallThemselvesIsOnlyText) {
    HistoryEntry entry = Entry(1, u"<script>alert('x')</script>", "p<img src=x onerror=y> apples\n");
    entry.Address = u"https://a/\"onclick=\"x";
    entry.Site = u"<b>\"";
    entry.Group = u"<i>'";
    const Text shown = Shown({.Words = u"apples"}, {entry});
    for (const TextView each : {u"<script", u"<img src=x", u"\"onclick", u"<b>\"", u"<i>'"})
        EXPECT_FALSE(Holds(shown, each)) << ToUtf8(each);
    EXPECT_TRUE(Holds(shown, u"&lt;script&gt;"));
}

TEST(HistoryPage, TellsVisitsGroupAndNews) {
    HistoryEntry entry = Entry(1, u"");
    entry.Visits = 5;
    entry.Group = u"News";
    entry.Share = 12;
    entry.Icon = "foo";
    const Text shown = Shown({}, {entry});
    EXPECT_TRUE(Holds(shown, u"5 visits"));
    EXPECT_TRUE(Holds(shown, u"<bdi>News</bdi>"));
    EXPECT_TRUE(Holds(shown, u"12 % was new"));
    EXPECT_TRUE(Holds(shown, u"src=\"data:image/png;base64,Zm9v\""));
    // Without a title it is called by its address.
    EXPECT_TRUE(Holds(shown, u"<b><bdi>https://www.example.org/</bdi></b>"));
}

TEST(HistoryPage, ThePageLoadsAndRunsNothing) {
    const std::string page = HistoryPage::Html(false);
    EXPECT_NE(page.find("default-src 'none'; style-src 'unsafe-inline'; img-src data:"), std::string::npos);
    EXPECT_EQ(page.find("<script"), std::string::npos);
    EXPECT_EQ(page.find("class=\"dark\"><head>"), std::string::npos);
    EXPECT_NE(HistoryPage::Html(true).find("class=\"dark\"><head>"), std::string::npos);
}

TEST(HistoryPage, GroupsAreALineEach) {
    EXPECT_EQ(HistoryPage::GroupsAnswer({}), u"groups");
    EXPECT_EQ(HistoryPage::GroupsAnswer({u"News", u"Two\nlines"}), u"groups\nNews\nTwo lines");
}

} // namespace

} // namespace tessa
