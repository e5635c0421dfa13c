// Commands that are for a page, where there is none.
#include "favorites/Favorites.h"
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

/// One tab, and everything that a command for pages can do.
class WithoutAViewTest : public testing::TestWithParam<const char*> {
protected:
    void Start() {
        desk.StartWithTabs(1);
        desk.views.Calls(1);
        desk.views.focused = 0;
        desk.inAddFavorite = [this](frmAddFavorite&) { done += "add;"; };
        desk.inInternetOptions = [this](frmInternetOptions&) { done += "options;"; };
        desk.engineOptions.applied = [this] { done += "load options;"; };
        desk.files.chosen = u"/files/a.html";
        desk.PageSaysWhetherItLoads();
        enabled = desk.Enabled();
    }
    /// Leaves the tab without a view.
    void TakeTheViewAway() { desk.TakeViewAway(1); }
    /// Everything that a click on the tool did.
    std::string Click(const std::string& tool) {
        Tool made(1, FromBytes(tool));
        made.Description = u"keyword";
        desk.ClickMade(made);
        done += desk.views.Calls(1) + std::exchange(desk.tools.done, {});
        if (desk.views.focused != 0) done += "focus;";
        if (desk.CountTabs() != 1) done += "tabs;";
        if (desk.Enabled() != enabled) done += "enabled;";
        return std::exchange(done, {});
    }

    TemporaryFolder favorites;
    Desk desk{{.favoritesFolder = Favorites::FolderOf(favorites.PathText("x"))}};
    std::string done, enabled;
};

TEST_P(WithoutAViewTest, NothingHappens) {
    Start();
    TakeTheViewAway();
    EXPECT_EQ(Click(GetParam()), "");
    EXPECT_EQ(desk.Strip(), "[1*]");
}

TEST_P(WithoutAViewTest, WithOneSomethingDoes) {
    Start();
    EXPECT_NE(Click(GetParam()), "");
}

INSTANTIATE_TEST_SUITE_P(Commands, WithoutAViewTest,
                         testing::Values("mnuSearch", "mnuHome", "mnuStop", "mnuRefresh", "mnuSaveAs", "mnuPageSetup",
                                         "mnuPrint", "mnuCut", "mnuCopy", "mnuPaste", "mnuSelectAll", "mnuFind",
                                         "mnuViewInternetOptions", "mnuViewSource", "mnuGoBack", "mnuGoForward",
                                         "mnuOpen", "mnuNewMessage", "mnuSendLink", "mnuMailQuorvaneSoftware",
                                         "mnuFeatureRequest", "mnuMailBugReport", "mnuFontLargest", "mnuFontLarger",
                                         "mnuFontMedium", "mnuFontSmaller", "mnuFontSmallest", "mnuFont",
                                         "mnuAddToFavorites", "xtrTextLarger", "xtrTextSmaller", "xtrPrintPreview",
                                         "shpBooks", "fndWeather"),
                         [](const auto& info) { return std::string(info.param); });

TEST_F(WithoutAViewTest, AFavoriteOpensNowhere) {
    Start();
    TakeTheViewAway();
    desk.ClickMade(Tool(50000, u"http://a/"));
    EXPECT_EQ(desk.views.Calls(1), "");
    EXPECT_EQ(desk.Strip(), "[1*]");
}

TEST_F(WithoutAViewTest, NoAddressIsAddedToAGroup) {
    const TemporaryFolder folder;
    Start();
    TakeTheViewAway();
    desk.files.chosen = folder.PathText("g.tvg");
    desk.ClickMade(Tool(1, u"mnuAddToTessaGroup"));
    EXPECT_EQ(folder.Files(), 0U);
}

TEST_F(WithoutAViewTest, ANewCurrentTabGetsAnEmptyAddress) {
    Start();
    TakeTheViewAway();
    desk.ClickMade(Tool(1, u"mnuNewCurrent"));
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go ");
}

} // namespace

} // namespace tessa
