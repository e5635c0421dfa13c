#include "qt/program/EngineSurroundings.h"

#include "pages/SitePermissions.h"
#include "qt/tiles/TileArea.h"
#include "qt/window/MainWindowFrame.h"
#include "qt/window/PageBars.h"
#include "settings/InternetSettings.h"
#include "tests/fakes/FakeSettings.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

class EngineSurroundingsTest : public testing::Test {
protected:
    FakeSettings settings;
    TemporaryFolder folder;
    SitePermissions permissions{settings};
    MainWindowFrame window;
    PageBars bars;
    TileArea tiles{window.PageArea()};
    EngineSurroundings surroundings{settings, permissions, window, bars, tiles, {folder.PathText("") + u"/", {}}};
};

TEST_F(EngineSurroundingsTest, TheHomePageIsTheOneOfTheOptions) {
    EXPECT_EQ(surroundings.HomeAddress(), u"") << "the program's own";
    InternetSettings(settings).Set({.homePage = u"home.example"});
    EXPECT_EQ(surroundings.HomeAddress(), u"home.example");
}

TEST_F(EngineSurroundingsTest, ItsFoldersAreToldBeforeTheyAreRead) {
    surroundings.ReadsFolders.ConnectForLife(
        [this] { folder.Write("Tea & cake.tvg", "[TessaGroup]\nurl1=http://tea.example/\n"); });
    EXPECT_NE(surroundings.StartPage().find("Tea &amp; cake"), std::string::npos);
}

TEST_F(EngineSurroundingsTest, BarsTakeTheirRoomFromThePage) {
    const QRect whole(0, 0, 300, 200);
    EXPECT_EQ(surroundings.PageRect(whole, 1), whole);
    {
        QWidget bar(window.PageArea());
        bar.setFixedHeight(20);
        bar.show();
        bars.Add(bar, PageBars::Side::Below);
        EXPECT_EQ(surroundings.PageRect(whole, 1).width(), 300);
    }
    EXPECT_EQ(surroundings.PageRect(whole, 1), whole) << "it has ended";
}

TEST_F(EngineSurroundingsTest, WhatSitesMayDoIsKept) { EXPECT_EQ(surroundings.Permissions(), &permissions); }

TEST_F(EngineSurroundingsTest, TheWindowIsTheOneThatFillsTheScreen) {
    EXPECT_FALSE(surroundings.WindowIsFull());
    surroundings.SetWindowFull(true);
    EXPECT_TRUE(window.FullScreen());
    EXPECT_TRUE(surroundings.WindowIsFull());
    surroundings.SetWindowFull(false);
    EXPECT_FALSE(window.FullScreen());
}

} // namespace

} // namespace tessa::qt
