#pragma once
#include "settings/frmInternetOptions.h"

#include <QHash>
#include <QString>
#include <functional>

class QNetworkCookie;
class QWebEngineProfile;

/// Has the engine forget what it keeps of where pages have been. The engine does not say when a cookie was set, so
/// this notes it for every cookie that it sees come, beside the profile.
class QtBrowsingData {
public:
    /// `profileFolder` is the profile's own; empty for one that is kept in memory alone.
    explicit QtBrowsingData(QString profileFolder);
    ~QtBrowsingData();
    QtBrowsingData(const QtBrowsingData&) = delete;
    QtBrowsingData& operator=(const QtBrowsingData&) = delete;

    /// From now on the profile's cookies are noted. The profile ends after this object or tells it nothing more.
    void Watch(QWebEngineProfile& profile);
    void Clear(const BrowsingData& data, QWebEngineProfile& profile);
    /// Writes the notes down.
    void Save();
    /// Forgets what sites have stored in that folder, if that was asked for. Before the engine opens it.
    static void ForgetSites(const QString& profileFolder);

    /// Seconds since 1970.
    std::function<qint64()> Now;

private:
    struct Note {
        QByteArray domain, path, name;
        qint64 time;
    };

    void Load();
    void ClearCookies(qint64 seconds, QWebEngineProfile& profile);

    QString m_folder;
    QHash<QByteArray, Note> m_notes; ///< by everything that makes a cookie one
};
