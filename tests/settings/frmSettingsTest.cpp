// Tests: Controls
#include "settings/frmSettings.h"
#include "tests/fakes/FakeSettings.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

// Every box as "name" or "name!" when ticked, then the limit's text, in brackets when it cannot be changed.
std::string State(const frmSettings& form) {
    std::string state;
    const auto add = [&](const char* name, const CheckBox& box) {
        state += std::string(name) + (box.Ticked() ? "! " : " ");
    };
    add("many", form.chkAllowMultipleInstances);
    add("up", form.chkTabsUp);
    add("limit", form.chkLimitTitleLength);
    add("close", form.chkCloseTessaGroups);
    add("front", form.chkOpenNew);
    add("ask", form.chkAskDefaultBrowser);
    add("last", form.chkRememberAndOpenLastSites);
    const std::string text = ToUtf8(form.Text1.Value());
    return state + (form.Text1.Enabled() ? text : "[" + text + "]");
}

TEST(frmSettings, ShowsTheDefaultsAtFirst) {
    FakeSettings settings;
    const frmSettings form(settings);
    EXPECT_EQ(State(form), "many up! limit! close front! ask! last! 20");
    EXPECT_FALSE(form.Apply);
    EXPECT_EQ(settings.open, 0);
    EXPECT_EQ(form.TabStrip1.Count(), 1u);
    EXPECT_EQ(form.TabStrip1.SelectedItem()->Caption(), u"General");
}

TEST(frmSettings, ShowsWhatIsStored) {
    FakeSettings settings;
    for (const TextView name : {u"TabsUp", u"AskDefaultBrowser", u"RememberLastSites", u"OpenNewInFront"}) {
        settings.Put(name, u"false");
    }
    for (const TextView name : {u"TGCloseOthersFirst", u"AllowMultipleInstances"}) settings.Put(name, u"true");
    settings.Put(u"TitleLengthLimit", u"-3");
    EXPECT_EQ(State(frmSettings(settings)), "many! up limit! close! front ask last -3");
}

TEST(frmSettings, AStoredLimitOfZeroOpensWithTheLimitBoxUntickedAndTheTextDisabled) {
    FakeSettings settings;
    settings.Put(u"TitleLengthLimit", u"0");
    EXPECT_EQ(State(frmSettings(settings)), "many up! limit close front! ask! last! [0]");
}

TEST(frmSettings, AStoredLimitOfOneIsALimit) {
    FakeSettings settings;
    settings.Put(u"TitleLengthLimit", u"1");
    EXPECT_EQ(State(frmSettings(settings)), "many up! limit! close front! ask! last! 1");
}

TEST(frmSettings, TextThatIsNoNumberBecomesZero) {
    FakeSettings settings;
    frmSettings form(settings);
    for (const TextView text : {u"abc", u"", u" ", u"-", u"1,5"}) {
        form.Text1.Value = u"7";
        form.Text1.Value = Text(text);
        EXPECT_EQ(form.Text1.Value(), u"0") << ToUtf8(text);
        EXPECT_TRUE(form.Text1.Enabled());
    }
}

TEST(frmSettings, NumericTextStandsAsItIs) {
    FakeSettings settings;
    frmSettings form(settings);
    for (const TextView text : {u"2.5", u"-7", u"+7", u"007", u"1e2", u" 8 ", u"99999999999"}) {
        form.Text1.Value = Text(text);
        EXPECT_EQ(form.Text1.Value(), Text(text));
    }
}

TEST(frmSettings, TwoAndAHalfIsStoredAsTwo) {
    FakeSettings settings;
    frmSettings form(settings);
    form.Text1.Value = u"2.5";
    form.cmdOK.Click();
    EXPECT_EQ(settings.Stored(u"TitleLengthLimit"), u"2");
    EXPECT_TRUE(form.Apply);
}

TEST(frmSettings, TickingTheLimitLeavesItsZeroWhichMeansNoLimit) {
    FakeSettings settings;
    settings.Put(u"TitleLengthLimit", u"0");
    frmSettings form(settings);
    form.chkLimitTitleLength.Tick(true);
    EXPECT_EQ(State(form), "many up! limit! close front! ask! last! 0");
    form.cmdOK.Click();
    EXPECT_EQ(settings.Stored(u"TitleLengthLimit"), u"0");
}

TEST(frmSettings, UntickingTheLimitSetsZeroAndDisablesTheText) {
    FakeSettings settings;
    frmSettings form(settings);
    form.chkLimitTitleLength.Tick(false);
    EXPECT_EQ(State(form), "many up! limit close front! ask! last! [0]");
    form.chkLimitTitleLength.Tick(true);
    EXPECT_EQ(State(form), "many up! limit! close front! ask! last! 0");
    form.chkLimitTitleLength.Tick(false);
    form.cmdOK.Click();
    EXPECT_EQ(settings.Stored(u"TitleLengthLimit"), u"0");
}

TEST(frmSettings, OkWritesInItsOrderAndHides) {
    FakeSettings settings;
    frmSettings form(settings);
    form.Form.Visible = true;
    form.chkTabsUp.Tick(false);
    form.chkAllowMultipleInstances.Tick(true);
    form.cmdOK.Click();
    EXPECT_EQ(settings.written,
              (std::vector<Text>{u"TabsUp", u"AskDefaultBrowser", u"RememberLastSites", u"OpenNewInFront",
                                 u"TitleLengthLimit", u"TGCloseOthersFirst", u"AllowMultipleInstances"}));
    EXPECT_EQ(settings.Stored(u"TabsUp"), u"false");
    EXPECT_EQ(settings.Stored(u"AllowMultipleInstances"), u"true");
    EXPECT_TRUE(form.Apply);
    EXPECT_FALSE(form.Form.Visible());
    EXPECT_EQ(settings.open, 0);
}

TEST(frmSettings, WhatOkWroteIsThereBeforeTheDialogHides) {
    FakeSettings settings;
    frmSettings form(settings);
    form.Form.Visible = true;
    form.Text1.Value = u"33";
    Text seen;
    form.Form.Visible.Change.ConnectForLife([&] { seen = settings.Stored(u"TitleLengthLimit"); });
    form.cmdOK.Click();
    EXPECT_EQ(seen, u"33");
}

TEST(frmSettings, AGreyBoxCountsAsFalse) {
    FakeSettings settings;
    frmSettings form(settings);
    form.chkOpenNew.Value = CheckState::Grey;
    form.cmdOK.Click();
    EXPECT_EQ(settings.Stored(u"OpenNewInFront"), u"false");
}

TEST(frmSettings, CancelLeavesEveryStoredValueAsItWas) {
    FakeSettings settings;
    settings.Put(u"TitleLengthLimit", u"5");
    const auto before = settings.texts;
    frmSettings form(settings);
    form.Form.Visible = true;
    form.chkTabsUp.Tick(false);
    form.chkLimitTitleLength.Tick(false);
    form.cmdCancel.Click();
    EXPECT_EQ(settings.texts, before);
    EXPECT_TRUE(settings.written.empty());
    EXPECT_FALSE(form.Apply);
    EXPECT_FALSE(form.Form.Visible());
}

TEST(frmSettings, ANumberBeyond32BitsKeepsTheOldLimitAndTheOthersAreWritten) {
    FakeSettings settings;
    settings.Put(u"TitleLengthLimit", u"5");
    frmSettings form(settings);
    form.Text1.Value = u"2147483648";
    form.chkTabsUp.Tick(false);
    form.chkCloseTessaGroups.Tick(true);
    form.cmdOK.Click();
    EXPECT_EQ(settings.Stored(u"TitleLengthLimit"), u"5");
    EXPECT_EQ(settings.Stored(u"TabsUp"), u"false");
    EXPECT_EQ(settings.Stored(u"TGCloseOthersFirst"), u"true");
    EXPECT_TRUE(form.Apply);
}

TEST(frmSettings, AWriteThatFailsIsSkippedAndTheOthersAreWritten) {
    FakeSettings settings;
    settings.refuse.insert(u"RememberLastSites");
    frmSettings form(settings);
    form.chkRememberAndOpenLastSites.Tick(false);
    form.chkOpenNew.Tick(false);
    const std::size_t skipped = SkippedSteps();
    form.cmdOK.Click();
    EXPECT_EQ(SkippedSteps(), skipped + 1);
    EXPECT_EQ(settings.Stored(u"RememberLastSites"), u"(none)");
    EXPECT_EQ(settings.Stored(u"OpenNewInFront"), u"false");
    EXPECT_EQ(settings.Stored(u"AllowMultipleInstances"), u"false");
    EXPECT_TRUE(form.Apply);
    EXPECT_FALSE(form.Form.Visible());
}

} // namespace

} // namespace tessa
