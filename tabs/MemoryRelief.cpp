#include "tabs/MemoryRelief.h"

#include "base/os/Log.h"
#include "forms/TabStrip.h"
#include "platform/BrowserView.h"

#include <algorithm>
#include <utility>

namespace tessa {

namespace {
constexpr TextView kWhyTabsSleep = u"Memory is short. Tabs that you have not looked at for long sleep until you do.";
} // namespace

void MemoryRelief::Loaded(std::int32_t index) {
    if (!Works()) return;
    m_parts.sleep.Loaded(index);
    const Time now = m_parts.clock.Now();
    if (m_parts.views.PagesWait()) m_fresh.push_back({index, now});
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
    const Time now = m_parts.clock.Now();
    if (m_left == 0) Ask(now);
    if (m_left > 0 && SleepOne(now)) {
        m_slept = true;
        SayOnce();
        if (--m_left > 0) return LookAt(now + kPause, now);
    }
    m_left = 0;
    // What has just fallen asleep gives its memory back soon; what cannot sleep now may later.
    if (m_slept || !m_fresh.empty())
        LookAt(*m_asked + kOften, now);
    else if (m_parts.pcPage.Count() > 1)
        LookAt(now + kRare, now);
}

void MemoryRelief::Ask(Time now) {
    m_asked = now;
    m_slept = m_freshSlept = false;
    const Shortage before = m_shortage.Level();
    const Shortage level = m_shortage.Note(m_parts.memory.Read());
    if (level != before) {
        Log::Note(LogLevel::Info, LogPart::Engine, "how short memory is, 0 to 2", static_cast<std::int64_t>(level));
        Changed(level);
    }
    m_left = MostToSleep(now);
    if (level == Shortage::None && !m_parts.views.PagesWait()) m_fresh.clear();
}

// Of those that have just loaded as many as load in a second, or they would become more and more.
std::size_t MemoryRelief::MostToSleep(Time now) const {
    if (Level() == Shortage::None) return 0;
    return Level() == Shortage::Severe || HasFresh(now) ? kMany : kFew;
}

bool MemoryRelief::HasFresh(Time now) const {
    return !m_fresh.empty() && m_fresh.front().loaded + TabSleep::kIconPatience <= now;
}

bool MemoryRelief::SleepOne(Time now) {
    if (SleepFresh(now)) return m_freshSlept = true;
    // What the user has had open before stays awake as long as that is enough.
    if (Level() == Shortage::Short && (m_freshSlept || !m_fresh.empty())) return false;
    return m_parts.sleep.SleepLongest(1) > 0;
}

bool MemoryRelief::SleepFresh(Time now) {
    while (HasFresh(now)) {
        const Fresh fresh = m_fresh.front();
        m_fresh.pop_front();
        if (m_parts.sleep.SleepUnseen(fresh.index, fresh.loaded)) return true;
    }
    return false;
}

void MemoryRelief::SayOnce() {
    if (!std::exchange(m_said, true)) Say(kWhyTabsSleep);
}

} // namespace tessa
