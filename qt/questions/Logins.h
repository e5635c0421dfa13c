#pragma once
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QString>
#include <map>
#include <set>
#include <tuple>

class QAuthenticator;
class QUrl;

namespace tessa::qt {

class Covers;
class LoginDialog;
class WebPage;

/// Answers the hosts and proxies that ask one page for name and password. A question is refused at once, so that the
/// server's own page is there. Then a dialog of the tab asks the user; with the answer the page loads again. So nothing
/// waits for the user, and a tab whose dialog is open can be closed like any other. An answer is for who asked and for
/// that one load: what is not used is forgotten.
class Logins final : public QObject {
    Q_OBJECT

public:
    /// Both outlive this object.
    Logins(WebPage& page, Covers& covers);

private:
    struct Credentials {
        QString user, password;
    };
    /// Whom an answer is for.
    struct Place {
        QString scheme, host; ///< of a proxy the host alone, with its port
        int port = -1;
        QString realm;
        bool proxy = false;
        [[nodiscard]] auto Key() const { return std::tie(scheme, host, port, realm, proxy); }
        bool operator==(const Place& other) const { return Key() == other.Key(); }
        bool operator<(const Place& other) const { return Key() < other.Key(); }
    };
    struct Asker;

    void OnAsked(const Asker& asker, QAuthenticator* authenticator);
    void Ask(const Asker& asker);
    void OnNavigation(const QUrl& url, bool topLevel);
    void OnLoadFinished();
    void TakeOff();
    [[nodiscard]] bool BelongsToPage(const QUrl& url) const;

    WebPage& m_page;
    Covers& m_covers;
    std::map<Place, Credentials> m_answers; ///< given by the user, not yet used
    QString m_answeredOn;                   ///< the site of the page that loads again with them
    bool m_loadsAgain = false;              ///< it has begun to
    std::set<Place> m_tried;                ///< used; asked again means that they were wrong
    std::set<Place> m_refused;              ///< what the user does not want to answer for this page
    QSet<QString> m_frameSites;
    QPointer<LoginDialog> m_shown;
    Place m_shownFor;
    bool m_askedAgain = false;
};

} // namespace tessa::qt
