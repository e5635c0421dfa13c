// Tests: SeveralTabs
#include "commands/effects/ChosenCommands.h"

#include "tabs/frmRenameTab.h"
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

using namespace std::chrono_literals;

/// Five tabs, of which some are chosen.
class ChosenCommandsTest : public testing::Test {
protected:
    ChosenCommandsTest() {
        desk.StartWithTabs(5);
        for (int i = 1; i <= 5; ++i) desk.views.At(i).location = u"http://" + Decimal(i) + u"/";
    }
    [[nodiscard]] std::string Muted() {
        std::string all;
        for (int i = 1; i <= 5; ++i) all += desk.views.At(i).muted ? std::to_string(i) : "";
        return all;
    }

    TemporaryFolder folder;
    Desk desk;
};

TEST_F(ChosenCommandsTest, WithoutAChoiceThereIsNothingToDo) {
    for (const TextView name : {u"xtrChosenClose", u"xtrChosenMute", u"xtrChosenSleep", u"xtrChosenSaveAsTessaGroup",
                                u"xtrChosenAddToTessaGroup", u"xtrChosenCopyAddresses", u"xtrChosenNone"}) {
        EXPECT_FALSE(desk.Tool(name).Enabled()) << ToUtf8(name);
        desk.Click(name);
    }
    EXPECT_EQ(desk.Strip(), "[1*] 2 3 4 5");
    desk.Click(u"xtrChosenAll");
    EXPECT_TRUE(desk.Tool(u"xtrChosenClose").Enabled());
    desk.Click(u"xtrChosenNone");
    EXPECT_FALSE(desk.Tool(u"xtrChosenClose").Enabled());
}

TEST_F(ChosenCommandsTest, ClosesTheFrontLast) {
    desk.ChooseTabs({1, 2, 4});
    desk.Click(u"xtrChosenClose");
    EXPECT_EQ(desk.Strip(), "[3*] 5");
    EXPECT_FALSE(desk.HasChosenTabs());
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.CountTabs(), 5u) << "they come back together";
}

TEST_F(ChosenCommandsTest, AllOfThemAskAsTheLastOneDoes) {
    desk.Click(u"xtrChosenAll");
    desk.messages.answer = Answer::No;
    desk.Click(u"xtrChosenClose");
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.messages.asked.size(), 1u);
}

TEST_F(ChosenCommandsTest, SilencesAllUnlessAllAreSilent) {
    desk.ChooseTabs({2, 3});
    desk.views.At(2).muted = true;
    desk.Click(u"xtrChosenMute");
    EXPECT_EQ(Muted(), "23");
    desk.Click(u"xtrChosenMute");
    EXPECT_EQ(Muted(), "");
}

TEST_F(ChosenCommandsTest, SleepsWhereItMayAndSaysSo) {
    desk.steady.now = 10min;
    desk.ChooseTabs({2, 3});
    desk.Click(u"xtrChosenSleep");
    EXPECT_TRUE(desk.views.At(2).asleep && desk.views.At(3).asleep);
    EXPECT_FALSE(desk.views.At(4).asleep);
    EXPECT_EQ(desk.Said(), "The tabs sleep.");
    desk.ChooseTabs({1, 3, 4});
    desk.Click(u"xtrChosenSleep");
    EXPECT_EQ(desk.Said(), "2 tabs sleep. What is in front, plays, loads or holds typed text stays awake.");
    desk.ChooseTabs({5});
    desk.views.At(5).activity.HoldsInput = true;
    desk.Click(u"xtrChosenSleep");
    EXPECT_EQ(desk.Said(), "What is in front, plays, loads or holds typed text stays awake.");
    desk.OpenTabMenu(4);
    desk.Click(u"xtrTabSleep");
    EXPECT_EQ(desk.Said(), "The tab sleeps.");
}

TEST_F(ChosenCommandsTest, ThePopUpOfAChosenTabIsAboutAll) {
    desk.ChooseTabs({2, 3});
    desk.OpenTabMenu(3);
    EXPECT_EQ(ToUtf8(desk.Tool(u"mnuTabClose").Caption()), "&Close 2 Tabs");
    desk.Click(u"xtrTabMute");
    EXPECT_EQ(Muted(), "23");
    desk.Click(u"xtrTabCopyAddress");
    EXPECT_EQ(ToUtf8(desk.input.copied), "http://2/\nhttp://3/");
    desk.Click(u"mnuTabClose");
    EXPECT_EQ(desk.Strip(), "[1*] 4 5");
}

TEST_F(ChosenCommandsTest, ThePopUpOfAnotherTabIsAboutThatAlone) {
    desk.ChooseTabs({2, 3});
    desk.OpenTabMenu(4);
    EXPECT_EQ(ToUtf8(desk.Tool(u"mnuTabClose").Caption()), "&Close");
    desk.Click(u"xtrTabMute");
    EXPECT_EQ(Muted(), "4");
    desk.Click(u"mnuTabClose");
    EXPECT_EQ(desk.Strip(), "[1*] 2 3 5");
}

TEST_F(ChosenCommandsTest, TheOthersAreThoseThatAreNotChosen) {
    desk.ChooseTabs({2, 3});
    desk.OpenTabMenu(3);
    desk.Click(u"xtrTabCloseOthers");
    EXPECT_EQ(desk.Strip(), "2 [3*]");
    desk.Click(u"xtrChosenAll");
    desk.OpenTabMenu(1);
    EXPECT_FALSE(desk.Tool(u"xtrTabCloseOthers").Enabled());
}

TEST_F(ChosenCommandsTest, SavesThemAsAGroup) {
    desk.ChooseTabs({2, 4});
    desk.files.chosen = folder.PathText("two.tvg");
    desk.Click(u"xtrChosenSaveAsTessaGroup");
    EXPECT_EQ(folder.Read("two.tvg"), "[TessaGroup]\r\nurl1=http://2/\r\nurl2=http://4/\r\n");
}

TEST_F(ChosenCommandsTest, AddsThemToAGroup) {
    folder.Write("old.tvg", "[TessaGroup]\r\nurl1=http://old/\r\n");
    desk.ChooseTabs({2, 4});
    desk.files.chosen = folder.PathText("old.tvg");
    desk.Click(u"xtrChosenAddToTessaGroup");
    EXPECT_EQ(folder.Read("old.tvg"), "[TessaGroup]\r\nurl1=http://old/\r\nurl2=http://2/\r\nurl3=http://4/\r\n");
}

TEST_F(ChosenCommandsTest, LiesSideBySide) {
    desk.ChooseTabs({2, 4});
    desk.Click(u"xtrTileColumns");
    EXPECT_EQ(desk.views.Shown(), "2* 4") << "one of them comes to the front";
    desk.ChooseTabs({3, 5});
    desk.Click(u"xtrTileMain");
    EXPECT_EQ(desk.views.Shown(), "3* 5");
}

TEST_F(ChosenCommandsTest, ATabIsRenamedByItsPopUp) {
    desk.OpenTabMenu(2);
    desk.inRenameTab = [](frmRenameTab& form) {
        form.txtName.Value = u"Mail";
        form.cmdOK.Click();
    };
    desk.Click(u"xtrTabRename");
    EXPECT_EQ(desk.TabAt(2).Name(), u"Mail");
    EXPECT_TRUE(desk.Describe(desk.TabAt(2)).starts_with(u"Mail\n"));
    desk.inRenameTab = [this](frmRenameTab& form) {
        desk.Close(2);
        form.cmdOK.Click();
    };
    desk.Click(u"xtrTabRename");
    EXPECT_EQ(desk.CountTabs(), 4u) << "it may close behind the question";
}

TEST_F(ChosenCommandsTest, EscapeEndsTheChoiceAndIsUsed) {
    desk.ChooseTabs({2, 3});
    EXPECT_EQ(desk.Press({Keys::kEscape, 0}), KeyUsed::Yes);
    EXPECT_FALSE(desk.HasChosenTabs());
    desk.ChooseTabs({2, 3});
    EXPECT_EQ(desk.Press({Keys::kEscape, 0}, KeyboardOn::Tool), KeyUsed::No);
    EXPECT_TRUE(desk.HasChosenTabs()) << "it leads away from the tool";
}

TEST_F(ChosenCommandsTest, ANameComesBackWithItsTab) {
    desk.NameTab(3, u"Mail");
    desk.Close(3);
    desk.Click(u"xtrReopenTab");
    EXPECT_EQ(desk.TabAt(3).Name(), u"Mail");
}

} // namespace

} // namespace tessa
