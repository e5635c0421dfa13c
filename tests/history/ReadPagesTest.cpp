// Tests: ReadPagesNews
#include "history/ReadPages.h"

#include "settings/HistorySettings.h"
#include "tests/fakes/TemporaryFolder.h"
#include "tests/history/ReadingDesk.h"

namespace tessa {

namespace {

TEST(ReadPages, APageIsReadOnceItHasLoadedAndRests) {
    ReadingDesk desk;
    desk.Load(1, u"http://a/", u"pWords");
    EXPECT_EQ(desk.views.At(1).reads, 0);
    desk.main.Reads().Look();
    EXPECT_EQ(desk.views.At(1).reads, 0);
    desk.Rest();
    EXPECT_EQ(desk.views.At(1).reads, 1);
    EXPECT_EQ(desk.visits.Addresses(), u"http://a/");
    const HistoryEntry& entry = desk.visits.At(u"http://a/");
    EXPECT_EQ(entry.Title, u"Title of http://a/");
    EXPECT_EQ(entry.Site, u"a");
    EXPECT_EQ(entry.Passages, "pWords\n");
    EXPECT_EQ(entry.Last, 1'795'000'000);
}

TEST(ReadPages, WhatIsReadAddsNothingToTheBoxes) {
    ReadingDesk desk;
    const std::string addresses = desk.List(u"cboAddress"), searches = desk.List(u"cboSearch");
    desk.Read(1, u"http://read.example/", u"pWords");
    ASSERT_EQ(desk.visits.Addresses(), u"http://read.example/");
    EXPECT_EQ(desk.List(u"cboAddress"), addresses);
    EXPECT_EQ(desk.List(u"cboSearch"), searches);
    desk.Type(u"cboSearch", u"re");
    EXPECT_EQ(desk.Box(u"cboSearch"), "re");
}

TEST(ReadPages, WhileOthersLoadAPageWaits) {
    ReadingDesk desk(2);
    desk.Load(1, u"http://a/", u"pWords");
    desk.views.At(2).busy = true;
    desk.Rest();
    EXPECT_EQ(desk.views.At(1).reads, 0);
    desk.views.At(2).busy = false;
    desk.Rest();
    EXPECT_EQ(desk.views.At(1).reads, 1);
    // One that never ends holds up nothing for ever.
    desk.Load(1, u"http://b/", u"pWords");
    desk.views.At(2).busy = true;
    desk.steady.now += ReadPages::kPatience;
    desk.main.Reads().Look();
    EXPECT_EQ(desk.visits.Addresses(), u"http://b/ http://a/");
}

TEST(ReadPages, BesideOneThatHasJustLoadedAPageWaits) {
    ReadingDesk desk(2);
    desk.Load(1, u"http://a/", u"pWords");
    desk.steady.now += ReadPages::kRest / 2;
    desk.Load(2, u"http://b/", u"pWords");
    desk.steady.now += ReadPages::kRest / 2;
    desk.main.Reads().Look();
    EXPECT_EQ(desk.views.At(1).reads, 0);
    desk.Rest();
    EXPECT_EQ(desk.views.At(1).reads, 1);
    EXPECT_EQ(desk.views.At(2).reads, 1);
}

TEST(ReadPages, APageThatIsLeftBeforeItRestsIsRememberedToo) {
    ReadingDesk desk;
    desk.Load(1, u"http://a/", u"pWords");
    desk.steady.now += ReadPages::kRest / 2;
    desk.Load(1, u"http://b/", u"pWords");
    desk.steady.now += ReadPages::kRest / 2;
    desk.main.Reads().Look();
    EXPECT_EQ(desk.visits.Addresses(), u"http://a/");
    desk.Rest();
    EXPECT_EQ(desk.visits.Addresses(), u"http://b/ http://a/");
}

TEST(ReadPages, WhatAClosingTabSaysAtItsEndIsRemembered) {
    ReadingDesk desk(2);
    desk.ClickTab(2);
    desk.Read(2, u"http://a/", u"pOne");
    desk.Say(2, u"pOne|pTwo");
    desk.Close(2);
    EXPECT_EQ(desk.visits.At(u"http://a/").Passages,
              Passages::ToBytes({{PassageKind::Words, u"One"}, {PassageKind::Words, u"Two"}}));
    EXPECT_EQ(desk.visits.At(u"http://a/").Visits, 1);
    // It was read to its end, so nothing is new.
    desk.Read(1, u"http://a/", u"pOne|pTwo");
    EXPECT_EQ(desk.News(), "1:same");
}

TEST(ReadPages, WhatAClosingTabMustNotTellIsNotRemembered) {
    ReadingDesk desk(2);
    desk.ClickTab(2);
    const std::string before = Passages::ToBytes({{PassageKind::Words, u"One"}});
    desk.Read(2, u"http://a/", u"pOne");
    desk.Say(2, u"pOne|pSecret|!");
    desk.Close(2);
    EXPECT_EQ(desk.visits.At(u"http://a/").Passages, before);
    desk.Close(1);
    EXPECT_EQ(desk.visits.Addresses(), u"http://a/");
}

TEST(ReadPages, WhatChangedIsNewAtTheNextVisit) {
    ReadingDesk desk;
    desk.Read(1, u"http://a/", u"pOne|pTwo");
    EXPECT_EQ(desk.News(), "1:?");
    desk.Read(1, u"http://a/", u"pThree|pOne|pTwo");
    EXPECT_EQ(desk.News(), "1:new");
    EXPECT_EQ(desk.TabAt(1).NewsWords(), u"45 % new: Three");
    EXPECT_NE(desk.Describe(desk.TabAt(1)).find(u"\n45 % new: Three"), Text::npos);
    EXPECT_EQ(desk.visits.At(u"http://a/").Share, 45);
    desk.Read(1, u"http://a/", u"pThree|pOne|pTwo");
    EXPECT_EQ(desk.News(), "1:same");
    EXPECT_EQ(desk.visits.At(u"http://a/").Share, 0);
    EXPECT_EQ(desk.visits.At(u"http://a/").Visits, 3);
}

TEST(ReadPages, TheMarkGoesWithThePage) {
    ReadingDesk desk;
    desk.Read(1, u"http://a/", u"pOne");
    desk.Read(1, u"http://a/", u"pTwo");
    EXPECT_EQ(desk.News(), "1:new");
    desk.Load(1, u"http://b/", u"pOther");
    EXPECT_EQ(desk.News(), "1:?");
}

TEST(ReadPages, WhatNobodyHasLookedAtIsNewAgain) {
    ReadingDesk desk(2);
    desk.Read(1, u"http://a/", u"pOne");
    desk.Read(2, u"http://a/", u"pTwo|pOne");
    EXPECT_EQ(desk.News(), "1:? 2:new");
    // The second tab was never in front.
    desk.Read(2, u"http://a/", u"pTwo|pOne");
    EXPECT_EQ(desk.News(), "1:? 2:new");
    desk.ClickTab(2);
    desk.ClickTab(1);
    desk.Read(2, u"http://a/", u"pTwo|pOne");
    EXPECT_EQ(desk.News(), "1:? 2:same");
}

TEST(ReadPages, WhatComesWhileAPageIsReadIsNoNewsLater) {
    ReadingDesk desk(2);
    desk.Read(1, u"http://a/", u"pOne");
    desk.Say(1, u"pOne|pLater");
    desk.ClickTab(2);
    EXPECT_EQ(desk.visits.At(u"http://a/").Passages, "pOne\npLater\n");
    EXPECT_EQ(desk.visits.At(u"http://a/").Visits, 1);
    desk.ClickTab(1);
    desk.Read(1, u"http://a/", u"pOne|pLater");
    EXPECT_EQ(desk.News(), "1:same 2:?");
}

TEST(ReadPages, APageIsReadOnceMoreWhenItIsLeft) {
    ReadingDesk desk;
    desk.Read(1, u"http://a/", u"pOne");
    desk.Say(1, u"pOne|pEnd");
    desk.PageBegins(1, u"http://b/");
    EXPECT_EQ(desk.visits.At(u"http://a/").Passages, "pOne\npEnd\n");
}

TEST(ReadPages, APageThatIsReadForASearchWasNotVisitedByThat) {
    ReadingDesk desk(2);
    desk.Read(1, u"http://a/", u"pOne");
    desk.Read(2, u"http://b/", u"pTwo");
    desk.clock.now += 1000;
    desk.Say(2, u"pTwo|pLater");
    desk.main.Reads().ReadNow(2);
    EXPECT_EQ(desk.main.Reads().Find(2)->Passages.size(), 2U);
    EXPECT_EQ(desk.visits.At(u"http://b/").Passages, "pTwo\n");
    EXPECT_EQ(desk.visits.At(u"http://b/").Last, 1'795'000'000);
    desk.PageBegins(2, u"http://c/");
    EXPECT_EQ(desk.visits.At(u"http://b/").Passages, "pTwo\npLater\n");
}

TEST(ReadPages, TheIconOfAVisitIsMadeOnce) {
    ReadingDesk desk;
    auto& view = desk.views.At(1);
    desk.Read(1, u"http://a/", u"pOne");
    view.picture = "picture";
    desk.Read(1, u"http://b/", u"pOne");
    desk.PageBegins(1, u"http://c/");
    EXPECT_EQ(view.pictured, 3)
        << "the first page had none when it was read, and was asked for it again when it was left";
    EXPECT_EQ(desk.visits.kept.back().Icon, "");
    EXPECT_EQ(desk.visits.kept.at(desk.visits.kept.size() - 2).Icon, "picture");
}

TEST(ReadPages, WhatMayNotBeRememberedIsNot) {
    ReadingDesk desk;
    desk.Read(1, u"http://a/", u"pSecret|!");
    desk.Read(1, u"tessaview:start", u"pHome");
    desk.Read(1, u"about:blank", u"");
    desk.Read(1, u"file:///a.html", u"pFile");
    EXPECT_EQ(desk.visits.Addresses(), u"");
    desk.Click(u"xtrPrivateTab");
    desk.Read(2, u"http://a/", u"pPrivate");
    EXPECT_EQ(desk.visits.Addresses(), u"");
    desk.main.Reads().SetOptions({.SitesLeftOut = {u"bank"}});
    desk.ClickTab(1);
    desk.Read(1, u"http://bank/", u"pMoney");
    EXPECT_EQ(desk.visits.Addresses(), u"");
    desk.main.Reads().SetOptions({.Nothing = true});
    const int reads = desk.views.At(1).reads;
    desk.Read(1, u"http://a/", u"pOne");
    EXPECT_EQ(desk.visits.Addresses(), u"");
    EXPECT_EQ(desk.views.At(1).reads, reads);
    desk.main.Reads().SetOptions({.Texts = false});
    desk.Read(1, u"http://a/", u"pOne");
    EXPECT_EQ(desk.visits.At(u"http://a/").Passages, "");
    desk.Read(1, u"http://a/", u"pTwo");
    EXPECT_EQ(desk.News(), "1:? 2:?");
}

TEST(ReadPages, APageThatAsksForAPasswordLaterIsNotToldAnyMore) {
    ReadingDesk desk;
    desk.Read(1, u"http://a/", u"pOne");
    desk.Say(1, u"pAccount of Ann|!");
    desk.PageBegins(1, u"http://b/");
    EXPECT_EQ(desk.visits.At(u"http://a/").Passages, "pOne\n");
}

TEST(ReadPages, WhatIsOpenWhenTheHistoryIsClearedIsRememberedNoMore) {
    ReadingDesk desk(2);
    desk.Read(2, u"http://told/", u"pWords");
    desk.Load(1, u"http://coming/", u"pWords");
    desk.main.Reads().Forget();
    desk.visits.Remove({}, [](std::int64_t) {});
    desk.Rest();
    desk.ClickTab(1);
    desk.ClickTab(2);
    desk.Close(1);
    EXPECT_EQ(desk.visits.Addresses(), u"");
    desk.Read(2, u"http://told/", u"pWords");
    EXPECT_EQ(desk.visits.Addresses(), u"http://told/") << "this is another visit";
}

TEST(ReadPages, AnotherPlaceInAPageIsNoOtherPage) {
    ReadingDesk desk;
    desk.Read(1, u"http://a/", u"pOne");
    auto& view = desk.views.At(1);
    view.location = u"http://a/#part";
    view.events.NavigateComplete2(1, PageLevel::Top, view.location);
    desk.Rest();
    EXPECT_EQ(view.reads, 1);
    // Without a load it is another page all the same.
    view.location = u"http://a/other";
    desk.Say(1, u"pOther");
    view.events.NavigateComplete2(1, PageLevel::Top, view.location);
    desk.Rest();
    EXPECT_EQ(desk.visits.Addresses(), u"http://a/other http://a/");
}

TEST(ReadPages, AnAnswerToAnEarlierPageIsNotTakenForThisOne) {
    ReadingDesk desk;
    desk.views.At(1).readsSlowly = true;
    desk.Read(1, u"http://a/", u"pOne");
    desk.Load(1, u"http://b/", u"pTwo");
    for (const auto& reader : desk.views.At(1).readers) reader(u"uhttp://a/\npOne");
    EXPECT_EQ(desk.visits.Addresses(), u"");
}

TEST(ReadPages, TheStoreMayAnswerWhenTheTabHasGone) {
    ReadingDesk desk(2);
    desk.visits.slow = true;
    desk.Read(2, u"http://a/", u"pOne");
    desk.Close(2);
    desk.Rest();
    desk.visits.Answer();
    EXPECT_EQ(desk.visits.Addresses(), u"");
}

TEST(ReadPages, TheGroupOfAPageIsRemembered) {
    TemporaryFolder folder;
    folder.Write("News.tvg", "[TessaGroup]\r\nurl1=a\r\nurl2=http://b/x#y\r\n");
    ReadingDesk desk;
    desk.OpenGroup(folder.PathText("News.tvg"));
    desk.Read(2, u"http://a/", u"pOne");
    desk.Read(2, u"http://c/", u"pOne");
    // Led elsewhere on its way.
    desk.PageBegins(3, u"https://b/x");
    desk.Read(3, u"https://www.b/", u"pOne");
    EXPECT_EQ(desk.visits.At(u"https://www.b/").Group, u"News");
    EXPECT_EQ(desk.visits.At(u"http://a/").Group, u"News");
    EXPECT_EQ(desk.visits.At(u"http://c/").Group, u"");
}

TEST(ReadPages, TheStoreIsLimitedWithTheFirstPageAndWhenThatChanges) {
    ReadingDesk desk;
    EXPECT_EQ(desk.visits.limits, "");
    desk.Read(1, u"http://a/", u"pOne");
    desk.Read(1, u"http://b/", u"pOne");
    EXPECT_EQ(desk.visits.limits, "90/500 ");
    desk.main.Reads().SetOptions({.Days = 7, .Megabytes = 500});
    EXPECT_EQ(desk.visits.limits, "90/500 7/500 ");
}

} // namespace

} // namespace tessa
