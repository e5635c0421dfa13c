#include "qt/page/WebPage.h"

#include "base/Schemes.h"
#include "pages/ExternalSchemes.h"
#include "qt/base/Strings.h"
#include "qt/page/MailLinks.h"
#include "qt/page/StartPageScheme.h"
#include "startpage/OwnAccess.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>
#include <QWebEngineScript>
#include <QWebEngineSettings>
#include <chrono>
#include <memory>
#include <optional>

namespace tessa::qt {

namespace {
// A page that ends waits for so long for what a script of ours says of it.
constexpr std::chrono::seconds kCopyTime{1}, kLastAnswerPatience{1};

NavigationCause CauseOf(QWebEnginePage::NavigationType type) {
    switch (type) {
    case QWebEnginePage::NavigationTypeTyped:
        return NavigationCause::Typed;
    case QWebEnginePage::NavigationTypeBackForward:
        return NavigationCause::History;
    case QWebEnginePage::NavigationTypeReload:
        return NavigationCause::Reload;
    case QWebEnginePage::NavigationTypeLinkClicked:
        return NavigationCause::Link;
    case QWebEnginePage::NavigationTypeFormSubmitted:
        return NavigationCause::Form;
    default:
        return NavigationCause::Other;
    }
}

} // namespace

WebPage::WebPage(QWebEngineProfile* profile, QString token) : QWebEnginePage(profile), m_token(std::move(token)) {
    connect(this, &QWebEnginePage::urlChanged, this, &WebPage::OnAddress);
    connect(this, &QWebEnginePage::loadStarted, this, [this] { m_loading = true; });
    connect(this, &QWebEnginePage::loadingChanged, this, &WebPage::OnLoading);
    connect(this, &QWebEnginePage::renderProcessTerminated, this, [this] {
        m_input.clear();
        m_texts.clear();
        m_loading = false;
    });
    m_mayCopy.setSingleShot(true);
    m_mayCopy.setInterval(kCopyTime);
    m_mayCopy.callOnTimeout(this,
                            [this] { settings()->resetAttribute(QWebEngineSettings::JavascriptCanAccessClipboard); });
}

// The engine does not ask about the clipboard, it goes by a switch. So a page may write to it when its user has just
// done something in it. It never reads it.
void WebPage::NotePerson() {
    m_personWasHere = true;
    m_person.Make();
    m_actedFrame.clear(); // a frame reports itself
    if (!m_mayCopy.isActive()) settings()->setAttribute(QWebEngineSettings::JavascriptCanAccessClipboard, true);
    m_mayCopy.start();
}

bool WebPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
    if (url.scheme() == QLatin1String(StartPageScheme::Scheme()) && !AcceptOwn(url, type, isMainFrame)) return false;
    // What the parts of the program ask each other is no place to go.
    if (isMainFrame && KindOfScheme(FromQt(url.scheme())) == SchemeKind::Inner) return false;
    if (isMainFrame && type != NavigationTypeTyped && !MayLeadOn(url)) return false;
    if (HandOver(url, type == NavigationTypeLinkClicked, isMainFrame)) return false;
    if (isMainFrame && StaysForPrint(url, type)) return false;
    if (isMainFrame) m_awaited = url;
    // What the page of the history shows is shown by a script.
    if (isMainFrame && StartPageScheme::IsHistory(url))
        settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, true);
    else if (isMainFrame)
        settings()->resetAttribute(QWebEngineSettings::JavascriptEnabled);
    if (isMainFrame) m_redirects = type == NavigationTypeRedirect;
    // A link that a script clicks is a clicked one too.
    if (isMainFrame && (type == NavigationTypeTyped || (type == NavigationTypeLinkClicked && TakePerson())))
        Q_EMIT PersonNavigated();
    Q_EMIT NavigationRequested(url, isMainFrame);
    return true;
}

// The engine ends the program where a page that is being printed goes to another site and does not answer. What a form
// holds would be lost on the way, so its user sends it again.
bool WebPage::StaysForPrint(const QUrl& url, NavigationType type) {
    const bool form = type == NavigationTypeFormSubmitted;
    if (m_printing == 0 || (form && SiteOf(url) == SiteOf(ShownAddress()))) return false;
    if (!form) m_afterPrint = url;
    return true;
}

bool WebPage::MayLeadOn(const QUrl& url) {
    bool stays = true;
    LeadsOn(url, stays);
    if (!stays) Q_EMIT windowCloseRequested();
    return stays;
}

bool WebPage::HandOver(const QUrl& url, bool clicked, bool isMainFrame) {
    const bool mail = MailLinks::IsMail(url);
    if (!mail && !ExternalSchemes::IsExternal(FromQt(url.scheme()))) return false;
    const bool person = clicked && TakePerson();
    // Only a person's click starts the mail program, so that no page can start it a hundred times.
    if (mail && !person) {
        Q_EMIT ExternalRefused(url, ShownAddress());
        return true;
    }
    if (MailLinks::OpensElsewhere(url)) {
        QDesktopServices::openUrl(MailLinks::WithoutFiles(url));
        return true;
    }
    // The engine does not tell who asks. It has made sure that a person acted in the page: where that was, asks.
    const bool inOthers = !m_actedFrame.isEmpty() && SiteOf(QUrl(m_actedFrame)) != SiteOf(ShownAddress());
    const bool byFrame = !isMainFrame || inOthers;
    Q_EMIT ExternalRequested(mail ? MailLinks::WithoutFiles(url) : url,
                             {ShownAddress(), byFrame, QUrl(m_actedFrame), person});
    return true;
}

QString WebPage::HostAndPort(const QUrl& url) {
    const QString host = url.host(QUrl::FullyEncoded);
    return url.port() < 0 ? host : QStringLiteral("%1:%2").arg(host).arg(url.port());
}

QString WebPage::SiteOf(const QUrl& url) {
    return url.host().isEmpty() ? QString() : url.scheme() + QStringLiteral("://") + HostAndPort(url);
}

QUrl WebPage::ShownAddress() const { return m_shown.isEmpty() ? url() : m_shown; }

bool WebPage::IsOwnOrigin(const QUrl& origin) const {
    const QUrl shown = ShownAddress();
    // A blank page is of whoever has filled it.
    if (shown.isEmpty() || shown.scheme() == u"about") return true;
    return SiteOf(origin) == SiteOf(shown.scheme() == u"blob" ? QUrl(shown.path()) : shown);
}

namespace {

// The engine asks with these words of its own, in its own language, before a page with input is left.
QString LeaveQuestion() {
    return QCoreApplication::translate(
        "QWebEnginePage", "Are you sure you want to leave this page? Changes that you made may not be saved.");
}

/// Tells the first result, and no other.
auto Once(const std::function<void(const PrintedPage&)>& printed) {
    return [told = std::make_shared<std::function<void(const PrintedPage&)>>(printed)](const PrintedPage& result) {
        if (const auto once = std::exchange(*told, {})) once(result);
    };
}

} // namespace

void WebPage::javaScriptAlert(const QUrl& origin, const QString& message) {
    Ask({PageDialogKind::Alert, HostAndPort(origin), message, {}, origin});
}

bool WebPage::javaScriptConfirm(const QUrl& origin, const QString& message) {
    const bool leave = message == LeaveQuestion();
    std::optional<bool> leaves;
    if (leave) HoldWanted(leaves);
    if (leaves) return *leaves;
    const auto kind = leave ? PageDialogKind::Leave : PageDialogKind::Confirm;
    return Ask({kind, HostAndPort(origin), message, {}, origin}).accepted;
}

bool WebPage::javaScriptPrompt(const QUrl& origin, const QString& message, const QString& suggestion, QString* result) {
    const auto answer = Ask({PageDialogKind::Prompt, HostAndPort(origin), message, suggestion, origin});
    if (answer.accepted) *result = answer.text;
    return answer.accepted;
}

// The engine wants the answer before this returns. The rest of the program goes on meanwhile, so the tab may be closed.
// Then the page ends, but not before the engine, which called, has it back.
PageDialogAnswer WebPage::Ask(const PageDialogRequest& request) {
    if (!DialogWanted.HasListeners() || m_waiting || m_ending) return {};
    QEventLoop waiting;
    // Shared, because a dialog may outlast the call.
    const auto given = std::make_shared<std::optional<PageDialogAnswer>>();
    DialogWanted(request, [given, loop = QPointer<QEventLoop>(&waiting)](const PageDialogAnswer& answer) {
        *given = answer;
        if (loop) loop->quit();
    });
    if (!*given) {
        m_waiting = &waiting;
        waiting.exec();
        m_waiting = nullptr;
        if (m_ending && m_printing == 0) deleteLater();
    }
    return given->value_or(PageDialogAnswer{});
}

// What was wanted of the page meanwhile.
void WebPage::GoOnAfterPrint() {
    if (m_printing > 0 || (m_ending && m_waiting)) return;
    if (m_ending) return deleteLater();
    if (!m_afterPrint.isEmpty()) load(std::exchange(m_afterPrint, {}));
}

void WebPage::Halt() {
    m_afterPrint.clear();
    triggerAction(Stop);
}

// The engine forgets what it was printing of a page whose process ends, and never tells. Where it only takes too long,
// it is still at work, and does not bear that the page goes. A page that is on its way to another is not printed.
void WebPage::Print(const QPageLayout& layout, std::chrono::milliseconds patience,
                    const std::function<void(const PrintedPage& printed)>& printed, const QPageRanges& ranges) {
    if (isLoading()) return AwaitsAny() ? printed({}) : PrintOnceLoaded(layout, patience, printed, ranges);
    ++m_printing;
    auto* watch = new QTimer(this);
    const auto tell = Once(printed);
    const auto end = [this, tell, watch, whole = Whole(), open = std::make_shared<bool>(true)](const QByteArray& pdf) {
        if (whole.expired() || !std::exchange(*open, false)) return tell({});
        if (!watch->isActive()) --m_overdue;
        watch->stop();
        watch->deleteLater();
        // Who hears it may let the page sleep.
        --m_printing;
        tell({pdf});
        if (!whole.expired()) GoOnAfterPrint();
    };
    watch->setSingleShot(true);
    watch->callOnTimeout(this, [this, tell] {
        ++m_overdue;
        tell({.answered = false});
    });
    connect(
        this, &QWebEnginePage::renderProcessTerminated, watch, [end] { end({}); }, Qt::QueuedConnection);
    watch->start(patience);
    printToPdf(end, layout, ranges);
}

// Of what it is asked to print while it loads, the engine never makes anything, nor of anything later.
void WebPage::PrintOnceLoaded(const QPageLayout& layout, std::chrono::milliseconds patience,
                              const std::function<void(const PrintedPage& printed)>& printed,
                              const QPageRanges& ranges) {
    ++m_toPrint;
    auto* wait = new QTimer(this);
    const auto told = std::make_shared<std::function<void(const PrintedPage&)>>(printed);
    const auto tell = [told](const PrintedPage& result) {
        if (const auto once = std::exchange(*told, {})) once(result);
    };
    const auto begin = [this, wait, layout, told, ranges] {
        const auto left = wait->remainingTimeAsDuration();
        wait->deleteLater();
        const auto once = std::exchange(*told, {});
        if (!once) return;
        --m_toPrint;
        Print(layout, left, once, ranges);
        if (m_ending) EndOnceDone();
    };
    wait->setSingleShot(true);
    wait->callOnTimeout(this, [this, wait, tell] {
        --m_toPrint;
        wait->deleteLater();
        tell({.answered = false});
    });
    // Queued: the engine is in the middle of telling.
    connect(this, &QWebEnginePage::loadFinished, wait, begin, Qt::QueuedConnection);
    connect(this, &QObject::destroyed, wait, [tell] { tell({}); });
    wait->start(patience);
}

// What ends without an answer answers while it ends, when nothing of ours is left of it.
void WebPage::Ask(const QString& script, std::function<void(const QVariant&)> answered) {
    ++*m_asked;
    runJavaScript(script, QWebEngineScript::ApplicationWorld,
                  [page = QPointer<WebPage>(this), left = std::weak_ptr(m_asked),
                   answered = std::move(answered)](const QVariant& answer) {
                      const auto asked = left.lock();
                      if (asked) --*asked;
                      answered(answer);
                      if (asked && page && page->m_ending) page->EndOnceDone();
                  });
}

void WebPage::End() {
    m_ending = true;
    if (m_waiting) return m_waiting->quit();
    // What answers by then may have it printed.
    QTimer::singleShot(kLastAnswerPatience, this, [this] {
        if (m_printing == 0) deleteLater();
    });
    EndOnceDone();
}

void WebPage::EndOnceDone() {
    if (m_waiting || m_printing > 0) return;
    // What has come by now is printed.
    if (m_toPrint > 0) return triggerAction(Stop);
    if (*m_asked == 0) deleteLater();
}

// Newer engines, as 6.11, tell of a download by a call that waits, with a bare pointer to its page.
bool WebPage::event(QEvent* event) {
    if (event->type() == QEvent::DeferredDelete) QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    return QWebEnginePage::event(event);
}

bool WebPage::AcceptOwn(const QUrl& address, NavigationType type, bool isMainFrame) {
    const auto step = OwnAccess::StepFor({.FromOwnPage = StartPageScheme::IsOwn(url()),
                                          .ToOwnPage = StartPageScheme::IsOwn(address),
                                          .MainFrame = isMainFrame,
                                          .Cause = CauseOf(type)});
    if (step == OwnAccess::Step::Follow) Q_EMIT StartLinkFollowed(address);
    return step == OwnAccess::Step::Go;
}

void WebPage::OnInputReport(const QString& report) {
    const QString state = report.section(u' ', 1, 1), document = report.section(u' ', 2);
    // A page of its own: what the one before it held, and the frames of that, are gone.
    if (state == u"new") {
        m_input.clear();
        m_texts.clear();
    }
    const auto note = [&document](QSet<QString>& all, bool holds) {
        holds ? (void)all.insert(document) : (void)all.remove(document);
    };
    note(m_texts, state == u"text");
    note(m_input, state == u"text" || state == u"yes");
}

void WebPage::LookAtInput() {
    runJavaScript(QStringLiteral("window.lookAtInput && lookAtInput()"), QWebEngineScript::ApplicationWorld);
}

// A page that another one opens has its address before it begins to load, and before it has its document. Newer engines
// tell of the first address while it is loaded, too. What is shown has a place in the history.
void WebPage::OnAddress(const QUrl& address) {
    if (history()->count() == 0 && Awaits(address)) return;
    if (m_loading || !Awaits(address)) m_awaited.clear();
    NoteShown();
}

// Not from the history, whose current entry may be one on the way.
void WebPage::NoteShown() {
    if (m_awaited.isEmpty() && !url().isEmpty()) m_shown = url();
}

void WebPage::Await(const QUrl& url) {
    m_awaited = url;
    // What the page has been loading until now does not tell of this.
    m_loading = false;
}

void WebPage::OnLoading(const QWebEngineLoadingInfo& info) {
    m_loading = info.status() == QWebEngineLoadingInfo::LoadStartedStatus;
    if (!m_loading && Awaits(info.url())) m_awaited.clear();
    // Where scripts are switched off, no document tells of itself.
    if (!m_loading) NoteShown();
}

// The engine has no signal for a document that comes from the address shown. Of one from another address it has told
// before, and then nothing is awaited here any more.
void WebPage::OnDocument(const QUrl& address) {
    const auto withoutUser = [](const QUrl& url) { return url.adjusted(QUrl::RemoveUserInfo); };
    const bool isError = address.scheme() == u"chrome-error";
    if (m_awaited.isEmpty() || (!isError && withoutUser(address) != withoutUser(m_awaited))) return;
    m_awaited.clear();
    NoteShown();
    Q_EMIT DocumentShown();
}

void WebPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString& message, int, const QString&) {
    if (!message.startsWith(m_token)) return;
    const QString report = message.mid(m_token.size() + 1);
    const QUrl address(report.section(u' ', 1));
    if (report.startsWith(u"input ")) return OnInputReport(report);
    if (report.startsWith(u"own ") && StartPageScheme::IsOwn(url())) Q_EMIT OwnPageAsks(report.mid(4));
    if (report == u"end") Q_EMIT ReadToEnd();
    if (report.startsWith(u"acted ")) m_actedFrame = report.section(u' ', 1);
    if (report.startsWith(u"page ")) {
        m_personWasHere = false;
        OnDocument(address);
        Q_EMIT DocumentBegan(address.scheme() == u"chrome-error");
    }
    if (report.startsWith(u"ready ")) Q_EMIT FrameReady(address);
    if (report.startsWith(u"load ")) Q_EMIT FrameLoaded(address);
}

} // namespace tessa::qt
