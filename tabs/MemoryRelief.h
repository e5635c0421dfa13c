#pragma once
#include "base/Signal.h"
#include "platform/SteadyClock.h"
#include "tabs/MemoryShortage.h"
#include "tabs/TabSleep.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>

namespace tessa {

class BrowserViewFactory;
class TabStrip;

/// Puts tabs to sleep when memory is short, whatever the user wants of idle ones. A page that is loaded again later is
/// better than a program that the kernel ends. Few at a time, longest not looked at first; then the kernel is asked
/// anew. While many pages load, those that have loaded behind the front sleep first: nobody has looked at them yet.
/// Owned by the main window; what it refers to outlives it.
class MemoryRelief {
public:
    using Time = SteadyClock::Time;

    /// How often the kernel is asked while there is room, or nothing to put to sleep.
    static constexpr Time kRare{5000};
    /// How often at most: while memory is short, and while pages finish loading.
    static constexpr Time kOften{1000};
    /// The engine takes tens of milliseconds to put a page to sleep. In between the window answers its user.
    static constexpr Time kPause{30};
    /// How many tabs fall asleep between two questions, by how short memory is.
    static constexpr std::size_t kFew = 4, kMany = 16;

    struct Parts {
        TabStrip& pcPage;
        TabSleep& sleep;
        const BrowserViewFactory& views;
        MemoryReader& memory;
        const SteadyClock& clock;
    };
    explicit MemoryRelief(Parts parts) : m_parts(parts) {}

    /// A view's page has loaded.
    void Loaded(std::int32_t index);
    /// Asks the kernel, or goes on with what its answer demands, and asks to be called again.
    void Look();
    /// From now on nothing is done.
    void End() { m_ended = true; }
    [[nodiscard]] Shortage Level() const { return m_shortage.Level(); }

    /// Has `Look` called once after that time, instead of when it was asked for before. Without anybody who does, the
    /// kernel is not asked.
    Signal<void(Time)> Schedule;
    /// Memory has become short, shorter, or less so.
    Signal<void(Shortage)> Changed;
    /// Tells the user why tabs sleep; once in a session.
    Signal<void(TextView)> Say;

private:
    struct Fresh {
        std::int32_t index;
        Time loaded;
    };
    [[nodiscard]] bool Works() const { return Schedule.HasListeners() && !m_ended; }
    void LookAt(Time due, Time now);
    void Ask(Time now);
    [[nodiscard]] std::size_t MostToSleep(Time now) const;
    [[nodiscard]] bool HasFresh(Time now) const;
    bool SleepOne(Time now);
    bool SleepFresh(Time now);
    void SayOnce();

    Parts m_parts;
    MemoryShortage m_shortage;
    std::deque<Fresh> m_fresh; ///< loaded while others waited, in that order
    std::optional<Time> m_asked, m_due;
    std::size_t m_left = 0;    ///< how many more may fall asleep before the kernel is asked again
    bool m_slept = false;      ///< some have, since it was asked
    bool m_freshSlept = false; ///< pages that had just loaded among them
    bool m_said = false;
    bool m_ended = false;
};

} // namespace tessa
