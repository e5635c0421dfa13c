#include "tests/Desk.h"

#include "settings/SettingsStore.h"

namespace {

class PageOptionsTest : public testing::Test {
protected:
    std::string Marked() {
        std::string all;
        for (const TextView name :
             {u"mnuFontLargest", u"mnuFontLarger", u"mnuFontMedium", u"mnuFontSmaller", u"mnuFontSmallest"}) {
            if (desk.main.actBar.Find(name)->Checked()) all += ToUtf8(name.substr(7)) + ";";
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
    desk.main.Pages.SetTextSize(u"mnuFontLargest", Apply::No);
    EXPECT_EQ(Marked(), "Largest;");
    EXPECT_EQ(desk.views.Calls(1), "");
}

TEST_F(PageOptionsTest, AnUnknownNameChangesOnlyTheMarks) {
    Start();
    desk.Click(u"mnuFontMedium");
    desk.views.Calls(1);
    desk.main.Pages.SetTextSize(u"mnuFontHuge", Apply::Yes);
    EXPECT_EQ(Marked(), "");
    EXPECT_EQ(desk.views.Calls(1), "");
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
    desk.main.Pages.MarkTextSize();
    EXPECT_EQ(Marked(), "Medium;");
    desk.ClickTab(1);
    desk.main.Pages.MarkTextSize();
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
        checked += desk.main.actBar.Find(name)->Checked() ? "1" : "0";
    EXPECT_EQ(checked, "1100");
}

TEST_F(PageOptionsTest, TheEngineSeesASwitchAfterItIsStored) {
    Start();
    bool seen = true;
    desk.main.Pages.ApplyLoadOptions.ConnectForLife([&] { seen = SettingsStore(desk.settings).LoadSounds.Get(); });
    desk.Click(u"mnuLoadSounds");
    EXPECT_FALSE(seen);
}

TEST_F(PageOptionsTest, KeysStepThroughTheSizesAndStayAtTheEnds) {
    Start();
    for (int i = 0; i < 3; ++i) desk.main.Form_KeyDown({Keys::kPlus, Keys::kCtrl});
    EXPECT_EQ(desk.views.Calls(1), "zoom 3, zoom 4, zoom 4");
    EXPECT_EQ(Marked(), "Largest;");
    desk.main.Form_KeyDown({'0', Keys::kCtrl});
    for (int i = 0; i < 3; ++i) desk.main.Form_KeyDown({Keys::kMinus, Keys::kCtrl});
    EXPECT_EQ(desk.views.Calls(1), "zoom 2, zoom 1, zoom 0, zoom 0");
    EXPECT_EQ(Marked(), "Smallest;");
    EXPECT_EQ(desk.views.Calls(2), "");
}

TEST_F(PageOptionsTest, WithoutADocumentNoSizeIsStepped) {
    Start();
    desk.views.At(1).hasDocument = false;
    desk.Click(u"xtrTextLarger");
    EXPECT_EQ(desk.views.Calls(1), "");
    desk.main.pcPage.Remove(desk.main.pcPage.FindAt(1));
    desk.main.pcPage.Remove(desk.main.pcPage.FindAt(1));
    desk.Click(u"xtrTextSmaller");
    EXPECT_EQ(Marked(), "");
}

TEST(PageOptions, SayInTheStatusBarHowLargeTheTextIs) {
    Desk desk;
    desk.StartWithTabs(2);
    const auto zoom = [&] { return ToUtf8(desk.main.sbStatus.Zoom()); };
    EXPECT_EQ(zoom(), "") << "the usual size says nothing";
    desk.Click(u"xtrTextLarger");
    EXPECT_EQ(zoom(), "125 %");
    desk.ClickTab(2);
    EXPECT_EQ(zoom(), "") << "each page has its own";
    desk.views.At(2).zoom = 0;
    desk.PageLoads(2, u"https://a.example/", u"A");
    EXPECT_EQ(zoom(), "60 %");
    desk.ClickTab(1);
    EXPECT_EQ(zoom(), "125 %");
    desk.views.At(1).hasDocument = false;
    desk.PageLoads(1, u"about:blank", u"");
    EXPECT_EQ(zoom(), "");
}

} // namespace
