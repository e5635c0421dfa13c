// Tests: FreeNames, Handle, TemporaryNames, UserAlone
#include "base/os/AtomicFile.h"

#include "base/os/FreeNames.h"
#include "base/os/windows/Handle.h"
#include "base/os/windows/WidePath.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <thread>

namespace tessa {

namespace {

TEST(WholeFile, IsReplacedAndLeavesNothingBeside) {
    const TemporaryFolder folder;
    EXPECT_EQ(WriteWholeFile(folder.Path("a"), "old"), Outcome::Done);
    EXPECT_EQ(WriteWholeFile(folder.Path("a"), "new", Readers::UserAlone), Outcome::Done);
    EXPECT_EQ(folder.Read("a"), "new");
    EXPECT_EQ(TryWholeFile(folder.Path("a"), "newer"), Outcome::Done);
    EXPECT_EQ(folder.Read("a"), "new");
    EXPECT_EQ(folder.Files(), 1U);
}

TEST(WholeFile, IsReplacedOnceItsReaderIsDone) {
    const TemporaryFolder folder;
    folder.Write("a", "old");
    auto reader = std::make_unique<Handle>(::CreateFileW(WidePath(folder.Path("a")).c_str(), GENERIC_READ,
                                                         FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(reader->Open());
    std::thread done([&] { reader.reset(); });
    EXPECT_EQ(WriteWholeFile(folder.Path("a"), "new"), Outcome::Done);
    done.join();
    EXPECT_EQ(folder.Read("a"), "new");
}

TEST(WholeFile, OneThatIsMarkedReadOnlyStays) {
    const TemporaryFolder folder;
    const std::wstring wide = WidePath(folder.Write("a", "old"));
    ASSERT_TRUE(::SetFileAttributesW(wide.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_FALSE(IsWritable(folder.Path("a")));
    EXPECT_EQ(WriteWholeFile(folder.Path("a"), "new"), Outcome::Failed);
    EXPECT_EQ(RemoveFile(folder.Path("a")), Outcome::Failed);
    EXPECT_EQ(folder.Read("a"), "old");
    ::SetFileAttributesW(wide.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(RemoveFile(folder.Path("a")), Outcome::Done);
    EXPECT_EQ(RemoveFile(folder.Path("a")), Outcome::Done) << "there is none";
}

TEST(WholeFile, OneThatIsHiddenStaysSo) {
    const TemporaryFolder folder;
    const std::wstring wide = WidePath(folder.Write("a", "old"));
    ASSERT_TRUE(::SetFileAttributesW(wide.c_str(), FILE_ATTRIBUTE_HIDDEN));
    EXPECT_EQ(WriteWholeFile(folder.Path("a"), "new"), Outcome::Done);
    EXPECT_NE(::GetFileAttributesW(wide.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
    EXPECT_EQ(folder.Read("a"), "new");
}

TEST(WholeFile, AFolderAMissingFolderOrADeviceTakesNoFile) {
    const TemporaryFolder folder;
    EXPECT_EQ(WriteWholeFile(folder.Path(""), "x"), Outcome::Failed);
    EXPECT_EQ(WriteWholeFile(folder.Path("none/a"), "x"), Outcome::Failed);
    EXPECT_EQ(ReadWholeFile(folder.Path("")), std::nullopt);
    EXPECT_EQ(ReadWholeFile("NUL"), std::nullopt);
    EXPECT_EQ(folder.Files(), 0U);
}

TEST(WholeFile, WhatKilledWritersLeftIsKnownByItsName) {
    const TemporaryFolder folder;
    for (const char* name : {"a", ".a.tessaview-abcdef", ".a.tessaview-abc", ".b.tessaview-abcdef"})
        folder.Write(name, "half");
    RemoveLeftovers(folder.Path("a"));
    EXPECT_EQ(folder.Files(), 3U);
    EXPECT_FALSE(FileExists(folder.Path(".a.tessaview-abcdef")));
}

TEST(FreeNames, AreNeverThoseOfOthers) {
    const TemporaryFolder folder;
    folder.Write("a", "a");
    folder.Write("b", "b");
    EXPECT_EQ(RenameToFree(folder.Path("a"), folder.Path("b")), Named::Taken);
    EXPECT_EQ(folder.Read("b"), "b");
    EXPECT_EQ(RenameToFree(folder.Path("a"), folder.Path("c")), Named::Done);
    EXPECT_EQ(RenameToFree(folder.Path("a"), folder.Path("d")), Named::Failed) << "there is none";
    EXPECT_EQ(MakeNewFolder(folder.Path("b")), Named::Taken);
    EXPECT_EQ(MakeNewFolder(folder.Path("e")), Named::Done);
}

} // namespace

} // namespace tessa
