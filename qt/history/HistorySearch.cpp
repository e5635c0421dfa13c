#include "qt/history/HistorySearch.h"

#include "qt/base/Strings.h"
#include "qt/history/HistoryRecords.h"

#include <QStringList>

namespace tessa::qt {

namespace {

constexpr std::size_t kMostAtOnce = 1000;

/// A statement with its values.
struct Statement {
    QString text;
    QVariantList values;
};

// The index is walked from the latest visit on; nothing has to be sorted, so it ends with the last page that is shown.
Statement StatementOf(const HistoryQuery& query) {
    Statement made;
    QStringList where;
    const bool words = !query.Match.empty();
    const auto add = [&](const QString& part, const QVariant& value) {
        where.append(part);
        made.values.append(value);
    };
    if (words) add(QStringLiteral("words MATCH ?"), ToQt(query.Match));
    if (query.Below > 0)
        add(words ? QStringLiteral("words.rowid<?") : QStringLiteral("page.id<?"),
            QVariant(static_cast<qlonglong>(query.Below)));
    if (!query.Site.empty()) add(QStringLiteral("site=?"), ToQt(query.Site));
    if (!query.Group.empty()) add(QStringLiteral("grp=?"), ToQt(query.Group));
    made.text = QStringLiteral("SELECT ") + HistoryRecords::kEntryColumns + QStringLiteral(", picture") +
                (query.Passages ? QStringLiteral(", said FROM ") : QStringLiteral(" FROM ")) +
                (words ? QStringLiteral("words JOIN page ON page.id = words.rowid") : QStringLiteral("page")) +
                QStringLiteral(" LEFT JOIN icon ON icon.id = page.icon");
    if (query.Passages) made.text += QStringLiteral(" LEFT JOIN passages ON passages.id = page.id");
    if (!where.isEmpty()) made.text += QStringLiteral(" WHERE ") + where.join(QStringLiteral(" AND "));
    made.text += words ? QStringLiteral(" ORDER BY words.rowid DESC") : QStringLiteral(" ORDER BY page.id DESC");
    made.text += QStringLiteral(" LIMIT %1").arg(std::min(query.Most, kMostAtOnce) + 1);
    return made;
}

std::string BytesAt(const QSqlQuery& query, int column) {
    const QByteArray bytes = query.value(column).toByteArray();
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

HistoryEntry FoundEntry(const QSqlQuery& query, bool passages) {
    HistoryEntry entry = HistoryRecords::EntryOf(query);
    entry.Icon = BytesAt(query, HistoryRecords::kAfterEntry);
    if (passages) entry.Passages = HistoryRecords::Unpacked(query.value(HistoryRecords::kAfterEntry + 1).toByteArray());
    return entry;
}

} // namespace

HistoryFound HistorySearch::Find(const HistoryQuery& query) {
    const Statement statement = StatementOf(query);
    HistoryFound found;
    QSqlQuery rows = m_database.Run(statement.text, statement.values);
    while (rows.next()) {
        if (found.Entries.size() == std::min(query.Most, kMostAtOnce)) {
            found.More = true;
            break;
        }
        found.Entries.push_back(FoundEntry(rows, query.Passages));
    }
    m_database.Note(rows);
    return found;
}

HistoryOverview HistorySearch::Look() {
    HistoryOverview overview;
    // Of one aggregate alone, the other columns are those of the row that it was taken from.
    QSqlQuery sites = m_database.Run(QStringLiteral(
        "SELECT s.site, s.address, s.total, picture FROM (SELECT site, address, icon, sum(visits) AS total, "
        "max(visits * 1000000000 + id) FROM page WHERE id > (SELECT coalesce(max(id), 0) - 5000 FROM page) "
        "GROUP BY site ORDER BY total DESC LIMIT 12) AS s LEFT JOIN icon ON icon.id = s.icon ORDER BY s.total DESC"));
    while (sites.next())
        overview.Sites.push_back({FromQt(sites.value(0).toString()), FromQt(sites.value(1).toString()),
                                  sites.value(2).toLongLong(), BytesAt(sites, 3)});
    m_database.Note(sites);
    QSqlQuery groups =
        m_database.Run(QStringLiteral("SELECT DISTINCT grp FROM page WHERE grp <> '' ORDER BY grp LIMIT 200"));
    while (groups.next()) overview.Groups.push_back(FromQt(groups.value(0).toString()));
    m_database.Note(groups);
    QSqlQuery count = m_database.Run(QStringLiteral("SELECT count(*) FROM page"));
    if (count.next()) overview.Pages = count.value(0).toLongLong();
    m_database.Note(count);
    return overview;
}

} // namespace tessa::qt
