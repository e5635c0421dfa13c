#include "qt/QtLogins.h"

#include "qt/QtCovers.h"
#include "qt/QtLoginDialog.h"
#include "qt/QtPage.h"

#include <QAuthenticator>

/// Who asks.
struct QtLogins::Asker {
    QString host;
    bool proxy = false;
    bool encrypted = false;
    bool ofPage = true; ///< the page itself or a frame in it, not some picture from elsewhere
};

QtLogins::QtLogins(QtPage& page, QtCovers& covers) : m_page(page), m_covers(covers) {
    connect(&page, &QWebEnginePage::authenticationRequired, this,
            [this](const QUrl& url, QAuthenticator* authenticator) {
                OnAsked({QtPage::HostAndPort(url), false, url.scheme() == u"https", BelongsToPage(url)}, authenticator);
            });
    connect(&page, &QWebEnginePage::proxyAuthenticationRequired, this,
            [this](const QUrl&, QAuthenticator* authenticator, const QString& proxy) {
                OnAsked({proxy, true, false, true}, authenticator);
            });
    connect(&page, &QtPage::NavigationRequested, this, [this](const QUrl& url, bool topLevel) {
        if (topLevel) m_frameHosts.clear();
        if (!topLevel) m_frameHosts.insert(url.host());
    });
    connect(&page, &QWebEnginePage::loadStarted, this, [this] {
        m_askedAgain = false;
        m_refused.clear();
    });
    // A page that no longer asks needs no answer.
    connect(&page, &QWebEnginePage::loadFinished, this, [this] {
        if (!m_askedAgain) TakeOff();
    });
}

bool QtLogins::BelongsToPage(const QUrl& url) const {
    return m_page.Awaits(url) || url.host() == m_page.url().host() || m_frameHosts.contains(url.host());
}

void QtLogins::OnAsked(const Asker& asker, QAuthenticator* authenticator) {
    const QString key =
        (asker.proxy ? QStringLiteral("proxy ") : QString()) + asker.host + u' ' + authenticator->realm();
    if (const auto answer = m_answers.constFind(key); answer != m_answers.constEnd()) {
        authenticator->setUser(answer->user);
        authenticator->setPassword(answer->password);
        m_answers.erase(answer);
        m_tried.insert(key);
        return;
    }
    const QString realm = authenticator->realm();
    *authenticator = QAuthenticator();
    if (m_shown && m_shownFor == key) m_askedAgain = true;
    if (m_shown || !asker.ofPage || m_refused.contains(key)) return;
    m_shownFor = key;
    Ask(asker, realm);
}

void QtLogins::Ask(const Asker& asker, const QString& realm) {
    m_askedAgain = true;
    m_shown = new QtLoginDialog({asker.host, realm, asker.proxy, asker.encrypted, m_tried.contains(m_shownFor)});
    m_shown->Accepted = [this] {
        m_answers.insert(m_shownFor, {m_shown->User(), m_shown->Password()});
        TakeOff();
        m_page.triggerAction(QWebEnginePage::Reload);
    };
    m_shown->Cancelled = [this] {
        m_refused.insert(m_shownFor);
        TakeOff();
    };
    m_covers.Add(m_shown);
}

void QtLogins::TakeOff() {
    if (m_shown) m_covers.Remove(m_shown);
    m_shown = nullptr;
}
