// What decides what a click does: the tool's name as a whole or its beginning, and its id.
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace {

class DispatchRulesTest : public testing::Test {
protected:
    void Start(int tabs) {
        desk.StartWithTabs(tabs);
        for (int i = 1; i <= tabs; ++i) desk.views.Calls(i);
    }
    /// Clicks a tool that was made for the occasion.
    void ClickMade(std::int32_t id, TextView name, TextView description = u"") {
        Tool tool(id, Text(name));
        tool.Description = description;
        desk.main.actBar_Click(tool);
    }
    Desk desk;
};

TEST_F(DispatchRulesTest, AGroupsEntryOpensItsFileUpToTheLastId) {
    const TemporaryFolder folder;
    folder.Write("g.tvg", "[TessaGroup]\r\nurl1=http://g/\r\n");
    Start(1);
    ClickMade(150000, u"zzxg", folder.PathText("g.tvg"));
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go http://g/");
    ClickMade(199999, u"zzxg", folder.PathText("g.tvg"));
    EXPECT_EQ(desk.views.Calls(3), "go about:blank, go http://g/");
    ClickMade(200000, u"zzxg", folder.PathText("g.tvg"));
    ClickMade(149999, u"zzxg", folder.PathText("g.tvg"));
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
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

TEST_F(DispatchRulesTest, NamesThatBeginLikeTheResizeCommandsResizeABoxWhateverTheId) {
    Start(1);
    std::string resized;
    desk.main.Commands.host.ResizeAddress = [&] { resized += "address;"; };
    desk.main.Commands.host.ResizeSearch = [&] { resized += "search;"; };
    ClickMade(1, u"mnuResizeAddress");
    EXPECT_EQ(std::exchange(resized, {}), "address;");
    for (const TextView name :
         {u"mnuResizeSearch", u"mnuResizeAddressBar", u"mnuResizeaddress", u"mnuResume", u"mnuRes"})
        ClickMade(50000, name);
    EXPECT_EQ(std::exchange(resized, {}), "search;search;search;search;search;");
    ClickMade(150000, u"mnuResX", u"/g.tvg");
    EXPECT_EQ(std::exchange(resized, {}), "search;");
    for (const TextView name : {u"mnuRe", u"mnures", u"MnuResize", u" mnuResize"}) ClickMade(1, name);
    EXPECT_EQ(resized, "");
    EXPECT_EQ(desk.views.Calls(1), "");
    EXPECT_EQ(desk.Strip(), "[1*]");
}

} // namespace
