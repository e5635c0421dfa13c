#include "commands/BarGestures.h"

#include "bar/CommandBar.h"

#include <gtest/gtest.h>
#include <string>

namespace tessa {

namespace {

/// A bar with the tools that the gestures stand for, and what is heard of it.
class BarGesturesTest : public testing::Test {
protected:
    BarGesturesTest() {
        for (const TextView name : {u"xtrFullScreen", u"mnuNewBlank"})
            bar.Add(std::make_unique<Tool>(++id, Text(name)));
        bar.AddBand(u"bndNewTab", u"", BandKind::Popup)->Add({}, ++id, u"mnuNewHome");
        bar.Click.ConnectForLife([this](const Tool& tool) { told += "click " + ToUtf8(tool.Name()) + ";"; });
        bar.PopupWanted.ConnectForLife([this](const Band& band) { told += "menu " + ToUtf8(band.Name()) + ";"; });
    }
    std::int32_t id = 0;
    CommandBar bar;
    std::string told;
};

TEST_F(BarGesturesTest, TheTickOfFullScreenFollowsTheWindow) {
    BarGestures::FullScreenChanged(bar, true);
    EXPECT_TRUE(bar.Find(u"xtrFullScreen")->Checked());
    BarGestures::FullScreenChanged(bar, false);
    EXPECT_FALSE(bar.Find(u"xtrFullScreen")->Checked());
    EXPECT_EQ(told, "") << "nobody has clicked it";
}

TEST_F(BarGesturesTest, ANewTabIsABlankOne) {
    BarGestures::NewTab(bar);
    EXPECT_EQ(told, "click mnuNewBlank;");
}

TEST_F(BarGesturesTest, TheMenuOffersTheOtherKinds) {
    BarGestures::NewTabMenu(bar);
    EXPECT_EQ(told, "menu bndNewTab;");
}

TEST(BarGestures, ABarWithoutTheToolsStaysAsItIs) {
    CommandBar bar;
    BarGestures::FullScreenChanged(bar, true);
    BarGestures::NewTab(bar);
    BarGestures::NewTabMenu(bar);
    EXPECT_EQ(bar.Find(u"xtrFullScreen"), nullptr);
}

} // namespace

} // namespace tessa
