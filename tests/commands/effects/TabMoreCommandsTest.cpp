#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

/// The pop-up has been opened on one of several tabs.
class TabMoreCommandsTest : public testing::Test {
protected:
    void Start(int tabs, int popup) {
        desk.StartWithTabs(tabs);
        for (int i = 1; i <= tabs; ++i) desk.views.At(i).location = u"http://" + Decimal(i) + u"/";
        desk.OpenTabMenu(static_cast<std::size_t>(popup));
    }
    [[nodiscard]] const Tool& Find(TextView name) { return desk.Tool(name); }

    Desk desk;
};

TEST_F(TabMoreCommandsTest, ClosesAllOthersAndSelectsTheOneThatStays) {
    Start(4, 3);
    desk.Click(u"xtrTabCloseOthers");
    EXPECT_EQ(desk.Strip(), "[3*]");
    EXPECT_TRUE(desk.messages.asked.empty());
}

TEST_F(TabMoreCommandsTest, ClosesTheTabsToTheRight) {
    Start(4, 2);
    desk.Click(u"xtrTabCloseRight");
    EXPECT_EQ(desk.Strip(), "[1*] 2");
    desk.Click(u"xtrTabCloseRight");
    EXPECT_EQ(desk.Strip(), "[1*] 2");
}

TEST_F(TabMoreCommandsTest, CloseToolsAreEnabledWhereThereIsSomethingToClose) {
    Start(2, 2);
    EXPECT_TRUE(Find(u"xtrTabCloseOthers").Enabled());
    EXPECT_FALSE(Find(u"xtrTabCloseRight").Enabled());
    desk.Close(1);
    desk.OpenTabMenu(1);
    EXPECT_FALSE(Find(u"xtrTabCloseOthers").Enabled());
}

TEST_F(TabMoreCommandsTest, DuplicatesThePageBesideItsTabWithItsHistory) {
    Start(3, 2);
    desk.views.At(2).history = "been";
    desk.Click(u"xtrTabDuplicate");
    EXPECT_EQ(desk.Strip(), "1 2 [4*] 3");
    EXPECT_EQ(desk.views.Calls(4), "go about:blank, restore been");
    EXPECT_EQ(desk.views.At(4).location, u"http://2/");
}

TEST_F(TabMoreCommandsTest, MutesAndShowsIt) {
    Start(2, 2);
    EXPECT_FALSE(Find(u"xtrTabMute").Checked());
    desk.Click(u"xtrTabMute");
    EXPECT_TRUE(desk.views.At(2).muted);
    EXPECT_EQ(desk.TabAt(2).Sound(), TabSound::Muted);
    desk.OpenTabMenu(2);
    EXPECT_TRUE(Find(u"xtrTabMute").Checked());
    desk.Click(u"xtrTabMute");
    EXPECT_FALSE(desk.views.At(2).muted);
    EXPECT_EQ(desk.TabAt(2).Sound(), TabSound::None);
}

TEST_F(TabMoreCommandsTest, ATabThatIsHeardShowsIt) {
    Start(2, 2);
    desk.views.At(2).audible = true;
    desk.views.At(2).events.SoundChange(2);
    EXPECT_EQ(desk.TabAt(2).Sound(), TabSound::Playing);
    desk.views.At(2).audible = false;
    desk.views.At(2).events.SoundChange(2);
    EXPECT_EQ(desk.TabAt(2).Sound(), TabSound::None);
    desk.views.At(2).events.SoundChange(9);
}

TEST_F(TabMoreCommandsTest, CopiesTheAddress) {
    Start(2, 2);
    desk.Tool(u"xtrTabCopyAddress").Enabled = true;
    desk.Click(u"xtrTabCopyAddress");
    EXPECT_EQ(desk.input.copied, u"http://2/");
}

TEST_F(TabMoreCommandsTest, AddsTheTabsPageToAGroup) {
    Start(2, 2);
    const TemporaryFolder folder;
    desk.Tool(u"xtrTabAddToTessaGroup").Enabled = true;
    desk.OpenMenu(u"bndTessaGroupsMenu");
    desk.Click(u"xtrTabAddToTessaGroup");
    EXPECT_EQ(desk.Said(), "") << "the dialog was cancelled";
    EXPECT_FALSE(desk.Renews(u"bndTessaGroupsMenu"));
    desk.files.chosen = folder.PathText("a.tvg");
    desk.Click(u"xtrTabAddToTessaGroup");
    EXPECT_EQ(folder.Read("a.tvg"), "[TessaGroup]\r\nurl1=http://2/\r\n");
    EXPECT_TRUE(desk.Renews(u"bndTessaGroupsMenu"));
}

TEST_F(TabMoreCommandsTest, NothingHappensWhenTheTabIsGone) {
    Start(3, 3);
    desk.Close(3);
    for (const TextView name : {u"xtrTabCloseOthers", u"xtrTabCloseRight", u"xtrTabDuplicate", u"xtrTabMute"})
        desk.Click(name);
    EXPECT_EQ(desk.Strip(), "[1*] 2");
}

TEST_F(TabMoreCommandsTest, ATabIsDescribedByItsWholeTitleAndAddress) {
    Start(2, 2);
    desk.Set(u"TitleLengthLimit", u"3");
    desk.PageLoads(2, u"http://two/", u"A title");
    EXPECT_EQ(desk.Describe(desk.TabAt(2)), u"A title\nhttp://two/");
    desk.views.At(2).name = Text(5000, u'x');
    EXPECT_EQ(desk.Describe(desk.TabAt(2)), Text(300, u'x') + u"\nhttp://two/");
    desk.views.At(2).name = u"";
    desk.PageBegins(2, u"http://next/");
    EXPECT_EQ(desk.Describe(desk.TabAt(2)), u"A title\nhttp://two/\nWaiting for http://next/");
    desk.Click(u"xtrPrivateTab");
    EXPECT_EQ(desk.Describe(desk.SelectedTab()), u"Loading...\ntessaview:private\nPrivate tab: nothing of it is kept");
}

TEST_F(TabMoreCommandsTest, ATabThatLoadsIsToldApartByItsAddress) {
    Start(1, 1);
    auto* view = desk.NewTab(InFront::No);
    ASSERT_TRUE(view);
    ResumeNext(view->Navigate(u"http://two.example/a"));
    const Tab& tab = desk.TabAt(2);
    desk.PageBegins(2, u"http://two.example/a");
    EXPECT_EQ(tab.Caption(), u"Loading...");
    EXPECT_EQ(desk.Describe(tab), u"Loading...\nhttp://two.example/a");
    EXPECT_EQ(desk.AddressOf(tab), u"http://two.example/a");
    desk.views.At(2).location = u"about:blank";
    EXPECT_EQ(desk.Describe(tab), u"Loading...\nabout:blank\nWaiting for http://two.example/a");
    EXPECT_EQ(desk.AddressOf(tab), u"http://two.example/a") << "it is the host that tells it apart";
    desk.PageLoads(2, u"http://two.example/b", u"Two");
    EXPECT_EQ(desk.AddressOf(tab), u"http://two.example/b");
}

} // namespace

} // namespace tessa
