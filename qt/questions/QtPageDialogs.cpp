#include "qt/questions/QtPageDialogs.h"

#include "qt/page/QtDialogScheme.h"
#include "qt/page/QtPage.h"
#include "qt/questions/QtCovers.h"

#include <QUrlQuery>
#include <QUuid>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineUrlRequestJob>
#include <utility>

namespace tessa::qt {

namespace {

/// Each frame of a page can wait for one answer; nobody reads more than a few.
constexpr std::size_t kMostWaiting = 20;

PageDialogKind DialogKindOf(const QString& name) {
    if (name == u"confirm") return PageDialogKind::Confirm;
    return name == u"prompt" ? PageDialogKind::Prompt : PageDialogKind::Alert;
}

} // namespace

QtPageDialogs::QtPageDialogs(QtPage& page, QtCovers& covers, QtDialogScheme& scheme)
    : m_page(page), m_covers(covers), m_scheme(scheme), m_token(QUuid::createUuid().toString(QUuid::Id128)) {
    QWebEngineScript script;
    script.setName(QStringLiteral("dialogs"));
    script.setSourceCode(QtDialogScheme::ScriptFor(m_token));
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::MainWorld);
    script.setRunsOnSubFrames(true);
    page.scripts().insert(script);
    scheme.Register(m_token, [this](QWebEngineUrlRequestJob& job) { OnJob(job); });
    m_page.ShowDialog = [this](const PageDialogRequest& request, Answer answer) {
        if (request.kind != PageDialogKind::Leave && !m_page.IsOwnOrigin(request.origin)) return answer({});
        // The whole engine waits for this answer, so nobody is asked who does not look at the page.
        if (!m_covers.Shown())
            return answer(
                {.accepted = request.kind == PageDialogKind::Leave, .text = {}, .silenced = m_rule.Silenced()});
        Ask({request, std::move(answer), nullptr, true});
    };
    connect(&page, &QtPage::PersonNavigated, this, [this] { m_rule.PersonNavigated(); });
    connect(&page, &QtPage::NavigationRequested, this, [this](const QUrl&, bool topLevel) {
        if (topLevel) DismissAll();
    });
}

QtPageDialogs::~QtPageDialogs() {
    m_scheme.Forget(m_token);
    m_page.ShowDialog = {};
}

void QtPageDialogs::AskToLeave(std::function<void(bool leaves)> answered) {
    Ask({{PageDialogKind::Leave, QtPage::HostAndPort(m_page.ShownAddress()), {}, {}, {}},
         [answered = std::move(answered)](const PageDialogAnswer& answer) { answered(answer.accepted); },
         nullptr,
         true});
}

void QtPageDialogs::OnJob(QWebEngineUrlRequestJob& job) {
    // A frame from elsewhere would speak over the page and in its name; what is in a sandbox may not speak at all.
    if (!m_page.IsOwnOrigin(job.initiator())) return QtDialogScheme::Reply(job, {});
    const QUrlQuery query(job.requestUrl());
    const auto item = [&query](const char* name) {
        return query.queryItemValue(QLatin1String(name), QUrl::FullyDecoded);
    };
    connect(&job, &QObject::destroyed, this, &QtPageDialogs::OnJobGone, Qt::QueuedConnection);
    const QPointer<QWebEngineUrlRequestJob> waiting(&job);
    Ask({{DialogKindOf(job.requestUrl().path()), QtPage::HostAndPort(job.initiator()), item("text"), item("suggestion"),
          job.initiator()},
         [waiting](const PageDialogAnswer& answer) {
             if (waiting) QtDialogScheme::Reply(*waiting, answer);
         },
         waiting,
         false});
}

void QtPageDialogs::Ask(Asked asked) {
    // A silenced page hears nothing but "no", and cannot hold its user back.
    if (m_rule.Silenced() || m_asked.size() >= kMostWaiting)
        return asked.answer(
            {.accepted = asked.request.kind == PageDialogKind::Leave, .text = {}, .silenced = m_rule.Silenced()});
    m_asked.push_back(std::move(asked));
    if (!m_shown) ShowNext();
}

void QtPageDialogs::ShowNext() {
    if (m_asked.empty()) return;
    m_shown = new QtPageDialog(m_asked.front().request, m_rule.OffersSilence());
    m_rule.Shown();
    m_shown->Accepted.ConnectForLife([this] { Finish(true); });
    m_shown->Cancelled.ConnectForLife([this] { Finish(false); });
    m_covers.Add(m_shown);
}

void QtPageDialogs::Finish(bool accepted) {
    auto* dialog = std::exchange(m_shown, nullptr).data();
    if (dialog->Silences()) m_rule.Silence();
    const PageDialogAnswer given{accepted, dialog->Text(), false};
    const Answer answer = m_asked.front().answer;
    m_asked.pop_front();
    m_covers.Remove(dialog);
    if (m_rule.Silenced()) DismissAll();
    if (!m_asked.empty()) ShowNext();
    answer(given);
}

void QtPageDialogs::DismissAll() {
    if (m_shown) m_covers.Remove(std::exchange(m_shown, nullptr).data());
    for (const Asked& each : std::exchange(m_asked, {})) each.answer({});
}

// A frame that has gone waits no longer.
void QtPageDialogs::OnJobGone() {
    if (m_asked.empty()) return;
    const auto gone = [](const Asked& each) { return !each.byEngine && !each.job; };
    if (m_shown && gone(m_asked.front())) m_covers.Remove(std::exchange(m_shown, nullptr).data());
    std::erase_if(m_asked, gone);
    if (!m_shown) ShowNext();
}

} // namespace tessa::qt
