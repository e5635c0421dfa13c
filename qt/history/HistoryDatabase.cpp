#include "qt/history/HistoryDatabase.h"

#include "base/os/FileLock.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <utility>

namespace tessa::qt {

namespace {

constexpr int kVersion = 1;
/// Says in the file's head whose it is.
constexpr int kApplication = 0x54567748;

constexpr auto kUserAlone = QFile::ReadOwner | QFile::WriteOwner;

// Ids rise with each visit, so that what was read last is found first without sorting. The index keeps no text of its
// own: that is kept compressed in "passages".
constexpr const char* kTables[]{
    "CREATE TABLE page(id INTEGER PRIMARY KEY, address TEXT NOT NULL UNIQUE, site TEXT NOT NULL, title TEXT NOT NULL, "
    "grp TEXT NOT NULL DEFAULT '', first INTEGER NOT NULL, last INTEGER NOT NULL, visits INTEGER NOT NULL, "
    "icon INTEGER, share INTEGER, bytes INTEGER NOT NULL DEFAULT 0)",
    "CREATE INDEX page_site ON page(site)",
    "CREATE INDEX page_grp ON page(grp) WHERE grp <> ''",
    "CREATE INDEX page_last ON page(last)",
    "CREATE TABLE passages(id INTEGER PRIMARY KEY, said BLOB, asread BLOB)",
    "CREATE TABLE icon(id INTEGER PRIMARY KEY, picture BLOB NOT NULL UNIQUE)",
    "CREATE TABLE note(name TEXT PRIMARY KEY, value) WITHOUT ROWID",
    "CREATE VIRTUAL TABLE words USING fts5(title, address, body, content='', prefix='1 2 3', "
    "tokenize=\"unicode61 remove_diacritics 0 categories 'L* N* Co Mn Mc'\")",
};

using Trouble = HistoryDatabase::Trouble;

Trouble TroubleOf(const QSqlError& error) {
    if (error.type() == QSqlError::NoError) return Trouble::None;
    // The extended codes of SQLite have the plain one in their lowest byte.
    switch (error.nativeErrorCode().toInt() & 0xFF) {
    case 11: // SQLITE_CORRUPT
    case 26: // SQLITE_NOTADB
        return Trouble::Damaged;
    case 13: // SQLITE_FULL
    case 10: // SQLITE_IOERR, as a full disk says of the log
        return Trouble::Full;
    case 5: // SQLITE_BUSY
    case 6: // SQLITE_LOCKED
        return Trouble::Busy;
    default:
        return Trouble::Other;
    }
}

} // namespace

HistoryDatabase::HistoryDatabase(QString folder, QString connection)
    : m_folder(std::move(folder)), m_connection(std::move(connection) + QStringLiteral(" %1").arg(quintptr(this))) {}

HistoryDatabase::~HistoryDatabase() { Close(); }

QString HistoryDatabase::File() const { return m_folder + QStringLiteral("/history.db"); }

QString HistoryDatabase::SetAsideFile() const { return m_folder + QStringLiteral("/history.damaged"); }

void HistoryDatabase::Close() {
    if (!QSqlDatabase::contains(m_connection)) return;
    QSqlDatabase::database(m_connection, false).close();
    QSqlDatabase::removeDatabase(m_connection);
    m_state = State::Closed;
}

HistoryDatabase::State HistoryDatabase::Open() {
    Close();
    if (!QDir().mkpath(m_folder)) return m_state = State::Unusable;
    QFile::setPermissions(m_folder, kUserAlone | QFile::ExeOwner);
    // Before there is anything in it, and the files beside it take after it.
    QFile file(File());
    if (!file.exists() && !file.open(QFile::ReadWrite, kUserAlone)) return m_state = State::Unusable;
    file.close();
    m_state = OpenFile(false);
    if (m_state == State::Closed) return BeginAnew();
    return m_state;
}

HistoryDatabase::State HistoryDatabase::OpenToRead() {
    Close();
    if (!QFile::exists(File())) return m_state;
    m_state = OpenFile(true);
    if (m_state != State::Ready) {
        const State what = std::exchange(m_state, State::Closed);
        Close();
        m_state = what;
    }
    return m_state;
}

// Closed means that it is damaged.
HistoryDatabase::State HistoryDatabase::OpenFile(bool toRead) {
    if (!QSqlDatabase::isDriverAvailable(QStringLiteral("QSQLITE"))) return State::Unusable;
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    database.setDatabaseName(File());
    // Another instance may be writing.
    database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=10000"));
    if (!database.open()) return State::Unusable;
    (void)TakeTrouble();
    // Whatever else is said to a file may change it.
    if (Version() > kVersion) return State::Newer;
    if (!toRead) {
        Run(QStringLiteral("PRAGMA auto_vacuum=INCREMENTAL"));
        Run(QStringLiteral("PRAGMA journal_mode=WAL"));
        Run(QStringLiteral("PRAGMA secure_delete=ON"));
    }
    // What a killed program has written is there; a failure of the power may cost the last seconds.
    Run(QStringLiteral("PRAGMA synchronous=NORMAL"));
    Run(QStringLiteral("PRAGMA cache_size=-4000"));
    return CheckTables(toRead);
}

int HistoryDatabase::Number(const QString& statement) {
    QSqlQuery query = Run(statement);
    return query.next() ? query.value(0).toInt() : -1;
}

int HistoryDatabase::Version() { return Number(QStringLiteral("PRAGMA user_version")); }

HistoryDatabase::State HistoryDatabase::CheckTables(bool toRead) {
    const int version = Version();
    const int tables = Number(QStringLiteral("SELECT count(*) FROM sqlite_master"));
    const Trouble trouble = TakeTrouble();
    if (trouble == Trouble::Damaged) return State::Closed;
    if (trouble == Trouble::Busy || trouble == Trouble::Other) return State::Unusable;
    if (version == kVersion && tables > 0) return State::Ready;
    // Somebody else's file is none of ours.
    if (toRead || tables > 0) return State::Closed;
    return MakeTables() ? State::Ready : State::Unusable;
}

bool HistoryDatabase::MakeTables() {
    // Two instances that start at the same time: the second finds the tables of the first.
    Run(QStringLiteral("BEGIN IMMEDIATE"));
    QSqlQuery made = Run(QStringLiteral("PRAGMA user_version"));
    const bool there = made.next() && made.value(0).toInt() == kVersion;
    made.finish();
    if (!there) {
        for (const char* table : kTables) Run(QString::fromLatin1(table));
        Run(QStringLiteral("PRAGMA application_id=%1").arg(kApplication));
        Run(QStringLiteral("PRAGMA user_version=%1").arg(kVersion));
    }
    const bool done = m_trouble == Trouble::None;
    Run(done ? QStringLiteral("COMMIT") : QStringLiteral("ROLLBACK"));
    return done && TakeTrouble() == Trouble::None;
}

HistoryDatabase::State HistoryDatabase::BeginAnew() {
    Close();
    const FileLock lock(QFile::encodeName(m_folder + QStringLiteral("/history.lock")).toStdString());
    if (!lock.Held()) return m_state = State::Unusable;
    // Another instance may have done it meanwhile; what it has begun is whole.
    m_state = OpenFile(false);
    const bool whole = m_state == State::Ready && [this] {
        QSqlQuery check = Run(QStringLiteral("PRAGMA quick_check(1)"));
        const bool ok = check.next() && check.value(0).toString() == QStringLiteral("ok");
        return TakeTrouble() == Trouble::None && ok;
    }();
    if (whole || m_state == State::Newer) return m_state;
    Close();
    MoveAside();
    QFile file(File());
    if (!file.open(QFile::ReadWrite, kUserAlone)) return m_state = State::Unusable;
    file.close();
    m_setAside = true;
    m_state = OpenFile(false);
    if (m_state == State::Closed) m_state = State::Unusable;
    return m_state;
}

void HistoryDatabase::MoveAside() const {
    QFile::remove(SetAsideFile());
    QFile::rename(File(), SetAsideFile());
    // They belong to what was there.
    for (const QString& beside : {QStringLiteral("-wal"), QStringLiteral("-shm")}) QFile::remove(File() + beside);
}

bool HistoryDatabase::TakeSetAside() { return std::exchange(m_setAside, false); }

QSqlQuery HistoryDatabase::Run(const QString& statement, const QVariantList& values) {
    QSqlQuery query(QSqlDatabase::database(m_connection, false));
    query.setForwardOnly(true);
    if (query.prepare(statement)) {
        for (const QVariant& each : values) query.addBindValue(each);
        query.exec();
    }
    Note(query);
    return query;
}

void HistoryDatabase::Note(const QSqlQuery& query) {
    const Trouble trouble = TroubleOf(query.lastError());
    if (trouble == Trouble::None) return;
    // Damage says more than what comes of it.
    if (m_trouble == Trouble::None || trouble == Trouble::Damaged) m_trouble = trouble;
}

HistoryDatabase::Trouble HistoryDatabase::TakeTrouble() { return std::exchange(m_trouble, Trouble::None); }

} // namespace tessa::qt
