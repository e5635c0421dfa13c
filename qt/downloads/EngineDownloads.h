#pragma once
#include "downloads/DownloadRule.h"
#include "downloads/Downloads.h"
#include "qt/desktop/FileManager.h"
#include "qt/page/PageDocuments.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QUrl>
#include <memory>

class QWebEngineDownloadRequest;
class QWebEnginePage;
class QWebEngineProfile;

namespace tessa::qt {

/// What downloads need of the engine's pages.
class DownloadSource {
public:
    /// The profile with which an address is fetched again; nothing while there is none.
    [[nodiscard]] virtual QWebEngineProfile* Profile() = 0;
    /// Whether a page may save a file now; it may be one that no tab shows.
    [[nodiscard]] virtual bool MaySave(QWebEnginePage* page, const QUrl& address) = 0;
    /// Documents that the program itself writes to files; their downloads are found there.
    [[nodiscard]] virtual PageDocuments& Documents() = 0;

protected:
    ~DownloadSource() = default;
};

/// What the list of downloads needs of engine and desktop. Hands it the engine's downloads, fetches addresses again,
/// opens files.
class EngineDownloads final : public QObject, public DownloadDesktop {
    Q_OBJECT

public:
    /// The source outlives it.
    explicit EngineDownloads(DownloadSource& source);
    ~EngineDownloads() override;

    /// From now on they are in that list, which outlives the pages. Until then the engine saves nothing.
    void BringTo(Downloads& list) { m_list = &list; }
    /// Takes the profile's downloads from now on.
    void Follow(QWebEngineProfile& profile);
    /// Saves what `page` can fetch from there at the path that the user wants; replaces what is there.
    void Save(QWebEnginePage& page, const QUrl& address, const Text& path);
    /// Ends the page with which addresses are fetched again; before its profile ends.
    void Shutdown();

    [[nodiscard]] Text Folder() override;
    Outcome Open(TextView path) override;
    Outcome ShowInFolder(TextView path) override;
    Outcome Fetch(std::int32_t id, TextView address) override;
    [[nodiscard]] std::int64_t Now() override { return m_clock.elapsed(); }
    [[nodiscard]] std::int64_t Time() override { return QDateTime::currentSecsSinceEpoch(); }

private:
    struct Expected {
        Text path;
        std::int32_t again = 0;
    };
    /// A profile, and what of its downloads is known.
    struct Followed {
        QPointer<QWebEngineProfile> profile;
        QHash<quint32, std::int32_t> rows; ///< in the list, by the engine's number
        DownloadRule pageless;             ///< those whose page has gone
    };
    void OnRequest(QWebEngineDownloadRequest& request, Followed& from);
    [[nodiscard]] bool May(const QWebEngineDownloadRequest& request, Followed& from) const;
    /// The list's download with which the engine goes on; nothing when it is a new one.
    [[nodiscard]] const Download* Continued(const QWebEngineDownloadRequest& request, const Followed& from) const;
    /// `path` is where a document is to lie that the user saves; empty for anything else.
    /// Where the file goes, or under which name it is proposed.
    void ChoosePlace(Downloads::Request& wanted, QWebEngineDownloadRequest& request, const QString& path);
    const Download& Begin(QWebEngineDownloadRequest& request, const Followed& from, const QString& path);
    /// The name under which a request comes back that is expected.
    QString Expect(const Expected& expected);
    /// The name by which `Expect` knows a request again; any other for one that nobody asked for.
    [[nodiscard]] QString AskedNameOf(const QWebEngineDownloadRequest& request) const;
    /// Fetches what lies there as `page` would, or in its stead.
    void Ask(QWebEnginePage& page, const QUrl& address, const Expected& expected);
    void AskAlone(QWebEngineProfile& profile, const QUrl& address, const QString& name);
    /// The page that was made for this request alone is needed until that has ended.
    void EndAlone(QWebEngineDownloadRequest& request);
    [[nodiscard]] QWebEnginePage* PageFor(std::int32_t id);
    void Accept(QWebEngineDownloadRequest& request, const Download& download);

    DownloadSource& m_source;
    Downloads* m_list = nullptr;
    QHash<QString, Expected> m_expected;
    QStringList m_expectedOrder;
    QHash<QWebEnginePage*, QString> m_alone; ///< pages that fetch one file each, and the name it was asked under
    /// Of the downloads of private pages the profile, which goes with the last of these pages.
    QHash<std::int32_t, QPointer<QWebEngineProfile>> m_private;
    std::unique_ptr<QWebEnginePage> m_page; ///< shows nothing; fetches
    QPointer<QWebEnginePage> m_privatePage; ///< likewise; ends with its profile
    QElapsedTimer m_clock;
    FileManager m_fileManager;
};

} // namespace tessa::qt
