#include "groups/TessaGroups.h"
#include "tests/fakes/BareTabs.h"
#include "tests/fakes/FullDisk.h"
#include "tests/fakes/System.h"
#include "tests/fakes/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tessa {

namespace {

constexpr TextView kQuestion =
    u"A TessaGroup with this name already exists. Do you want to overwrite the existing TessaGroup?";

/// A desk whose tabs show pages, and a folder to save them in.
struct SaveTabs : testing::Test, TemporaryFolder {
    void Open(int count) {
        desk.StartWithTabs(count);
        for (int i = 1; i <= count; ++i) desk.views.At(i).location = u"http://" + Decimal(i) + u"/";
    }
    TessaGroups::Saved Save(const std::string& name) {
        return TessaGroups::SaveOpenTabs(PathText(name), desk.pcPage, desk.Browser, desk.messages);
    }
    BareTabs desk;
};

TEST_F(SaveTabs, WritesTheTabsInTheOrderOfTheStripFromOne) {
    Open(3);
    desk.MoveTab(3, 1);
    EXPECT_EQ(Save("a.tvg"), TessaGroups::Saved::Yes);
    EXPECT_EQ(Read("a.tvg"), "[TessaGroup]\r\nurl1=http://3/\r\nurl2=http://1/\r\nurl3=http://2/\r\n");
    EXPECT_TRUE(desk.messages.asked.empty());
}

TEST_F(SaveTabs, WritesBlankAndEqualPagesAndPagesStillLoadingAsTheyStand) {
    Open(3);
    desk.views.At(1).location = u"about:blank";
    desk.views.At(2).location = u"http://3/";
    desk.views.At(2).busy = true;
    EXPECT_EQ(Save("a.tvg"), TessaGroups::Saved::Yes);
    EXPECT_EQ(Read("a.tvg"), "[TessaGroup]\r\nurl1=about:blank\r\nurl2=http://3/\r\nurl3=http://3/\r\n");
}

TEST_F(SaveTabs, NoAndCancelLeaveTheOldFileByteForByte) {
    Open(2);
    const std::string old = "; mine\n[TessaGroup]\nurl7=http://old/";
    Write("a.tvg", old);
    for (const Answer answer : {Answer::No, Answer::Cancel}) {
        desk.messages.answer = answer;
        EXPECT_EQ(Save("a.tvg"), TessaGroups::Saved::Declined);
        EXPECT_EQ(Read("a.tvg"), old);
    }
    EXPECT_EQ(desk.messages.asked, (std::vector<Text>{Text(kQuestion), Text(kQuestion)}));
}

TEST_F(SaveTabs, YesReplacesAGroupOfEightByExactlyTheFive) {
    std::string eight = "[Other]\r\nx=1\r\n[TessaGroup]\r\n";
    for (int i = 1; i <= 8; ++i) eight += "url" + std::to_string(i) + "=http://old/\r\n";
    Write("a.tvg", eight);
    Open(5);
    desk.messages.answer = Answer::Yes;
    EXPECT_EQ(Save("a.tvg"), TessaGroups::Saved::Yes);
    EXPECT_EQ(Read("a.tvg"), "[TessaGroup]\r\nurl1=http://1/\r\nurl2=http://2/\r\nurl3=http://3/\r\n"
                             "url4=http://4/\r\nurl5=http://5/\r\n");
}

TEST_F(SaveTabs, SavesTheTabsAsTheyAreWhenTheQuestionIsAnswered) {
    Open(3);
    Write("a.tvg", "");
    desk.messages.answer = Answer::Yes;
    desk.messages.whileOpen = [this] { desk.Close(2); };
    EXPECT_EQ(Save("a.tvg"), TessaGroups::Saved::Yes);
    EXPECT_EQ(Read("a.tvg"), "[TessaGroup]\r\nurl1=http://1/\r\nurl2=http://3/\r\n");
}

TEST_F(SaveTabs, ATabWithoutAViewLeavesItsNumberOut) {
    Open(3);
    desk.Browser.Unload(2);
    EXPECT_EQ(Save("a.tvg"), TessaGroups::Saved::Yes);
    EXPECT_EQ(Read("a.tvg"), "[TessaGroup]\r\nurl1=http://1/\r\nurl3=http://3/\r\n");
}

TEST_F(SaveTabs, AFullDiskLeavesTheOldGroup) {
    if (kOtherPlatform) GTEST_SKIP() << "no disk can be made full";
    Open(2);
    Write("a.tvg", "[TessaGroup]\r\nurl1=http://old/\r\n");
    desk.messages.answer = Answer::Yes;
    {
        const FullDisk full;
        EXPECT_EQ(Save("a.tvg"), TessaGroups::Saved::Failed);
        EXPECT_EQ(Save("new.tvg"), TessaGroups::Saved::Failed);
    }
    EXPECT_EQ(Read("a.tvg"), "[TessaGroup]\r\nurl1=http://old/\r\n");
    EXPECT_EQ(Files(), 1u) << "nothing half written is left over";
}

TEST_F(SaveTabs, AFolderAPipeOrAFileForReadingOnlyIsNotReplaced) {
    Open(1);
    desk.messages.answer = Answer::Yes;
    std::filesystem::create_directory(Path("folder.tvg"));
    EXPECT_EQ(Save("folder.tvg"), TessaGroups::Saved::Failed);
    EXPECT_TRUE(desk.messages.asked.empty()) << "a folder is no group";
    EXPECT_TRUE(std::filesystem::is_directory(Path("folder.tvg")));
    Write("read.tvg", "old");
    std::filesystem::permissions(Path("read.tvg"), std::filesystem::perms::owner_read);
    EXPECT_EQ(Save("read.tvg"), TessaGroups::Saved::Failed);
    EXPECT_EQ(Read("read.tvg"), "old");
    EXPECT_EQ(Save("missing/a.tvg"), TessaGroups::Saved::Failed);
    EXPECT_EQ(TessaGroups::SaveOpenTabs(u"", desk.pcPage, desk.Browser, desk.messages), TessaGroups::Saved::Failed);
}

TEST_F(SaveTabs, ALinkGoesOnLeadingToTheGroup) {
    if (kOtherPlatform) GTEST_SKIP() << "a link needs a right of its own";
    Open(1);
    desk.messages.answer = Answer::Yes;
    Write("real.tvg", "old");
    std::filesystem::create_symlink(Path("real.tvg"), Path("link.tvg"));
    EXPECT_EQ(Save("link.tvg"), TessaGroups::Saved::Yes);
    EXPECT_TRUE(std::filesystem::is_symlink(Path("link.tvg")));
    EXPECT_EQ(Read("real.tvg"), "[TessaGroup]\r\nurl1=http://1/\r\n");
    std::filesystem::create_symlink(Path("loop.tvg"), Path("loop.tvg"));
    EXPECT_EQ(Save("loop.tvg"), TessaGroups::Saved::Yes) << "a link to itself is replaced by the group";
}

TEST_F(SaveTabs, APrintPreviewIsNoPageOfAGroup) {
    Open(3);
    desk.views.At(2).location = u"tessaview:preview/1/One";
    EXPECT_EQ(Save("a.tvg"), TessaGroups::Saved::Yes);
    EXPECT_EQ(Read("a.tvg"), "[TessaGroup]\r\nurl1=http://1/\r\nurl2=http://3/\r\n");
}

TEST_F(SaveTabs, ReadsBackWhatItWrote) {
    Open(40);
    desk.views.At(7).location = u"http://b\u00FC\U0001F600/?a=b;c#[d]";
    EXPECT_EQ(Save("a.tvg"), TessaGroups::Saved::Yes);
    CStrings group = TessaGroups::Load(PathText("a.tvg"));
    ASSERT_EQ(group.Count(), 40u);
    for (std::size_t i = 1; i <= 40; ++i)
        EXPECT_EQ(group.FindItem(i)->Key, desk.views.At(static_cast<int>(i)).location);
}

TEST_F(SaveTabs, WithNothingToSaveTheOldGroupStaysAsItWas) {
    Open(1);
    desk.tabs.GetNewBrowser(InFront::Yes, Privacy::Private);
    desk.Close(1);
    Write("a.tvg", "[TessaGroup]\r\nurl1=http://old/\r\n");
    desk.messages.answer = Answer::Yes;
    desk.messages.whileOpen = [this] {
        if (desk.messages.asked.size() == 2) desk.messages.answer = Answer::No;
    };
    EXPECT_EQ(Save("a.tvg"), TessaGroups::Saved::Nothing);
    EXPECT_EQ(desk.messages.asked.size(), 2U);
    EXPECT_EQ(Read("a.tvg"), "[TessaGroup]\r\nurl1=http://old/\r\n");
    EXPECT_EQ(TessaGroups::Save(PathText("none.tvg"), {}, desk.messages), TessaGroups::Saved::Nothing);
    EXPECT_EQ(Files(), 1U) << "and no group is made";
}

TEST_F(SaveTabs, YesToOverwriteAndCancelForThePrivateTabsLeavesTheOldGroup) {
    Open(2);
    desk.Browser.Find(2)->Privacy = Privacy::Private;
    Write("a.tvg", "[TessaGroup]\r\nurl1=http://old/\r\n");
    desk.messages.answer = Answer::Yes;
    desk.messages.whileOpen = [this] {
        if (desk.messages.asked.size() == 2) desk.messages.answer = Answer::Cancel;
    };
    EXPECT_EQ(Save("a.tvg"), TessaGroups::Saved::Declined);
    EXPECT_EQ(desk.messages.asked.size(), 2U);
    EXPECT_EQ(Read("a.tvg"), "[TessaGroup]\r\nurl1=http://old/\r\n");
}

struct WriteGroup : testing::Test, TemporaryFolder {};

TEST_F(WriteGroup, NoAddressesLeaveNoFile) {
    EXPECT_EQ(TessaGroups::Write(PathText("a.tvg"), {}), Outcome::Done);
    TemporaryFolder::Write("a.tvg", "[TessaGroup]\r\nurl1=a\r\n");
    EXPECT_EQ(TessaGroups::Write(PathText("a.tvg"), {}), Outcome::Done);
    EXPECT_EQ(Files(), 0u);
    std::filesystem::create_directory(Path("a.tvg"));
    EXPECT_EQ(TessaGroups::Write(PathText("a.tvg"), {}), Outcome::Failed);
    TemporaryFolder::Write("read.tvg", "old");
    std::filesystem::permissions(Path("read.tvg"), std::filesystem::perms::owner_read);
    EXPECT_EQ(TessaGroups::Write(PathText("read.tvg"), {}), Outcome::Failed);
    EXPECT_EQ(Read("read.tvg"), "old");
}

TEST_F(WriteGroup, AnAddressOfAMillionBytesIsWrittenWholeAndReadCut) {
    const Text address(1'000'000, u'x');
    EXPECT_EQ(TessaGroups::Write(PathText("a.tvg"), {{1, address}, {2, u"http://b/"}}), Outcome::Done);
    EXPECT_EQ(Read("a.tvg").size(), 1'000'000u + sizeof "[TessaGroup]\r\nurl1=\r\nurl2=http://b/\r\n" - 1);
    CStrings group = TessaGroups::Load(PathText("a.tvg"));
    ASSERT_EQ(group.Count(), 2u);
    EXPECT_EQ(group.FindItem(std::size_t{1})->Key.size(), 511u);
    EXPECT_EQ(group.FindItem(std::size_t{2})->Key, u"http://b/");
}

} // namespace

} // namespace tessa
