#pragma once
#include "base/os/MemoryReader.h"

#include <QTimer>

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class QtSchedule;

/// Calls what is to happen later, as soon as it is due.
class QtClocks {
public:
    /// All outlive it. `memory` says how much of it there is.
    QtClocks(frmMain& main, QtSchedule& schedule, MemoryReader& memory);

private:
    void FollowSession();
    void FollowSleep();
    void FollowRelief(QtSchedule& schedule);
    void FollowHomePages();

    frmMain& m_main;
    MemoryReader& m_memory;
    QTimer m_journal, m_retry, m_sleep, m_relief, m_giveBack, m_homePages;
};

} // namespace tessa::qt
