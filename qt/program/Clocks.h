#pragma once
#include <QTimer>

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class Schedule;

/// Calls what is to happen later, as soon as it is due.
class Clocks {
public:
    /// Both outlive it.
    Clocks(frmMain& main, qt::Schedule& schedule);

private:
    void FollowSession();
    void FollowSleep();
    void FollowRelief(qt::Schedule& schedule);
    void FollowHomePages();

    frmMain& m_main;
    QTimer m_journal, m_retry, m_sleep, m_relief, m_giveBack, m_homePages;
};

} // namespace tessa::qt
