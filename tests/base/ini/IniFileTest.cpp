#include "base/ini/IniFile.h"

#include "base/os/AtomicFile.h"
#include "tests/fakes/TemporaryFolder.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

TEST(IniFile, AnswersAnyBytes) {
    std::minstd_rand random(4711);
    const std::string_view pieces[] = {"[",
                                       "]",
                                       "=",
                                       ";",
                                       "\r",
                                       "\n",
                                       "\r\n",
                                       "s",
                                       "key",
                                       " ",
                                       "\t",
                                       "\"",
                                       "'",
                                       std::string_view("\0", 1),
                                       "\xEF\xBB\xBF",
                                       "\xFF\xFE",
                                       "\xE4"};
    for (int round = 0; round < 3000; ++round) {
        std::string bytes;
        for (auto i = random() % 60; i > 0; --i) bytes += pieces[random() % std::size(pieces)];
        IniFile file(bytes);
        const std::string list = file.KeyList("s", "d", 1 + random() % 40);
        EXPECT_LE(list.size(), bytes.size() + 1);
        EXPECT_TRUE(file.Bytes() == bytes || bytes.starts_with("\xFF\xFE")) << "only half a UTF-16 unit may go";
        file.SetValue("s", "key", "v");
        EXPECT_EQ(file.Value("s", "key", "", 10), "v");
        EXPECT_EQ(IniFile(file.Bytes()).Value("s", "key", "", 10), "v");
        file.RemoveKey("s", "key");
        file.RemoveSection("s");
    }
}

TEST(IniFile, ReadsAHundredMegabytesAndLinesOfTen) {
    std::string bytes = "[s]\r\nk=" + std::string(10'000'000, 'x') + "\r\n";
    bytes += std::string(90'000'000, '\n') + "j=1\r\n";
    const IniFile file(bytes);
    EXPECT_EQ(file.Value("s", "k", "", 512).size(), 511u);
    EXPECT_EQ(file.Value("s", "j", "", 512), "1");
}

TEST(IniFile, KeepsWhatUtf16TextHasBeyondTheCodePage) {
    const std::string bytes("\xFF\xFE[\0s\0]\0\r\0\n\0k\0=\0\x11\x4E\r\0\n\0", 22);
    IniFile file(bytes);
    EXPECT_EQ(file.Value("s", "k", "", 10), "?");
    file.SetValue("s", "n", "1");
    EXPECT_EQ(file.Bytes().substr(0, bytes.size()), bytes);
    EXPECT_EQ(IniFile(file.Bytes()).Value("s", "n", "", 10), "1");
}

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
