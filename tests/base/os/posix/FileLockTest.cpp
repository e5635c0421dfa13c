#include "base/os/FileLock.h"

#include "tests/fakes/NoRights.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tessa {

namespace {

TEST(FileLockOfPosix, AFileThatMayOnlyBeReadCanBeLocked) {
    const TemporaryFolder folder;
    ASSERT_EQ(::chmod(folder.Path("").c_str(), 0755), 0);
    ASSERT_EQ(::chmod(folder.Write("lock", "").c_str(), 0444), 0);
    const NoRights none;
    const FileLock first(folder.Path("lock"), {});
    EXPECT_TRUE(first.Held());
    EXPECT_TRUE(FileLock(folder.Path("lock"), {}).Taken());
}

TEST(FileLockOfPosix, ItsFileIsTheUsersAlone) {
    const TemporaryFolder folder;
    const FileLock lock(folder.Path("lock"));
    struct stat facts {};
    ASSERT_EQ(::stat(folder.Path("lock").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, 0600u);
}

TEST(FileLockOfPosix, AKilledProcessHoldsUpNobody) {
    const TemporaryFolder folder;
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const FileLock lock(folder.Path("lock"), {});
        const char held = lock.Held() ? 'y' : 'n';
        if (::write(ready[1], &held, 1) == 1) ::pause();
        ::_exit(1);
    }
    char held = 0;
    ASSERT_EQ(::read(ready[0], &held, 1), 1);
    EXPECT_EQ(held, 'y');
    EXPECT_TRUE(FileLock(folder.Path("lock"), {}).Taken());
    ::kill(child, SIGKILL);
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    EXPECT_TRUE(FileLock(folder.Path("lock")).Held());
    ::close(ready[0]);
    ::close(ready[1]);
}

} // namespace

} // namespace tessa
