#include "tabs/NavigationQueue.h"

#include <gtest/gtest.h>
#include <map>

namespace tessa {

namespace {

using Time = NavigationQueue::Time;

constexpr Time kStep{10};
constexpr Time kLook{50};
constexpr int kParts = 3;            ///< of a page: its document, what that names, what its scripts ask for
constexpr double kWorkOfPart = 0.04; ///< seconds of one core

/// A machine with so many cores, and servers that answer after so long.
class Machine {
public:
    Machine(int cores, Time delay) : m_cores(cores), m_delay(delay), m_queue(static_cast<std::size_t>(cores)) {}

    /// Opens so many pages, the last one in front.
    void Open(int pages) {
        for (int i = 1; i <= pages; ++i) m_queue.Add(i);
        m_queue.SetFront(pages);
        while (static_cast<int>(m_done.size()) < pages && m_now < Time{600000}) Step();
    }
    [[nodiscard]] Time Done(int page) const { return m_done.at(page); }
    [[nodiscard]] Time AllDone() const { return m_now; }
    [[nodiscard]] std::size_t MostAtOnce() const { return m_most; }

private:
    struct Page {
        Time answers; ///< when the part that it waits for comes
        int part = 0;
        double left = kWorkOfPart;
    };

    void Step() {
        if (m_now.count() % kLook.count() == 0) Look();
        while (const auto next = m_queue.Next(m_now)) m_pages[*next] = {m_now + m_delay};
        m_most = std::max(m_most, m_pages.size());
        Work();
        m_now += kStep;
    }
    void Look() {
        const double passed = std::chrono::duration<double>(kLook).count();
        if (m_now > Time{0}) m_queue.NoteIdle(m_idle / passed, m_now);
        m_idle = 0;
    }
    void Work() {
        std::vector<int> working;
        for (const auto& [index, page] : m_pages) {
            if (page.answers <= m_now) working.push_back(index);
        }
        const double step = std::chrono::duration<double>(kStep).count();
        const double each = step * std::min(1.0, m_cores / std::max(1.0, static_cast<double>(working.size())));
        m_idle += step * m_cores - each * static_cast<double>(working.size());
        for (const int index : working) GoOn(index, each);
    }
    void GoOn(int index, double work) {
        Page& page = m_pages[index];
        if (page.left == kWorkOfPart) m_queue.NoteSign(index, m_now);
        page.left -= work;
        if (page.left > 1e-9) return;
        if (++page.part < kParts) {
            page.left = kWorkOfPart;
            page.answers = m_now + m_delay;
            return;
        }
        m_done[index] = m_now;
        m_pages.erase(index);
        m_queue.Remove(index);
    }

    const int m_cores;
    const Time m_delay;
    NavigationQueue m_queue;
    Time m_now{0};
    double m_idle = 0; ///< seconds of cores since the last look
    std::map<int, Page> m_pages;
    std::map<int, Time> m_done;
    std::size_t m_most = 0;
};

struct Case {
    int cores;
    Time delay;
};

class NavigationQueueMachine : public testing::TestWithParam<Case> {};

// How long one page takes alone, and all together when no core ever rests.
Time Alone(const Case& each) {
    return kParts * (each.delay + std::chrono::duration_cast<Time>(std::chrono::duration<double>(kWorkOfPart)));
}
Time Work(const Case& each, int pages) {
    return std::chrono::duration_cast<Time>(std::chrono::duration<double>(pages * kParts * kWorkOfPart / each.cores));
}

TEST_P(NavigationQueueMachine, KeepsEveryCoreBusyAndTheFrontPageFirst) {
    for (const int pages : {20, 100}) {
        Machine machine(GetParam().cores, GetParam().delay);
        machine.Open(pages);
        EXPECT_LE(machine.Done(pages), 1.3 * Alone(GetParam()) + kLook) << "front of " << pages;
        // The first and the last page leave cores idle: one comes before the others, and one after them.
        EXPECT_LE(machine.AllDone(), 1.15 * Work(GetParam(), pages) + 2.2 * Alone(GetParam())) << "all " << pages;
        EXPECT_LE(machine.MostAtOnce(), NavigationQueue::kMost + 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Machines, NavigationQueueMachine,
                         testing::Values(Case{2, Time{0}}, Case{2, Time{100}}, Case{2, Time{500}}, Case{8, Time{0}},
                                         Case{8, Time{100}}, Case{8, Time{500}}),
                         [](const auto& each) {
                             return std::to_string(each.param.cores) + "Cores" +
                                    std::to_string(each.param.delay.count()) + "Milliseconds";
                         });

} // namespace

} // namespace tessa
