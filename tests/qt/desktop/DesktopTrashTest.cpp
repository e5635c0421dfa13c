#include "qt/desktop/DesktopTrash.h"

#include "tests/fakes/TemporaryFolder.h"

#include <QByteArray>
#include <QFile>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace tessa::qt {

namespace {

namespace fs = std::filesystem;

/// A trash in a folder of the test's own, on the disk of the files that go there.
class DesktopTrashTest : public testing::Test {
protected:
    DesktopTrashTest() {
        fs::create_directories(m_folder.Path("data"));
        qputenv("XDG_DATA_HOME", m_folder.Path("data").c_str());
    }
    ~DesktopTrashTest() override {
        if (m_old.isNull())
            qunsetenv("XDG_DATA_HOME");
        else
            qputenv("XDG_DATA_HOME", m_old);
    }

    /// Where the trash keeps what it knows of files in the test's folder; which trash that is depends on the disks.
    [[nodiscard]] fs::path Infos() {
        m_folder.Write("probe", "");
        QString place;
        EXPECT_TRUE(QFile::moveToTrash(QString::fromStdString(m_folder.Path("probe")), &place));
        return fs::path(place.toStdString()).parent_path().parent_path() / "info";
    }
    /// How many files of that name the desktop lists as taken from the test's folder.
    [[nodiscard]] int Listed(const fs::path& infos, const std::string& name) const {
        const std::string path = (fs::path(m_folder.Path("")).parent_path().filename() / name).string() + "\n";
        int count = 0;
        for (const auto& info : fs::directory_iterator(infos)) {
            std::ifstream file(info.path());
            const std::string words{std::istreambuf_iterator<char>(file), {}};
            if (words.find(path) != std::string::npos) ++count;
        }
        return count;
    }

    const QByteArray m_old = qgetenv("XDG_DATA_HOME");
    TemporaryFolder m_folder;
    DesktopTrash m_trash;
};

TEST_F(DesktopTrashTest, TakesAFileAndAFolder) {
    m_folder.Write("gr\xC3\xBC\xC3\x9F.tvg", "");
    fs::create_directories(m_folder.Path("Work/deep"));
    EXPECT_EQ(m_trash.Take(m_folder.PathText("gr\xC3\xBC\xC3\x9F.tvg")), Outcome::Done);
    EXPECT_EQ(m_trash.Take(m_folder.PathText("Work")), Outcome::Done);
    EXPECT_EQ(m_folder.Files(), 1U) << "the trash alone";
    EXPECT_EQ(m_trash.Take(m_folder.PathText("gone")), Outcome::Failed);
}

TEST_F(DesktopTrashTest, BringsBackWhatItHasTaken) {
    const auto listed = [this, infos = Infos()] { return Listed(infos, "A.url"); };
    for (const char* bytes : {"old", "new"}) {
        m_folder.Write("A.url", bytes);
        ASSERT_EQ(m_trash.Take(m_folder.PathText("A.url")), Outcome::Done);
    }
    EXPECT_EQ(listed(), 2);
    EXPECT_EQ(m_trash.Restore(m_folder.PathText("A.url")), Outcome::Done);
    EXPECT_EQ(m_folder.Read("A.url"), "new") << "the last one first";
    EXPECT_EQ(listed(), 1) << "the desktop no longer lists it";
    EXPECT_EQ(m_trash.Restore(m_folder.PathText("A.url")), Outcome::Failed) << "its place is taken";
    EXPECT_EQ(m_folder.Read("A.url"), "new");
    fs::remove(m_folder.Path("A.url"));
    EXPECT_EQ(m_trash.Restore(m_folder.PathText("A.url")), Outcome::Done);
    EXPECT_EQ(m_folder.Read("A.url"), "old");
    EXPECT_EQ(m_trash.Restore(m_folder.PathText("A.url")), Outcome::Failed) << "nothing is left";
}

TEST_F(DesktopTrashTest, BringsBackAFolderAndNothingIntoOneThatIsGone) {
    fs::create_directories(m_folder.Path("Work/deep"));
    m_folder.Write("Work/deep/A.url", "a");
    ASSERT_EQ(m_trash.Take(m_folder.PathText("Work/deep")), Outcome::Done);
    fs::remove(m_folder.Path("Work"));
    EXPECT_EQ(m_trash.Restore(m_folder.PathText("Work/deep")), Outcome::Failed);
    fs::create_directories(m_folder.Path("Work"));
    EXPECT_EQ(m_trash.Restore(m_folder.PathText("Work/deep")), Outcome::Done);
    EXPECT_EQ(m_folder.Read("Work/deep/A.url"), "a");
}

TEST_F(DesktopTrashTest, TakesNoFileInPlaceOfOneWhoseNameIsNoText) {
    m_folder.Write("b\xFC.tvg", "");
    for (const char* alike : {"b\xEF\xBF\xBD.tvg", "b?.tvg", "b\xC3\xBC.tvg"}) m_folder.Write(alike, "");
    EXPECT_EQ(m_trash.Take(PathFromBytes(m_folder.Path("b\xFC.tvg"))), Outcome::Failed);
    EXPECT_EQ(m_folder.Files(), 5U) << "four files and the data folder";
}

} // namespace

} // namespace tessa::qt
