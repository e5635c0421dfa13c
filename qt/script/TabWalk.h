#pragma once
#include "app/ScriptedWindow.h"
#include "qt/script/PageReads.h"

#include <QObject>
#include <QTimer>
#include <functional>
#include <vector>

namespace tessa::qt {

/// Waits for pages to load.
class LoadWaits final : public QObject {
public:
    /// How many may wait at most.
    static constexpr std::size_t kMost = 500;
    static constexpr TextView kTooMany = u"Too many callers wait already.";

    /// The window outlives it.
    explicit LoadWaits(const ScriptedWindow& window);

    /// Calls `ready` once none of these tabs loads any more, of all when there are none; or, when it is asked whether
    /// it `goesOn` and does not, at once. False when too many wait.
    [[nodiscard]] bool When(std::vector<std::uint32_t> numbers, std::function<void()> ready,
                            std::function<bool()> goesOn = {});

private:
    void Look();

    struct Waiting {
        std::vector<std::uint32_t> numbers;
        std::function<void()> ready;
        std::function<bool()> goesOn;
    };
    const ScriptedWindow& m_window;
    std::vector<Waiting> m_waiting;
    QTimer m_look;
};

/// What is done on a way from page to page.
struct PageSteps {
    /// Does something with a page, and calls `next`.
    using Step = std::function<void(const ScriptTab& page, std::function<void()> next)>;
    /// The titles or addresses of the pages that were left out.
    using Ended = std::function<void(const std::vector<std::string>& left)>;
    /// So many of all the pages are done.
    using Progress = std::function<void(std::size_t done, std::size_t all)>;

    Step step;
    Ended ended;
    Progress progress{};
    /// Asked in between; once the answer is no, the walk ends where it is.
    std::function<bool()> goesOn{};

    [[nodiscard]] bool GoOn() const { return !goesOn || goesOn(); }
};

/// Goes from tab to tab: wakes each page, waits until it has loaded, and has something done with it. One that slept
/// or waited for somebody to look sleeps afterwards, so that however many there are, few are awake.
class TabWalk {
public:
    /// All outlive it.
    TabWalk(const ScriptedWindow& window, PageReads& reads, LoadWaits& waits)
        : m_window(window), m_reads(reads), m_waits(waits) {}

    /// Through these tabs, through all when there are none. Private ones are passed over in silence.
    void Go(const std::vector<std::uint32_t>& numbers, PageSteps steps);

private:
    struct Walk;
    void Next(const std::shared_ptr<Walk>& walk);
    void Visit(const std::shared_ptr<Walk>& walk, const ScriptTab& tab);

    const ScriptedWindow& m_window;
    PageReads& m_reads;
    LoadWaits& m_waits;
};

} // namespace tessa::qt
