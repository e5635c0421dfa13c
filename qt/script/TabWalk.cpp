#include "qt/script/TabWalk.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>

namespace tessa::qt {

namespace {

constexpr std::chrono::milliseconds kLooking{50};

bool Says(const ScriptTab& tab, const std::string& word) {
    return (" " + tab.state + " ").find(" " + word + " ") != std::string::npos;
}

} // namespace

LoadWaits::LoadWaits(const ScriptedWindow& window) : m_window(window) {
    m_look.setInterval(kLooking);
    connect(&m_look, &QTimer::timeout, this, &LoadWaits::Look);
}

bool LoadWaits::When(std::vector<std::uint32_t> numbers, std::function<void()> ready, std::function<bool()> goesOn) {
    if (m_waiting.size() >= kMost) return false;
    m_waiting.push_back({std::move(numbers), std::move(ready), std::move(goesOn)});
    m_look.start();
    return true;
}

void LoadWaits::Look() {
    std::vector<Waiting> before = std::exchange(m_waiting, {});
    std::vector<std::function<void()>> ready;
    for (Waiting& each : before) {
        const bool goesOn = !each.goesOn || each.goesOn();
        if (goesOn && m_window.AnyLoading(each.numbers))
            m_waiting.push_back(std::move(each));
        else
            ready.push_back(std::move(each.ready));
    }
    if (m_waiting.empty()) m_look.stop();
    for (const auto& each : ready) each();
}

/// One way through the tabs.
struct TabWalk::Walk {
    std::vector<std::uint32_t> numbers;
    PageSteps steps;
    std::size_t at = 0;
    std::vector<std::string> left{};
};

void TabWalk::Go(const std::vector<std::uint32_t>& numbers, PageSteps steps) {
    const auto walk = std::make_shared<Walk>(Walk{numbers, std::move(steps)});
    if (numbers.empty()) {
        for (const ScriptTab& tab : m_window.List()) walk->numbers.push_back(tab.number);
    }
    Next(walk);
}

void TabWalk::Next(const std::shared_ptr<Walk>& walk) {
    const std::vector<ScriptTab> tabs = m_window.List();
    while (walk->at < walk->numbers.size() && walk->steps.GoOn()) {
        if (walk->steps.progress) walk->steps.progress(walk->at, walk->numbers.size());
        const auto tab = std::ranges::find(tabs, walk->numbers[walk->at++], &ScriptTab::number);
        // One that was closed meanwhile is nobody's wish any more.
        if (tab == tabs.end() || Says(*tab, "private")) continue;
        if (m_reads.Wake(static_cast<std::int32_t>(tab->number))) return Visit(walk, *tab);
        walk->left.push_back(tab->address.empty() ? tab->title : tab->address);
    }
    walk->steps.ended(walk->left);
}

void TabWalk::Visit(const std::shared_ptr<Walk>& walk, const ScriptTab& tab) {
    const auto goOn = [this, walk, tab] {
        if (Says(tab, "asleep") || Says(tab, "waiting")) m_reads.Sleep(static_cast<std::int32_t>(tab.number));
        Next(walk);
    };
    const auto visit = [this, walk, number = tab.number, goOn] {
        const std::vector<ScriptTab> tabs = m_window.List();
        const auto now = std::ranges::find(tabs, number, &ScriptTab::number);
        if (now == tabs.end() || !walk->steps.GoOn()) return goOn();
        walk->steps.step(*now, goOn);
    };
    const auto settle = [this, visit, number = tab.number] { m_reads.Settle({number}, visit); };
    if (!m_waits.When({tab.number}, settle, walk->steps.goesOn)) {
        walk->left.push_back(tab.address);
        Next(walk);
    }
}

} // namespace tessa::qt
