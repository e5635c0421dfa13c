#include "base/os/MemoryFiles.h"
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"
#include "tests/fakes/TemporaryFolder.h"

#include <QTimer>
#include <filesystem>
#include <utility>

namespace tessa::qt {

namespace {

constexpr int kPages = 8;

/// A user who opens a group of pages with titles and icons. The kernel is a folder of files, and asked by a timer as in
/// the program.
class PagesInLittleMemory : public testing::Test {
protected:
    PagesInLittleMemory() {
        std::filesystem::create_directories(folder.Path("proc"));
        for (int page = 1; page <= kPages; ++page) {
            server.Page(PathOf(page), "<title>" + QByteArray::number(page) +
                                          "</title><link rel=icon href=\"data:image/svg+xml,<svg "
                                          "xmlns='http://www.w3.org/2000/svg' width='16' height='16'><rect width='16' "
                                          "height='16' fill='red'/></svg>\">");
        }
        desk.steady.runs = [this] { return Now(); };
        auto& relief = desk.main->Relief();
        timer.setSingleShot(true);
        timer.callOnTimeout([&relief] { relief.Look(); });
        relief.Schedule.ConnectForLife([this](TabSleep::Time time) { timer.start(time); });
        relief.Changed.ConnectForLife([this](Shortage level) { desk.engine.Schedule().SetShortage(level); });
    }
    void SayFree(int megabytes) {
        folder.Write("proc/meminfo",
                     "MemTotal: 4194304 kB\nMemAvailable: " + std::to_string(megabytes * 1024) + " kB\n");
    }
    static QString PathOf(int page) { return QStringLiteral("/%1").arg(page); }
    void OpenAll() {
        std::vector<QString> addresses;
        for (int page = 1; page <= kPages; ++page) addresses.push_back(server.Address(PathOf(page)));
        desk.Open(addresses);
    }
    /// The view of a page; the first one is of the window's own tab.
    PageView& ViewOf(int page) { return desk.View(page + 1); }
    int Asleep() {
        int asleep = 0;
        for (int page = 1; page <= kPages; ++page) asleep += ViewOf(page).Life() && ViewOf(page).Life()->Asleep();
        return asleep;
    }
    bool AllLoaded() {
        for (int page = 1; page <= kPages; ++page)
            if (ViewOf(page).LocationName() != FromQt(QString::number(page)) || ViewOf(page).Busy()) return false;
        return true;
    }

    /// A clock that stands still until the pages that have loaded have their icons. A slow machine may bring them late.
    TabSleep::Time Now() {
        const auto time =
            std::chrono::duration_cast<TabSleep::Time>(std::chrono::steady_clock::now().time_since_epoch());
        const auto since = time - std::exchange(seen, time);
        return now += AwaitsIcon() ? TabSleep::Time{0} : since;
    }
    bool AwaitsIcon() {
        for (int page = 1; page <= kPages; ++page) {
            if (!desk.main->Tabs().OpenView(page + 1)) continue;
            const bool loaded = ViewOf(page).LocationName() == FromQt(QString::number(page)) && !ViewOf(page).Busy();
            if (loaded && desk.engine.Icon(page + 1).isNull()) return true;
        }
        return false;
    }

    TabSleep::Time now{0}, seen{0};
    TemporaryFolder folder;
    MemoryFiles files{folder.Path("")};
    LocalServer server;
    EngineDesk desk{{.memory = &files}};
    QTimer timer;
};

TEST_F(PagesInLittleMemory, SleepWithTitleAndIconAndWakeWhenTheyAreSelected) {
    SayFree(400);
    OpenAll();
    ASSERT_TRUE(WaitUntil([&] { return Asleep() == kPages - 1; }));
    EXPECT_FALSE(ViewOf(kPages).Life()->Asleep()) << "it is in front";
    EXPECT_NE(desk.main->sbStatus.Notice(), u"");
    for (int page = 1; page <= kPages; ++page) {
        EXPECT_EQ(desk.main->pcPage.FindAt(static_cast<std::size_t>(page) + 1)->Caption(),
                  FromQt(QString::number(page)));
        EXPECT_EQ(ToQt(ViewOf(page).LocationURL()), server.Address(PathOf(page)));
        EXPECT_FALSE(desk.engine.Icon(page + 1).isNull()) << page;
        EXPECT_EQ(server.requests.count(PathOf(page)), 1) << "asleep, nothing is loaded again";
    }
    desk.main->pcPage.Select(desk.main->pcPage.FindAt(3));
    EXPECT_TRUE(WaitUntil([&] { return !ViewOf(2).Life()->Asleep() && !ViewOf(2).Busy(); }));
    EXPECT_TRUE(WaitUntil([&] { return ViewOf(2).LocationName() == u"2"; }));
    EXPECT_FALSE(desk.engine.Icon(3).isNull());
    EXPECT_TRUE(WaitUntil([&] { return ViewOf(kPages).Life()->Asleep(); })) << "it is no longer in front";
}

TEST_F(PagesInLittleMemory, StayAwakeWhileThereIsRoomAndSleepWhenThereIsNone) {
    SayFree(3000);
    OpenAll();
    ASSERT_TRUE(WaitUntil([&] { return AllLoaded(); }));
    EXPECT_EQ(Asleep(), 0);
    SayFree(400);
    EXPECT_TRUE(WaitUntil([&] { return Asleep() == kPages - 1; }));
}

TEST_F(PagesInLittleMemory, LoadAllOfThemWhenItIsVeryShortAndNothingCanSleep) {
    SayFree(10);
    desk.steady.runs = [] { return TabSleep::Time{0}; };
    OpenAll();
    EXPECT_TRUE(WaitUntil([&] { return AllLoaded(); }));
    EXPECT_EQ(desk.main->Relief().Level(), Shortage::Severe);
    EXPECT_EQ(Asleep(), 0) << "on this clock the icons are always still to come";
}

} // namespace

} // namespace tessa::qt
