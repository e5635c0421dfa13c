#include "qt/engine/StoredBrowsingData.h"

#include "base/os/AtomicFile.h"
#include "qt/base/PathBytes.h"
#include "qt/engine/SiteData.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QNetworkCookie>
#include <QWebEngineCookieStore>
#include <QWebEngineProfile>

namespace tessa::qt {

namespace {

const QString kNotes = QStringLiteral("/cookie-times");
const QString kForget = QStringLiteral("/forget-sites");

// Not empty, so that a disk without room refuses it.
constexpr std::string_view kForgetMark = "forget\n";

// What the engine keeps of sites beside their cookies, by the names of its folders.
constexpr const char* kSiteFolders[]{"Local Storage", "Session Storage", "IndexedDB",    "Service Worker",
                                     "File System",   "databases",       "blob_storage", "WebStorage"};

// A page can visit addresses of its own without end.
constexpr qsizetype kMostVisits = 20000;

QByteArray CookieKey(const QNetworkCookie& cookie) {
    return cookie.domain().toUtf8() + '\n' + cookie.path().toUtf8() + '\n' + cookie.name();
}

QByteArray Unquoted(const QByteArray& part) { return QByteArray::fromPercentEncoding(part); }

} // namespace

StoredBrowsingData::StoredBrowsingData() : Now([] { return QDateTime::currentSecsSinceEpoch(); }) {}

StoredBrowsingData::~StoredBrowsingData() { Save(); }

void StoredBrowsingData::Watch(QWebEngineProfile& profile) {
    // Of what is kept in memory nothing may outlive it.
    KeepIn(profile.isOffTheRecord() ? QString() : profile.persistentStoragePath());
    auto* cookies = profile.cookieStore();
    QObject::connect(cookies, &QWebEngineCookieStore::cookieAdded, cookies, [this](const QNetworkCookie& cookie) {
        m_notes[CookieKey(cookie)] = {cookie.domain().toUtf8(), cookie.path().toUtf8(), cookie.name(), Now()};
    });
    QObject::connect(cookies, &QWebEngineCookieStore::cookieRemoved, cookies,
                     [this](const QNetworkCookie& cookie) { m_notes.remove(CookieKey(cookie)); });
}

void StoredBrowsingData::KeepIn(const QString& profileFolder) {
    m_folder = profileFolder;
    Load();
}

void StoredBrowsingData::NoteVisit(const QUrl& url) {
    if (m_visits.size() >= kMostVisits) {
        m_visits.clear();
        m_visitsFrom.reset();
    }
    const qint64 now = Now();
    m_visitsFrom = m_visitsFrom.value_or(now);
    m_visits[url] = now;
}

void StoredBrowsingData::Clear(const BrowsingData& data, QWebEngineProfile& profile, Forgotten done) {
    if (data.cookies) ClearCookies(data.seconds, profile);
    if (data.visitedLinks) ClearVisits(data.seconds, profile);
    if (data.siteData || data.cache) return ClearStored({data.siteData, data.cache}, profile, std::move(done));
    done(Cleared::Yes);
}

void StoredBrowsingData::ClearVisits(qint64 seconds, QWebEngineProfile& profile) {
    const qint64 since = Now() - seconds;
    if (seconds == 0 || !m_visitsFrom || since < *m_visitsFrom) return profile.clearAllVisitedLinks();
    QList<QUrl> recent;
    for (auto visit = m_visits.constBegin(); visit != m_visits.constEnd(); ++visit) {
        if (visit.value() >= since) recent << visit.key();
    }
    profile.clearVisitedLinks(recent);
    // The engine has open pages look at their links again before it forgets these. A page that is quicker keeps their
    // look, so all pages look once more, now that they are forgotten.
    profile.clearVisitedLinks(recent);
}

// Should the program end before the engine has answered, sites' files go at the next start.
bool StoredBrowsingData::MarkSites() const {
    // What is in memory alone goes in any case.
    if (m_folder.isEmpty()) return true;
    const Outcome written = WriteWholeFile(PathBytes(m_folder + kForget), kForgetMark, Readers::UserAlone);
    ResumeNext(written);
    return written == Outcome::Done;
}

void StoredBrowsingData::ClearStored(SiteData::What what, QWebEngineProfile& profile, Forgotten done) {
    const bool marked = what.sites && MarkSites();
    m_sites = std::make_unique<SiteData>(profile);
    m_sites->Forget(what, [this, marked, done = std::move(done)](Outcome outcome) {
        const bool gone = outcome == Outcome::Done;
        if (marked && gone && !m_folder.isEmpty()) ResumeNext(RemoveFile(PathBytes(m_folder + kForget)));
        m_sites.release()->deleteLater();
        done(gone ? Cleared::Yes : marked ? Cleared::AtNextStart : Cleared::NotAll);
    });
}

void StoredBrowsingData::Shutdown() { m_sites.reset(); }

void StoredBrowsingData::ClearCookies(qint64 seconds, QWebEngineProfile& profile) {
    auto* cookies = profile.cookieStore();
    if (seconds == 0) {
        m_notes.clear();
        return cookies->deleteAllCookies();
    }
    const qint64 since = Now() - seconds;
    for (const Note& note : std::as_const(m_notes)) {
        if (note.time < since) continue;
        QNetworkCookie cookie(note.name);
        cookie.setDomain(QString::fromUtf8(note.domain));
        cookie.setPath(QString::fromUtf8(note.path));
        cookies->deleteCookie(cookie);
    }
}

void StoredBrowsingData::Load() {
    QFile file(m_folder + kNotes);
    if (m_folder.isEmpty() || !file.open(QFile::ReadOnly)) return;
    while (!file.atEnd()) {
        const QList<QByteArray> parts = file.readLine().trimmed().split(' ');
        if (parts.size() != 4) continue;
        const Note note{Unquoted(parts[1]), Unquoted(parts[2]), Unquoted(parts[3]), parts[0].toLongLong()};
        m_notes[note.domain + '\n' + note.path + '\n' + note.name] = note;
    }
}

void StoredBrowsingData::Save() {
    if (m_folder.isEmpty() || !QDir(m_folder).exists()) return;
    QByteArray bytes;
    for (const Note& note : std::as_const(m_notes)) {
        bytes += QByteArray::number(note.time) + ' ' + note.domain.toPercentEncoding() + ' ' +
                 note.path.toPercentEncoding() + ' ' + note.name.toPercentEncoding() + '\n';
    }
    ResumeNext(WriteWholeFile(PathBytes(m_folder + kNotes), bytes.toStdString(), Readers::UserAlone));
}

void StoredBrowsingData::ForgetSites(const QString& profileFolder) {
    if (!QFile::exists(profileFolder + kForget)) return;
    bool gone = true;
    for (const char* name : kSiteFolders) {
        QDir folder(profileFolder + u'/' + QLatin1String(name));
        gone = (!folder.exists() || folder.removeRecursively()) && gone;
    }
    if (gone) QFile::remove(profileFolder + kForget);
}

} // namespace tessa::qt
