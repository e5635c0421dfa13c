#include "qt/questions/Leaving.h"

#include "qt/page/WebPage.h"

#include <QWebEngineScript>
#include <chrono>
#include <utility>

namespace tessa::qt {

namespace {

/// What a page does with a question that takes longer is no answer.
constexpr std::chrono::seconds kLeavePatience{3};

// The engine can only ask a page for good: a page that lets go then takes its leave. So a page that may stay is asked
// as the engine would, in every frame that belongs to it.
constexpr auto kHoldProbe = R"((() => {
    const holds = each => {
        let event;
        try {
            event = each.document.createEvent('BeforeUnloadEvent');
            event.initEvent('beforeunload', false, true);
            each.dispatchEvent(event);
        } catch { return false; }
        if (event.defaultPrevented || event.returnValue) return true;
        for (let i = 0; i < each.length; ++i) if (holds(each[i])) return true;
        return false;
    };
    return holds(window);
})())";

} // namespace

Leaving::Leaving(WebPage& page) : QObject(&page), m_page(page) {
    m_patience.setSingleShot(true);
    m_patience.setInterval(kLeavePatience);
    m_patience.callOnTimeout(this, [this] { GiveUp(); });
    m_connections += page.HoldWanted.Connect([this](std::optional<bool>& leaves) { leaves = OnHold(); });
    connect(&page, &WebPage::DocumentBegan, this, [this] { m_left = false; });
    connect(&page, &QWebEnginePage::renderProcessTerminated, this, [this] { GiveUp(); });
}

bool Leaving::MayHold() const {
    // Words can come from an input method without a key.
    const bool touched = m_page.PersonWasHere() || m_page.HoldsInput();
    return !m_left && touched && m_page.lifecycleState() != QWebEnginePage::LifecycleState::Discarded;
}

void Leaving::Ask(LeaveReason why, std::function<void(bool holds)> told) {
    (why == LeaveReason::ToClose ? m_closers : m_seekers).push_back(std::move(told));
    m_patience.start();
    if (why == LeaveReason::ToClose) return RequestClose();
    const int question = ++m_question;
    m_page.LookAtInput();
    m_page.runJavaScript(QString::fromLatin1(kHoldProbe), QWebEngineScript::MainWorld,
                         [self = QPointer<Leaving>(this), question](const QVariant& holds) {
                             if (!self || question != self->m_question) return;
                             self->Tell(self->m_seekers, holds.toBool() || self->m_page.HoldsText());
                         });
}

// The engine gives a page half a second to hold its user. So one that is busy is asked as soon as it listens again.
void Leaving::RequestClose() {
    m_page.runJavaScript(QStringLiteral("0"), QWebEngineScript::ApplicationWorld,
                         [self = QPointer<Leaving>(this), question = ++m_closeQuestion](const QVariant&) {
                             if (!self || question != self->m_closeQuestion || self->m_closers.empty()) return;
                             self->m_requested = true;
                             self->m_page.triggerAction(QWebEnginePage::RequestClose);
                         });
}

void Leaving::LetStay() {
    if (m_requested) return;
    m_closers.clear();
    if (m_seekers.empty()) m_patience.stop();
}

// Queued: the engine is in the middle of asking, and who hears the answer may ask the user.
void Leaving::Tell(Askers& askers, bool holds) {
    for (auto& told : std::exchange(askers, {}))
        QMetaObject::invokeMethod(
            this, [told = std::move(told), holds] { told(holds); }, Qt::QueuedConnection);
    if (m_closers.empty() && m_seekers.empty()) m_patience.stop();
}

void Leaving::GiveUp() {
    ++m_question;
    Tell(m_seekers, false);
    if (!m_closers.empty()) LetGo();
}

void Leaving::LetGo() {
    m_left = true;
    m_requested = false;
    Tell(m_closers, false);
}

std::optional<bool> Leaving::OnHold() {
    if (m_left) return true;
    if (m_closers.empty()) return std::nullopt;
    m_requested = false;
    Tell(m_closers, true);
    return false;
}

// The engine closes a page that hangs by itself, and once more when the page comes to it.
bool Leaving::TakeClose() {
    if (m_closers.empty()) return m_left;
    LetGo();
    return true;
}

} // namespace tessa::qt
