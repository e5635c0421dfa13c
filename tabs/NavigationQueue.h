#pragma once
#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace tessa {

/// Decides which of the navigations that were asked for starts next. The view in front starts at once and has the
/// machine for itself until it has loaded. The others follow in the order in which they came, as many at a time as keep
/// every core busy. A page that waits for its server needs no processor, so what is idle meanwhile goes to
/// others. A page that never finishes holds the others up for a limited time only.
class NavigationQueue {
public:
    using Time = std::chrono::milliseconds; ///< on any steady clock

    /// How many views behind the front one load at a time, whatever is idle.
    static constexpr std::size_t kPerCore = 2;
    static constexpr std::size_t kLeast = 4;
    /// How many load at most, however idle the machine is: their servers may all be slow.
    static constexpr std::size_t kMost = 64;
    /// How many times as many as usual load beside the front page at most, while it waits for its server.
    static constexpr std::size_t kBesideFront = 2;
    /// Idle cores that one more view takes.
    static constexpr double kCoresForOne = 0.4;
    /// Idle cores that are kept for the front page while it loads: its own process, and ours.
    static constexpr double kCoresForFront = 1.5;
    /// After so long without a sign of life a page waits for its server, and needs no processor.
    static constexpr Time kQuiet{200};
    /// How long the front page may keep the others waiting.
    static constexpr Time kFrontPatience{3000};
    /// How long a page counts as one of those that load.
    static constexpr Time kLoadPatience{10000};

    explicit NavigationQueue(std::size_t cores = 2) : m_atATime(std::max(kLeast, cores * kPerCore)) {}

    /// The view waits to navigate; one that waits already keeps its place.
    void Add(std::int32_t index);
    /// The view has nothing to do any more: its load ended, was stopped, or the view is gone.
    void Remove(std::int32_t index);
    /// The view in front; 0 for none.
    void SetFront(std::int32_t index) { m_front = index; }
    /// The views that are shown beside it. They start before all that are not shown, as many at a time as ever.
    void SetBeside(std::vector<std::int32_t> beside) { m_beside = std::move(beside); }
    /// Something of a page that loads has come.
    void NoteSign(std::int32_t index, Time now);
    /// So many cores have had nothing to do since this was last told; what is free may start at once.
    void NoteIdle(double cores, Time now);

    /// Memory is very short. Behind the front they load one by one, so that each can sleep before the next. None waits
    /// for ever, whatever becomes of the memory.
    void SetTight(bool tight) { m_tight = tight; }

    /// The next view that may start now; it counts as loading from then on.
    std::optional<std::int32_t> Next(Time now);
    /// When to ask again although nothing has changed; nothing when no view waits for a time to go by.
    [[nodiscard]] std::optional<Time> Deadline(Time now) const;
    [[nodiscard]] std::size_t Waiting() const { return m_waiting.size(); }
    [[nodiscard]] std::size_t Loading() const { return m_loading.size(); }
    [[nodiscard]] std::size_t AtATime() const { return m_atATime; }

private:
    struct Load {
        Time Start, Sign;
    };
    /// The front page keeps the others waiting.
    [[nodiscard]] bool FrontLoads(Time now) const;
    /// It does, and has given a sign of life lately.
    [[nodiscard]] bool FrontWorks(Time now) const;
    [[nodiscard]] bool MayStartBehind(Time now) const;
    [[nodiscard]] bool MayStartBeside(Time now) const;
    [[nodiscard]] bool IsBeside(std::int32_t index) const;
    [[nodiscard]] std::size_t CountBehind(Time now) const;
    std::int32_t Start(std::deque<std::int32_t>::iterator place, Time now);

    std::size_t m_atATime;
    std::deque<std::int32_t> m_waiting;
    std::map<std::int32_t, Load> m_loading;
    std::int32_t m_front = 0;
    std::vector<std::int32_t> m_beside;
    std::size_t m_room = 0; ///< views that may start because something was idle
    bool m_tight = false;
};

} // namespace tessa
