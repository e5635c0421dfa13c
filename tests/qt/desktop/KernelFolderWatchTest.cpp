#include "qt/desktop/KernelFolderWatch.h"

#include "tests/fakes/TemporaryFolder.h"

#include <QTest>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

namespace fs = std::filesystem;

class KernelFolderWatchTest : public testing::Test {
protected:
    TemporaryFolder m_folder;
    std::vector<Text> m_changed;
    KernelFolderWatch m_watch;

    void SetUp() override {
        m_watch.Changed.ConnectForLife([this](TextView folder) { m_changed.emplace_back(folder); });
    }
    /// Whether a change of that folder is told of, waited for; forgets what was told.
    bool Told(const Text& folder) {
        const bool told =
            QTest::qWaitFor([&] { return std::ranges::find(m_changed, folder) != m_changed.end(); }, 20000);
        m_changed.clear();
        return told;
    }
};

TEST_F(KernelFolderWatchTest, TellsOfWhatComesGoesAndIsRenamed) {
    const Text folder = m_folder.PathText("");
    m_watch.Watch(folder);
    m_folder.Write("a.tvg", "x");
    EXPECT_TRUE(Told(folder));
    fs::rename(m_folder.Path("a.tvg"), m_folder.Path("b.tvg"));
    EXPECT_TRUE(Told(folder));
    fs::remove(m_folder.Path("b.tvg"));
    EXPECT_TRUE(Told(folder));
}

TEST_F(KernelFolderWatchTest, TellsWhenAFolderComesThatWasNotThere) {
    const Text folder = m_folder.PathText("one/two");
    m_watch.Watch(folder);
    fs::create_directories(m_folder.Path("one/two"));
    EXPECT_TRUE(Told(folder));
    // Its coming may be told of twice, once for each folder above; what comes then is a change in it.
    for (const char* file : {"one/two/a", "one/two/b", "one/two/c"}) {
        m_folder.Write(file, "x");
        EXPECT_TRUE(Told(folder));
    }
}

TEST_F(KernelFolderWatchTest, TellsWhenAFolderGoesAndComesAgain) {
    const Text folder = m_folder.PathText("one");
    fs::create_directory(m_folder.Path("one"));
    m_watch.Watch(folder);
    fs::remove(m_folder.Path("one"));
    EXPECT_TRUE(Told(folder));
    fs::create_directory(m_folder.Path("one"));
    EXPECT_TRUE(Told(folder));
}

TEST_F(KernelFolderWatchTest, IsSilentAboutAFolderThatIsWatchedNoMore) {
    fs::create_directory(m_folder.Path("one"));
    fs::create_directory(m_folder.Path("two"));
    const Text one = m_folder.PathText("one"), two = m_folder.PathText("two");
    m_watch.Watch(one);
    m_watch.Watch(two);
    m_watch.Unwatch(one);
    m_watch.Unwatch(one);
    m_watch.Watch(u"");
    m_folder.Write("one/a", "x");
    m_folder.Write("two/a", "x");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !m_changed.empty(); }, 20000));
    EXPECT_EQ(m_changed.front(), two);
    EXPECT_EQ(std::ranges::count(m_changed, one), 0);
}

} // namespace

} // namespace tessa::qt
