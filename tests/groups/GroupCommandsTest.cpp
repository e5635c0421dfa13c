// Tests: LoadProgress
#include "tests/Desk.h"
#include "tests/fakes/FullDisk.h"
#include "tests/fakes/System.h"
#include "tests/fakes/TemporaryFolder.h"

#include <filesystem>

namespace tessa {

namespace {

struct Group : TemporaryFolder {
    explicit Group(const std::vector<std::string>& addresses) {
        std::string bytes = "[TessaGroup]\r\n";
        for (std::size_t i = 0; i < addresses.size(); ++i) {
            bytes += "url" + std::to_string(i + 1) + "=" + addresses[i] + "\r\n";
        }
        Write("group.tvg", bytes);
    }
    [[nodiscard]] Text File() const { return PathText("group.tvg"); }
};

TEST(OpenTessaGroup, ThreeAddressesBesideTwoTabsMakeFiveTheLastSelected) {
    const Group group({"http://a/", "http://b/", "http://c/"});
    Desk desk;
    desk.StartWithTabs(2);
    desk.OpenGroup(group.File());
    EXPECT_EQ(desk.Strip(), "1 3 4 [5*] 2");
    EXPECT_EQ(desk.views.Calls(3), "go about:blank, go http://a/");
    EXPECT_EQ(desk.views.Calls(5), "go about:blank, go http://c/");
    EXPECT_EQ(desk.views.front, 5);
}

TEST(OpenTessaGroup, WithTheOthersClosedFirstTheFirstTabShowsTheFirstAddress) {
    const Group group({"http://a/", "http://b/", "http://c/"});
    Desk desk;
    desk.StartWithTabs(4);
    desk.ClickTab(3);
    desk.views.Calls(1);
    desk.Set(u"TGCloseOthersFirst", u"true");
    desk.OpenGroup(group.File());
    EXPECT_EQ(desk.Strip(), "1 5 [6*]");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank, go http://a/");
    EXPECT_TRUE(desk.messages.asked.empty());
}

TEST(OpenTessaGroup, AnEmptyGroupWithTheOthersClosedFirstLeavesABlankTab) {
    const Group group({});
    Desk desk;
    desk.StartWithTabs(3);
    desk.views.Calls(1);
    desk.Set(u"TGCloseOthersFirst", u"true");
    desk.OpenGroup(group.File());
    EXPECT_EQ(desk.Strip(), "[1*]");
    EXPECT_EQ(desk.views.Calls(1), "go about:blank");
}

TEST(OpenTessaGroup, AMissingFileOpensNothing) {
    Desk desk;
    desk.StartWithTabs(2);
    desk.OpenGroup(u"/nowhere/group.tvg");
    EXPECT_EQ(desk.Strip(), "[1*] 2");
}

TEST(OpenTessaGroup, AnEmptyAddressIsNavigatedAsItStands) {
    const Group group({"", "http://b/"});
    Desk desk;
    desk.Start();
    desk.OpenGroup(group.File());
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go ");
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
}

TEST(OpenTessaGroup, AGroupOnTheCommandLineOpensBesideABlankTab) {
    const Group group({"http://a/", "http://b/"});
    Desk desk;
    desk.settings.PutList(u"LastSites", {u"http://old/", u"http://older/"});
    desk.Start(group.File());
    EXPECT_EQ(desk.Strip(), "1 2 3 [4*]") << "a group does not keep the last sites from opening beside it";
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go http://a/");
}

TEST(OpenTessaGroup, SeveralGroupsOpenAsOne) {
    const Group one({"http://a/", "http://b/"});
    const Group two({"http://c/"});
    Desk desk;
    desk.StartWithTabs(3);
    desk.Set(u"TGCloseOthersFirst", u"true");
    desk.OpenGroups({one.File(), two.File()});
    EXPECT_EQ(desk.Strip(), "1 4 [5*]");
    EXPECT_EQ(desk.views.Calls(5), "go about:blank, go http://c/");
}

TEST(OpenTessaGroup, AGroupThatCannotBeReadIsNamedInTheStatusBar) {
    Desk desk;
    desk.StartWithTabs(1);
    desk.OpenGroup(u"/nowhere/News.tvg");
    EXPECT_EQ(desk.Said(), "The TessaGroup News could not be read.");
}

/// A desk on which a group of that many addresses has been opened beside the first tab; view 2 shows the first.
struct ManyPages : testing::Test {
    void Open(std::size_t count) {
        desk.Start();
        std::vector<std::string> addresses(count);
        for (std::size_t i = 0; i < count; ++i) addresses[i] = "http://" + std::to_string(i + 2) + "/";
        const Group group(addresses);
        desk.OpenGroup(group.File());
    }
    void Loads(int index) { desk.PageLoads(index, u"http://x/", u"x"); }
    [[nodiscard]] bool StopOffered() const { return desk.OffersStopAll(); }
    Desk desk;
};

TEST_F(ManyPages, TheStatusBarCountsThePagesThatHaveLoaded) {
    Open(40);
    EXPECT_EQ(desk.Status(), "0 of 40 pages loaded");
    EXPECT_TRUE(StopOffered());
    for (int index = 2; index < 14; ++index) Loads(index);
    EXPECT_EQ(desk.Status(), "12 of 40 pages loaded");
    Loads(2);
    EXPECT_EQ(desk.Status(), "12 of 40 pages loaded") << "a page counts once";
    for (int index = 14; index < 42; ++index) Loads(index);
    EXPECT_EQ(desk.Status(), "40 of 40 pages loaded");
    EXPECT_FALSE(StopOffered());
}

TEST_F(ManyPages, AFewPagesLoadWithoutAWord) {
    Open(4);
    EXPECT_EQ(desk.Status(), "");
    EXPECT_FALSE(StopOffered());
    Loads(2);
    EXPECT_EQ(desk.Status(), "");
}

TEST_F(ManyPages, AFrameInAPageDoesNotCount) {
    Open(5);
    auto& events = desk.views.At(3).events;
    events.DocumentComplete(3, PageLevel::Frame, u"http://frame/");
    events.NavigateComplete2(3, PageLevel::Top, u"http://3/");
    EXPECT_EQ(desk.Status(), "0 of 5 pages loaded");
    events.DocumentComplete(3, PageLevel::Top, u"http://3/");
    EXPECT_EQ(desk.Status(), "1 of 5 pages loaded");
}

TEST_F(ManyPages, AClosedTabIsNotWaitedFor) {
    Open(5);
    for (int index = 2; index < 6; ++index) Loads(index);
    EXPECT_TRUE(StopOffered());
    desk.Close(6);
    EXPECT_FALSE(StopOffered());
}

TEST_F(ManyPages, TheFirstTabIsNotWaitedForEitherOnceItIsClosed) {
    const Group group({"http://a/", "http://b/", "http://c/", "http://d/", "http://e/"});
    desk.StartWithTabs(2);
    desk.Set(u"TGCloseOthersFirst", u"true");
    desk.OpenGroup(group.File());
    EXPECT_EQ(desk.Strip(), "1 3 4 5 [6*]");
    desk.Close(1);
    for (int index = 3; index <= 6; ++index) Loads(index);
    EXPECT_EQ(desk.Status(), "5 of 5 pages loaded");
    EXPECT_FALSE(StopOffered());
}

TEST_F(ManyPages, PagesOfASecondGroupAreAddedWhileTheFirstLoads) {
    Open(5);
    Loads(2);
    const Group second({"http://a/", "http://b/"});
    desk.OpenGroup(second.File());
    EXPECT_EQ(desk.Status(), "1 of 7 pages loaded");
    for (int index = 3; index < 9; ++index) Loads(index);
    EXPECT_EQ(desk.Status(), "7 of 7 pages loaded");
    desk.EmptyStatus();
    desk.OpenGroup(second.File());
    EXPECT_EQ(desk.Status(), "") << "the two are counted anew";
}

TEST_F(ManyPages, ThePageInTheSelectedTabCountsToo) {
    const Group group({"http://a/", "http://b/", "http://c/", "http://d/", "http://e/"});
    desk.StartWithTabs(2);
    desk.Set(u"TGCloseOthersFirst", u"true");
    desk.OpenGroup(group.File());
    EXPECT_EQ(desk.Status(), "0 of 5 pages loaded");
    desk.PageLoads(1, u"http://a/", u"A");
    EXPECT_EQ(desk.Status(), "1 of 5 pages loaded");
}

TEST_F(ManyPages, StopAllStopsEveryPageAndNamesThoseThatHadNotBegun) {
    Open(5);
    Loads(2);
    for (int index = 1; index <= 6; ++index) desk.views.Calls(index);
    desk.views.At(4).location = u"http://4/";
    desk.StopAll();
    EXPECT_EQ(desk.Status(), "Stopped: 1 of 5 pages loaded");
    for (int index = 1; index <= 6; ++index) EXPECT_EQ(desk.views.Calls(index), "stop") << index;
    EXPECT_FALSE(StopOffered());
    EXPECT_EQ(desk.TabOf(2).Caption(), u"x");
    EXPECT_EQ(desk.TabOf(4).Caption(), u"http://4/");
    desk.EmptyStatus();
    Loads(3);
    EXPECT_EQ(desk.Status(), "") << "nothing is counted any more";
}

TEST_F(ManyPages, PagesThatSayThatTheyAreDoneBecauseTheyWereStoppedAreNotCounted) {
    Open(6);
    for (int index = 2; index <= 7; ++index)
        desk.views.At(index).stopped = [this, index] {
            desk.views.At(index).events.DocumentComplete(static_cast<std::int16_t>(index), PageLevel::Top, u"");
        };
    desk.StopAll();
    EXPECT_EQ(desk.Status(), "Stopped: 0 of 6 pages loaded");
}

TEST_F(ManyPages, StopAllIsACommandToo) {
    Open(5);
    desk.views.Calls(3);
    desk.Click(u"xtrStopAll");
    EXPECT_EQ(desk.views.Calls(3), "stop");
    EXPECT_FALSE(StopOffered());
}

/// The user chooses a file for a command of the TessaGroups menu.
struct GroupMenu : testing::Test, TemporaryFolder {
    void Click(TextView tool, const std::string& file) {
        desk.files.chosen = file.empty() ? Text() : PathText(file);
        desk.Click(tool);
    }
    Desk desk;
};

TEST_F(GroupMenu, AddWritesTheCurrentPageBehindTheOthers) {
    Write("News.tvg", "[TessaGroup]\r\nurl1=http://a/\r\nurl2=http://b/\r\n");
    desk.StartWithTabs(2);
    desk.views.At(1).location = u"http://page/";
    desk.OpenMenu(u"bndTessaGroupsMenu");
    Click(u"mnuAddToTessaGroup", "News.tvg");
    EXPECT_EQ(Read("News.tvg"), "[TessaGroup]\r\nurl1=http://a/\r\nurl2=http://b/\r\nurl3=http://page/\r\n");
    EXPECT_EQ(desk.Said(), "Added to the TessaGroup News.");
    EXPECT_TRUE(desk.Renews(u"bndTessaGroupsMenu"));
}

struct SavedPanes {
    const char *panes, *places;
    std::vector<Text> saved;
    const char* mended;
};

TEST_F(GroupMenu, WhatIsSavedOverAGroupLeavesItsPanesToTheSamePages) {
    const std::vector<SavedPanes> table{
        {"h(1 2)", "", {u"http://b/", u"http://a/", u"http://c/"}, "h(2 1)"},
        {"h(1 2)", "", {u"http://x/", u"http://a/", u"http://y/", u"http://b/"}, "h(2 4)"},
        {"h(1 v(2 3))", "", {u"http://c/", u"http://a/"}, "h(2 1)"},
        {"h(1 2)", "", {u"http://c/"}, "none"},
        {"h(1 2)", "page1=first http://c/\r\n", {u"http://a/", u"http://c/"}, "h(1 2)"},
        {"h(1 2) linked", "", {u"http://a/", u"http://b/", u"http://c/"}, "h(1 2) linked"},
        {"none", "", {u"http://b/", u"http://a/"}, "none"},
    };
    desk.Start();
    for (const SavedPanes& each : table) {
        Write("p.tvg", "[TessaGroup]\r\n1=http://a/\r\n2=http://b/\r\n3=http://c/\r\n[TessaView]\r\npanes=" +
                           std::string(each.panes) + "\r\n" + each.places + "x=1\r\n");
        desk.messages.answers = {Answer::Yes};
        desk.main.Groups().SaveAddresses(PathText("p.tvg"), each.saved);
        const std::string mended = Read("p.tvg");
        EXPECT_NE(mended.find("panes=" + std::string(each.mended) + "\r\n"), std::string::npos)
            << each.panes << each.places << "\n"
            << mended;
        EXPECT_NE(mended.find("x=1"), std::string::npos);
    }
}

TEST_F(GroupMenu, AnAddedPageThatOpensBeforeOthersLeavesThePanesToTheirPages) {
    const std::string pages = "[TessaGroup]\r\nurl1=http://a/\r\nurl2=http://b/\r\n";
    const std::string last = "page1=last http://b/\r\n";
    desk.Start();
    Write("p.tvg", pages + "[TessaView]\r\npanes=h(1 2)\r\n" + last);
    desk.AddToGroup(u"http://c/", PathText("p.tvg"));
    EXPECT_EQ(Read("p.tvg"), pages + "url3=http://c/\r\n[TessaView]\r\npanes=h(1 3)\r\n" + last);
    Write("q.tvg", pages + "[TessaView]\r\npanes=h(1 2)\r\n");
    desk.AddToGroup(u"http://c/", PathText("q.tvg"));
    EXPECT_EQ(Read("q.tvg"), pages + "url3=http://c/\r\n[TessaView]\r\npanes=h(1 2)\r\n");
}

TEST_F(GroupMenu, AddMakesAMissingGroup) {
    desk.Start();
    desk.AddToGroup(u"http://page/", PathText("new.tvg"));
    EXPECT_EQ(Read("new.tvg"), "[TessaGroup]\r\nurl1=http://page/\r\n");
}

TEST_F(GroupMenu, AddCountsTheAddressesAndReplacesOneInAGroupWithGaps_Deliberate) {
    Write("gap.tvg", "[TessaGroup]\r\nurl1=http://a/\r\nurl3=http://c/\r\n");
    desk.AddToGroup(u"http://page/", PathText("gap.tvg"));
    EXPECT_EQ(Read("gap.tvg"), "[TessaGroup]\r\nurl1=http://a/\r\nurl3=http://page/\r\n");
    Write("edited.tvg", "[TessaGroup]\r\nurl0=http://a/\r\nurl1=http://b/\r\n");
    desk.AddToGroup(u"http://page/", PathText("edited.tvg"));
    EXPECT_EQ(Read("edited.tvg"), "[TessaGroup]\r\nurl0=http://a/\r\nurl1=http://b/\r\nurl3=http://page/\r\n");
}

TEST_F(GroupMenu, SeveralPagesAreAddedByOneWriteOrNotAtAll) {
    Write("gap.tvg", "[TessaGroup]\r\nurl1=http://a/\r\nurl3=http://c/\r\n");
    ASSERT_EQ(TessaGroups::Append(PathText("gap.tvg"), {u"http://x/", u"http://y/"}), Outcome::Done);
    EXPECT_EQ(Read("gap.tvg"), "[TessaGroup]\r\nurl1=http://a/\r\nurl3=http://y/\r\n") << "each is counted by itself";
    Write("two.tvg", "[TessaGroup]\r\nurl1=http://a/\r\n");
    std::filesystem::create_hard_link(Path("two.tvg"), Path("before.tvg"));
    ASSERT_EQ(TessaGroups::Append(PathText("two.tvg"), {u"http://x/", u"http://y/"}), Outcome::Done);
    EXPECT_EQ(Read("two.tvg"), "[TessaGroup]\r\nurl1=http://a/\r\nurl2=http://x/\r\nurl3=http://y/\r\n");
    EXPECT_EQ(Read("before.tvg"), "[TessaGroup]\r\nurl1=http://a/\r\n") << "the file is replaced whole";
    EXPECT_EQ(TessaGroups::Append(PathText("none/x.tvg"), {u"http://x/", u"http://y/"}), Outcome::Failed);
    EXPECT_EQ(TessaGroups::Append(PathText("nothing.tvg"), {}), Outcome::Done);
    EXPECT_FALSE(std::filesystem::exists(Path("nothing.tvg")));
}

TEST_F(GroupMenu, AddKeepsWhatElseTheFileHas) {
    Write("mine.tvg", "; mine\n[x]\ny=1\n[TessaGroup]\nurl1=http://a/\n\n[z]\nw=2\n");
    desk.AddToGroup(u"http://page/", PathText("mine.tvg"));
    EXPECT_EQ(Read("mine.tvg"), "; mine\n[x]\ny=1\n[TessaGroup]\nurl1=http://a/\nurl2=http://page/\r\n\n[z]\nw=2\n");
}

TEST_F(GroupMenu, AFullDiskLeavesTheGroupAndIsSaidInTheStatusBar) {
    if (kOtherPlatform) GTEST_SKIP() << "no disk can be made full";
    Write("News.tvg", "[TessaGroup]\r\nurl1=http://a/\r\n");
    std::filesystem::create_directory(Path("Folder.tvg"));
    desk.StartWithTabs(2);
    {
        const FullDisk full;
        desk.AddToGroup(u"http://page/", PathText("News.tvg"));
    }
    EXPECT_EQ(desk.Said(), "The TessaGroup News could not be written.");
    EXPECT_EQ(Read("News.tvg"), "[TessaGroup]\r\nurl1=http://a/\r\n");
    Click(u"mnuSaveAsTessaGroup", "Folder.tvg");
    EXPECT_EQ(desk.Said(), "The TessaGroup Folder could not be written.");
    EXPECT_EQ(Files(), 2u);
}

TEST_F(GroupMenu, AFileFarTooLongForAGroupIsReadInPartAndNeverCut) {
    if (kOtherPlatform) GTEST_SKIP() << "no file is longer than the disk has room";
    Write("Huge.tvg", "[TessaGroup]\r\nurl1=http://a/\r\n");
    constexpr std::uintmax_t kTerabyte = std::uintmax_t{1} << 40;
    std::filesystem::resize_file(Path("Huge.tvg"), kTerabyte);
    desk.StartWithTabs(1);
    desk.OpenGroup(PathText("Huge.tvg"));
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go http://a/");
    desk.AddToGroup(u"http://page/", PathText("Huge.tvg"));
    EXPECT_EQ(desk.Said(), "The TessaGroup Huge could not be written.");
    EXPECT_EQ(std::filesystem::file_size(Path("Huge.tvg")), kTerabyte);
}

TEST_F(GroupMenu, SaveWritesAllTabs) {
    desk.StartWithTabs(2);
    desk.views.At(1).location = u"http://a/";
    desk.views.At(2).location = u"http://b/";
    Click(u"mnuSaveAsTessaGroup", "News.tvg");
    EXPECT_EQ(Read("News.tvg"), "[TessaGroup]\r\nurl1=http://a/\r\nurl2=http://b/\r\n");
    EXPECT_EQ(desk.Said(), "Saved as the TessaGroup News.");
    Click(u"mnuSaveAsTessaGroup", "");
    EXPECT_EQ(Files(), 1u);
}

TEST_F(GroupMenu, ASaveThatWasDeclinedSaysNothing) {
    Write("News.tvg", "old");
    desk.StartWithTabs(1);
    const std::string before = desk.Said() + desk.Status();
    desk.messages.answer = Answer::No;
    Click(u"mnuSaveAsTessaGroup", "News.tvg");
    EXPECT_EQ(Read("News.tvg"), "old");
    EXPECT_EQ(desk.Said() + desk.Status(), before);
}

TEST_F(GroupMenu, OfPrivateTabsAloneThatAreNotToBeSavedThereIsNothingToSave) {
    Write("News.tvg", "[TessaGroup]\r\nurl1=http://a/\r\n");
    desk.StartWithTabs(1);
    desk.Click(u"xtrPrivateTab");
    desk.Close(1);
    EXPECT_EQ(desk.Strip(), "[2*]");
    desk.messages.answer = Answer::Yes;
    desk.messages.whileOpen = [this] {
        if (desk.messages.asked.size() == 2) desk.messages.answer = Answer::No;
    };
    Click(u"mnuSaveAsTessaGroup", "News.tvg");
    EXPECT_EQ(desk.messages.asked.size(), 2U);
    EXPECT_EQ(desk.Said(), "There was nothing to save as the TessaGroup News.");
    EXPECT_EQ(Read("News.tvg"), "[TessaGroup]\r\nurl1=http://a/\r\n");
}

TEST_F(GroupMenu, OrganizeEditsTheChosenGroup) {
    Write("News.tvg", "[TessaGroup]\r\nurl1=http://a/\r\nurl2=http://b/\r\n");
    desk.StartWithTabs(2);
    desk.PageLoads(2, u"http://b/", u"B");
    desk.views.At(2).name = u"The page B";
    int shown = 0;
    desk.inTessaGroup = [&](frmTessaGroup& form) {
        ++shown;
        EXPECT_EQ(form.lblTessaGroupName.Caption(), u"News.tvg");
        EXPECT_EQ(form.TitleOf(u"http://b/"), u"The page B");
        EXPECT_EQ(form.TitleOf(u"http://a/"), u"");
        form.cmdDown.Click();
        form.cmdOK.Click();
    };
    Click(u"mnuOrganizeTessaGroups", "News.tvg");
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(Read("News.tvg"), "[TessaGroup]\r\nurl0=http://b/\r\nurl1=http://a/\r\n");
    EXPECT_EQ(desk.files.last.Filter, u"TessaGroup File (*.tvg)|*.tvg");
    EXPECT_EQ(desk.files.last.InitDir, u"/groups/");
    EXPECT_TRUE(desk.files.last.MustExist);
}

TEST_F(GroupMenu, OrganizeOpensNoEditorForOtherFilesOrNone) {
    Write("Work.TVG", "[TessaGroup]\r\nurl1=http://a/\r\n");
    desk.inTessaGroup = [](frmTessaGroup&) { ADD_FAILURE() << "an editor was opened"; };
    Click(u"mnuOrganizeTessaGroups", "Work.TVG");
    Click(u"mnuOrganizeTessaGroups", "Work.txt");
    Click(u"mnuOrganizeTessaGroups", "");
}

TEST_F(GroupMenu, AnEditThatCannotBeWrittenIsSaidInTheStatusBar) {
    if (kOtherPlatform) GTEST_SKIP() << "no disk can be made full";
    Write("News.tvg", "[TessaGroup]\r\nurl1=http://a/\r\n");
    desk.inTessaGroup = [&](frmTessaGroup& form) {
        const FullDisk full;
        form.cmdOK.Click();
    };
    Click(u"mnuOrganizeTessaGroups", "News.tvg");
    EXPECT_EQ(desk.Said(), "The TessaGroup News could not be written.");
    EXPECT_EQ(Read("News.tvg"), "[TessaGroup]\r\nurl1=http://a/\r\n");
}

} // namespace

} // namespace tessa
