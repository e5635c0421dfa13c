#include "bar/CommandBarLayout.h"
#include "settings/SettingsStore.h"
#include "tests/Desk.h"

namespace tessa {

namespace {

/// What the file of a bar is on which the user has done something.
template<typename Arrange>
std::string Arranged(Arrange arrange) {
    Desk desk;
    arrange(desk.Bar());
    return CommandBarLayout::Save(desk.Bar());
}

std::string Tools(const CommandBar& bar, TextView band) {
    std::string all;
    for (const BandEntry& entry : bar.FindBand(band)->Entries())
        all += (all.empty() ? "" : " ") + ToUtf8(entry.Item->Name());
    return all;
}

TEST(LayoutKeeper, WithoutAFileTheBarIsAsDesigned) {
    Desk desk;
    const std::string designed = Tools(desk.Bar(), u"bndFile");
    desk.Start();
    EXPECT_EQ(Tools(desk.Bar(), u"bndFile"), designed);
    EXPECT_EQ(desk.layout.writes, 0) << "nothing is written before the end";
}

TEST(LayoutKeeper, TheLayoutIsTheFirstThingThatALoadingWindowRestores) {
    Desk desk;
    desk.settings.Put(u"AskDefaultBrowser", u"true");
    desk.defaultBrowser.isDefault = false;
    desk.layout.bytes = Arranged([](CommandBar& bar) { bar.FindBand(u"bndFile")->RemoveAt(0); });
    std::string whenAsked;
    int laidOut = 0;
    const Connection view = desk.Bar().LayoutWanted.Connect([&] { ++laidOut; });
    desk.inDefBrowser = [&](frmDefBrowser&) { whenAsked = Tools(desk.Bar(), u"bndFile"); };
    desk.Start();
    EXPECT_EQ(whenAsked, "mnuOpen mnuClose mnuCloseAll");
    EXPECT_GE(laidOut, 1);
}

TEST(LayoutKeeper, TheStatesOfToolsAreSetOnTheLoadedBar) {
    Desk desk;
    desk.settings.Put(u"ShowStatusBar", u"false");
    desk.layout.bytes =
        Arranged([](CommandBar& bar) { bar.FindBand(u"bndGo")->Append(bar.Share(u"mnuViewStatusbar")); });
    desk.Start();
    EXPECT_FALSE(desk.Band(u"bndGo").Find(u"mnuViewStatusbar")->Checked());
    EXPECT_EQ(desk.Enabled(), "");
}

TEST(LayoutKeeper, WhatTheUserArrangesIsThereAtTheNextStart) {
    std::string kept;
    {
        Desk desk;
        desk.Start();
        desk.Band(u"bndGo").Visible = false;
        desk.Combo(u"cboSearch").Width = Pixels{99};
        desk.Unload();
        kept = desk.layout.bytes;
        EXPECT_EQ(desk.layout.writes, 1);
    }
    Desk desk;
    desk.layout.bytes = kept;
    desk.Start();
    EXPECT_FALSE(desk.Band(u"bndGo").Visible());
    EXPECT_EQ(desk.Combo(u"cboSearch").Width(), Pixels{99});
}

TEST(LayoutKeeper, TheLayoutIsSavedAfterTheSettingsAndBeforeTheViewsEnd) {
    Desk desk;
    desk.Start();
    auto& bar = desk.Bar();
    bar.AddBand(u"zzz/favorites/news", u"", BandKind::Menu, MadeFrom::FavoriteFolder{u"/favorites/news"})
        ->Add(MadeFrom::FavoriteLink{u"http://one/"}, 50000, u"http://one/");
    std::string seen;
    desk.layout.onWrite = [&] {
        seen += bar.FindBand(u"zzz/favorites/news") ? "there " : "gone ";
        seen += ToUtf8(desk.settings.Stored(u"ShowStatusBar")) + " " + std::to_string(desk.views.living.size());
    };
    desk.Unload();
    EXPECT_EQ(seen, "gone true 1") << "run-time bands are gone, the settings are written, the view lives";
    EXPECT_EQ(desk.layout.bytes.find("zzz"), std::string::npos);
    EXPECT_EQ(desk.layout.bytes, CommandBarLayout::Save(bar));
}

TEST(LayoutKeeper, ALayoutThatCannotBeSavedIsSaidAndCostsNothing) {
    Desk desk;
    desk.layout.bytes = "[Options]\r\nToolTips=0\r\n";
    desk.layout.refuses = true;
    desk.Start();
    desk.ExpectSkipped(1);
    desk.Unload();
    EXPECT_EQ(desk.Status(), "The layout of the toolbars could not be saved.");
    EXPECT_EQ(desk.layout.bytes, "[Options]\r\nToolTips=0\r\n");
    EXPECT_TRUE(desk.views.living.empty()) << "the window still ends";
}

TEST(LayoutKeeper, WhatCouldNotBeSavedIsTriedAgainUntilItIsAndSaidOnce) {
    Desk desk;
    int asked = 0, said = 0;
    desk.main.RetryLater.ConnectForLife([&] { ++asked; });
    desk.main.sbStatus.Complaint.ConnectForLife([&](TextView) { ++said; });
    desk.Start();
    desk.RetryWrites();
    EXPECT_EQ(desk.layout.writes, 0) << "there is nothing to try";
    desk.layout.refuses = true;
    desk.ExpectSkipped(2);
    desk.CloseCustomize();
    desk.RetryWrites();
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(said, 1);
    desk.layout.refuses = false;
    desk.RetryWrites();
    EXPECT_EQ(desk.layout.bytes, CommandBarLayout::Save(desk.Bar()));
    desk.RetryWrites();
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(desk.layout.writes, 3);
}

TEST(LayoutKeeper, AFileThatCouldNotBeReadIsNotReplacedByTheDesign) {
    Desk desk;
    desk.layout.bytes = "what another program holds locked";
    desk.layout.unreadable = true;
    desk.Load(u"");
    EXPECT_EQ(desk.Status(), "The layout of the toolbars could not be read.");
    desk.Unload();
    EXPECT_EQ(desk.layout.writes, 0);
}

TEST(LayoutKeeper, AFileThatCouldNotBeReadIsReplacedByWhatTheUserArrangedSince) {
    Desk desk;
    desk.layout.unreadable = true;
    desk.Start();
    desk.Band(u"bndGo").Visible = false;
    desk.Unload();
    EXPECT_EQ(desk.layout.bytes, CommandBarLayout::Save(desk.Bar()));
}

TEST(LayoutKeeper, AWindowThatWasNeverLoadedSavesNothing) {
    Desk desk;
    desk.Unload();
    EXPECT_EQ(desk.layout.writes, 0);
}

} // namespace

} // namespace tessa
