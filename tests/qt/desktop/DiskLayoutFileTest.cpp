// Tests: PathBytes
#include "qt/desktop/DiskLayoutFile.h"

#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tessa::qt {

namespace {

QString PathOf(const TemporaryFolder& folder, const std::string& name = {}) {
    return QString::fromStdString(name.empty() ? folder.Path("x").substr(0, folder.Path("x").size() - 2)
                                               : folder.Path(name));
}

TEST(DiskLayoutFile, ThereIsNoFileUntilOneIsWritten) {
    const TemporaryFolder folder;
    DiskLayoutFile file(PathOf(folder));
    EXPECT_EQ(file.Read(), std::optional<std::string>(""));
    EXPECT_EQ(file.Write("a\0b"), Outcome::Done);
    EXPECT_EQ(folder.Read("user.tb"), "a\0b");
    EXPECT_EQ(file.Read(), std::optional<std::string>("a\0b"));
    EXPECT_EQ(folder.Files(), 1u);
}

TEST(DiskLayoutFile, TheFileIsTheUsersAlone) {
    const TemporaryFolder folder;
    ASSERT_EQ(DiskLayoutFile(PathOf(folder)).Write("a"), Outcome::Done);
    struct stat facts {};
    ASSERT_EQ(::stat(folder.Path("user.tb").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, 0600u);
}

TEST(DiskLayoutFile, AMissingFolderIsMadeAndHoldsNothingToRead) {
    const TemporaryFolder folder;
    DiskLayoutFile file(PathOf(folder, "new"));
    EXPECT_EQ(file.Read(), std::optional<std::string>(""));
    EXPECT_EQ(file.Write("a"), Outcome::Done);
    EXPECT_EQ(folder.Read("new/user.tb"), "a");
}

TEST(DiskLayoutFile, WhatIsNoFileCannotBeReadOrReplaced) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkdir(folder.Path("user.tb").c_str(), 0700), 0);
    DiskLayoutFile file(PathOf(folder));
    EXPECT_EQ(file.Read(), std::nullopt);
    EXPECT_EQ(file.Write("a"), Outcome::Failed);
}

TEST(DiskLayoutFile, AReadOnlyFileIsLeftAlone) {
    const TemporaryFolder folder;
    ASSERT_EQ(::chmod(folder.Write("user.tb", "old").c_str(), 0444), 0);
    EXPECT_EQ(DiskLayoutFile(PathOf(folder)).Write("new"), Outcome::Failed);
    EXPECT_EQ(folder.Read("user.tb"), "old");
}

TEST(DiskLayoutFile, AFolderThatIsNoneTakesNoFile) {
    const TemporaryFolder folder;
    folder.Write("file", "");
    DiskLayoutFile file(PathOf(folder, "file"));
    EXPECT_EQ(file.Write("a"), Outcome::Failed);
    EXPECT_EQ(folder.Read("file"), "");
}

// A child that may write no more than a few bytes stands for a full disk.
TEST(DiskLayoutFile, AFullDiskLeavesTheOldFile) {
    const TemporaryFolder folder;
    folder.Write("user.tb", "old");
    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{64, 64};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::_exit(DiskLayoutFile(PathOf(folder)).Write(std::string(1000, 'x')) == Outcome::Failed ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(folder.Read("user.tb"), "old");
    EXPECT_EQ(folder.Files(), 1u);
}

} // namespace

} // namespace tessa::qt
