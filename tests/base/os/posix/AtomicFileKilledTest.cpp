// Killing and limiting a writer needs processes of POSIX.
#include "base/ini/IniFile.h"
#include "base/os/AtomicFile.h"
#include "tests/fakes/TemporaryFolder.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tessa {

namespace {

TEST(AtomicFile, KeepsTheModeAndFollowsALink) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a", "old");
    ::chmod(path.c_str(), 0640);
    ASSERT_EQ(::symlink(path.c_str(), folder.Path("link").c_str()), 0);
    EXPECT_EQ(WriteWholeFile(folder.Path("link"), "new"), Outcome::Done);
    struct stat facts {};
    ASSERT_EQ(::lstat(path.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, 0640u);
    EXPECT_EQ(folder.Read("a"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link")));
    EXPECT_EQ(folder.Files(), 2u) << "nothing is left beside it";
}

TEST(AtomicFile, AReadOnlyFileStays) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a", "[s]\r\nk=1\r\n");
    ::chmod(path.c_str(), 0444);
    EXPECT_FALSE(WritePrivateProfileString(path, "s", "k", "2"));
    EXPECT_EQ(folder.Read("a"), "[s]\r\nk=1\r\n");
}

TEST(AtomicFile, AFolderOrAMissingFolderTakesNoFile) {
    const TemporaryFolder folder;
    EXPECT_FALSE(WritePrivateProfileString(folder.Path(""), "s", "k", "2"));
    EXPECT_FALSE(WritePrivateProfileString(folder.Path("no/a"), "s", "k", "2"));
    EXPECT_EQ(folder.Files(), 0u);
}

TEST(AtomicFile, APipeIsNoFileAndHoldsNobodyUp) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(ReadWholeFile(folder.Path("pipe")));
    EXPECT_FALSE(WritePrivateProfileString(folder.Path("pipe"), "s", "k", "2"));
}

// A child that may write no more than a few bytes stands for a full disk.
TEST(AtomicFile, AFullDiskLeavesTheOldFile) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a", "[s]\r\nk=1\r\n");
    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{64, 64};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::_exit(WritePrivateProfileString(path, "s", "k", std::string(1000, 'x')) ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(folder.Read("a"), "[s]\r\nk=1\r\n");
    EXPECT_EQ(folder.Files(), 1u);
}

TEST(AtomicFile, AKilledWriterLeavesTheOldFileOrTheNewOne) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a", "[s]\r\nk=1\r\n");
    for (int round = 0; round < 20; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (;;) (void)WritePrivateProfileString(path, "s", "k", std::string(2000, '2'));
        }
        ::usleep(static_cast<useconds_t>(500 * round));
        ::kill(child, SIGKILL);
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);
        const std::string bytes = folder.Read("a");
        EXPECT_TRUE(bytes == "[s]\r\nk=1\r\n" || bytes == "[s]\r\nk=" + std::string(2000, '2') + "\r\n")
            << bytes.size();
    }
}

} // namespace

} // namespace tessa
