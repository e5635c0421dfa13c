#include "tests/Desk.h"

namespace tessa {

namespace {

class MainKeyboardTest : public testing::Test {
protected:
    void SetUp() override {
        desk.StartWithTabs(3);
        CommandBar& bar = desk.Bar();
        view += bar.FocusWanted.Connect(
            [this](Band& band, Tool& tool) { focused = ToUtf8(band.Name()) + "." + ToUtf8(tool.Name()); });
        view += bar.MenuWanted.Connect([this](Tool& tool) { opened += ToUtf8(tool.Name()) + ";"; });
        view += bar.StepWanted.Connect([this](BarStep step) {
            steps += step == BarStep::MenuBar ? "menu;" : step == BarStep::Next ? "next;" : "previous;";
        });
    }

    Desk desk;
    std::string focused, opened, steps;
    Connections view;
};

TEST_F(MainKeyboardTest, WhatIsTypedOverABlankPageIsForTheAddressBox) {
    desk.PageLoads(1, u"http://one/", u"One");
    desk.TypeOverPage();
    EXPECT_EQ(focused, "");
    desk.NewTab(InFront::Yes);
    desk.TypeOverPage();
    EXPECT_EQ(focused, "bndAddress.cboAddress");
}

constexpr std::int32_t kCtrlShift = Keys::kCtrl | Keys::kShift;

TEST_F(MainKeyboardTest, CtrlTabGoesRoundTheTabs) {
    EXPECT_EQ(desk.Press({Keys::kTab, Keys::kCtrl}), KeyUsed::No) << "the table does not clear the key";
    EXPECT_EQ(desk.Strip(), "1 [2*] 3");
    desk.Press({Keys::kTab, kCtrlShift});
    desk.Press({Keys::kTab, kCtrlShift});
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
}

TEST_F(MainKeyboardTest, OtherModifiersWithTabDoNothing) {
    desk.Press({Keys::kTab, Keys::kCtrl | Keys::kAlt});
    desk.Press({Keys::kTab, kCtrlShift | Keys::kAlt});
    desk.Press({Keys::kTab, Keys::kShift});
    desk.Press({Keys::kTab, 0});
    EXPECT_EQ(desk.Strip(), "[1*] 2 3");
    desk.Press({Keys::kTab, Keys::kCtrl | 8});
    EXPECT_EQ(desk.Strip(), "1 [2*] 3") << "only the three bits count";
}

TEST_F(MainKeyboardTest, AltDAndAltRReachTheBoxesWhateverElseIsHeld) {
    desk.Press({'D', Keys::kAlt});
    EXPECT_EQ(focused, "bndAddress.cboAddress");
    desk.Press({'R', Keys::kAlt | Keys::kShift});
    EXPECT_EQ(focused, "bndSearch.cboSearch");
    desk.Press({'D', Keys::kAlt | kCtrlShift});
    EXPECT_EQ(focused, "bndAddress.cboAddress");
    focused.clear();
    desk.Press({'D', 0});
    EXPECT_EQ(focused, "");
}

TEST_F(MainKeyboardTest, AKeyThatTheBarUsesIsCleared) {
    EXPECT_EQ(desk.Press({'T', Keys::kCtrl}), KeyUsed::Yes);
    EXPECT_EQ(desk.Strip(), "1 [4*] 2 3");
    EXPECT_EQ(desk.Press({'A', 0}), KeyUsed::No);
}

TEST_F(MainKeyboardTest, AKeyUpThatTheBarUsesIsClearedToo) {
    desk.Press({'T', Keys::kCtrl});
    EXPECT_EQ(desk.Release({'T', Keys::kCtrl}), KeyUsed::Yes);
    desk.Press({'A', 0});
    EXPECT_EQ(desk.Release({'A', 0}), KeyUsed::No);
    desk.Press({Keys::kTab, Keys::kCtrl});
    EXPECT_EQ(desk.Release({Keys::kTab, Keys::kCtrl}), KeyUsed::No) << "the table does not clear the key";
}

TEST_F(MainKeyboardTest, AKeyOfTheTableReachesTheBarToo) {
    desk.Bar().SetShortcuts({{u"mnuNewBlank", {'D', Keys::kAlt}}, {u"mnuClose", {Keys::kTab, Keys::kCtrl}}});
    EXPECT_EQ(desk.Press({'D', Keys::kAlt}), KeyUsed::Yes);
    EXPECT_EQ(focused, "bndAddress.cboAddress");
    EXPECT_EQ(desk.Strip(), "1 [4*] 2 3");
    EXPECT_EQ(desk.Press({Keys::kTab, Keys::kCtrl}), KeyUsed::Yes);
    EXPECT_EQ(desk.Strip(), "1 4 [3*]") << "the next tab was shown, then closed";
}

TEST_F(MainKeyboardTest, AKeyOfTheTableThatTheUserHasChosenForAToolIsThatToolsAlone) {
    KeyTable& table = desk.Bar().Combinations;
    table.Choose(u"mnuNewBlank", {{'D', Keys::kAlt}});
    table.Choose(u"mnuClose", {{Keys::kTab, Keys::kCtrl}});
    EXPECT_EQ(desk.Press({'D', Keys::kAlt}), KeyUsed::Yes);
    EXPECT_EQ(focused, "");
    EXPECT_EQ(desk.Strip(), "1 [4*] 2 3");
    EXPECT_EQ(desk.Press({'D', Keys::kAlt | Keys::kShift}), KeyUsed::No);
    EXPECT_EQ(focused, "bndAddress.cboAddress") << "only that one was chosen";
    EXPECT_EQ(desk.Press({Keys::kTab, Keys::kCtrl}), KeyUsed::Yes);
    EXPECT_EQ(desk.Strip(), "1 [2*] 3") << "closed, and no other tab shown before";
    EXPECT_EQ(desk.Press({'T', Keys::kCtrl}), KeyUsed::No) << "its old key";
    table.ResetAll();
    desk.Press({Keys::kTab, Keys::kCtrl});
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
}

TEST_F(MainKeyboardTest, AChosenF6GoesBeforeTheWayRoundTheWindow) {
    desk.Bar().Combinations.Choose(u"mnuNewBlank", {{Keys::kF6, 0}});
    desk.Press({Keys::kF6, 0});
    EXPECT_EQ(steps, "");
    EXPECT_EQ(desk.Strip(), "1 [4*] 2 3");
}

TEST_F(MainKeyboardTest, EscapeStopsThePageUnlessItLeadsAwayFromATool) {
    struct Row {
        KeyStroke key;
        KeyboardOn keyboard;
        KeyUsed used;
        bool stops;
    };
    const std::vector<Row> rows{{{Keys::kEscape, 0}, KeyboardOn::Other, KeyUsed::Yes, true},
                                {{Keys::kEscape, 0}, KeyboardOn::Tool, KeyUsed::No, false},
                                {{Keys::kEscape, Keys::kShift}, KeyboardOn::Tool, KeyUsed::Yes, true},
                                {{Keys::kF6, 0}, KeyboardOn::Tool, KeyUsed::Yes, false}};
    desk.Bar().Find(u"mnuStop")->Enabled = true;
    for (const Row& row : rows) {
        desk.views.Calls(1);
        EXPECT_EQ(desk.Press(row.key, row.keyboard), row.used) << row.key.KeyCode << "," << row.key.Shift;
        const std::string called = desk.views.Calls(1);
        EXPECT_EQ(called.find("stop") != std::string::npos, row.stops) << called;
    }
    // The window's own combinations hold everywhere.
    desk.Press({Keys::kTab, Keys::kCtrl}, KeyboardOn::Tool);
    EXPECT_EQ(desk.Strip(), "1 [2*] 3");
}

TEST_F(MainKeyboardTest, TheBoxesHaveCombinationsOfTheirOwn) {
    EXPECT_EQ(desk.Press({'L', Keys::kCtrl}), KeyUsed::Yes);
    EXPECT_EQ(focused, "bndAddress.cboAddress");
    EXPECT_EQ(desk.Press({'K', Keys::kCtrl}), KeyUsed::Yes);
    EXPECT_EQ(focused, "bndSearch.cboSearch");
}

TEST_F(MainKeyboardTest, F6GoesRoundTheWindowAndF10AndAltAloneToTheMenuBar) {
    EXPECT_EQ(desk.Press({Keys::kF6, 0}), KeyUsed::Yes);
    EXPECT_EQ(desk.Press({Keys::kF6, Keys::kShift}), KeyUsed::Yes);
    EXPECT_EQ(desk.Press({Keys::kF10, 0}), KeyUsed::Yes);
    EXPECT_EQ(desk.Release({Keys::kF10, 0}), KeyUsed::Yes);
    EXPECT_EQ(desk.Release({Keys::kAltAlone, 0}), KeyUsed::Yes);
    EXPECT_EQ(steps, "next;previous;menu;menu;");
    steps.clear();
    EXPECT_EQ(desk.Press({Keys::kF10, Keys::kShift}), KeyUsed::No) << "is for the page's own menu";
    EXPECT_EQ(desk.Press({Keys::kF6, Keys::kCtrl}), KeyUsed::No);
    EXPECT_EQ(desk.Press({Keys::kF6, Keys::kAlt}), KeyUsed::No);
    EXPECT_EQ(steps, "");
    EXPECT_EQ(desk.Strip(), "[1*] 2 3");
}

TEST_F(MainKeyboardTest, WithoutAViewNoKeyLeadsAnywhere) {
    view.End();
    EXPECT_EQ(desk.Press({Keys::kF6, 0}), KeyUsed::No);
    EXPECT_EQ(desk.Release({Keys::kAltAlone, 0}), KeyUsed::No);
    EXPECT_EQ(desk.Press({'M', Keys::kAlt}), KeyUsed::Yes);
}

TEST_F(MainKeyboardTest, AltMOpensTheMenuOfMore) {
    EXPECT_EQ(desk.Press({'M', Keys::kAlt}), KeyUsed::Yes);
    EXPECT_EQ(opened, "xtrMore;");
    desk.Bar().SetShortcuts({{u"mnuMail", {'M', Keys::kAlt}}});
    desk.Press({'M', Keys::kAlt});
    EXPECT_EQ(opened, "xtrMore;") << "a tool with a command of its own runs that";
}

TEST_F(MainKeyboardTest, EscapeBelongsToThePageUnlessItLoads) {
    EXPECT_EQ(desk.Press({Keys::kEscape, 0}), KeyUsed::No);
    desk.views.At(1).busy = true;
    desk.PageSaysWhetherItLoads();
    EXPECT_EQ(desk.Press({Keys::kEscape, 0}), KeyUsed::Yes);
}

} // namespace

} // namespace tessa
