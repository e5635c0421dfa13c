#pragma once
#include <QHash>
#include <QObject>
#include <QPair>
#include <QPointer>
#include <QSet>

class QAuthenticator;
class QUrl;
class QtCovers;
class QtLoginDialog;
class QtPage;

/// Answers the hosts and proxies that ask one page for name and password. A question is refused at once, so that the
/// server's own page is there, and put to the user in a dialog of the tab; with the answer the page loads again. So
/// nothing waits for the user, and a tab whose dialog is open can be closed like any other.
class QtLogins final : public QObject {
    Q_OBJECT

public:
    /// Both outlive this object.
    QtLogins(QtPage& page, QtCovers& covers);

private:
    struct Credentials {
        QString user, password;
    };
    struct Asker;

    void OnAsked(const Asker& asker, QAuthenticator* authenticator);
    void Ask(const Asker& asker, const QString& realm);
    void TakeOff();
    [[nodiscard]] bool BelongsToPage(const QUrl& url) const;

    QtPage& m_page;
    QtCovers& m_covers;
    QHash<QString, Credentials> m_answers; ///< given by the user, not yet used
    QSet<QString> m_tried;                 ///< used; asked again means that they were wrong
    QSet<QString> m_refused;               ///< what the user does not want to answer for this page
    QSet<QString> m_frameHosts;
    QPointer<QtLoginDialog> m_shown;
    QString m_shownFor;
    bool m_askedAgain = false;
};
