// The page of the Internet Options about what is remembered, and its part of clearing.
#include "settings/frmInternetOptions.h"

#include "tests/fakes/FakeSettings.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

class HistoryOptionsTest : public testing::Test {
protected:
    FakeSettings m_storage;
    BrowsingData m_cleared;
    frmInternetOptions m_form{m_storage,
                              {.clear = [this](const BrowsingData& data, const Forgotten&) { m_cleared = data; }}};

    HistoryValues Kept() { return HistorySettings(m_storage).Get(); }
};

TEST_F(HistoryOptionsTest, ShowAndKeepWhatIsSet) {
    EXPECT_FALSE(m_form.chkHistoryNothing.Ticked());
    EXPECT_TRUE(m_form.chkHistoryTexts.Ticked());
    EXPECT_EQ(m_form.txtHistoryDays.Value(), u"90");
    EXPECT_EQ(m_form.txtHistoryMegabytes.Value(), u"500");
    m_form.chkHistoryTexts.Tick(false);
    m_form.txtHistoryDays.Value = u" 7 ";
    m_form.txtHistoryMegabytes.Value = u"100";
    m_form.txtHistoryLeftOut.Value = u" bank.example ";
    m_form.cmdOK.Click();
    EXPECT_TRUE(m_form.Apply);
    EXPECT_EQ(Kept(), (HistoryValues{.texts = false, .days = 7, .megabytes = 100, .leftOut = u"bank.example"}));
}

TEST_F(HistoryOptionsTest, WhereNothingIsRememberedTheRestIsOfNoUse) {
    m_form.chkHistoryNothing.Tick(true);
    EXPECT_FALSE(m_form.chkHistoryTexts.Enabled());
    for (const TextBox* box : {&m_form.txtHistoryDays, &m_form.txtHistoryMegabytes, &m_form.txtHistoryLeftOut})
        EXPECT_FALSE(box->Enabled());
    m_form.txtHistoryDays.Value = u"many";
    m_form.cmdOK.Click();
    EXPECT_TRUE(m_form.Apply);
    EXPECT_TRUE(Kept().nothing);
    EXPECT_EQ(Kept().days, 90);
}

TEST_F(HistoryOptionsTest, WhatIsNoTimeOrNoRoomIsSaid) {
    bool led = false;
    const Connection days = m_form.txtHistoryDays.SetFocus.Connect([&led] { led = true; });
    for (const Text wrong : {u"0", u"-1", u"many", u"", u"3651"}) {
        led = false;
        m_form.txtHistoryDays.Value = wrong;
        m_form.cmdOK.Click();
        EXPECT_FALSE(m_form.Apply);
        EXPECT_TRUE(led) << ToUtf8(wrong);
        EXPECT_EQ(m_form.lblHistoryBad.Caption(), u"Pages are forgotten after 1 to 3650 days.");
    }
    m_form.txtHistoryDays.Value = u"90";
    m_form.txtHistoryMegabytes.Value = u"5";
    m_form.cmdOK.Click();
    EXPECT_EQ(m_form.lblHistoryBad.Caption(), u"The history takes 10 to 100000 megabytes.");
    EXPECT_EQ(Kept(), HistoryValues());
}

TEST_F(HistoryOptionsTest, IsClearedSinceATime) {
    EXPECT_FALSE(m_form.cmdClear.Enabled());
    m_form.chkClearHistory.Tick(true);
    EXPECT_TRUE(m_form.cmdClear.Enabled());
    EXPECT_TRUE(m_form.cboSince.Enabled());
    m_form.cboSince.Index = 1;
    m_form.cmdClear.Click();
    EXPECT_EQ(m_cleared, (BrowsingData{.history = true, .seconds = 24 * 3600}));
    EXPECT_FALSE(m_form.chkClearHistory.Ticked());
}

} // namespace

} // namespace tessa
