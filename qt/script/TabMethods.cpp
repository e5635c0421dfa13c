#include "qt/script/TabMethods.h"

#include "history/SearchText.h"
#include "qt/base/Strings.h"

#include <QTimer>
#include <chrono>
#include <memory>
#include <utility>

namespace tessa::qt {

namespace {
constexpr std::chrono::seconds kReadPatience{2};
}

std::vector<ScriptMethod> TabMethods::All() {
    const auto text = [](const ScriptCall& call, int at) { return FromQt(call.TextAt(at)); };
    return {
        {"List", "", "a(ussss)",
         [this](const ScriptCall& call) { call.Answer(QVariantList{ScriptCall::OnBus(m_window.List())}); }},
        {"Search", "s", "a(ussss)", [this](const ScriptCall& call) { Search(call); }},
        {"Open", "asb", "au",
         [this](const ScriptCall& call) { call.Answer(m_window.Open(call.TextsAt(0), call.FlagAt(1))); }},
        {"OpenGroup", "sb", "au",
         [this, text](const ScriptCall& call) { call.Answer(m_window.OpenGroup(text(call, 0), call.FlagAt(1))); }},
        {"SaveGroup", "sb", "",
         [this, text](const ScriptCall& call) { call.Answer(m_window.SaveGroup(text(call, 0), call.FlagAt(1))); }},
        {"Activate", "u", "", [this](const ScriptCall& call) { call.Answer(m_window.Activate(call.NumberAt(0))); }},
        {"Close", "au", "", [this](const ScriptCall& call) { call.Answer(m_window.Close(call.NumbersAt(0))); }},
        {"Reload", "au", "", [this](const ScriptCall& call) { call.Answer(m_window.Reload(call.NumbersAt(0))); }},
        {"RunCommand", "s", "", [this](const ScriptCall& call) { RunCommand(call); }},
        {"Wait", "au", "", [this](const ScriptCall& call) { Wait(call); }},
        {"Foreground", "s", "", [this](const ScriptCall& call) { ComeForward(call); }},
        {"Quit", "", "", [this](const ScriptCall& call) { Quit(call); }},
    };
}

void TabMethods::Search(const ScriptCall& call) {
    WhenRead([this, call] { FindRead(call); });
}

void TabMethods::WhenRead(const std::function<void()>& then) {
    struct Waiting {
        std::vector<std::int32_t> left;
        std::function<void()> then;
        Connection heard{};
        void End() {
            heard = {};
            if (const auto once = std::exchange(then, {})) once();
        }
    };
    const auto waiting = std::make_shared<Waiting>(Waiting{m_window.ReadUnread(), then});
    if (waiting->left.empty()) return waiting->End();
    waiting->heard = m_window.PageRead().Connect([known = std::weak_ptr(waiting)](std::int32_t index) {
        const auto all = known.lock();
        if (all && std::erase(all->left, index) > 0 && all->left.empty()) all->End();
    });
    QTimer::singleShot(kReadPatience, &m_waiter, [waiting] { waiting->End(); });
}

// The open tabs first. What was read is known by the store, which answers later.
void TabMethods::FindRead(const ScriptCall& call) {
    const Text words = FromQt(call.TextAt(0));
    const Text match = SearchText::QueryOf(SearchText::PiecesOf(words));
    if (match.empty() || !m_visits.Works()) return call.Answer(QVariantList{ScriptCall::OnBus(m_window.Search(words))});
    m_visits.Find({.Match = match}, [this, call, words](const HistoryFound& found) {
        call.Answer(QVariantList{ScriptCall::OnBus(m_window.WithRead(m_window.Search(words), found.Entries))});
    });
}

// Answered first: the command may ask its user something, or end the program.
void TabMethods::RunCommand(const ScriptCall& call) {
    const Text tool = FromQt(call.TextAt(0));
    if (const auto refusal = m_window.MayRun(tool); !refusal.empty()) return call.Refuse(refusal);
    call.Answer();
    m_window.RunCommand(tool);
}

void TabMethods::ComeForward(const ScriptCall& call) {
    Foreground(call.TextAt(0).toUtf8());
    call.Answer();
}

void TabMethods::Quit(const ScriptCall& call) {
    call.Answer();
    m_window.Quit();
}

void TabMethods::Wait(const ScriptCall& call) {
    const std::vector<std::uint32_t> numbers = call.NumbersAt(0);
    const bool waits = m_waits.When(numbers, [this, call, numbers] {
        std::vector<std::uint32_t> all = numbers;
        for (const ScriptTab& tab : numbers.empty() ? m_window.List() : std::vector<ScriptTab>())
            all.push_back(tab.number);
        m_reads.Settle(all, [call] { call.Answer(); });
    });
    if (!waits) call.Refuse(LoadWaits::kTooMany);
}

} // namespace tessa::qt
