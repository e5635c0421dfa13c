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
    m_visible.erase(index);
    if (m_beside.erase(index) > 0) m_queue.SetBeside({m_beside.begin(), m_beside.end()});
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

void Schedule::ShowBeside(std::int32_t index) {
    if (!m_beside.insert(index).second) return;
    m_besideChanged = true;
    m_queue.SetBeside({m_beside.begin(), m_beside.end()});
    Wake();
}

void Schedule::Park(std::int32_t index) {
    if (m_beside.erase(index) > 0) {
        m_besideChanged = true;
        m_queue.SetBeside({m_beside.begin(), m_beside.end()});
    }
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
    ShowWanted();
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

void Schedule::ShowWanted() {
    const bool another = m_front != m_shown && Find(m_front);
    if (!another && !m_besideChanged) return;
    m_besideChanged = false;
    if (another) ShowFront();
    ShowNextBeside();
    HideOthers();
    ShownChanged();
    if (another) FrontChanged();
}

void Schedule::ShowFront() {
    // What stays gives the keyboard up before the other one takes it.
    if (auto* before = m_beside.contains(m_shown) ? Find(m_shown) : nullptr) before->Show(ShownAs::Beside);
    m_shown = m_front;
    m_visible.insert(m_front);
    Find(m_front)->Show(ShownAs::Front);
}

// One a turn: there may be many, and for each a page is made.
void Schedule::ShowNextBeside() {
    for (const std::int32_t each : m_beside) {
        auto* view = each == m_shown || m_visible.contains(each) ? nullptr : Find(each);
        if (!view) continue;
        m_visible.insert(each);
        m_besideChanged = true;
        Wake();
        return view->Show(ShownAs::Beside);
    }
}

void Schedule::HideOthers() {
    for (const std::int32_t each : std::set(m_visible)) {
        if (each == m_shown || m_beside.contains(each)) continue;
        m_visible.erase(each);
        if (auto* view = Find(each)) view->Hide();
    }
}

Schedule::View* Schedule::Find(std::int32_t index) const {
    const auto found = m_views.find(index);
    return found == m_views.end() ? nullptr : found->second;
}

} // namespace tessa::qt
