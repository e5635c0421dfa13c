#include "qt/engine/StoredBrowsingData.h"

#include "tests/fakes/FullDisk.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace tessa::qt {

namespace {

QString PathOfNotes(const TemporaryFolder& folder) {
    const QString file = QString::fromStdString(folder.Path("cookie-times"));
    return file.left(file.lastIndexOf(QLatin1Char('/')));
}

TEST(StoredBrowsingData, ItsNotesComeBackAndAreTheUsersAlone) {
    const TemporaryFolder folder;
    const std::string notes = "100 a.example / name\n";
    ASSERT_EQ(::chmod(folder.Write("cookie-times", notes).c_str(), 0644), 0);
    const std::size_t before = SkippedSteps();
    StoredBrowsingData data;
    data.KeepIn(PathOfNotes(folder));
    data.Save();
    EXPECT_EQ(folder.Read("cookie-times"), "[Cookie]\nDomain=a.example\nName=name\nPath=/\nTime=100\n");
    struct stat facts {};
    ASSERT_EQ(::stat(folder.Path("cookie-times").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, 0600U);
    EXPECT_EQ(SkippedSteps(), before);
}

TEST(StoredBrowsingData, NotesThatFindNoRoomLeaveThoseOfTheLastTimeAndCount) {
    const TemporaryFolder folder;
    folder.Write("cookie-times", "100 a.example / name\n");
    StoredBrowsingData data;
    data.KeepIn(PathOfNotes(folder));
    const std::size_t before = SkippedSteps();
    {
        const FullDisk full;
        data.Save();
    }
    EXPECT_EQ(SkippedSteps(), before + 1);
    EXPECT_EQ(folder.Read("cookie-times"), "100 a.example / name\n");
    EXPECT_EQ(folder.Files(), 1U);
}

} // namespace

} // namespace tessa::qt
