#include "window/frmDefBrowser.h"

#include "tests/Desk.h"

namespace tessa {

namespace {

using Calls = std::vector<std::string>;

class DefBrowserTest : public testing::Test {
protected:
    FakeSettings m_settings;
    FakeDefaultBrowser m_helper;
    frmDefBrowser m_form{m_settings, m_helper, u"/programs/tessaview"};

    void SetUp() override {
        m_helper.isDefault = false;
        m_form.Form.Visible = true;
    }
};

TEST_F(DefBrowserTest, ShowsItsTexts) {
    EXPECT_EQ(m_form.Caption, u"TessaView");
    EXPECT_EQ(m_form.Label1.Caption(), u"TessaView is not currently your default browser.");
    EXPECT_EQ(m_form.Label2.Caption(), u"Would you like to make it your default browser?");
    EXPECT_EQ(m_form.Check1.Caption, u"&Always perform this check when starting TessaView.");
    EXPECT_EQ(m_form.cmdYes.Caption(), u"&Yes");
    EXPECT_EQ(m_form.cmdNo.Caption(), u"&No");
    EXPECT_TRUE(m_form.Check1.Ticked());
}

TEST_F(DefBrowserTest, YesMakesTheProgramTheDefaultAndHides) {
    m_form.cmdYes.Click();
    EXPECT_EQ(m_helper.calls, Calls{"make TessaView3 /programs/tessaview"});
    EXPECT_TRUE(m_settings.written.empty()) << "a ticked box leaves the setting as it was";
    EXPECT_FALSE(m_form.Form.Visible());
}

TEST_F(DefBrowserTest, YesWithTheBoxUncheckedStopsAskingToo) {
    m_form.Check1.Tick(false);
    m_form.cmdYes.Click();
    EXPECT_EQ(m_helper.calls, Calls{"make TessaView3 /programs/tessaview"});
    EXPECT_EQ(m_settings.Stored(u"AskDefaultBrowser"), u"false");
    EXPECT_FALSE(m_form.Form.Visible());
}

TEST_F(DefBrowserTest, NoHidesAndLeavesEverythingAsItWas) {
    m_form.cmdNo.Click();
    EXPECT_TRUE(m_helper.calls.empty());
    EXPECT_TRUE(m_settings.written.empty());
    EXPECT_FALSE(m_form.Form.Visible());
}

TEST_F(DefBrowserTest, NoWithTheBoxUncheckedStopsAsking) {
    m_form.Check1.Tick(false);
    m_form.cmdNo.Click();
    EXPECT_TRUE(m_helper.calls.empty());
    EXPECT_EQ(m_settings.Stored(u"AskDefaultBrowser"), u"false");
    EXPECT_FALSE(m_form.Form.Visible());
}

TEST_F(DefBrowserTest, ClosesThoughNeitherHelperNorStoreObeys) {
    const std::size_t before = SkippedSteps();
    m_helper.refuses = true;
    m_settings.refuseAll = true;
    m_form.Check1.Tick(false);
    m_form.cmdYes.Click();
    EXPECT_EQ(SkippedSteps() - before, 2u);
    EXPECT_FALSE(m_form.Form.Visible());
}

class AtTheStart : public testing::Test {
protected:
    FakeSettings m_settings;
    int m_asked = 0;

    /// One start on the same settings; `answer` is what the user does when asked.
    Calls Start(bool isDefault, const std::function<void(frmDefBrowser&)>& answer = {}) {
        Desk desk(&m_settings);
        desk.defaultBrowser.isDefault = isDefault;
        desk.inDefBrowser = [&](frmDefBrowser& form) {
            ++m_asked;
            EXPECT_EQ(m_settings.open, 0) << "a store is held while the question is open";
            EXPECT_EQ(desk.Strip(), "") << "asked before the first tab is there";
            if (answer) answer(form);
        };
        desk.Start();
        EXPECT_EQ(desk.Strip(), "[1*]");
        return desk.defaultBrowser.calls;
    }
};

TEST_F(AtTheStart, TheDefaultBrowserIsNotAskedAbout) {
    EXPECT_EQ(Start(true), Calls{"query TessaView3 /programs/tessaview"});
    EXPECT_EQ(m_asked, 0);
}

TEST_F(AtTheStart, AnotherDefaultBrowserBringsTheQuestion) {
    EXPECT_EQ(Start(false), Calls{"query TessaView3 /programs/tessaview"});
    EXPECT_EQ(m_asked, 1);
}

TEST_F(DefBrowserTest, AStartMayAskUnlessItIsSwitchedOffOrNotNeeded) {
    struct Row {
        const char16_t* setting;
        bool known, mayAsk;
    };
    for (const Row& row : {Row{u"true", false, true}, Row{u"true", true, false}, Row{u"false", false, false},
                           Row{u"false", true, false}}) {
        m_settings.Put(u"AskDefaultBrowser", row.setting);
        m_helper.known = row.known;
        EXPECT_EQ(frmDefBrowser::MayAsk(m_settings, m_helper), row.mayAsk) << row.known;
    }
    EXPECT_TRUE(m_helper.calls.empty()) << "the desktop itself is not asked";
}

TEST_F(AtTheStart, NothingIsQueriedWhenTheSettingIsOff) {
    m_settings.Put(u"AskDefaultBrowser", u"false");
    EXPECT_EQ(Start(false), Calls{});
    EXPECT_EQ(m_asked, 0);
}

TEST_F(AtTheStart, NoWithTheBoxCheckedIsAskedAgain) {
    Start(false, [](frmDefBrowser& form) { form.cmdNo.Click(); });
    Start(false, [](frmDefBrowser& form) { form.cmdNo.Click(); });
    EXPECT_EQ(m_asked, 2);
}

TEST_F(AtTheStart, NoWithTheBoxUncheckedIsNeverAskedAgainUntilTheSettingIsOn) {
    Start(false, [](frmDefBrowser& form) {
        form.Check1.Tick(false);
        form.cmdNo.Click();
    });
    EXPECT_EQ(Start(false), Calls{});
    EXPECT_EQ(m_asked, 1);
    m_settings.Put(u"AskDefaultBrowser", u"true");
    Start(false);
    EXPECT_EQ(m_asked, 2);
}

TEST_F(AtTheStart, YesWithTheBoxCheckedIsCheckedAgainButNotAsked) {
    const Calls first = Start(false, [](frmDefBrowser& form) { form.cmdYes.Click(); });
    EXPECT_EQ(first, (Calls{"query TessaView3 /programs/tessaview", "make TessaView3 /programs/tessaview"}));
    EXPECT_EQ(Start(true), Calls{"query TessaView3 /programs/tessaview"});
    EXPECT_EQ(m_asked, 1);
}

} // namespace

} // namespace tessa
