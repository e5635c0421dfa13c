#pragma once
#include "base/os/MemoryReader.h"

#include <QTimer>

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class Schedule;

/// Calls what is to happen later, as soon as it is due.
class Clocks {
public:
    /// All outlive it. `memory` says how much of it there is.
    Clocks(frmMain& main, qt::Schedule& schedule, MemoryReader& memory);

private:
    void FollowSession();
    void FollowSleep();
    void FollowRelief(qt::Schedule& schedule);
    void FollowHomePages();

    frmMain& m_main;
    MemoryReader& m_memory;
    QTimer m_journal, m_retry, m_sleep, m_relief, m_giveBack, m_homePages;
};

} // namespace tessa::qt
