#include "qt/questions/PageDialogCovers.h"

#include "qt/page/DialogScheme.h"
#include "qt/page/WebPage.h"
#include "qt/questions/Covers.h"

#include <QUrlQuery>
#include <QUuid>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineUrlRequestJob>
#include <algorithm>
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

PageDialogCovers::PageDialogCovers(WebPage& page, Covers& covers, DialogScheme& scheme)
    : m_page(page), m_covers(covers), m_scheme(scheme), m_token(QUuid::createUuid().toString(QUuid::Id128)) {
    QWebEngineScript script;
    script.setName(QStringLiteral("dialogs"));
    script.setSourceCode(DialogScheme::ScriptFor(m_token));
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::MainWorld);
    script.setRunsOnSubFrames(true);
    page.scripts().insert(script);
    scheme.Register(m_token, [this](QWebEngineUrlRequestJob& job) { OnJob(job); });
    m_connections += m_page.DialogWanted.Connect([this](const PageDialogRequest& request, const Answer& answer) {
        if (request.kind != PageDialogKind::Leave && !m_page.IsOwnOrigin(request.origin)) return answer({});
        // The whole engine waits for this answer, so nobody is asked who does not look at the page.
        if (!m_covers.Shown())
            return answer(
                {.accepted = request.kind == PageDialogKind::Leave, .text = {}, .silenced = m_rule.Silenced()});
        Ask({request, answer, nullptr, true});
    });
    connect(&page, &WebPage::PersonNavigated, this, [this] { m_rule.PersonNavigated(); });
    connect(&page, &WebPage::NavigationRequested, this, [this](const QUrl&, bool topLevel) {
        if (topLevel) DismissAll();
    });
}

PageDialogCovers::~PageDialogCovers() { m_scheme.Forget(m_token); }

void PageDialogCovers::AskToLeave(std::function<void(bool leaves)> answered) {
    Ask({{PageDialogKind::Leave, WebPage::HostAndPort(m_page.ShownAddress()), {}, {}, {}},
         [answered = std::move(answered)](const PageDialogAnswer& answer) { answered(answer.accepted); },
         nullptr,
         true});
}

void PageDialogCovers::LetUserStay() {
    const auto found =
        std::ranges::find(m_asked, PageDialogKind::Leave, [](const Asked& each) { return each.request.kind; });
    if (found == m_asked.end()) return;
    if (found == m_asked.begin() && m_shown) m_covers.Remove(std::exchange(m_shown, nullptr).data());
    const Answer answer = found->answer;
    m_asked.erase(found);
    if (!m_shown) ShowNext();
    answer({});
}

bool PageDialogCovers::HasQuestion() const {
    return !m_asked.empty() && m_asked.front().request.kind != PageDialogKind::Leave;
}

void PageDialogCovers::OnJob(QWebEngineUrlRequestJob& job) {
    // A frame from elsewhere would speak over the page and in its name. What is in a sandbox may not speak at all.
    if (!m_page.IsOwnOrigin(job.initiator())) return DialogScheme::Reply(job, {});
    const QUrlQuery query(job.requestUrl());
    const auto item = [&query](const char* name) {
        return query.queryItemValue(QLatin1String(name), QUrl::FullyDecoded);
    };
    connect(&job, &QObject::destroyed, this, &PageDialogCovers::OnJobGone, Qt::QueuedConnection);
    const QPointer<QWebEngineUrlRequestJob> waiting(&job);
    Ask({{DialogKindOf(job.requestUrl().path()), WebPage::HostAndPort(job.initiator()), item("text"),
          item("suggestion"), job.initiator()},
         [waiting](const PageDialogAnswer& answer) {
             if (waiting) DialogScheme::Reply(*waiting, answer);
         },
         waiting,
         false});
}

void PageDialogCovers::Ask(Asked asked) {
    // A silenced page hears nothing but "no", and cannot hold its user back.
    if (m_rule.Silenced() || m_asked.size() >= kMostWaiting)
        return asked.answer(
            {.accepted = asked.request.kind == PageDialogKind::Leave, .text = {}, .silenced = m_rule.Silenced()});
    m_asked.push_back(std::move(asked));
    if (!m_shown) ShowNext();
}

void PageDialogCovers::ShowNext() {
    if (m_asked.empty()) return;
    m_shown = new PageDialog(m_asked.front().request, m_rule.OffersSilence());
    m_rule.Shown();
    m_shown->Accepted.ConnectForLife([this] { Finish(true); });
    m_shown->Cancelled.ConnectForLife([this] { Finish(false); });
    m_covers.Add(m_shown);
}

void PageDialogCovers::Finish(bool accepted) {
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

void PageDialogCovers::DismissAll() {
    if (m_shown) m_covers.Remove(std::exchange(m_shown, nullptr).data());
    for (const Asked& each : std::exchange(m_asked, {})) each.answer({});
}

// A frame that has gone waits no longer.
void PageDialogCovers::OnJobGone() {
    if (m_asked.empty()) return;
    const auto gone = [](const Asked& each) { return !each.byEngine && !each.job; };
    if (m_shown && gone(m_asked.front())) m_covers.Remove(std::exchange(m_shown, nullptr).data());
    std::erase_if(m_asked, gone);
    if (!m_shown) ShowNext();
}

} // namespace tessa::qt
