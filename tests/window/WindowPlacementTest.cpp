#include "window/WindowPlacement.h"

#include "tests/Desk.h"

namespace tessa {

namespace {

TEST(WindowPlacement, AVeryWideWindowComesBackAsWideAsSixteenBitsAllow) {
    Desk desk;
    desk.settings.Put(u"WindowWidth", u"60000");
    desk.settings.Put(u"WindowHeight", u"9000");
    desk.settings.Put(u"WindowLeft", u"0");
    desk.Start();
    EXPECT_EQ(desk.window.place, (Placement{{0}, {0}, {32767}, {9000}}));
}

TEST(WindowPlacement, ADamagedPlacementComesBackUsable) {
    Desk desk;
    desk.settings.Put(u"WindowWidth", u"100");
    desk.settings.Put(u"WindowHeight", u"100");
    desk.settings.Put(u"WindowTop", u"-50");
    desk.settings.Put(u"WindowLeft", u"-1");
    desk.Start();
    EXPECT_EQ(desk.window.place, (Placement{{0}, {0}, {6000}, {4000}}));
}

TEST(WindowPlacement, APlaceOutsideTheScreenComesBackAtItsEdge) {
    Desk desk;
    desk.settings.Put(u"WindowWidth", u"9000");
    desk.settings.Put(u"WindowHeight", u"9000");
    desk.settings.Put(u"WindowTop", u"16201");
    desk.settings.Put(u"WindowLeft", u"28801");
    desk.Start();
    EXPECT_EQ(desk.window.place, (Placement{{0}, {0}, {9000}, {9000}}));
}

TEST(WindowPlacement, ATopEqualToTheScreensHeightIsKept_Deliberate) {
    Desk desk;
    desk.settings.Put(u"WindowTop", u"16200");
    desk.settings.Put(u"WindowLeft", u"28800");
    desk.Start();
    EXPECT_EQ(desk.window.place.top, Twips{16200});
    EXPECT_EQ(desk.window.place.left, Twips{28800});
}

TEST(WindowPlacement, AWindowThatWasNeverPlacedIsPlacedByTheDesktop) {
    Desk desk;
    desk.Start();
    EXPECT_EQ(desk.window.place, (Placement{{-1}, {-1}, {15360}, {11520}}));
}

TEST(WindowPlacement, AMaximizedWindowReadsNoPlacement) {
    Desk desk;
    desk.settings.Put(u"WindowMaximized", u"true");
    desk.settings.Put(u"WindowWidth", u"9000");
    desk.Start();
    EXPECT_EQ(desk.window.state, WindowState::Maximized);
    EXPECT_EQ(desk.window.place, (Placement{{-1}, {-1}, {-1}, {-1}}));
}

TEST(WindowPlacement, SavesThePlaceOfAMaximizedWindowToo) {
    Desk desk;
    desk.Start();
    desk.window.state = WindowState::Maximized;
    desk.window.place = {{150}, {300}, {9000}, {8000}};
    desk.Unload();
    EXPECT_EQ(desk.settings.Stored(u"WindowLeft"), u"150");
    EXPECT_EQ(desk.settings.Stored(u"WindowHeight"), u"8000");
}

TEST(WindowPlacement, AMinimizedWindowKeepsThePlacementOfTheSessionBefore) {
    Desk desk;
    desk.settings.Put(u"WindowLeft", u"450");
    desk.Start();
    desk.window.state = WindowState::Minimized;
    desk.window.place = {{1}, {2}, {3}, {4}};
    desk.Unload();
    EXPECT_EQ(desk.settings.Stored(u"WindowLeft"), u"450");
    EXPECT_EQ(desk.settings.Stored(u"WindowWidth"), u"(none)");
    EXPECT_EQ(desk.settings.Stored(u"WindowMaximized"), u"false");
}

TEST(WindowPlacement, SavesThePlacementAndTheOptions) {
    Desk desk;
    desk.Start();
    desk.window.place = {{150}, {300}, {9000}, {8000}};
    desk.Set(u"TitleLengthLimit", u"12");
    desk.settings.Put(u"TitleLengthLimit", u"0");
    desk.Click(u"mnuViewStatusbar");
    desk.Unload();
    EXPECT_EQ(desk.settings.Stored(u"WindowLeft"), u"150");
    EXPECT_EQ(desk.settings.Stored(u"WindowTop"), u"300");
    EXPECT_EQ(desk.settings.Stored(u"WindowWidth"), u"9000");
    EXPECT_EQ(desk.settings.Stored(u"WindowHeight"), u"8000");
    EXPECT_EQ(desk.settings.Stored(u"WindowMaximized"), u"false");
    EXPECT_EQ(desk.settings.Stored(u"TitleLengthLimit"), u"12");
    EXPECT_EQ(desk.settings.Stored(u"ShowStatusBar"), u"false");
}

} // namespace

} // namespace tessa
