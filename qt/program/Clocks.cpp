#include "qt/program/Clocks.h"

#include "qt/engine/Schedule.h"
#include "startpage/HomePages.h"
#include "window/frmMain.h"

#include <chrono>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace tessa::qt {

namespace {

// What is written down is never older than a second.
constexpr std::chrono::milliseconds kJournalDelay{700};
constexpr std::chrono::seconds kRetryDelay{1};
constexpr std::chrono::seconds kGiveBackDelay{3};
constexpr std::chrono::milliseconds kHomePageDelay{150};

// What was freed stays with the process otherwise.
void GiveMemoryBack() {
#ifdef __GLIBC__
    ::malloc_trim(0);
#endif
}

} // namespace

Clocks::Clocks(frmMain& main, qt::Schedule& schedule) : m_main(main) {
    FollowHomePages();
    FollowSession();
    FollowSleep();
    FollowRelief(schedule);
}

void Clocks::FollowHomePages() {
    // A file that is saved changes its folder more than once.
    m_homePages.setSingleShot(true);
    m_homePages.setInterval(kHomePageDelay);
    m_homePages.callOnTimeout([this] {
        const auto shown = m_main.RefreshHomePages();
        if (shown == HomePages::Shown::Later) m_homePages.start();
    });
    m_main.Menus().FoldersChanged.ConnectForLife([this] { m_homePages.start(); });
    m_main.HomeFactsChanged.ConnectForLife([this] { m_homePages.start(); });
}

void Clocks::FollowSession() {
    auto& journal = m_main.Sessions();
    m_journal.setSingleShot(true);
    m_journal.setInterval(kJournalDelay);
    m_journal.callOnTimeout([&journal] { journal.Write(); });
    journal.Schedule.ConnectForLife([this] { m_journal.start(); });
    m_retry.setSingleShot(true);
    m_retry.setInterval(kRetryDelay);
    m_retry.callOnTimeout([this] { m_main.RetryWrites(); });
    m_main.RetryLater.ConnectForLife([this] { m_retry.start(); });
}

void Clocks::FollowSleep() {
    auto& sleep = m_main.Sleep();
    m_sleep.setSingleShot(true);
    // To the minute is near enough, and saves waking the processor up.
    m_sleep.setTimerType(Qt::VeryCoarseTimer);
    m_sleep.callOnTimeout([&sleep] { sleep.Look(); });
    sleep.Schedule.ConnectForLife([this](TabSleep::Time time) { m_sleep.start(time); });
    // Once the engine has done what it still does about them. It keeps what a hundred pages had in our process.
    m_giveBack.setSingleShot(true);
    m_giveBack.setInterval(kGiveBackDelay);
    m_giveBack.callOnTimeout(GiveMemoryBack);
    // Not put off by those that follow: while memory is short some fall asleep every second.
    sleep.Slept.ConnectForLife([this] {
        if (!m_giveBack.isActive()) m_giveBack.start();
    });
}

void Clocks::FollowRelief(qt::Schedule& schedule) {
    auto& relief = m_main.Relief();
    m_relief.setSingleShot(true);
    m_relief.callOnTimeout([&relief] { relief.Look(); });
    relief.Schedule.ConnectForLife([this](TabSleep::Time time) { m_relief.start(time); });
    relief.Changed.ConnectForLife([&schedule](Shortage level) { schedule.SetShortage(level); });
}

} // namespace tessa::qt
