#include "qt/history/HistoryRecords.h"

#include "history/VisitClock.h"
#include "qt/base/Strings.h"

#include <QStringList>
#include <algorithm>

namespace tessa::qt {

namespace {

/// What is asked for in SQL.
struct Condition {
    QString where;
    QVariantList values;
};

QVariant Whole(std::int64_t number) { return QVariant(static_cast<qlonglong>(number)); }

Condition ConditionOf(const HistoryRemoval& removal) {
    QStringList parts;
    Condition condition;
    const auto add = [&](const QString& part, const QVariant& value) {
        parts.append(part);
        condition.values.append(value);
    };
    if (!removal.Site.empty()) add(QStringLiteral("site=?"), ToQt(removal.Site));
    if (removal.From) add(QStringLiteral("last>=?"), Whole(*removal.From));
    if (removal.Until) add(QStringLiteral("last<?"), Whole(*removal.Until));
    condition.where = parts.isEmpty() ? QStringLiteral("1") : parts.join(QStringLiteral(" AND "));
    return condition;
}

/// The file is made smaller than allowed by so much, so that not each page has one removed.
constexpr std::int64_t kSlack = 20;

} // namespace

std::int64_t HistoryRecords::RemoveAll() {
    const std::int64_t count = Number(QStringLiteral("SELECT count(*) FROM page"));
    for (const char* table : {"page", "passages", "icon"})
        m_database.Run(QStringLiteral("DELETE FROM %1").arg(QLatin1String(table)));
    m_database.Run(QStringLiteral("INSERT INTO words(words) VALUES('delete-all')"));
    return count;
}

std::int64_t HistoryRecords::RemoveSome(const HistoryRemoval& removal) {
    std::vector<std::int64_t> ids = removal.Ids;
    if (ids.empty()) {
        const Condition condition = ConditionOf(removal);
        QSqlQuery query =
            m_database.Run(QStringLiteral("SELECT id FROM page WHERE ") + condition.where, condition.values);
        while (query.next()) ids.push_back(query.value(0).toLongLong());
        m_database.Note(query);
    }
    std::int64_t count = 0;
    for (const std::int64_t id : ids) {
        const auto row = FindRow(id);
        if (!row) continue;
        RemoveRow(*row);
        ++count;
    }
    m_database.Run(QStringLiteral("DELETE FROM icon WHERE id NOT IN (SELECT icon FROM page WHERE icon IS NOT NULL)"));
    return count;
}

std::int64_t HistoryRecords::Remove(const HistoryRemoval& removal) {
    const std::int64_t highest = NextId() - 1;
    const bool all = removal.Ids.empty() && removal.Site.empty() && !removal.From && !removal.Until;
    const std::int64_t count = all ? RemoveAll() : RemoveSome(removal);
    Note(QStringLiteral("highest"), highest);
    if (count > 0) Note(QStringLiteral("unswept"), 1);
    return count;
}

void HistoryRecords::Limit(std::int64_t now, std::int32_t days, std::int64_t bytes) {
    const auto judged =
        VisitClock::Judge(now, {Noted(QStringLiteral("clock seen")), Noted(QStringLiteral("clock doubted"))});
    Note(QStringLiteral("clock seen"), judged.Next.Seen);
    Note(QStringLiteral("clock doubted"), judged.Next.Doubted);
    if (judged.Trusted) {
        HistoryRemoval old;
        old.Until = now - days * VisitClock::kDay;
        Remove(old);
    }
    const std::int64_t used =
        (Number(QStringLiteral("PRAGMA page_count")) - Number(QStringLiteral("PRAGMA freelist_count"))) *
        Number(QStringLiteral("PRAGMA page_size"));
    if (used <= bytes) return;
    // The index is about as large as the texts. So what is too much is taken off all of it alike.
    const std::int64_t pages = Number(QStringLiteral("SELECT count(*) FROM page"));
    const std::int64_t share = std::min<std::int64_t>(100, (used - bytes) * 100 / used + 100 / kSlack);
    const std::int64_t last =
        Number(QStringLiteral("SELECT id FROM page ORDER BY id LIMIT 1 OFFSET ?"), {Whole(pages * share / 100)});
    HistoryRemoval oldest;
    QSqlQuery query =
        m_database.Run(QStringLiteral("SELECT id FROM page WHERE ?=0 OR id<?"), {Whole(last), Whole(last)});
    while (query.next()) oldest.Ids.push_back(query.value(0).toLongLong());
    m_database.Note(query);
    if (!oldest.Ids.empty()) Remove(oldest);
}

// The index only notes that words are gone, and they go when its parts are made one. A large one takes seconds for
// that, so it is done bit by bit; others write meanwhile.
bool HistoryRecords::SweepOn() {
    constexpr int kBegun = 2, kPart = 400;
    const QString changes = QStringLiteral("SELECT total_changes()");
    const std::int64_t state = Noted(QStringLiteral("unswept"));
    if (state == 0) return true;
    const std::int64_t before = Number(changes);
    m_database.Run(QStringLiteral("INSERT INTO words(words, rank) VALUES('merge', ?)"),
                   {state == kBegun ? kPart : -kPart});
    // The statement itself counts as one.
    const bool more = Number(changes) - before > 1 || state != kBegun;
    Note(QStringLiteral("unswept"), more ? kBegun : 0);
    return !more;
}

} // namespace tessa::qt
