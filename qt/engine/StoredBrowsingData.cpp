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

CookieNote NoteOfCookie(const QNetworkCookie& cookie, qint64 time) {
    return {cookie.domain().toStdString(), cookie.path().toStdString(), cookie.name().toStdString(), time};
}

std::string KeyOfNote(const CookieNote& note) { return note.Domain + '\n' + note.Path + '\n' + note.Name; }

} // namespace

StoredBrowsingData::StoredBrowsingData() : Now([] { return QDateTime::currentSecsSinceEpoch(); }) {}

StoredBrowsingData::~StoredBrowsingData() { Save(); }

void StoredBrowsingData::Watch(QWebEngineProfile& profile) {
    // Of what is kept in memory nothing may outlive it.
    KeepIn(profile.isOffTheRecord() ? QString() : profile.persistentStoragePath());
    auto* cookies = profile.cookieStore();
    QObject::connect(cookies, &QWebEngineCookieStore::cookieAdded, cookies,
                     [this](const QNetworkCookie& cookie) { Note(NoteOfCookie(cookie, Now())); });
    QObject::connect(cookies, &QWebEngineCookieStore::cookieRemoved, cookies,
                     [this](const QNetworkCookie& cookie) { m_notes.erase(KeyOfNote(NoteOfCookie(cookie, 0))); });
}

void StoredBrowsingData::Note(CookieNote note) {
    std::string key = KeyOfNote(note);
    m_notes.insert_or_assign(std::move(key), std::move(note));
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
    for (const auto& [key, note] : m_notes) {
        if (note.Time < since) continue;
        QNetworkCookie cookie(QByteArray::fromStdString(note.Name));
        cookie.setDomain(QString::fromStdString(note.Domain));
        cookie.setPath(QString::fromStdString(note.Path));
        cookies->deleteCookie(cookie);
    }
}

void StoredBrowsingData::Load() {
    QFile file(m_folder + kNotes);
    if (m_folder.isEmpty() || !file.open(QFile::ReadOnly)) return;
    for (CookieNote& each : CookieNotes::Read(file.readAll().toStdString())) Note(std::move(each));
}

void StoredBrowsingData::Save() {
    if (m_folder.isEmpty() || !QDir(m_folder).exists()) return;
    std::vector<CookieNote> notes;
    for (const auto& [key, note] : m_notes) notes.push_back(note);
    ResumeNext(WriteWholeFile(PathBytes(m_folder + kNotes), CookieNotes::Bytes(notes), Readers::UserAlone));
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
