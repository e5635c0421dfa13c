#include "window/LiveSettings.h"

#include "settings/frmSettings.h"
#include "tests/Desk.h"

#include <array>

namespace tessa {

namespace {

TEST(LiveSettings, WhatIsStoredOfNewTabsAndGroupsHoldsFromTheStart) {
    for (const bool stored : {false, true}) {
        Desk desk;
        for (const TextView name : {u"OpenNewInFront", u"TGCloseOthersFirst"})
            desk.settings.Put(name, stored ? u"true" : u"false");
        desk.Start();
        EXPECT_EQ(desk.main.OpenNewInFront, stored);
        EXPECT_EQ(desk.main.TGCloseOthersFirst, stored);
        desk.views.At(1).events.NewWindow2(1, NewWindowPlace::AsSet);
        EXPECT_EQ(desk.Strip(), stored ? "1 [2*]" : "[1*] 2");
        desk.OpenGroup(u"/nowhere/news.tvg");
        EXPECT_EQ(desk.Strip(), stored ? "[1*]" : "[1*] 2");
    }
}

TEST(LiveSettings, TheSettingsDialogComesIntoEffectAtOnce) {
    Desk desk;
    desk.Start();
    desk.inSettings = [](frmSettings& form) {
        form.chkTabsUp.Tick(false);
        form.chkOpenNew.Tick(false);
        form.chkCloseTessaGroups.Tick(true);
        form.chkRememberAndOpenLastSites.Tick(false);
        form.Text1.Value = u"7";
        form.cmdOK.Click();
    };
    desk.Click(u"mnuSettings");
    EXPECT_EQ(desk.PlaceOfTabs(), TabPlacement::Bottom);
    EXPECT_EQ(desk.views.At(1).place.top, Pixels{0});
    EXPECT_FALSE(desk.main.RememberLastSites);
    EXPECT_FALSE(desk.main.OpenNewInFront);
    EXPECT_TRUE(desk.main.TGCloseOthersFirst);
    desk.PageIsCalled(1, u"12345678");
    EXPECT_EQ(desk.Captions(), "[1234567...*]");
    desk.views.At(1).events.NewWindow2(1, NewWindowPlace::AsSet);
    EXPECT_EQ(desk.Strip(), "[1*] 2") << "a new tab stays behind";
    desk.OpenGroup(u"/nowhere/news.tvg");
    EXPECT_EQ(desk.Strip(), "[1*]") << "a group closes the others";
}

TEST(LiveSettings, ACancelledSettingsDialogChangesNothing) {
    Desk desk;
    desk.Start();
    desk.inSettings = [](frmSettings& form) {
        form.chkTabsUp.Tick(false);
        form.chkOpenNew.Tick(false);
        form.chkCloseTessaGroups.Tick(true);
        form.cmdCancel.Click();
    };
    desk.Click(u"mnuSettings");
    EXPECT_EQ(desk.PlaceOfTabs(), TabPlacement::Top);
    EXPECT_TRUE(desk.main.OpenNewInFront);
    EXPECT_FALSE(desk.main.TGCloseOthersFirst);
}

TEST(LiveSettings, SavesEverySwitchAsItIsAtTheEnd) {
    for (const bool on : {false, true}) {
        const Text value = on ? u"true" : u"false";
        Desk desk;
        for (const TextView name : {u"OpenNewInFront", u"RememberLastSites", u"TabsUp", u"ShowStatusBar"})
            desk.settings.Put(name, on ? u"false" : u"true");
        desk.Start();
        const std::array switches{u"OpenNewInFront", u"RememberLastSites", u"TabsUp"};
        for (const auto* name : switches) desk.Set(name, value);
        // Another instance has stored something else meanwhile.
        for (const auto* name : switches) desk.settings.Put(name, on ? u"false" : u"true");
        desk.Click(u"mnuViewStatusbar");
        desk.window.state = on ? WindowState::Maximized : WindowState::Normal;
        desk.Unload();
        for (const TextView name :
             {u"OpenNewInFront", u"RememberLastSites", u"TabsUp", u"ShowStatusBar", u"WindowMaximized"})
            EXPECT_EQ(desk.settings.Stored(name), value) << ToUtf8(name);
    }
}

} // namespace

} // namespace tessa
