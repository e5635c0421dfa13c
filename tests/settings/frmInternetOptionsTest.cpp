// Tests: BrowsingData, InternetSettings
#include "settings/frmInternetOptions.h"
#include "tests/fakes/FakeSettings.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

class InternetOptions : public testing::Test {
protected:
    std::unique_ptr<frmInternetOptions> Open() {
        return std::make_unique<frmInternetOptions>(
            settings, frmInternetOptions::Outside{
                          .chooseFolder = [this](TextView) { return chosen; },
                          .siteChoices = {.All = [this] { return Sites(); }, .RevokeAll = [this] { decided.clear(); }},
                          .clear =
                              [this](const BrowsingData& data, const Forgotten& done) {
                                  cleared.push_back(data);
                                  forgotten = done;
                                  if (!data.siteData) done(Cleared::Yes);
                              },
                          .currentPage = u"http://here.example/",
                          .mailProgram = u"letters",
                          .newsProgram = u"papers"});
    }
    std::vector<SiteChoice> Sites() {
        std::vector<SiteChoice> all;
        for (const Text& each : decided) all.push_back({each, [this, each] { std::erase(decided, each); }});
        return all;
    }
    FakeSettings settings;
    Text chosen;
    std::vector<Text> decided;
    std::vector<BrowsingData> cleared;
    Forgotten forgotten;
};

TEST_F(InternetOptions, ShowsWhatIsSoByDesignAtFirst) {
    const auto form = Open();
    EXPECT_EQ(form->txtHomePage.Value(), u"");
    EXPECT_TRUE(form->chkJavaScript.Ticked());
    EXPECT_EQ(form->cboCookies.Items.at(form->cboCookies.Index()), u"From the site of the page only");
    EXPECT_FALSE(form->chkDoNotTrack.Ticked() || form->chkGlobalPrivacyControl.Ticked());
    EXPECT_EQ(form->cboProxy.Items.at(form->cboProxy.Index()), u"As the desktop has it");
    EXPECT_EQ(form->cboDrawing.Items.at(form->cboDrawing.Index()), u"As this computer does it best");
    EXPECT_EQ(form->txtMail.Value() + u" " + form->txtNews.Value(), u"letters papers");
    EXPECT_FALSE(form->Apply);
    EXPECT_EQ(settings.open, 0);
    EXPECT_EQ(settings.written.size(), 0u);
}

TEST_F(InternetOptions, OkKeepsEveryOption) {
    auto form = Open();
    form->txtHomePage.Value = Text(u" home.example ");
    form->txtSearch.Value = Text(u"https://s.example/?q=%s");
    form->txtShop.Value = Text(u"https://shop.example/%s");
    form->txtFind.Value = Text(u"https://find.example/%s");
    form->txtMail.Value = Text(u"mail --new");
    form->txtNews.Value = Text(u"news");
    form->txtDownloads.Value = Text(u"/tmp/downloads");
    form->txtArchive.Value = Text(u" https://old.example/%s ");
    form->chkJavaScript.Tick(false);
    form->cboCookies.Index = 2;
    form->chkDoNotTrack.Tick(true);
    form->chkGlobalPrivacyControl.Tick(true);
    form->cboProxy.Index = 3;
    form->cboDrawing.Index = 2;
    form->txtProxyHost.Value = Text(u"proxy.example");
    form->txtProxyPort.Value = Text(u"1080");
    form->cmdOK.Click();
    EXPECT_TRUE(form->Apply);

    const InternetValues kept = InternetSettings(settings).Get();
    EXPECT_EQ(kept, (InternetValues{.homePage = u"home.example",
                                    .javaScript = false,
                                    .cookies = CookieRule::None,
                                    .doNotTrack = true,
                                    .globalPrivacyControl = true,
                                    .proxy = ProxyKind::Socks,
                                    .proxyHost = u"proxy.example",
                                    .proxyPort = 1080,
                                    .downloadFolder = u"/tmp/downloads",
                                    .drawing = DrawingWish::Software,
                                    .archive = u"https://old.example/%s"}));
    const SettingsStore store(settings);
    EXPECT_EQ(store.SearchService.Get() + store.ShopService.Get() + store.FindService.Get(),
              u"https://s.example/?q=%shttps://shop.example/%shttps://find.example/%s");
    EXPECT_EQ(store.MailClient.Get() + u" " + store.NewsClient.Get(), u"mail --new news");
    form = Open();
    EXPECT_EQ(form->txtProxyPort.Value(), u"1080");
    EXPECT_EQ(form->cboCookies.Index(), 2u);
    EXPECT_EQ(form->cboDrawing.Index(), 2u);
    EXPECT_EQ(form->txtMail.Value(), u"mail --new");
    EXPECT_EQ(form->txtArchive.Value(), u"https://old.example/%s");
}

TEST_F(InternetOptions, AStartOpensTheHomePageTheLastPagesOrAGroup) {
    const auto open = [this] {
        return std::make_unique<frmInternetOptions>(settings,
                                                    frmInternetOptions::Outside{.groups = {u"News", u"Tea\u202e"}});
    };
    auto form = open();
    EXPECT_EQ(form->cboStart.Items, (std::vector<Text>{u"Home page", u"The pages that were open last",
                                                       u"TessaGroup News", u"TessaGroup Tea\ufffd"}));
    const auto choose = [&](std::size_t index) {
        form->cboStart.Index = index;
        form->cmdOK.Click();
        form = open();
        EXPECT_EQ(form->cboStart.Index(), index);
    };
    choose(1);
    EXPECT_TRUE(SettingsStore(settings).RememberLastSites.Get());
    choose(3);
    EXPECT_FALSE(SettingsStore(settings).RememberLastSites.Get());
    EXPECT_EQ(InternetSettings(settings).StartGroup.Get(), u"Tea\u202e");
    choose(0);
    EXPECT_EQ(InternetSettings(settings).StartGroup.Get(), u"");
}

TEST_F(InternetOptions, AGroupThatHasGoneStaysChosen) {
    ResumeNext(InternetSettings(settings).StartGroup.Set(u"Gone"));
    const auto form = Open();
    EXPECT_EQ(form->cboStart.Items.at(form->cboStart.Index()), u"TessaGroup Gone");
    form->cmdOK.Click();
    EXPECT_EQ(InternetSettings(settings).StartGroup.Get(), u"Gone");
}

TEST_F(InternetOptions, WhatOtherSettingsSayOfTheLastPagesStaysUnlessItIsTouched) {
    ResumeNext(SettingsStore(settings).RememberLastSites.Set(true));
    ResumeNext(InternetSettings(settings).StartGroup.Set(u"News"));
    Open()->cmdOK.Click();
    EXPECT_TRUE(SettingsStore(settings).RememberLastSites.Get());
}

TEST_F(InternetOptions, TabsSleepOnlyWhenAskedFor) {
    auto form = Open();
    EXPECT_FALSE(form->chkSleep.Ticked());
    EXPECT_FALSE(form->txtSleepMinutes.Enabled());
    EXPECT_EQ(form->txtSleepMinutes.Value(), u"30");
    form->chkSleep.Tick(true);
    EXPECT_TRUE(form->txtSleepMinutes.Enabled());
    form->txtSleepMinutes.Value = Text(u" 5 ");
    form->cmdOK.Click();
    const InternetValues kept = InternetSettings(settings).Get();
    EXPECT_TRUE(kept.tabsSleep);
    EXPECT_EQ(kept.sleepMinutes, 5);
    form = Open();
    EXPECT_TRUE(form->chkSleep.Ticked());
    EXPECT_EQ(form->txtSleepMinutes.Value(), u"5");
}

TEST_F(InternetOptions, TabsSleepAfterATimeOnly) {
    for (const char16_t* minutes : {u"", u"0", u"-3", u"1441", u"soon", u"2.5"}) {
        const auto form = Open();
        int led = 0;
        form->txtSleepMinutes.SetFocus.ConnectForLife([&] { ++led; });
        form->chkSleep.Tick(true);
        form->txtSleepMinutes.Value = Text(minutes);
        form->cmdOK.Click();
        EXPECT_FALSE(form->Apply) << ToUtf8(minutes);
        EXPECT_EQ(led, 1);
        EXPECT_EQ(form->lblSleepBad.Caption(), u"Tabs sleep after 1 to 1440 minutes.");
        // What is not asked for is in nobody's way.
        form->chkSleep.Tick(false);
        EXPECT_EQ(form->lblSleepBad.Caption(), u"");
        form->cmdOK.Click();
        EXPECT_TRUE(form->Apply);
        EXPECT_EQ(InternetSettings(settings).Get().sleepMinutes, 30);
    }
}

TEST_F(InternetOptions, ATimeToSleepAfterThatIsNoneCountsAsNeverSet) {
    for (const std::int32_t minutes : {0, -1, 1441, 99999}) {
        ResumeNext(InternetSettings(settings).SleepMinutes.Set(minutes));
        EXPECT_EQ(InternetSettings(settings).Get().sleepMinutes, 30) << minutes;
    }
}

TEST_F(InternetOptions, CancelKeepsNothing) {
    const auto form = Open();
    form->chkJavaScript.Tick(false);
    form->cmdCancel.Click();
    EXPECT_FALSE(form->Apply);
    EXPECT_EQ(settings.written.size(), 0u);
}

TEST_F(InternetOptions, AProgramThatWasNotTouchedGoesOnFollowingTheDesktop) {
    Open()->cmdOK.Click();
    EXPECT_EQ(settings.Stored(u"MailClient"), u"(none)");
    const auto form = Open();
    form->txtMail.Value = Text();
    form->cmdOK.Click();
    EXPECT_EQ(settings.Stored(u"MailClient"), u"") << "none at all";
    EXPECT_EQ(settings.Stored(u"NewsClient"), u"(none)");
}

TEST_F(InternetOptions, AValueThatCannotBeWrittenLeavesTheOthersAlone) {
    settings.refuse = {u"InternetJavaScript"};
    const auto skipped = SkippedSteps();
    const auto form = Open();
    form->chkJavaScript.Tick(false);
    form->chkDoNotTrack.Tick(true);
    form->cmdOK.Click();
    EXPECT_EQ(settings.Stored(u"InternetDoNotTrack"), u"true");
    EXPECT_EQ(settings.Stored(u"InternetJavaScript"), u"(none)");
    EXPECT_EQ(SkippedSteps(), skipped + 1);
}

TEST_F(InternetOptions, StoredValuesThatMakeNoSenseCountAsNeverWritten) {
    settings.Put(u"InternetCookies", u"some");
    settings.Put(u"InternetProxy", u"carrier pigeon");
    settings.Put(u"InternetProxyPort", u"70000");
    settings.Put(u"InternetJavaScript", u"perhaps");
    EXPECT_EQ(InternetSettings(settings).Get(), InternetValues{});
}

TEST_F(InternetOptions, AProxyWithoutHostOrPortIsNotTaken) {
    const auto form = Open();
    EXPECT_FALSE(form->txtProxyHost.Enabled() || form->txtProxyPort.Enabled());
    form->cboProxy.Index = 2;
    EXPECT_TRUE(form->txtProxyHost.Enabled() && form->txtProxyPort.Enabled());
    Text focus;
    form->txtProxyHost.SetFocus.ConnectForLife([&] { focus = u"host"; });
    form->txtProxyPort.SetFocus.ConnectForLife([&] { focus = u"port"; });
    form->cmdOK.Click();
    EXPECT_FALSE(form->Apply);
    EXPECT_EQ(focus, u"host");
    EXPECT_NE(form->lblProxyBad.Caption(), u"");
    form->txtProxyHost.Value = Text(u"proxy.example");
    for (const TextView bad : {u"", u"0", u"65536", u"-1", u"http", u"80 80", u"99999999999"}) {
        form->txtProxyPort.Value = Text(bad);
        form->cmdOK.Click();
        EXPECT_FALSE(form->Apply) << ToUtf8(bad);
    }
    EXPECT_EQ(focus, u"port");
    EXPECT_EQ(settings.written.size(), 0u);
    form->txtProxyPort.Value = Text(u" 8080 ");
    form->cmdOK.Click();
    EXPECT_TRUE(form->Apply);
}

TEST_F(InternetOptions, ABadPortDoesNotMatterWithoutAProxyOfOnesOwn) {
    const auto form = Open();
    form->txtProxyPort.Value = Text(u"x");
    form->cboProxy.Index = 1;
    form->cmdOK.Click();
    EXPECT_TRUE(form->Apply);
}

TEST_F(InternetOptions, TheHomePageCanBeThePageInFrontOrTheProgramsOwn) {
    const auto form = Open();
    form->cmdUseCurrent.Click();
    EXPECT_EQ(form->txtHomePage.Value(), u"http://here.example/");
    form->cmdUseDefault.Click();
    EXPECT_EQ(form->txtHomePage.Value(), u"");
}

TEST_F(InternetOptions, BrowsingForAFolderKeepsTheOldOneWhenNoneIsChosen) {
    const auto form = Open();
    chosen = u"/new";
    form->cmdBrowse.Click();
    chosen = u"";
    form->cmdBrowse.Click();
    EXPECT_EQ(form->txtDownloads.Value(), u"/new");
}

TEST_F(InternetOptions, ClearNowForgetsWhatIsTickedAtOnce) {
    const auto form = Open();
    EXPECT_FALSE(form->cmdClear.Enabled());
    EXPECT_FALSE(form->cboSince.Enabled());
    form->cmdClear.Click();
    EXPECT_TRUE(cleared.empty());
    form->chkClearCookies.Tick(true);
    form->chkClearCache.Tick(true);
    EXPECT_TRUE(form->cboSince.Enabled());
    form->cmdClear.Click();
    ASSERT_EQ(cleared.size(), 1u);
    EXPECT_EQ(cleared[0], (BrowsingData{.cookies = true, .cache = true, .seconds = 3600}));
    EXPECT_EQ(form->lblCleared.Caption(), u"Cleared.");
    EXPECT_FALSE(form->cmdClear.Enabled()) << "not twice by mistake";
    form->chkClearCookies.Tick(true);
    form->cboSince.Index = 3;
    EXPECT_EQ(form->lblCleared.Caption(), u"");
    form->cmdClear.Click();
    EXPECT_EQ(cleared[1], (BrowsingData{.cookies = true, .seconds = 0}));
    EXPECT_EQ(settings.written.size(), 0u);
}

TEST_F(InternetOptions, WhatSitesHaveStoredTakesItsTimeAndSoDoesTheAnswer) {
    auto form = Open();
    form->chkClearSiteData.Tick(true);
    EXPECT_FALSE(form->cboSince.Enabled()) << "it goes whole";
    form->cmdClear.Click();
    EXPECT_EQ(form->lblCleared.Caption(), u"Clearing...");
    forgotten(Cleared::Yes);
    EXPECT_EQ(form->lblCleared.Caption(), u"Cleared.");
    form->chkClearSiteData.Tick(true);
    form->cmdClear.Click();
    forgotten(Cleared::AtNextStart);
    EXPECT_EQ(form->lblCleared.Caption(),
              u"Cleared. What sites have stored is cleared when TessaView is started the next time.");
    form->chkClearSiteData.Tick(true);
    form->cmdClear.Click();
    forgotten(Cleared::NotAll);
    EXPECT_EQ(form->lblCleared.Caption(), u"Not everything could be cleared.");
    form.reset();
    forgotten(Cleared::Yes); // the answer comes when nobody waits for it any more
}

TEST_F(InternetOptions, VisitedLinksGoAsFarBackAsTheUserSays) {
    const auto form = Open();
    form->chkClearVisited.Tick(true);
    EXPECT_TRUE(form->cboSince.Enabled());
    form->cmdClear.Click();
    EXPECT_EQ(cleared.at(0), (BrowsingData{.visitedLinks = true, .seconds = 3600}));
}

TEST_F(InternetOptions, WhatWasDecidedForSitesIsRevokedAtOnceSinglyOrAll) {
    decided = {u"a", u"b", u"c", u"d"};
    const auto form = Open();
    EXPECT_EQ(form->lstSites.Rows(), decided);
    EXPECT_EQ(form->lstSites.ListIndex(), 0);
    form->lstSites.ListIndex = 1;
    form->cmdRevoke.Click();
    EXPECT_EQ(decided, (std::vector<Text>{u"a", u"c", u"d"}));
    EXPECT_EQ(form->lstSites.Rows(), decided);
    EXPECT_EQ(*form->lstSites.FindSelected(), u"c") << "the next one can be revoked with the next key";
    form->lstSites.ListIndex = 2;
    form->cmdRevoke.Click();
    EXPECT_EQ(*form->lstSites.FindSelected(), u"c") << "the last one when there is no next";
    form->cmdRevokeAll.Click();
    EXPECT_TRUE(decided.empty());
    EXPECT_EQ(form->lstSites.ListCount(), 0U);
    EXPECT_FALSE(form->cmdRevoke.Enabled() || form->cmdRevokeAll.Enabled());
    form->cmdCancel.Click();
    EXPECT_TRUE(decided.empty()) << "what is revoked stays so";
}

TEST_F(InternetOptions, NothingDecidedLeavesNothingToRevoke) {
    const auto form = Open();
    EXPECT_FALSE(form->cmdRevoke.Enabled() || form->cmdRevokeAll.Enabled());
    form->cmdRevoke.Click();
    form->cmdRevokeAll.Click();
    decided = {u"a"};
    const auto later = Open();
    later->lstSites.ListIndex = -1;
    EXPECT_FALSE(later->cmdRevoke.Enabled());
    EXPECT_TRUE(later->cmdRevokeAll.Enabled());
}

} // namespace

} // namespace tessa
