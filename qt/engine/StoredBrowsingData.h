#pragma once
#include "pages/CookieNotes.h"
#include "qt/engine/SiteData.h"
#include "settings/frmInternetOptions.h"

#include <QHash>
#include <QString>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

class QNetworkCookie;
class QWebEngineProfile;

namespace tessa::qt {

/// Has the engine forget what it keeps of where pages have been. The engine does not say when a cookie was set or a
/// link visited. So this notes it for every cookie that it sees come, beside the profile. Visits it notes in memory
/// alone: a list of them is not to lie on the disk.
class StoredBrowsingData {
public:
    /// Notes nothing down before it has a profile.
    StoredBrowsingData();
    ~StoredBrowsingData();
    StoredBrowsingData(const StoredBrowsingData&) = delete;
    StoredBrowsingData& operator=(const StoredBrowsingData&) = delete;

    /// From now on the profile's cookies are noted, beside it if it is kept on disk. The profile ends after this object
    /// or tells it nothing more.
    void Watch(QWebEngineProfile& profile);
    /// Keeps the notes in that folder and reads those that are there; keeps none without a folder.
    void KeepIn(const QString& profileFolder);
    void NoteVisit(const QUrl& url);
    /// Forgets at once, but for the cache and what sites have stored. That takes the engine a moment; tells when it has
    /// gone too. Where sites' data stays it goes at the next start.
    void Clear(const BrowsingData& data, QWebEngineProfile& profile, Forgotten done);
    /// Leaves off what is going on; before the profile ends.
    void Shutdown();
    /// Writes the notes down; those of the last time stay when that fails.
    void Save();
    /// Forgets what sites have stored in that folder, if that was asked for. Before the engine opens it.
    static void ForgetSites(const QString& profileFolder);

    /// Seconds since 1970.
    std::function<qint64()> Now;

private:
    void Note(CookieNote note);
    void Load();
    void ClearCookies(qint64 seconds, QWebEngineProfile& profile);
    void ClearVisits(qint64 seconds, QWebEngineProfile& profile);
    [[nodiscard]] bool MarkSites() const;
    void ClearStored(SiteData::What what, QWebEngineProfile& profile, Forgotten done);

    QString m_folder;
    QHash<QUrl, qint64> m_visits;       ///< when an address was visited last
    std::optional<qint64> m_visitsFrom; ///< from when on that is known
    std::unique_ptr<SiteData> m_sites;
    std::unordered_map<std::string, CookieNote> m_notes; ///< by everything that makes a cookie one
};

} // namespace tessa::qt
