#include "address/BoxHistories.h"

#include "settings/frmInternetOptions.h"
#include "tests/Desk.h"

namespace tessa {

namespace {

TEST(BoxHistories, TheHistoriesComeBackInTheirOrder) {
    Desk desk;
    desk.settings.PutList(u"AddressHistory", {u"http://one/", u"", u"http://two/"});
    desk.settings.PutList(u"SearchHistory", {u"cats", u"", u"dogs & birds"});
    desk.Start();
    EXPECT_EQ(desk.List(u"cboAddress"), "[http://one/][][http://two/]");
    EXPECT_EQ(desk.List(u"cboSearch"), "[cats][dogs & birds]") << "empty searches are left out";
}

TEST(BoxHistories, AHistoryOfOneEntryIsNotShown_Deliberate) {
    Desk desk;
    desk.settings.PutList(u"AddressHistory", {u"http://one/"});
    desk.settings.PutList(u"SearchHistory", {u"cats"});
    desk.Start();
    EXPECT_EQ(desk.List(u"cboAddress") + desk.List(u"cboSearch"), "");
}

TEST(BoxHistories, WhatWasStoredDecidesWhetherAHistoryIsShown) {
    Desk desk;
    desk.settings.PutList(u"SearchHistory", {u"", u"cats"});
    desk.Start();
    EXPECT_EQ(desk.List(u"cboSearch"), "[cats]");
}

TEST(BoxHistories, SavesTheHistoriesForTheNextRun) {
    FakeSettings settings;
    {
        Desk desk(&settings);
        desk.Start();
        for (const TextView each : {u"one", u"two"}) desk.TypeAddress(each);
        desk.Combo(u"cboSearch").List = {u"cats & dogs"};
        desk.Unload();
    }
    EXPECT_EQ(settings.StoredList(u"AddressHistory"), u"[two][one]");
    EXPECT_EQ(settings.StoredList(u"SearchHistory"), u"[cats & dogs]");
    Desk next(&settings);
    next.Start();
    EXPECT_EQ(next.List(u"cboAddress"), "[two][one]");
    EXPECT_EQ(next.List(u"cboSearch"), "") << "a single entry is not restored";
}

TEST(BoxHistories, AClearedHistoryStaysCleared) {
    Desk desk;
    desk.settings.PutList(u"AddressHistory", {u"one", u"two"});
    desk.Start();
    desk.Click(u"mnuClearAddresses");
    desk.Unload();
    EXPECT_EQ(desk.settings.StoredList(u"AddressHistory"), u"");
}

TEST(BoxHistories, ClearingTypedAddressesEmptiesTheBoxesAndWhatIsStored) {
    Desk desk;
    desk.Start();
    desk.Combo(u"cboAddress").List = std::vector<Text>{u"a.example"};
    desk.Combo(u"cboSearch").List = std::vector<Text>{u"words"};
    desk.settings.PutList(u"AddressHistory", {u"a.example"});
    desk.settings.PutList(u"SearchHistory", {u"words"});
    desk.log.Take();
    desk.inInternetOptions = [](frmInternetOptions& form) {
        form.chkClearTyped.Tick(true);
        form.cmdClear.Click();
    };
    desk.Click(u"mnuViewInternetOptions");
    EXPECT_EQ(desk.List(u"cboAddress") + desk.List(u"cboSearch"), "");
    EXPECT_EQ(desk.settings.StoredList(u"AddressHistory"), u"");
    EXPECT_EQ(desk.settings.StoredList(u"SearchHistory"), u"");
    EXPECT_EQ(desk.log.Take(), "clear no cookies");
}

} // namespace

} // namespace tessa
