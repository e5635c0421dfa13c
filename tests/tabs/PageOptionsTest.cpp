// Tests: Browser
#include "tabs/PageOptions.h"

#include "commands/DesignTimeBar.h"
#include "tests/Desk.h"
#include "tests/fakes/BareTabs.h"

namespace tessa {

namespace {

class PageOptionsTest : public testing::Test {
protected:
    std::string Marked() {
        std::string all;
        for (const TextView name :
             {u"mnuFontLargest", u"mnuFontLarger", u"mnuFontMedium", u"mnuFontSmaller", u"mnuFontSmallest"}) {
            if (desk.Tool(name).Checked()) all += ToUtf8(name.substr(7)) + ";";
        }
        return all;
    }

    void Start() {
        desk.StartWithTabs(2);
        for (int i = 1; i <= 2; ++i) desk.views.Calls(i);
    }

    Desk desk;
};

TEST_F(PageOptionsTest, SmallestIsMarkedAloneAndAppliedToTheSelectedTabOnly) {
    Start();
    desk.Click(u"mnuFontSmallest");
    EXPECT_EQ(Marked(), "Smallest;");
    EXPECT_EQ(desk.views.Calls(1), "zoom 0");
    EXPECT_EQ(desk.views.Calls(2), "");
}

TEST_F(PageOptionsTest, LargerIsAppliedButNeverMarked_Deliberate) {
    Start();
    desk.Click(u"mnuFontLargest");
    desk.Click(u"mnuFontLarger");
    EXPECT_EQ(desk.views.Calls(1), "zoom 4, zoom 3");
    EXPECT_EQ(Marked(), "");
}

TEST_F(PageOptionsTest, TheFontButtonItselfResetsToMedium) {
    Start();
    desk.Click(u"mnuFontSmaller");
    desk.Click(u"mnuFont");
    EXPECT_EQ(desk.views.Calls(1), "zoom 1, zoom 2");
    EXPECT_EQ(Marked(), "Medium;");
}

TEST_F(PageOptionsTest, WithoutApplyingOnlyTheMarksMove) {
    Start();
    desk.views.At(1).zoom = 4;
    desk.OpenMenu(u"bndFont");
    EXPECT_EQ(Marked(), "Largest;");
    EXPECT_EQ(desk.views.Calls(1), "");
}

TEST(PageOptions, AnUnknownNameChangesOnlyTheMarks) {
    BareTabs bare;
    DesignTimeBar::Make(bare.actBar);
    bare.StartWithTabs(1);
    FakeSettings settings;
    PageOptions options(bare.tabs, bare.actBar, settings);
    options.SetTextSize(u"mnuFontMedium", Apply::Yes);
    EXPECT_TRUE(bare.actBar.Find(u"mnuFontMedium")->Checked());
    bare.views.Calls(1);
    options.SetTextSize(u"mnuFontHuge", Apply::Yes);
    EXPECT_FALSE(bare.actBar.Find(u"mnuFontMedium")->Checked());
    EXPECT_EQ(bare.views.Calls(1), "");
}

TEST_F(PageOptionsTest, APageWithoutADocumentTakesNoZoom) {
    Start();
    desk.views.At(1).hasDocument = false;
    desk.Click(u"mnuFontLargest");
    EXPECT_EQ(desk.views.Calls(1), "");
}

TEST_F(PageOptionsTest, TheMarkFollowsTheSelectedTabsSize) {
    Start();
    desk.Click(u"mnuFontLargest");
    desk.ClickTab(2);
    desk.OpenMenu(u"bndFont");
    EXPECT_EQ(Marked(), "Medium;");
    desk.ClickTab(1);
    desk.OpenMenu(u"bndFont");
    EXPECT_EQ(Marked(), "Largest;");
}

TEST_F(PageOptionsTest, TheSwitchesShowWhatIsStored) {
    {
        SettingsStore store(desk.settings);
        ResumeNext(store.LoadVideos.Set(false));
        ResumeNext(store.LoadSounds.Set(false));
    }
    desk.Start();
    std::string checked;
    for (const TextView name : {u"mnuLoadImages", u"mnuLoadAnimations", u"mnuLoadVideos", u"mnuLoadSounds"})
        checked += desk.Tool(name).Checked() ? "1" : "0";
    EXPECT_EQ(checked, "1100");
}

TEST_F(PageOptionsTest, TheEngineSeesASwitchAfterItIsStored) {
    Start();
    bool seen = true;
    desk.engineOptions.applied = [&] { seen = SettingsStore(desk.settings).LoadSounds.Get(); };
    desk.Click(u"mnuLoadSounds");
    EXPECT_FALSE(seen);
}

TEST_F(PageOptionsTest, KeysStepThroughTheSizesAndStayAtTheEnds) {
    Start();
    for (int i = 0; i < 3; ++i) desk.Press({Keys::kPlus, Keys::kCtrl});
    EXPECT_EQ(desk.views.Calls(1), "zoom 3, zoom 4, zoom 4");
    EXPECT_EQ(Marked(), "Largest;");
    desk.Press({'0', Keys::kCtrl});
    for (int i = 0; i < 3; ++i) desk.Press({Keys::kMinus, Keys::kCtrl});
    EXPECT_EQ(desk.views.Calls(1), "zoom 2, zoom 1, zoom 0, zoom 0");
    EXPECT_EQ(Marked(), "Smallest;");
    EXPECT_EQ(desk.views.Calls(2), "");
}

TEST_F(PageOptionsTest, WithoutADocumentNoSizeIsStepped) {
    Start();
    desk.views.At(1).hasDocument = false;
    desk.Click(u"xtrTextLarger");
    EXPECT_EQ(desk.views.Calls(1), "");
    desk.TakeTabAway(1);
    desk.TakeTabAway(1);
    desk.Click(u"xtrTextSmaller");
    EXPECT_EQ(Marked(), "");
}

TEST(PageOptions, SayInTheStatusBarHowLargeTheTextIs) {
    Desk desk;
    desk.StartWithTabs(2);
    EXPECT_EQ(desk.ShownZoom(), "") << "the usual size says nothing";
    desk.Click(u"xtrTextLarger");
    EXPECT_EQ(desk.ShownZoom(), "125 %");
    desk.ClickTab(2);
    EXPECT_EQ(desk.ShownZoom(), "") << "each page has its own";
    desk.views.At(2).zoom = 0;
    desk.PageLoads(2, u"https://a.example/", u"A");
    EXPECT_EQ(desk.ShownZoom(), "60 %");
    desk.ClickTab(1);
    EXPECT_EQ(desk.ShownZoom(), "125 %");
    desk.views.At(1).hasDocument = false;
    desk.PageLoads(1, u"about:blank", u"");
    EXPECT_EQ(desk.ShownZoom(), "");
}

} // namespace

} // namespace tessa
