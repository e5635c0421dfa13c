#pragma once
#include "platform/VisitStore.h"
#include "qt/history/HistoryDatabase.h"

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tessa::qt {

/// What is written into the database, and what is read of pages by their addresses. Each call belongs to a transaction
/// that the caller has begun.
class HistoryRecords {
public:
    explicit HistoryRecords(HistoryDatabase& database) : m_database(database) {}

    void Keep(const HistoryVisit& visit);
    [[nodiscard]] std::vector<HistoryEntry> Load(const std::vector<Text>& addresses);
    /// How many pages went.
    std::int64_t Remove(const HistoryRemoval& removal);
    /// Removes what is older by a clock that is trusted. Then the oldest pages go while the file is larger than that.
    void Limit(std::int64_t now, std::int32_t days, std::int64_t bytes);
    /// Removes from the index some of what is left there of removed pages; whether that was all.
    [[nodiscard]] bool SweepOn();

    /// A number noted under a name; 0 for none.
    [[nodiscard]] std::int64_t Noted(const QString& name);
    void Note(const QString& name, std::int64_t number);
    /// The time of the visit that came last.
    [[nodiscard]] std::int64_t LastVisit();

    /// The nine columns that an entry begins with, in the order of kEntryColumns.
    [[nodiscard]] static HistoryEntry EntryOf(const QSqlQuery& query);
    static constexpr QLatin1String kEntryColumns{
        "page.id, page.address, site, page.title, grp, first, last, visits, share"};
    static constexpr int kAfterEntry = 9; ///< the first column behind them
    /// The passages as they are kept, and back.
    [[nodiscard]] static QByteArray Packed(const std::string& passages);
    [[nodiscard]] static std::string Unpacked(const QByteArray& packed);

private:
    /// What is known of a page in the database.
    struct Row {
        std::int64_t id = 0;
        QString address, title, group;
        std::string passages;
    };
    [[nodiscard]] std::optional<Row> FindRow(const QString& address);
    [[nodiscard]] std::optional<Row> FindRow(std::int64_t id);
    [[nodiscard]] std::optional<Row> RowOf(QSqlQuery query);
    void Change(const Row& row, const HistoryVisit& visit);
    void Add(const HistoryVisit& visit);
    void Index(std::int64_t id, const QString& title, const QString& address, const std::string& passages, bool add);
    [[nodiscard]] QVariant IconOf(const std::string& picture);
    std::int64_t RemoveAll();
    std::int64_t RemoveSome(const HistoryRemoval& removal);
    void RemoveRow(const Row& row);
    [[nodiscard]] std::int64_t NextId();
    [[nodiscard]] std::int64_t Number(const QString& statement, const QVariantList& values = {});

    HistoryDatabase& m_database;
};

} // namespace tessa::qt
