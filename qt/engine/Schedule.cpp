#include "qt/engine/Schedule.h"

#include <QThread>
#include <algorithm>

namespace tessa::qt {

namespace {
/// How often the machine is looked at while pages wait for it. The system counts in hundredths of a second.
constexpr NavigationQueue::Time kLook{50};
} // namespace

Schedule::Schedule() : m_queue(static_cast<std::size_t>(std::max(QThread::idealThreadCount(), 1))) {
    m_turn.setSingleShot(true);
    m_turn.callOnTimeout(this, [this] { Turn(); });
    m_clock.start();
}

void Schedule::Start() {
    m_started = true;
    Wake();
}

void Schedule::Add(std::int32_t index, View& view) { m_views[index] = &view; }

void Schedule::Remove(std::int32_t index) {
    m_views.erase(index);
    if (m_front == index) m_front = 0;
    if (m_shown == index) m_shown = 0;
    m_queue.Remove(index);
    Wake();
}

void Schedule::AskTurn(std::int32_t index) {
    // A view that is still loading gives its place up for what it is to load now.
    m_queue.Remove(index);
    m_queue.Add(index);
    Wake();
}

void Schedule::EndTurn(std::int32_t index) {
    m_queue.Remove(index);
    if (m_queue.Waiting() > 0) Wake();
}

void Schedule::NoteSign(std::int32_t index) { m_queue.NoteSign(index, Now()); }

void Schedule::BringToFront(std::int32_t index) {
    if (m_front == index && m_shown == index) return;
    m_front = index;
    m_queue.SetFront(index);
    Wake();
}

void Schedule::Wake() {
    if (m_started) m_turn.start(0);
}

void Schedule::SetShortage(Shortage shortage) {
    m_shortage = shortage;
    m_queue.SetTight(shortage == Shortage::Severe);
    Wake();
}

void Schedule::Turn() {
    ShowFront();
    const auto now = Now();
    LookAtMachine(now);
    // One page a turn: making one takes milliseconds in which no menu opens.
    if (const auto next = m_queue.Next(now)) {
        if (auto* view = Find(*next)) view->StartNavigation();
        Wake();
    } else if (m_queue.Waiting() > 0) {
        m_turn.start(std::min(m_queue.Deadline(now).value_or(now + kLook) - now, kLook));
    }
}

void Schedule::LookAtMachine(NavigationQueue::Time now) {
    if (m_queue.Waiting() == 0 || now < m_looked + kLook) return;
    m_looked = now;
    // What is idle loads nothing more than usual while what is loaded has to be put to sleep.
    const bool roomy = m_shortage == Shortage::None;
    if (const auto idle = m_idle.SinceLast(now)) m_queue.NoteIdle(roomy ? *idle : 0, now);
}

void Schedule::ShowFront() {
    if (m_front == m_shown) return;
    auto* front = Find(m_front);
    if (!front) return;
    front->Show();
    if (auto* before = Find(m_shown)) before->Hide();
    m_shown = m_front;
    FrontChanged();
}

Schedule::View* Schedule::Find(std::int32_t index) const {
    const auto found = m_views.find(index);
    return found == m_views.end() ? nullptr : found->second;
}

} // namespace tessa::qt
