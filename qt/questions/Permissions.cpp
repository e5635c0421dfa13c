#include "qt/questions/Permissions.h"
#include "pages/ScreenAnswers.h"

#include "qt/base/Strings.h"
#include "qt/page/WebPage.h"

#include <QWebEngineSettings>
#include <optional>
#include <utility>

namespace tessa::qt {

namespace {

constexpr TextView kRemember = u"&Remember for this site";

Text SiteOf(const QUrl& url) { return FromQt(WebPage::SiteOf(url)); }

Text AskerOf(const QUrl& origin) {
    const QString host = WebPage::HostAndPort(origin);
    return host.isEmpty() ? Text(u"This page") : FromQt(host);
}

Text PermissionWords(const QUrl& origin, SitePermission permission) {
    return AskerOf(origin) + u" wants to " + SitePermissions::Wish(permission) + u".";
}

/// Whether the engine itself remembers the answer, for the whole run and for all tabs.
bool IsKeptByEngine(SitePermission permission) {
    return permission == SitePermission::Location || permission == SitePermission::Notifications;
}

Text KeyOf(const QUrl& origin, SitePermission permission) {
    return Decimal(static_cast<std::int64_t>(permission)) + u" " + SiteOf(origin);
}

} // namespace

Permissions::Permissions(WebPage& page, PageQuestions& questions, SitePermissions* kept)
    : m_page(page), m_questions(questions), m_kept(kept) {
    EngineVersions::FollowPermissions(page, *this, [this](const auto& request) { OnPermission(request); });
    EngineVersions::FollowScreenRequests(page, *this, [this](const auto& request) { OnScreen(request); });
    connect(&page, &WebPage::PersonNavigated, this, &Permissions::OnPersonNavigated);
    connect(&page, &QWebEnginePage::urlChanged, this, &Permissions::OnAddress);
    FollowCaptures();
}

void Permissions::FollowCaptures() {
    connect(&m_page, &WebPage::NavigationRequested, this, [this](const QUrl&, bool topLevel) {
        if (topLevel) BeginNavigation();
    });
    connect(&m_page, &WebPage::DocumentBegan, this, [this] { ChangeCaptures(&PageCaptures::ShowDocument); });
    connect(&m_page, &QWebEnginePage::renderProcessTerminated, this, [this] { ChangeCaptures(&PageCaptures::End); });
}

void Permissions::ChangeCaptures(const std::function<void(PageCaptures&)>& change) {
    const Text before = m_captures.Words();
    change(m_captures);
    if (before != m_captures.Words()) CapturesChanged();
}

Text Permissions::Captures() const { return m_captures.Sentence(FromQt(WebPage::HostAndPort(m_page.ShownAddress()))); }

Permissions::~Permissions() {
    m_site.clear();
    ForgetOnce();
}

std::optional<bool> Permissions::Decided(const QUrl& origin, SitePermission permission) const {
    const Text site = SiteOf(origin);
    return m_kept && !site.empty() ? m_kept->Find(site, permission) : std::nullopt;
}

void Permissions::Remember(const QUrl& origin, SitePermission permission, bool allowed) {
    if (m_kept) m_kept->Remember({SiteOf(origin), permission, allowed});
}

void Permissions::OnPermission(const EngineVersions::PermissionRequest& request) {
    if (!request.Permission) return request.Answer(false);
    const auto answer = [this, request](bool allowed) {
        if (allowed) ChangeCaptures([&](PageCaptures& captures) { captures.Allow(*request.Permission); });
        request.Answer(allowed);
    };
    // Which screen it is says more than whether; nobody is to be asked twice.
    if (request.Permission == SitePermission::Screen && TakeShared(request.Origin)) return answer(true);
    Decide(request.Origin, *request.Permission, answer);
}

// A page is shown a screen only by somebody who has just chosen it, whatever was decided before.
void Permissions::OnScreen(const EngineVersions::ScreenRequest& request) {
    const QUrl origin = m_page.url();
    m_shared.clear();
    if (m_screen || Decided(origin, SitePermission::Screen) == false) return request.Refuse();
    m_screen.emplace(request);
    if (m_screen->Empty()) return OnScreenAnswer(origin, PageQuestion::kDismissed);
    const bool mayRemember = m_kept && !SiteOf(origin).empty();
    m_questions.Ask({.Key = u"screen " + SiteOf(origin),
                     .Asker = SiteOf(origin),
                     .Words = PermissionWords(origin, SitePermission::Screen),
                     .Answers = ScreenAnswers::Captions(mayRemember),
                     .Remember = {},
                     .Choices = [this] { return m_screen ? m_screen->Choices() : PageChoices(); },
                     .Choose =
                         [this](std::size_t choice) {
                             if (m_screen) m_screen->Choose(choice);
                         },
                     .Answered = [this, origin](std::size_t answer, bool) { OnScreenAnswer(origin, answer); }});
}

void Permissions::OnScreenAnswer(const QUrl& origin, std::size_t answer) {
    const auto meaning = ScreenAnswers::MeaningOf(answer);
    if (meaning == ScreenAnswers::Meaning::AlwaysBlock) Remember(origin, SitePermission::Screen, false);
    auto screen = std::exchange(m_screen, std::nullopt);
    if (meaning != ScreenAnswers::Meaning::Share) return screen->Refuse();
    // Before it is shared: the engine asks for the permission in the middle of that.
    m_shared = SiteOf(origin);
    if (!screen->Share()) m_shared.clear();
}

bool Permissions::TakeShared(const QUrl& origin) {
    return !m_shared.empty() && std::exchange(m_shared, Text()) == SiteOf(origin);
}

void Permissions::Decide(const QUrl& origin, SitePermission permission, const std::function<void(bool)>& decided) {
    if (const auto known = Decided(origin, permission)) return decided(*known);
    const bool mayRemember = m_kept && !SiteOf(origin).empty() && SitePermissions::CanLast(permission, true);
    m_questions.Ask({.Key = KeyOf(origin, permission),
                     .Asker = SiteOf(origin),
                     .Words = PermissionWords(origin, permission),
                     .Answers = {u"A&llow", u"&Block"},
                     .Remember = mayRemember ? Text(kRemember) : Text(),
                     .Answered = [this, origin, permission, decided](std::size_t answer, bool remembers) {
                         const bool allowed = answer == 0;
                         if (remembers && answer != PageQuestion::kDismissed)
                             Remember(origin, permission, allowed);
                         else if (!SiteOf(origin).empty() && IsKeptByEngine(permission))
                             m_once.push_back({SiteOf(origin), permission, allowed});
                         decided(allowed);
                     }});
}

void Permissions::Forget(const SiteDecision& forgotten) {
    if (forgotten.Permission == SitePermission::Downloads && SiteOf(m_page.url()) == forgotten.Site)
        m_saves.BeginAnew();
    // Some it remembers by itself, and tells a page of them without asking.
    EngineVersions::ForgetPermission(m_page, QUrl(ToQt(forgotten.Site)), forgotten.Permission);
}

bool Permissions::MayOpenPopup(const QUrl& address) {
    const QUrl origin = m_page.url();
    const auto step =
        m_popups.Want(Decided(origin, SitePermission::Popups),
                      {FromQt(address.toString(QUrl::FullyEncoded)), FromQt(WebPage::HostAndPort(address))});
    if (step == PopupRule::Step::Open || step == PopupRule::Step::Refuse) return step == PopupRule::Step::Open;
    if (step == PopupRule::Step::Ask)
        AskPopup();
    else
        m_questions.Reword(KeyOf(origin, SitePermission::Popups), m_popups.Words(AskerOf(origin)));
    // The engine itself refuses the rest: a page that wants windows without end would find no time for a click.
    m_page.settings()->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, !m_popups.Full());
    return false;
}

void Permissions::AskPopup() {
    const QUrl origin = m_page.url();
    m_questions.Ask({.Key = KeyOf(origin, SitePermission::Popups),
                     .Asker = SiteOf(origin),
                     .Words = m_popups.Words(AskerOf(origin)),
                     .Answers = PopupRule::Answers(m_kept && !SiteOf(origin).empty()),
                     .Remember = {},
                     .Answered = [this, origin](std::size_t answer, bool) { OnPopupAnswer(origin, answer); }});
}

void Permissions::OnPopupAnswer(const QUrl& origin, std::size_t answer) {
    const PopupRule::Verdict verdict = m_popups.Answer(answer);
    m_page.settings()->resetAttribute(QWebEngineSettings::JavascriptCanOpenWindows);
    if (verdict.Remember) Remember(origin, SitePermission::Popups, true);
    for (const Text& each : verdict.Opened) OpenPopup(each);
}

bool Permissions::MaySave(const QUrl& address) {
    const QUrl origin = m_page.url();
    const auto known = Decided(origin, SitePermission::Downloads);
    const bool person = !known && m_page.TakePerson();
    const auto step = m_saves.Want(known, person, FromQt(address.toString(QUrl::FullyEncoded)));
    if (step != PageSaves::Step::Ask) return step == PageSaves::Step::Save;
    Decide(origin, SitePermission::Downloads, [this, page = QPointer<WebPage>(&m_page)](bool allowed) {
        for (const Text& each : m_saves.Answer(allowed))
            if (page) page->download(QUrl(ToQt(each)));
    });
    return false;
}

void Permissions::ForgetOnce() {
    const auto isOver = [this](const SiteDecision& each) { return each.Site != m_site; };
    for (const SiteDecision& each : m_once) {
        if (isOver(each)) EngineVersions::ForgetPermission(m_page, QUrl(ToQt(each.Site)), each.Permission);
    }
    std::erase_if(m_once, isOver);
}

// The answer would be another site's.
void Permissions::OnAddress(const QUrl& url) {
    const Text site = SiteOf(url);
    if (std::exchange(m_site, site) == site) return;
    ForgetOnce();
    m_questions.DismissAllBut(site);
    if (m_shared != site) m_shared.clear();
}

void Permissions::OnPersonNavigated() {
    // A question that ends with its page counts as refused; the next page begins anew.
    m_questions.DismissAll();
    m_shared.clear();
    m_saves.BeginAnew();
}

} // namespace tessa::qt
