#include "qt/engine/Navigation.h"

#include "base/Address.h"
#include "qt/base/EngineVersions.h"
#include "qt/base/Strings.h"
#include "qt/engine/OutsidePrograms.h"
#include "qt/engine/Schedule.h"
#include "qt/engine/ViewPage.h"
#include "qt/page/Awaited.h"
#include "qt/page/MailLinks.h"
#include "qt/page/PageHistory.h"
#include "qt/page/WebPage.h"

#include <QWebEngineHistory>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineSettings>
#include <utility>

namespace tessa::qt {

namespace {

Text FullAddress(const QUrl& url) { return FromQt(url.toString(QUrl::FullyEncoded)); }

} // namespace

WebPage* Navigation::Page() const { return m_page ? &m_page->Page() : nullptr; }

Outcome Navigation::Navigate(TextView address) {
    AddressUrl target = AddressUrl::FromTyped(address);
    if (MailLinks::OpensElsewhere(target.url)) return m_view.services.outside.Open(target.url);
    m_where.requested = target.url;
    m_where.stage.Ask();
    m_wish = std::move(target);
    m_wishHistory.clear();
    m_looked = m_staysBlank = false;
    m_view.services.schedule.AskTurn(m_view.index);
    return Outcome::Done;
}

Outcome Navigation::Stop() {
    // Nothing has begun.
    if (m_where.stage.Wanted() == PageNavigation::Wish::PutOff) return Outcome::Done;
    const bool waited = m_where.stage.GiveUp();
    m_tries.Drop();
    FollowTries();
    m_view.services.schedule.EndTurn(m_view.index);
    if (m_page && m_where.stage.Busy())
        Page()->Halt();
    else if (waited)
        TellUnbegun();
    return Outcome::Done;
}

Outcome Navigation::Refresh() {
    // A view that was stopped before it showed anything has nothing to reload: it loads what it was to show.
    if (!m_where.stage.HasDocument()) return Navigate(FullAddress(m_where.requested));
    return Reload();
}

Outcome Navigation::Reload() {
    m_page->Awaited().Ask();
    Page()->triggerAction(QWebEnginePage::Reload);
    return Outcome::Done;
}

// Of a mere reload nothing may come, and then the document stays and goes on.
void Navigation::Renew() {
    if (!m_page) return;
    const QUrl blank(ToQt(Address::kBlank));
    const auto back = [this, blank](bool ok) {
        if (ok && m_page && Page()->url() == blank) ResumeNext(GoBack());
    };
    connect(Page(), &QWebEnginePage::loadFinished, this, back,
            Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    m_page->Questions()->permissions.BeginNavigation();
    m_page->Awaited().Ask();
    Page()->Await(blank);
    Page()->load(blank);
}

Outcome Navigation::GoBack() { return Step(&QWebEngineHistory::canGoBack, &QWebEngineHistory::back); }

Outcome Navigation::GoForward() { return Step(&QWebEngineHistory::canGoForward, &QWebEngineHistory::forward); }

Outcome Navigation::Step(bool (QWebEngineHistory::*can)() const, void (QWebEngineHistory::*go)()) {
    if (!m_page || !(Page()->history()->*can)()) return Outcome::Failed;
    m_page->Life()->Wake();
    m_page->Awaited().Ask();
    (Page()->history()->*go)();
    return Outcome::Done;
}

std::string Navigation::History() const {
    if (m_where.stage.Wanted() == PageNavigation::Wish::PutOff) return m_wishHistory.toStdString();
    if (!m_page || !m_where.stage.HasDocument()) return {};
    return PageHistory::Bytes(*Page()).toStdString();
}

Outcome Navigation::Restore(const std::string& history, TextView address) {
    const Outcome outcome = Navigate(address);
    if (outcome == Outcome::Done && m_where.stage.Waits()) m_wishHistory = QByteArray::fromStdString(history);
    return outcome;
}

Outcome Navigation::RestoreLater(const std::string& history, TextView address) {
    const Outcome outcome = Restore(history, address);
    if (m_where.stage.Waits()) m_view.services.schedule.EndTurn(m_view.index);
    m_where.stage.PutOff();
    return outcome;
}

bool Navigation::Look() {
    if (!m_where.stage.Look()) return false;
    m_looked = true;
    m_staysBlank = false;
    m_view.services.schedule.AskTurn(m_view.index);
    return true;
}

bool Navigation::StayBlank() {
    const bool seen = m_looked || m_view.index < 0 || m_view.services.schedule.IsWanted(m_view.index);
    if (seen || m_page || !m_wishHistory.isEmpty() || m_wish.url != QUrl(ToQt(Address::kBlank))) return false;
    m_where.stage.PutOff();
    m_staysBlank = true;
    m_view.services.schedule.EndTurn(m_view.index);
    m_view.events.BeforeNavigate2(m_view.index, PageLevel::Top, Address::kBlank);
    m_view.events.NavigateComplete2(m_view.index, PageLevel::Top, Address::kBlank);
    m_view.events.TitleChange(m_view.index, Address::kBlank);
    m_view.events.DocumentComplete(m_view.index, PageLevel::Top, Address::kBlank);
    return true;
}

void Navigation::GiveUp() { m_where.stage.GiveUp(); }

void Navigation::Start() {
    const AddressUrl target = std::exchange(m_wish, {});
    const QByteArray history = std::exchange(m_wishHistory, {});
    m_where.stage.Begin();
    if (m_page->Questions()->links.Take(target.url)) {
        m_view.services.schedule.EndTurn(m_view.index);
        return TellUnbegun();
    }
    m_tries.Begin(AddressUrl::Shown(target.url), FullAddress(target.fallback));
    FollowTries();
    if (EngineVersions::GoesThereSilently(Page()->url(), target.url)) return GoSilently(target.url);
    m_page->Awaited().Ask();
    // Within the document that is shown nothing is awaited: it only moves.
    const bool moves = target.url.hasFragment() &&
                       target.url.adjusted(QUrl::RemoveFragment) == m_where.shown.adjusted(QUrl::RemoveFragment);
    if (!moves) Page()->Await(target.url);
    if (!history.isEmpty()) m_page->Life()->NoteRefill();
    if (history.isEmpty() || !PageHistory::Fill(*Page(), history)) Page()->load(target.url);
}

// The engine tells of neither the beginning nor the end.
void Navigation::GoSilently(const QUrl& url) {
    Page()->load(url);
    const Text address = AddressUrl::Shown(url);
    m_view.events.BeforeNavigate2(m_view.index, PageLevel::Top, address);
    m_view.services.schedule.EndTurn(m_view.index);
    m_view.events.NavigateComplete2(m_view.index, PageLevel::Top, address);
}

void Navigation::TakeIn(QWebEngineNewWindowRequest& request, bool byPerson) {
    m_page->Awaited().Expect();
    if (byPerson) Page()->NoteOpener();
    EngineVersions::OpenIn(request, *Page());
}

// A navigation that the engine never began ends all the same: somebody may count the pages that are to come.
void Navigation::TellUnbegun() { m_view.events.DocumentComplete(m_view.index, PageLevel::Top, m_where.Address()); }

void Navigation::NoteNavigation(TextView address) {
    m_tries.DropUnlessFor(address);
    FollowTries();
}

void Navigation::NoteSuccess() {
    m_tries.NoteSuccess();
    FollowTries();
}

void Navigation::NoteFailure(const AddressTries::Failure& failure) {
    const auto next = m_tries.AfterFailure(failure);
    FollowTries();
    if (next) ResumeNext(Navigate(*next));
}

void Navigation::FollowTries() {
    if (m_page) Page()->settings()->setAttribute(QWebEngineSettings::ErrorPageEnabled, m_tries.ShowsErrors());
}

} // namespace tessa::qt
