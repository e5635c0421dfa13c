#pragma once
#include "qt/history/HistoryDatabase.h"
#include "qt/history/HistorySearch.h"

#include <QObject>
#include <memory>

namespace tessa::qt {

/// Searches in the database, on a thread of its own, while the writer writes.
class HistoryReader final : public QObject {
    Q_OBJECT

public:
    explicit HistoryReader(QString folder) : m_folder(std::move(folder)) {}

    [[nodiscard]] HistoryFound Find(const HistoryQuery& query);
    [[nodiscard]] HistoryOverview Look();
    /// The file is opened anew for what is asked next.
    void Close() { m_database.reset(); }

Q_SIGNALS:
    void Damaged();

private:
    bool Open();
    void LookForDamage();

    const QString m_folder;
    std::unique_ptr<HistoryDatabase> m_database;
};

} // namespace tessa::qt
