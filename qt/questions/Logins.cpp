#include "qt/questions/Logins.h"

#include "qt/page/WebPage.h"
#include "qt/questions/Covers.h"
#include "qt/questions/LoginDialog.h"

#include <QAuthenticator>

namespace tessa::qt {

/// Who asks.
struct Logins::Asker {
    Place place;
    QString shownHost;
    bool ofPage = true; ///< the page itself or a frame in it, not some picture from elsewhere
};

Logins::Logins(WebPage& page, Covers& covers) : m_page(page), m_covers(covers) {
    connect(&page, &QWebEnginePage::authenticationRequired, this,
            [this](const QUrl& url, QAuthenticator* authenticator) {
                const Place place{url.scheme(), url.host(), url.port(), authenticator->realm(), false};
                OnAsked({place, WebPage::HostAndPort(url), BelongsToPage(url)}, authenticator);
            });
    connect(&page, &QWebEnginePage::proxyAuthenticationRequired, this,
            [this](const QUrl&, QAuthenticator* authenticator, const QString& proxy) {
                OnAsked({{{}, proxy, -1, authenticator->realm(), true}, proxy, true}, authenticator);
            });
    connect(&page, &WebPage::NavigationRequested, this, &Logins::OnNavigation);
    connect(&page, &QWebEnginePage::loadStarted, this, [this] {
        m_askedAgain = false;
        m_loadsAgain = true;
        m_refused.clear();
    });
    connect(&page, &QWebEnginePage::loadFinished, this, &Logins::OnLoadFinished);
}

void Logins::OnNavigation(const QUrl& url, bool topLevel) {
    if (!topLevel) {
        m_frameSites.insert(WebPage::SiteOf(url));
        return;
    }
    m_frameSites.clear();
    // Whoever goes elsewhere does not want to log in here any more.
    if (WebPage::SiteOf(url) == m_answeredOn) return;
    std::erase_if(m_answers, [&url](const auto& each) {
        const Place& place = each.first;
        return place.scheme != url.scheme() || place.host != url.host() || place.port != url.port();
    });
}

void Logins::OnLoadFinished() {
    // A page that no longer asks needs no answer.
    if (!m_askedAgain) TakeOff();
    // What was not asked for by now was cut off on the way. The next who asks is not to get it.
    if (m_loadsAgain) m_answers.clear();
}

bool Logins::BelongsToPage(const QUrl& url) const {
    const QString site = WebPage::SiteOf(url);
    return m_page.Awaits(url) || site == WebPage::SiteOf(m_page.ShownAddress()) || m_frameSites.contains(site);
}

void Logins::OnAsked(const Asker& asker, QAuthenticator* authenticator) {
    const auto answer = asker.ofPage ? m_answers.find(asker.place) : m_answers.end();
    if (answer != m_answers.end()) {
        authenticator->setUser(answer->second.user);
        authenticator->setPassword(answer->second.password);
        m_answers.erase(answer);
        m_tried.insert(asker.place);
        return;
    }
    *authenticator = QAuthenticator();
    if (m_shown && m_shownFor == asker.place) m_askedAgain = true;
    if (m_shown || !asker.ofPage || m_refused.contains(asker.place)) return;
    m_shownFor = asker.place;
    Ask(asker);
}

void Logins::Ask(const Asker& asker) {
    m_askedAgain = true;
    const bool encrypted = asker.place.scheme == u"https";
    m_shown = new LoginDialog(
        {asker.shownHost, asker.place.realm, asker.place.proxy, encrypted, m_tried.contains(asker.place)});
    m_shown->Accepted.ConnectForLife([this] {
        m_answers.insert_or_assign(m_shownFor, Credentials{m_shown->User(), m_shown->Password()});
        m_answeredOn = WebPage::SiteOf(m_page.ShownAddress());
        m_loadsAgain = false;
        TakeOff();
        m_page.triggerAction(QWebEnginePage::Reload);
    });
    m_shown->Cancelled.ConnectForLife([this] {
        m_refused.insert(m_shownFor);
        TakeOff();
    });
    m_covers.Add(m_shown);
}

void Logins::TakeOff() {
    if (m_shown) m_covers.Remove(m_shown);
    m_shown = nullptr;
}

} // namespace tessa::qt
