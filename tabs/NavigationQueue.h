#pragma once
#include <chrono>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>

/// Decides which of the navigations that were asked for starts next. The view in front starts at once and has the
/// machine for itself until it has loaded; the others follow in the order in which they came, a few at a time, so
/// that the page that the user looks at is not slowed by the hundred behind it. A page that never finishes holds the
/// others up for a limited time only.
class NavigationQueue {
public:
    using Time = std::chrono::milliseconds; ///< on any steady clock

    /// How many views behind the front one load at a time.
    static constexpr std::size_t kAtATime = 4;
    /// How long the front page may keep the others waiting.
    static constexpr Time kFrontPatience{3000};
    /// How long a page counts as one of those that load.
    static constexpr Time kLoadPatience{10000};

    /// The view waits to navigate; one that waits already keeps its place.
    void Add(std::int32_t index);
    /// The view has nothing to do any more: its load ended, was stopped, or the view is gone.
    void Remove(std::int32_t index);
    /// The view in front; 0 for none.
    void SetFront(std::int32_t index) { m_front = index; }

    /// The next view that may start now; it counts as loading from then on.
    std::optional<std::int32_t> Next(Time now);
    /// When to ask again although nothing has changed; nothing when no view waits.
    [[nodiscard]] std::optional<Time> Deadline() const;
    [[nodiscard]] std::size_t Waiting() const { return m_waiting.size(); }
    [[nodiscard]] std::size_t Loading() const { return m_loading.size(); }

private:
    [[nodiscard]] bool MayStartBehind(Time now) const;
    std::int32_t Start(std::deque<std::int32_t>::iterator place, Time now);

    std::deque<std::int32_t> m_waiting;
    std::map<std::int32_t, Time> m_loading;
    std::int32_t m_front = 0;
};
