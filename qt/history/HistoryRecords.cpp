#include "qt/history/HistoryRecords.h"

#include "history/Passages.h"
#include "history/SearchText.h"
#include "history/VisitClock.h"
#include "qt/base/Strings.h"

namespace tessa::qt {

namespace {

constexpr int kPackedFirst = 1; ///< how much the packing tries; more takes long and saves little
/// No page unpacks to more, whatever a damaged one says of itself.
constexpr std::size_t kMostUnpacked = Passages::kMostBytes + 1000;

QVariant Number64(std::int64_t number) { return QVariant(static_cast<qlonglong>(number)); }

QByteArray BytesOf(const std::string& bytes) { return {bytes.data(), static_cast<qsizetype>(bytes.size())}; }

std::string StringOf(const QByteArray& bytes) { return {bytes.constData(), static_cast<std::size_t>(bytes.size())}; }

} // namespace

QByteArray HistoryRecords::Packed(const std::string& passages) {
    return passages.empty() ? QByteArray() : qCompress(BytesOf(passages), kPackedFirst);
}

std::string HistoryRecords::Unpacked(const QByteArray& packed) {
    // The first four bytes say how much it will be.
    if (packed.size() < 4) return {};
    std::size_t size = 0;
    for (int i = 0; i < 4; ++i) size = size << 8 | static_cast<unsigned char>(packed[i]);
    return size > kMostUnpacked ? std::string() : StringOf(qUncompress(packed));
}

std::int64_t HistoryRecords::Number(const QString& statement, const QVariantList& values) {
    QSqlQuery query = m_database.Run(statement, values);
    const std::int64_t number = query.next() ? query.value(0).toLongLong() : 0;
    m_database.Note(query);
    return number;
}

std::int64_t HistoryRecords::Noted(const QString& name) {
    return Number(QStringLiteral("SELECT value FROM note WHERE name=?"), {name});
}

void HistoryRecords::Note(const QString& name, std::int64_t number) {
    m_database.Run(QStringLiteral("INSERT OR REPLACE INTO note(name, value) VALUES(?, ?)"), {name, Number64(number)});
}

std::int64_t HistoryRecords::LastVisit() {
    return Number(QStringLiteral("SELECT last FROM page ORDER BY id DESC LIMIT 1"));
}

// Higher than any that was ever given, so that what went is never taken for what came.
std::int64_t HistoryRecords::NextId() {
    return Number(QStringLiteral("SELECT max(coalesce((SELECT max(id) FROM page), 0), "
                                 "coalesce((SELECT value FROM note WHERE name='highest'), 0)) + 1"));
}

std::optional<HistoryRecords::Row> HistoryRecords::RowOf(QSqlQuery query) {
    const bool found = query.next();
    m_database.Note(query);
    if (!found) return std::nullopt;
    return Row{query.value(0).toLongLong(), query.value(1).toString(), query.value(2).toString(),
               query.value(3).toString(), Unpacked(query.value(4).toByteArray())};
}

namespace {
constexpr auto kSelectRow = "SELECT page.id, address, title, grp, said FROM page LEFT JOIN passages ON "
                            "passages.id = page.id WHERE ";
}

std::optional<HistoryRecords::Row> HistoryRecords::FindRow(const QString& address) {
    return RowOf(m_database.Run(QString::fromLatin1(kSelectRow) + QStringLiteral("address=?"), {address}));
}

std::optional<HistoryRecords::Row> HistoryRecords::FindRow(std::int64_t id) {
    return RowOf(m_database.Run(QString::fromLatin1(kSelectRow) + QStringLiteral("page.id=?"), {Number64(id)}));
}

// The index has to be given what it was given before, to forget it.
void HistoryRecords::Index(std::int64_t id, const QString& title, const QString& address, const std::string& passages,
                           bool add) {
    Text body;
    for (const Passage& each : Passages::FromBytes(passages)) body += each.Words + u'\n';
    const auto words = [](const Text& text) { return ToQt(SearchText::ForIndex(text)); };
    const QVariantList values{Number64(id), words(FromQt(title)), words(FromQt(address)), words(body)};
    m_database.Run(add ? QStringLiteral("INSERT INTO words(rowid, title, address, body) VALUES(?, ?, ?, ?)")
                       : QStringLiteral("INSERT INTO words(words, rowid, title, address, body) "
                                        "VALUES('delete', ?, ?, ?, ?)"),
                   values);
}

QVariant HistoryRecords::IconOf(const std::string& picture) {
    if (picture.empty()) return {};
    const QByteArray bytes = BytesOf(picture);
    m_database.Run(QStringLiteral("INSERT OR IGNORE INTO icon(picture) VALUES(?)"), {bytes});
    return Number64(Number(QStringLiteral("SELECT id FROM icon WHERE picture=?"), {bytes}));
}

void HistoryRecords::Keep(const HistoryVisit& visit) {
    if (const auto row = FindRow(ToQt(visit.Address))) return Change(*row, visit);
    // The end of a visit that was forgotten meanwhile does not bring it back.
    if (!visit.Again) Add(visit);
}

void HistoryRecords::Add(const HistoryVisit& visit) {
    const std::int64_t id = NextId();
    const QByteArray packed = Packed(visit.Passages);
    const QVariant share = visit.Share ? QVariant(*visit.Share) : QVariant();
    m_database.Run(
        QStringLiteral("INSERT INTO page(id, address, site, title, grp, first, last, visits, icon, share, bytes) "
                       "VALUES(?, ?, ?, ?, ?, ?, ?, 1, ?, ?, ?)"),
        {Number64(id), ToQt(visit.Address), ToQt(visit.Site), ToQt(visit.Title), ToQt(visit.Group),
         Number64(visit.When), Number64(visit.When), IconOf(visit.Icon), share, packed.size()});
    m_database.Run(QStringLiteral("INSERT INTO passages(id, said, asread) VALUES(?, ?, ?)"),
                   {Number64(id), packed, BytesOf(visit.AsRead.value_or(std::string()))});
    Index(id, ToQt(visit.Title), ToQt(visit.Address), visit.Passages, true);
}

void HistoryRecords::Change(const Row& row, const HistoryVisit& visit) {
    const QString title = visit.Title.empty() ? row.title : ToQt(visit.Title);
    const std::int64_t id = visit.Again ? row.id : NextId();
    const bool same = id == row.id && title == row.title && visit.Passages == row.passages;
    if (!same) Index(row.id, row.title, row.address, row.passages, false);
    const QByteArray packed = Packed(visit.Passages);
    const QVariant icon = IconOf(visit.Icon), share = visit.Share ? QVariant(*visit.Share) : QVariant();
    m_database.Run(
        QStringLiteral("UPDATE page SET id=?, title=?, grp=?, last=?, visits=visits+?, icon=coalesce(?, icon), "
                       "share=coalesce(?, share), bytes=? WHERE id=?"),
        {Number64(id), title, visit.Group.empty() ? row.group : ToQt(visit.Group), Number64(visit.When),
         visit.Again ? 0 : 1, icon, share, packed.size(), Number64(row.id)});
    const QVariant asRead = visit.AsRead ? QVariant(BytesOf(*visit.AsRead)) : QVariant();
    m_database.Run(QStringLiteral("UPDATE passages SET id=?, said=?, asread=coalesce(?, asread) WHERE id=?"),
                   {Number64(id), packed, asRead, Number64(row.id)});
    if (!same) Index(id, title, row.address, visit.Passages, true);
}

HistoryEntry HistoryRecords::EntryOf(const QSqlQuery& query) {
    HistoryEntry entry;
    entry.Id = query.value(0).toLongLong();
    entry.Address = FromQt(query.value(1).toString());
    entry.Site = FromQt(query.value(2).toString());
    entry.Title = FromQt(query.value(3).toString());
    entry.Group = FromQt(query.value(4).toString());
    entry.First = query.value(5).toLongLong();
    entry.Last = query.value(6).toLongLong();
    entry.Visits = query.value(7).toLongLong();
    if (!query.value(8).isNull()) entry.Share = query.value(8).toInt();
    return entry;
}

std::vector<HistoryEntry> HistoryRecords::Load(const std::vector<Text>& addresses) {
    std::vector<HistoryEntry> entries;
    for (const Text& each : addresses) {
        QSqlQuery query = m_database.Run(QStringLiteral("SELECT ") + kEntryColumns +
                                             QStringLiteral(", said, asread FROM page LEFT JOIN passages ON "
                                                            "passages.id = page.id WHERE address=?"),
                                         {ToQt(each)});
        const bool found = query.next();
        m_database.Note(query);
        if (!found) continue;
        HistoryEntry entry = EntryOf(query);
        entry.Passages = Unpacked(query.value(kAfterEntry).toByteArray());
        entry.AsRead = StringOf(query.value(kAfterEntry + 1).toByteArray());
        entries.push_back(std::move(entry));
    }
    return entries;
}

void HistoryRecords::RemoveRow(const Row& row) {
    Index(row.id, row.title, row.address, row.passages, false);
    m_database.Run(QStringLiteral("DELETE FROM passages WHERE id=?"), {Number64(row.id)});
    m_database.Run(QStringLiteral("DELETE FROM page WHERE id=?"), {Number64(row.id)});
}

} // namespace tessa::qt
