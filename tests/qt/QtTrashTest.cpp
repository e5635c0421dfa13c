#include "qt/QtTrash.h"

#include "tests/fakes/TemporaryFolder.h"

#include <QByteArray>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

/// A trash in a folder of the test's own, on the disk of the files that go there.
class QtTrashTest : public testing::Test {
protected:
    QtTrashTest() {
        fs::create_directories(m_folder.Path("data"));
        qputenv("XDG_DATA_HOME", m_folder.Path("data").c_str());
    }
    ~QtTrashTest() override {
        if (m_old.isNull())
            qunsetenv("XDG_DATA_HOME");
        else
            qputenv("XDG_DATA_HOME", m_old);
    }

    const QByteArray m_old = qgetenv("XDG_DATA_HOME");
    TemporaryFolder m_folder;
    QtTrash m_trash;
};

TEST_F(QtTrashTest, TakesAFileAndAFolder) {
    m_folder.Write("gr\xC3\xBC\xC3\x9F.tvg", "");
    fs::create_directories(m_folder.Path("Work/deep"));
    EXPECT_EQ(m_trash.Take(m_folder.PathText("gr\xC3\xBC\xC3\x9F.tvg")), Outcome::Done);
    EXPECT_EQ(m_trash.Take(m_folder.PathText("Work")), Outcome::Done);
    EXPECT_EQ(m_folder.Files(), 1U) << "the trash alone";
    EXPECT_EQ(m_trash.Take(m_folder.PathText("gone")), Outcome::Failed);
}

TEST_F(QtTrashTest, TakesNoFileInPlaceOfOneWhoseNameIsNoText) {
    m_folder.Write("b\xFC.tvg", "");
    for (const char* alike : {"b\xEF\xBF\xBD.tvg", "b?.tvg", "b\xC3\xBC.tvg"}) m_folder.Write(alike, "");
    EXPECT_EQ(m_trash.Take(PathFromBytes(m_folder.Path("b\xFC.tvg"))), Outcome::Failed);
    EXPECT_EQ(m_folder.Files(), 5U) << "four files and the data folder";
}

} // namespace
