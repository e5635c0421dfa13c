// Tests: FreeNames, TemporaryNames
#include "base/os/AtomicFile.h"

#include "tests/fakes/FullDisk.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

namespace tessa {

namespace {

/// What the program asks of the system while a test listens, and what the system is to refuse.
struct SystemWatch {
    SystemWatch() { s_current = this; }
    ~SystemWatch() { s_current = nullptr; }
    SystemWatch(const SystemWatch&) = delete;
    SystemWatch& operator=(const SystemWatch&) = delete;

    std::vector<std::string> calls; ///< "flush file", "flush folder", "rename", "mask"
    int refuseNewFiles = 0;         ///< the error that making a file ends with
    static SystemWatch* s_current;
};

SystemWatch* SystemWatch::s_current = nullptr;

void NoteSystemCall(const char* call) {
    if (SystemWatch::s_current) SystemWatch::s_current->calls.emplace_back(call);
}

mode_t MaskOfProcess(mode_t mask) { return static_cast<mode_t>(::syscall(SYS_umask, mask)); }

mode_t ModeOf(const std::string& path) {
    struct stat facts {};
    EXPECT_EQ(::stat(path.c_str(), &facts), 0);
    return facts.st_mode & 07777;
}

} // namespace

// These stand before the system's own for the whole of this program.
extern "C" {

int fsync(int file) {
    struct stat facts {};
    const bool folder = ::fstat(file, &facts) == 0 && S_ISDIR(facts.st_mode);
    NoteSystemCall(folder ? "flush folder" : "flush file");
    return static_cast<int>(::syscall(SYS_fsync, file));
}

int rename(const char* from, const char* to) noexcept {
    NoteSystemCall("rename");
    return static_cast<int>(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

mode_t umask(mode_t mask) noexcept {
    NoteSystemCall("mask");
    return MaskOfProcess(mask);
}

int open(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    if (SystemWatch::s_current && SystemWatch::s_current->refuseNewFiles != 0 && (flags & O_EXCL) != 0) {
        errno = SystemWatch::s_current->refuseNewFiles;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}
}

namespace {

TEST(WholeFile, IsOnDiskWithItsFolderAndChangesNoMask) {
    const TemporaryFolder folder;
    SystemWatch system;
    const std::vector<std::string> expected{"flush file", "rename", "flush folder"};
    ASSERT_EQ(WriteWholeFile(folder.Path("a"), "new"), Outcome::Done);
    EXPECT_EQ(system.calls, expected) << "the mask is everybody's: other threads make files meanwhile";
    system.calls.clear();
    ASSERT_EQ(WriteWholeFile(folder.Path("a"), "newer"), Outcome::Done);
    EXPECT_EQ(system.calls, expected);
}

TEST(WholeFile, ANewOneHasWhatTheMaskLeaves) {
    const TemporaryFolder folder;
    const mode_t before = MaskOfProcess(0027);
    EXPECT_EQ(WriteWholeFile(folder.Path("a"), "1"), Outcome::Done);
    MaskOfProcess(0);
    EXPECT_EQ(WriteWholeFile(folder.Path("b"), "1"), Outcome::Done);
    EXPECT_EQ(WriteWholeFile(folder.Path("c"), "1", Readers::UserAlone), Outcome::Done);
    MaskOfProcess(before);
    EXPECT_EQ(ModeOf(folder.Path("a")), 0640u);
    EXPECT_EQ(ModeOf(folder.Path("b")), 0666u);
    EXPECT_EQ(ModeOf(folder.Path("c")), 0600u);
}

TEST(WholeFile, OneThatIsTheUsersAloneStopsBeingReadByOthers) {
    const TemporaryFolder folder;
    ASSERT_EQ(::chmod(folder.Write("a", "old").c_str(), 0644), 0);
    EXPECT_EQ(WriteWholeFile(folder.Path("a"), "new", Readers::UserAlone), Outcome::Done);
    EXPECT_EQ(ModeOf(folder.Path("a")), 0600u);
}

TEST(WholeFile, IsNeverRewrittenInPlaceForWantOfRoom) {
    const TemporaryFolder folder;
    folder.Write("a", "the old one");
    SystemWatch system;
    for (const int error : {ENOSPC, EDQUOT, EMFILE, ENFILE, ENOMEM, EIO}) {
        system.refuseNewFiles = error;
        EXPECT_EQ(WriteWholeFile(folder.Path("a"), "x"), Outcome::Failed) << error;
        EXPECT_EQ(folder.Read("a"), "the old one") << error;
    }
}

TEST(WholeFile, IsRewrittenInPlaceWhereTheFolderTakesNoNewFile) {
    const TemporaryFolder folder;
    folder.Write("a", "the old one");
    SystemWatch system;
    for (const int error : {EACCES, EPERM, EROFS}) {
        system.refuseNewFiles = error;
        EXPECT_EQ(WriteWholeFile(folder.Path("a"), "new " + std::to_string(error)), Outcome::Done);
        EXPECT_EQ(folder.Read("a"), "new " + std::to_string(error));
        EXPECT_EQ(WriteWholeFile(folder.Path("b"), "x"), Outcome::Failed) << "there is none to rewrite";
    }
}

TEST(WholeFile, IsNotRewrittenInPlaceWhenTheLongerOneHasNoRoom) {
    const TemporaryFolder folder;
    folder.Write("a", "old");
    SystemWatch system;
    system.refuseNewFiles = EACCES;
    {
        const FullDisk full;
        EXPECT_EQ(WriteWholeFile(folder.Path("a"), "longer than before"), Outcome::Failed);
    }
    EXPECT_EQ(folder.Read("a"), "old");
}

TEST(WholeFile, ATrialLeavesNothingAndFailsWhereTheWriteWould) {
    const TemporaryFolder folder;
    folder.Write("a", "old");
    EXPECT_EQ(TryWholeFile(folder.Path("a"), "longer than before"), Outcome::Done);
    EXPECT_EQ(TryWholeFile(folder.Path("none/a"), "x"), Outcome::Failed);
    EXPECT_EQ(TryWholeFile(folder.Path(""), "x"), Outcome::Failed) << "a folder";
    {
        const FullDisk full;
        EXPECT_EQ(TryWholeFile(folder.Path("a"), "longer than before"), Outcome::Failed);
    }
    EXPECT_EQ(folder.Read("a"), "old");
    EXPECT_EQ(folder.Files(), 1u);
}

TEST(WholeFile, WhatKilledWritersLeftIsKnownByItsName) {
    const TemporaryFolder folder;
    folder.Write("a", "mine");
    for (const char* name : {".a.tessaview-abcdef", ".a.tessaview-012345", ".a.tessaview-abc", ".b.tessaview-abcdef",
                             "a.tessaview-abcdef"})
        folder.Write(name, "half");
    RemoveLeftovers(folder.Path("a"));
    EXPECT_EQ(folder.Files(), 4u);
    EXPECT_FALSE(FileExists(folder.Path(".a.tessaview-abcdef")));
    EXPECT_FALSE(FileExists(folder.Path(".a.tessaview-012345")));
}

TEST(WholeFile, AVeryLongNameIsWrittenToo) {
    const TemporaryFolder folder;
    const std::string name(255, 'n');
    EXPECT_EQ(WriteWholeFile(folder.Path(name), "x"), Outcome::Done);
    EXPECT_EQ(WriteWholeFile(folder.Path(name), "y"), Outcome::Done);
    EXPECT_EQ(folder.Read(name), "y");
    EXPECT_EQ(folder.Files(), 1u);
}

} // namespace

} // namespace tessa
