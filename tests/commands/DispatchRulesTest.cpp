// What decides what a click does: the tool's name as a whole or its beginning, and what it is made from.
#include "commands/frmResize.h"
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

class DispatchRulesTest : public testing::Test {
protected:
    void Start(int tabs) {
        desk.StartWithTabs(tabs);
        for (int i = 1; i <= tabs; ++i) desk.views.Calls(i);
    }
    /// Clicks a tool that was made for the occasion.
    void ClickMade(ToolSource source, TextView name) { desk.ClickMade(Tool(std::move(source), 0, Text(name))); }
    Desk desk;
};

TEST_F(DispatchRulesTest, AGroupsEntryOpensItsFile) {
    const TemporaryFolder folder;
    folder.Write("g.tvg", "[TessaGroup]\r\nurl1=http://g/\r\n");
    Start(1);
    ClickMade(MadeFrom::Group{folder.PathText("g.tvg")}, u"zzxg");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go http://g/");
    ClickMade(MadeFrom::FavoriteFolder{folder.PathText("g.tvg")}, u"zzxg");
    ClickMade({}, u"zzxg");
    EXPECT_EQ(desk.Strip(), "1 [2*]");
}

TEST_F(DispatchRulesTest, CloseAllLeavesTheLeftmostTabAndBlanksIt) {
    Start(3);
    desk.ClickTab(2);
    desk.Click(u"mnuCloseAll");
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank");
    desk.Click(u"mnuCloseAll");
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank");
    EXPECT_TRUE(desk.messages.asked.empty()) << "the last tab stays, so there is nothing to ask";
}

TEST_F(DispatchRulesTest, NamesThatBeginLikeTheResizeCommandsResizeABoxWhateverTheToolIsMadeFrom) {
    Start(1);
    std::string resized;
    desk.inResize = [&](frmResize& form) {
        const auto& address = desk.Combo(u"cboAddress").Width;
        const Pixels before = address();
        form.cmdResize[4].Click();
        resized += address() == before ? "search;" : "address;";
    };
    ClickMade({}, u"mnuResizeAddress");
    EXPECT_EQ(std::exchange(resized, {}), "address;");
    for (const TextView name :
         {u"mnuResizeSearch", u"mnuResizeAddressBar", u"mnuResizeaddress", u"mnuResume", u"mnuRes"})
        ClickMade(MadeFrom::FavoriteLink{Text(name)}, name);
    EXPECT_EQ(std::exchange(resized, {}), "search;search;search;search;search;");
    ClickMade(MadeFrom::Group{u"/g.tvg"}, u"mnuResX");
    EXPECT_EQ(std::exchange(resized, {}), "search;");
    for (const TextView name : {u"mnuRe", u"mnures", u"MnuResize", u" mnuResize"}) ClickMade({}, name);
    EXPECT_EQ(resized, "");
    EXPECT_EQ(desk.views.Calls(1), "");
    EXPECT_EQ(desk.Strip(), "[1*]");
}

} // namespace

} // namespace tessa
