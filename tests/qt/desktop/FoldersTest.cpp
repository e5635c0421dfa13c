#include "qt/desktop/Folders.h"

#include "tests/fakes/TemporaryFolder.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

/// Variables as they are for one test.
class FoldersTest : public testing::Test {
protected:
    FoldersTest() {
        qunsetenv("TESSAVIEW_HOME");
        qputenv("HOME", Path("user").toUtf8());
        for (const char* name : {"DATA", "CONFIG", "CACHE"})
            qputenv((QByteArray("XDG_") + name + "_HOME").constData(), Path(name).toUtf8());
    }
    ~FoldersTest() override {
        for (const char* name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "TESSAVIEW_HOME"})
            qunsetenv(name);
        qputenv("HOME", m_home);
    }
    [[nodiscard]] QString Path(const char* name) const { return QString::fromStdString(m_folder.Path(name)); }
    /// The program's file in a folder of that name.
    [[nodiscard]] QString ProgramIn(const char* name) const {
        QDir().mkpath(Path(name));
        return Path(name) + QStringLiteral("/tessaview");
    }

    TemporaryFolder m_folder;
    const QByteArray m_home = qgetenv("HOME");
};

TEST_F(FoldersTest, AFolderOfItsOwnHoldsWhatBelongsToTheProgram) {
    const Folders folders = Folders::Find(ProgramIn("unpacked"));
    EXPECT_EQ(folders.program, Path("unpacked"));
    EXPECT_EQ(folders.settings, Path("CONFIG/tessaview"));
    EXPECT_EQ(folders.data, Path("DATA/tessaview/engine"));
    EXPECT_EQ(folders.cache, Path("CACHE/tessaview"));
    EXPECT_TRUE(QDir(Path("unpacked/TessaGroups")).exists());
}

TEST_F(FoldersTest, AnInstalledProgramKeepsNothingAmongOtherPrograms) {
    const Folders folders = Folders::Find(ProgramIn("bin"));
    EXPECT_EQ(folders.program, Path("DATA/tessaview"));
    EXPECT_TRUE(QDir(Path("bin")).isEmpty());
    EXPECT_TRUE(QDir(Path("DATA/tessaview/TessaGroups")).exists());
}

TEST_F(FoldersTest, OneVariableMovesEverything) {
    qputenv("TESSAVIEW_HOME", Path("home").toUtf8());
    const Folders folders = Folders::Find(ProgramIn("unpacked"));
    for (const QString& each : {folders.program, folders.settings, folders.state}) EXPECT_EQ(each, Path("home"));
    EXPECT_EQ(folders.data, Path("home/engine"));
    EXPECT_EQ(folders.GroupFolder(), Path("home/TessaGroups/"));
    EXPECT_FALSE(QDir(Path("CONFIG")).exists());
}

TEST_F(FoldersTest, TheFolderOfWhatWasVisitedIsTheUsersAlone) {
    const auto others = [](const QString& folder) { return int(QFile::permissions(folder)) & 0x0077; };
    const QString state = Folders::Find(ProgramIn("unpacked")).state;
    EXPECT_EQ(others(state), 0);
    EXPECT_EQ(others(Path("DATA/tessaview")), 0) << "groups and Favorites are";
    QFile::setPermissions(state, QFile::permissions(state) | QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther);
    (void)Folders::Find(ProgramIn("unpacked"));
    EXPECT_EQ(others(state), 0) << "one of an earlier version is closed";
    qputenv("TESSAVIEW_HOME", Path("home").toUtf8());
    EXPECT_EQ(others(Folders::Find(ProgramIn("unpacked")).state), 0);
    QFile::setPermissions(Path("home"), QFile::permissions(Path("home")) | QFile::ReadOther);
    EXPECT_NE(others(Folders::Find(ProgramIn("unpacked")).state), 0)
        << "a folder that the user names may hold more than what is ours";
}

TEST_F(FoldersTest, ARelativePathOfTheDesktopIsIgnored) {
    qputenv("XDG_CONFIG_HOME", "somewhere");
    const Folders folders = Folders::Find(ProgramIn("unpacked"));
    EXPECT_EQ(folders.settings, Path("user/.config/tessaview"));
}

TEST_F(FoldersTest, FavoritesLieInTheFoldersOfTheDesktop) {
    QDir().mkpath(Path("user"));
    EXPECT_EQ(Folders::Find(ProgramIn("unpacked")).favorites, Path("DATA/tessaview/Favorites"));
    EXPECT_FALSE(QDir(Path("DATA/tessaview/Favorites")).exists()) << "made when the first is added";
    qunsetenv("XDG_DATA_HOME");
    EXPECT_EQ(Folders::Find(ProgramIn("unpacked")).favorites, Path("user/.local/share/tessaview/Favorites"));
}

TEST_F(FoldersTest, AFolderOfFavoritesThatTheUserHasAlreadyIsTaken) {
    QDir().mkpath(Path("user/Favorites"));
    EXPECT_EQ(Folders::Find(ProgramIn("unpacked")).favorites, Path("user/Favorites"));
    EXPECT_EQ(Folders::Find(ProgramIn("bin")).favorites, Path("user/Favorites"));
}

TEST_F(FoldersTest, AFileOfThatNameIsNoFolderOfFavorites) {
    QDir().mkpath(Path("user"));
    m_folder.Write("user/Favorites", "");
    EXPECT_EQ(Folders::Find(ProgramIn("unpacked")).favorites, Path("DATA/tessaview/Favorites"));
}

TEST_F(FoldersTest, TheOneVariableMovesFavoritesTooWhateverTheUserHas) {
    QDir().mkpath(Path("user/Favorites"));
    qputenv("TESSAVIEW_HOME", Path("home").toUtf8());
    EXPECT_EQ(Folders::Find(ProgramIn("unpacked")).favorites, Path("home/Favorites"));
}

} // namespace

} // namespace tessa::qt
