#include "app/ScriptedWindow.h"

#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"
#include "tests/history/ReadingDesk.h"

namespace tessa {

namespace {

/// A script at the program.
class ScriptedWindowTest : public testing::Test {
protected:
    /// Number, state and address of each tab, with "/" between; tabs with blanks between.
    [[nodiscard]] std::string List() const { return Short(script.List()); }
    [[nodiscard]] static std::string Short(const std::vector<ScriptTab>& tabs) {
        std::string all;
        for (const ScriptTab& tab : tabs)
            all += (all.empty() ? "" : " ") + std::to_string(tab.number) + "/" + tab.state + "/" + tab.address;
        return all;
    }
    [[nodiscard]] static std::string Short(const ScriptedWindow::Opened& opened) {
        std::string all;
        for (const std::uint32_t number : opened.numbers) all += std::to_string(number) + " ";
        return all + ToUtf8(opened.refusal);
    }
    Text Group(const std::string& name, const std::vector<std::string>& addresses) {
        std::string bytes = "[TessaGroup]\r\n";
        for (const std::string& each : addresses) bytes += each + "=" + each + "\r\n";
        groups.Write(name, bytes);
        return groups.PathText(name);
    }

    TemporaryFolder groups;
    Desk desk{{.groupFolder = groups.PathText("")}};
    ScriptedWindow script{desk.main, desk.window};
};

TEST_F(ScriptedWindowTest, TabsAreListedByTheNumbersOfTheirViews) {
    desk.StartWithTabs(2);
    desk.views.At(1).location = u"http://one/";
    desk.views.At(2).location = u"http://two/";
    EXPECT_EQ(List(), "1/front/http://one/ 2//http://two/");
    desk.Close(1);
    EXPECT_EQ(List(), "2/front/http://two/") << "a number stays with its tab";
}

TEST_F(ScriptedWindowTest, TheStateIsSaidInWords) {
    desk.StartWithTabs(2);
    FakeView& view = desk.views.At(2);
    view.location = u"http://two/";
    view.busy = view.asleep = view.ended = view.audible = view.muted = true;
    desk.main.pcPage.SetAsks(&desk.TabAt(2), true);
    EXPECT_EQ(script.List().at(1).state, "loading asleep ended asks playing muted");
    view.busy = view.asleep = view.ended = view.audible = view.muted = false;
    view.progress = PageProgress::PutOff;
    EXPECT_EQ(script.List().at(1).state, "waiting asks");
}

TEST_F(ScriptedWindowTest, PrivateTabsKeepTheirNames) {
    desk.StartWithTabs(1);
    desk.NewTab(InFront::No, Privacy::Private);
    desk.views.At(2).location = u"http://secret/";
    desk.views.At(2).name = u"Secret";
    EXPECT_EQ(script.List().at(1), (ScriptTab{.number = 2, .title{}, .address{}, .group{}, .state = "private"}));
    EXPECT_EQ(Short(script.Search(u"secret")), "");
    EXPECT_EQ(script.MayRead(2), u"The tab is private.");
    EXPECT_EQ(script.MayRead(1), u"");
    EXPECT_EQ(script.MayRead(3), u"There is no tab 3.");
}

TEST_F(ScriptedWindowTest, ATabThatHasLostItsViewIsListedAllTheSame) {
    desk.StartWithTabs(2);
    desk.TakeViewAway(2);
    EXPECT_EQ(script.List().size(), 2U);
    EXPECT_EQ(script.MayRead(4000000000), u"There is no tab 4000000000.");
}

TEST_F(ScriptedWindowTest, WhatWasReadIsFoundBehindTheTabsThatShowIt) {
    desk.StartWithTabs(3);
    desk.views.At(1).location = u"http://one/";
    desk.views.At(2).location = u"http://two/";
    desk.views.At(3).location = u"http://three/";
    const std::vector<HistoryEntry> entries{{.Address = u"http://old/", .Site{}, .Title = u"Old", .Group = u"News"},
                                            {.Address = u"http://two/", .Site{}, .Title{}, .Group{}},
                                            {.Address = u"http://old/", .Site{}, .Title = u"Old", .Group{}},
                                            {.Address = u"http://one/", .Site{}, .Title{}, .Group{}}};
    const auto found = script.WithRead(script.Search(u"one"), entries);
    EXPECT_EQ(Short(found), "1/front/http://one/ 2//http://two/ 0/history/http://old/");
    EXPECT_EQ(found.back().title + found.back().group, "Old");
    EXPECT_EQ(Short(script.WithRead({}, {})), "");
}

TEST_F(ScriptedWindowTest, SearchFindsAllTheWordsWhateverTheirCase) {
    desk.StartWithTabs(2);
    desk.views.At(1).location = u"http://one.example/News";
    desk.views.At(1).name = u"Weather today";
    EXPECT_EQ(Short(script.Search(u"weather NEWS")), "1/front/http://one.example/News");
    EXPECT_EQ(Short(script.Search(u"weather sports")), "");
}

/// A script that searches in what somebody reads.
class ScriptedSearchTest : public testing::Test {
protected:
    [[nodiscard]] std::string Found(TextView words) const {
        std::string all;
        for (const ScriptTab& tab : script.Search(words)) all += std::to_string(tab.number) + " ";
        return all;
    }
    /// Those that are being read.
    std::string Reading() {
        std::string all;
        for (const std::int32_t each : script.ReadUnread()) all += std::to_string(each) + " ";
        return all;
    }

    ReadingDesk desk{4};
    ScriptedWindow script{desk.main, desk.window};
};

TEST_F(ScriptedSearchTest, PagesThatSayTheWordsComeBehindThoseThatAreCalledSo) {
    desk.Read(1, u"http://a/", u"hFruit|pApples are red");
    desk.Read(2, u"http://apples/", u"pNothing");
    desk.Read(3, u"http://c/", u"pRed|pPineapples and apple trees");
    EXPECT_EQ(Found(u"apples"), "2 1 ");
    EXPECT_EQ(Found(u"RED apple"), "1 3 ");
    EXPECT_EQ(Found(u"title red"), "1 3 ");
    EXPECT_EQ(Found(u"\"apples are\""), "1 ");
    EXPECT_EQ(Found(u"green"), "");
}

TEST_F(ScriptedSearchTest, WhatWasNotReadYetIsReadAndNothingElse) {
    desk.Read(1, u"http://a/", u"pOld words");
    desk.Load(2, u"http://b/", u"pFresh words");
    desk.Load(3, u"http://c/", u"pAsleep");
    desk.views.At(3).asleep = true;
    desk.views.At(1).reads = desk.views.At(1).glances = 0;
    desk.views.At(2).readsSlowly = true;
    std::string heard;
    const Connection hears =
        script.PageRead().Connect([&heard](std::int32_t index) { heard += std::to_string(index) + " "; });
    EXPECT_EQ(Reading(), "2 ");
    EXPECT_EQ(Found(u"fresh"), "");
    desk.views.At(2).readers.front()(u"uhttp://b/\npFresh words");
    EXPECT_EQ(heard, "2 ");
    EXPECT_EQ(Found(u"fresh"), "2 ");
    EXPECT_EQ(Reading(), "");
    EXPECT_EQ(desk.views.At(1).reads + desk.views.At(1).glances, 0);
    EXPECT_EQ(desk.views.At(3).reads + desk.views.At(3).glances, 0);
}

TEST_F(ScriptedSearchTest, APrivatePageIsNeitherReadNorFound) {
    desk.NewTab(InFront::No, Privacy::Private);
    desk.Load(5, u"http://secret/", u"pHidden words");
    EXPECT_EQ(Reading(), "");
    EXPECT_EQ(desk.views.At(5).reads + desk.views.At(5).glances, 0);
    // Nor is what somebody has searched for in it.
    desk.Rest();
    EXPECT_TRUE(desk.main.Reads().HasText(5));
    EXPECT_EQ(Found(u"hidden"), "");
}

TEST_F(ScriptedWindowTest, AddressesOpenInFrontOrBehindInTheirOrder) {
    desk.StartWithTabs(1);
    EXPECT_EQ(Short(script.Open({u"http://a/", u"http://b/"}, false)), "2 3 ");
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
    EXPECT_EQ(Short(script.Open({u"http://c/", u"http://d/"}, true)), "5 4 ");
    EXPECT_EQ(desk.Strip(), "1 2 [3*] 5 4");
    EXPECT_EQ(desk.views.Calls(5), "go about:blank, go http://c/");
}

TEST_F(ScriptedWindowTest, WhatIsNoPageIsRefusedAndTheRestOpens) {
    desk.StartWithTabs(1);
    EXPECT_EQ(Short(script.Open({u"javascript:alert(1)", u"http://b/", u""}, false)),
              "2 This is no page, and was not opened: ");
    EXPECT_EQ(desk.Strip(), "1 [2*]");
}

TEST_F(ScriptedWindowTest, AGroupOpensByPathAndByName) {
    const Text file = Group("News.tvg", {"http://a/", "http://b/"});
    desk.StartWithTabs(1);
    EXPECT_EQ(Short(script.OpenGroup(file, false)), "2 3 ");
    EXPECT_EQ(Short(script.OpenGroup(u"News", true)), "1 4 ");
    EXPECT_EQ(desk.Strip(), "1 [4*]");
    EXPECT_FALSE(desk.main.TGCloseOthersFirst) << "the user's setting stays";
    EXPECT_EQ(script.List().at(1).group, ToUtf8(file));
    EXPECT_EQ(Short(script.OpenGroup(u"Olds", false)), "There is no TessaGroup of that name: Olds");
    EXPECT_EQ(Short(script.OpenGroup(u"/none.tvg", false)), "The TessaGroup could not be read: /none.tvg");
    EXPECT_EQ(Short(script.OpenGroup(u"../News", false)), "There is no TessaGroup of that name: ../News");
}

TEST_F(ScriptedWindowTest, TheTabsAreSavedWithoutAQuestion) {
    desk.StartWithTabs(2);
    desk.views.At(1).location = u"http://one/";
    desk.views.At(2).location = u"http://two/";
    desk.NewTab(InFront::No, Privacy::Private);
    desk.views.At(3).location = u"http://secret/";
    const Text file = groups.PathText("saved.tvg");
    EXPECT_EQ(script.SaveGroup(file, false), u"");
    EXPECT_EQ(groups.Read("saved.tvg"), "[TessaGroup]\r\nurl1=http://one/\r\nurl2=http://two/\r\n");
    EXPECT_EQ(script.SaveGroup(file, false), u"There is such a file already: " + file);
    EXPECT_EQ(script.SaveGroup(file, true), u"");
    EXPECT_EQ(script.SaveGroup(u"/nowhere/at/all.tvg", true), u"The file could not be written: /nowhere/at/all.tvg");
    EXPECT_EQ(script.SaveGroup(u"saved.tvg", true), u"The path of a TessaGroup ends in .tvg: saved.tvg");
    EXPECT_EQ(script.SaveGroup(u"/saved.txt", true), u"The path of a TessaGroup ends in .tvg: /saved.txt");
    EXPECT_TRUE(desk.messages.asked.empty());
}

TEST_F(ScriptedWindowTest, TabsComeToTheFrontCloseAndLoadAgain) {
    desk.StartWithTabs(3);
    EXPECT_EQ(script.Activate(3), u"");
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
    for (int view = 1; view <= 3; ++view) (void)desk.views.Calls(view);
    EXPECT_EQ(script.Reload({2}), u"");
    EXPECT_EQ(desk.views.Calls(2), "refresh");
    EXPECT_EQ(script.Reload({}), u"");
    EXPECT_EQ(desk.views.Calls(1) + desk.views.Calls(2) + desk.views.Calls(3), "refreshrefreshrefresh");
    EXPECT_EQ(script.Close({2, 3}), u"");
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(script.Close({1}), u"The last tab stays; quit ends the program.");
    for (const Text& refusal : {script.Activate(9), script.Close({1, 9}), script.Reload({9})})
        EXPECT_EQ(refusal, u"There is no tab 9.");
}

TEST_F(ScriptedWindowTest, AToolIsClickedByItsName) {
    desk.StartWithTabs(1);
    (void)desk.views.Calls(1);
    EXPECT_EQ(script.MayRun(u"mnuNothing"), u"There is no such command: mnuNothing");
    EXPECT_EQ(script.MayRun(u"mnuGoBack"), u"The command is disabled at the moment: mnuGoBack");
    EXPECT_EQ(script.MayRun(u"mnuHome"), u"");
    script.RunCommand(u"mnuHome");
    EXPECT_EQ(desk.views.Calls(1), "home");
}

TEST_F(ScriptedWindowTest, WhatLoadsIsKnownOfSomeTabsAndOfAll) {
    desk.StartWithTabs(2);
    EXPECT_FALSE(script.AnyLoading({}));
    desk.views.At(2).progress = PageProgress::Loading;
    EXPECT_TRUE(script.AnyLoading({}));
    EXPECT_TRUE(script.AnyLoading({1, 2}));
    EXPECT_FALSE(script.AnyLoading({1}));
    EXPECT_FALSE(script.AnyLoading({7})) << "it has gone";
    desk.views.At(2).progress = PageProgress::PutOff;
    EXPECT_FALSE(script.AnyLoading({})) << "nobody looks";
}

TEST_F(ScriptedWindowTest, QuitClosesTheWindow) {
    desk.StartWithTabs(1);
    (void)desk.log.Take();
    script.Quit();
    EXPECT_EQ(desk.log.Take(), "close");
}

} // namespace

} // namespace tessa
