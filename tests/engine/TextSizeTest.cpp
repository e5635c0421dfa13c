#include "tests/engine/CommandsOnPages.h"

#include <cmath>

namespace tessa::qt {

namespace {

/// The size of the text of pages as the pages themselves see it.
class TextSizeTest : public CommandsOnPages {
protected:
    void SetUp() override {
        for (const char* name : {"Rose", "Tulip"})
            server.Page(u'/' + QString::fromLatin1(name), QByteArray("<title>") + name + "</title><p>words</p>");
        Show(QStringLiteral("/Rose"), u"Rose");
    }
    /// Whether the page in front comes to show its text at so many percent.
    bool ShowsPercent(int percent) {
        return WaitUntil([&] {
            const double ratio = Script(QStringLiteral("window.devicePixelRatio")).toDouble();
            return std::lround(ratio / usual * 100) == percent;
        });
    }
    void Refresh() {
        const auto before = server.requests.size();
        Click(u"mnuRefresh");
        ASSERT_TRUE(WaitUntil([&] { return server.requests.size() > before && !Front().Busy(); }));
    }
    /// The tool that the opened Font menu marks; nothing when it marks none.
    std::string Marked() {
        Band& band = *desk.main->actBar.FindBand(u"bndFont");
        desk.main->actBar.OpenBand(band);
        std::string all;
        for (const BandEntry& entry : band.Entries())
            if (entry.Item->Checked()) all += ToUtf8(entry.Item->Name());
        return all;
    }

    double usual = desk.window.devicePixelRatioF();
};

TEST_F(TextSizeTest, EachSizeIsSeenByThePage) {
    const std::vector<std::pair<TextView, int>> sizes{{u"mnuFontSmallest", 60},
                                                      {u"mnuFontSmaller", 80},
                                                      {u"mnuFontMedium", 100},
                                                      {u"mnuFontLarger", 125},
                                                      {u"mnuFontLargest", 150}};
    for (std::size_t level = 0; level < sizes.size(); ++level) {
        Click(sizes[level].first);
        EXPECT_TRUE(ShowsPercent(sizes[level].second)) << ToUtf8(sizes[level].first);
        EXPECT_EQ(Front().ZoomLevel(), static_cast<int>(level));
    }
    Click(u"mnuFont");
    EXPECT_TRUE(ShowsPercent(100));
}

TEST_F(TextSizeTest, EachOfTwoTabsOfOneHostHasItsOwn) {
    Click(u"mnuFontLargest");
    ASSERT_TRUE(ShowsPercent(150));
    Click(u"mnuNewCurrent");
    ASSERT_TRUE(WaitTitle(u"Rose"));
    EXPECT_TRUE(ShowsPercent(100)) << "a new tab begins with the usual size";
    Click(u"mnuFontSmallest");
    EXPECT_TRUE(ShowsPercent(60));
    Click(u"mnuPreviousBrowserTab");
    EXPECT_TRUE(ShowsPercent(150));
    Refresh();
    EXPECT_TRUE(ShowsPercent(150));
    Click(u"mnuNextBrowserTab");
    EXPECT_TRUE(ShowsPercent(60));
    Show(QStringLiteral("/Tulip"), u"Tulip");
    EXPECT_TRUE(ShowsPercent(60)) << "the tab keeps its size from page to page";
    Refresh();
    EXPECT_TRUE(ShowsPercent(60));
}

TEST_F(TextSizeTest, ABlankPageTakesNone) {
    Click(u"mnuNewBlank");
    ASSERT_TRUE(
        WaitUntil([&] { return Front().Page() && !Front().Busy() && Front().LocationURL() == u"about:blank"; }));
    Click(u"mnuFontLargest");
    Show(QStringLiteral("/Tulip"), u"Tulip");
    EXPECT_TRUE(ShowsPercent(100));
}

TEST_F(TextSizeTest, TheFontMenuMarksTheSizeOfABlankPageToo) {
    Click(u"mnuFontSmaller");
    EXPECT_EQ(Marked(), "mnuFontSmaller");
    ResumeNext(Front().Navigate(u"about:blank"));
    ASSERT_TRUE(WaitUntil([&] { return !Front().Document() && !Front().Busy(); }));
    EXPECT_EQ(Marked(), "mnuFontSmaller");
    Show(QStringLiteral("/Tulip"), u"Tulip");
    EXPECT_TRUE(ShowsPercent(80));
}

} // namespace

} // namespace tessa::qt
