#include "tabs/MemoryRelief.h"

#include "common/Log.h"
#include "common/TabStrip.h"

#include <algorithm>
#include <utility>

namespace {
constexpr TextView kWhyTabsSleep = u"Memory is short. Tabs that you have not looked at for long sleep until you do.";
} // namespace

void MemoryRelief::Loaded(std::int32_t index) {
    if (!Works()) return;
    m_sleep.Loaded(index);
    const Time now = m_sleep.Now();
    if (OthersWait && OthersWait()) m_fresh.push_back({index, now});
    LookAt(m_asked ? *m_asked + kOften : now, now);
}

// Never here: the engine is in the middle of telling of a page.
void MemoryRelief::LookAt(Time due, Time now) {
    if (m_due && *m_due <= due) return;
    m_due = due;
    Schedule(std::max(due - now, Time{0}));
}

void MemoryRelief::Look() {
    m_due.reset();
    if (!Works()) return;
    const Time now = m_sleep.Now();
    m_asked = now;
    Ask();
    const std::size_t slept = Relieve(now);
    if (slept > 0) SayOnce();
    // What has just fallen asleep gives its memory back soon; what cannot sleep now may later.
    if (slept > 0 || !m_fresh.empty())
        LookAt(now + kOften, now);
    else if (m_pcPage.Count() > 1)
        LookAt(now + kRare, now);
}

void MemoryRelief::Ask() {
    const Shortage before = m_shortage.Level();
    const Shortage level = m_shortage.Note(Memory->Read());
    if (level == before) return;
    Log::Note(LogLevel::Info, LogPart::Engine, "how short memory is, 0 to 2", static_cast<std::int64_t>(level));
    if (Changed) Changed(level);
}

std::size_t MemoryRelief::Relieve(Time now) {
    if (Level() == Shortage::None) {
        if (!OthersWait || !OthersWait()) m_fresh.clear();
        return 0;
    }
    // As many as load in a second, or they would become more and more.
    const std::size_t fresh = SleepFresh(now, kMany);
    // What the user has had open before stays awake as long as that is enough.
    if (Level() == Shortage::Short && (fresh > 0 || !m_fresh.empty())) return fresh;
    return fresh + m_sleep.SleepLongest(Level() == Shortage::Severe ? kMany : kFew);
}

std::size_t MemoryRelief::SleepFresh(Time now, std::size_t most) {
    std::size_t slept = 0;
    while (slept < most && !m_fresh.empty() && m_fresh.front().loaded + TabSleep::kIconPatience <= now) {
        const Fresh fresh = m_fresh.front();
        m_fresh.pop_front();
        if (m_sleep.SleepUnseen(fresh.index, fresh.loaded)) ++slept;
    }
    return slept;
}

void MemoryRelief::SayOnce() {
    if (!std::exchange(m_said, true) && Say) Say(kWhyTabsSleep);
}
