#pragma once
#include "base/Signal.h"
#include "platform/SteadyClock.h"
#include "tabs/ViewArray.h"

#include <map>

namespace tessa {

class TabStrip;

/// Puts tabs to sleep that were not looked at for a while, if the user wants that. Also does so when memory is short.
/// By design parked tabs keep living. The tab in front never sleeps, nor do those beside it. No more does one whose
/// page does something that would be lost or missed. A sleeping tab wakes by itself when it is selected. Owned by the
/// main window; what it refers to outlives it.
class TabSleep {
public:
    using Time = SteadyClock::Time;

    /// When to look again at a tab that had a reason to stay awake.
    static constexpr Time kAgain{60000};

    /// A page's icon comes a little later than the page, and would be lost.
    static constexpr Time kIconPatience{1000};

    TabSleep(TabStrip& pcPage, ViewArray& Browser, const SteadyClock& clock)
        : m_pcPage(pcPage), m_browser(Browser), m_clock(clock) {}

    /// How long a tab may go without being looked at; zero for as long as it likes. For the tabs that are there when
    /// this is switched on, it begins then.
    void SetPatience(Time patience);
    /// A tab has come, with the view of that index.
    void Opened(std::int32_t index);
    /// A view's page has loaded: it stays awake for its icon.
    void Loaded(std::int32_t index);
    /// The strip has changed: notes what left the front. Costs the same however many tabs there are.
    void Touch();
    /// Puts to sleep what may sleep by now, and asks to be called again.
    void Look();

    /// Puts up to so many tabs to sleep that may, those first that were not looked at longest; how many.
    std::size_t SleepLongest(std::size_t most);
    /// Puts a tab to sleep if it may and was not looked at after that time. Returns whether it fell asleep now.
    bool SleepUnseen(std::int32_t index, Time since);

    /// Puts a tab to sleep now if it may, whenever it was looked at. Returns whether it sleeps.
    bool SleepNow(std::int32_t index);

    /// Has `Look` called once after that time, instead of when it was asked for before.
    Signal<void(Time)> Schedule;
    /// Some tabs have just fallen asleep, and left memory behind that the system can have back.
    Signal<void()> Slept;

private:
    struct Seen {
        Time last{0};        ///< when the tab was last in front, or came
        Time again{0};       ///< not to be put to sleep before
        bool asleep = false; ///< as far as we know
    };
    void NoteOpen(Time now);
    void NoteInSight(Time now);
    [[nodiscard]] bool IsInSight(std::int32_t index) const;
    /// What a tab's page says of itself; nothing for one that is seen, and for one without a page.
    [[nodiscard]] PageLife* LifeBehind(std::int32_t index);
    /// How long until there is something to decide about the tab.
    [[nodiscard]] Time LookAt(std::int32_t index, Seen& seen, Time now);
    bool TrySleep(std::int32_t index, Time now);
    void TellSlept(bool any) const;

    TabStrip& m_pcPage;
    ViewArray& m_browser;
    const SteadyClock& m_clock;
    std::map<std::int32_t, Seen> m_seen;
    std::int32_t m_front = 0;
    Time m_patience{0};
    Time m_since{0}; ///< when tabs that are there began to wait
};

} // namespace tessa
