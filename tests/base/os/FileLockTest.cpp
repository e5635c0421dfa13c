// Tests: LockedFile
#include "base/os/FileLock.h"

#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <utility>

namespace tessa {

namespace {

TEST(FileLock, IsHeldByOneUntilItIsLetGo) {
    const TemporaryFolder folder;
    FileLock first(folder.Path("lock"), {});
    ASSERT_TRUE(first.Held());
    const FileLock second(folder.Path("lock"), {});
    EXPECT_FALSE(second.Held());
    EXPECT_TRUE(second.Taken());
    FileLock moved = std::move(first);
    EXPECT_TRUE(moved.Held());
    EXPECT_FALSE(FileLock(folder.Path("lock"), {}).Held());
    moved.LetGo();
    EXPECT_TRUE(FileLock(folder.Path("lock"), {}).Held());
}

TEST(FileLock, ALockThatCanHaveNoFileIsNotTaken) {
    const TemporaryFolder folder;
    const FileLock lock(folder.Path("none/lock"));
    EXPECT_FALSE(lock.Held());
    EXPECT_FALSE(lock.Taken());
    EXPECT_FALSE(FileLock().Held());
}

} // namespace

} // namespace tessa
