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
    m_patience.callOnTimeout(this, [this] { Tell(false); });
    m_connections += page.HoldWanted.Connect([this](std::optional<bool>& leaves) { leaves = OnHold(); });
    connect(&page, &WebPage::DocumentBegan, this, [this] { m_left = false; });
    connect(&page, &QWebEnginePage::renderProcessTerminated, this, [this] { Tell(false); });
}

bool Leaving::MayHold() const {
    // Words can come from an input method without a key.
    const bool touched = m_page.PersonWasHere() || m_page.HoldsInput();
    return !m_left && touched && m_page.lifecycleState() != QWebEnginePage::LifecycleState::Discarded;
}

void Leaving::Ask(LeaveReason why, std::function<void(bool holds)> told) {
    m_told.push_back(std::move(told));
    m_patience.start();
    if (why == LeaveReason::ToClose) {
        m_closing = true;
        return m_page.triggerAction(QWebEnginePage::RequestClose);
    }
    const int question = ++m_question;
    m_page.LookAtInput();
    m_page.runJavaScript(QString::fromLatin1(kHoldProbe), QWebEngineScript::MainWorld,
                         [self = QPointer<Leaving>(this), question](const QVariant& holds) {
                             if (!self || question != self->m_question) return;
                             self->Tell(holds.toBool() || self->m_page.HoldsText());
                         });
}

// Queued: the engine is in the middle of asking, and who hears the answer may ask the user.
void Leaving::Tell(bool holds) {
    m_patience.stop();
    m_closing = false;
    ++m_question;
    for (auto& told : std::exchange(m_told, {}))
        QMetaObject::invokeMethod(
            this, [told = std::move(told), holds] { told(holds); }, Qt::QueuedConnection);
}

std::optional<bool> Leaving::OnHold() {
    if (m_left) return true;
    if (!m_closing) return std::nullopt;
    Tell(true);
    return false;
}

bool Leaving::TakeClose() {
    if (!m_closing) return false;
    Tell(false);
    return true;
}

} // namespace tessa::qt
