#pragma once
#include "platform/VisitStore.h"
#include "qt/history/HistoryDatabase.h"

namespace tessa::qt {

/// What is read of the database for those who search in it.
class HistorySearch {
public:
    explicit HistorySearch(HistoryDatabase& database) : m_database(database) {}

    [[nodiscard]] HistoryFound Find(const HistoryQuery& query);
    [[nodiscard]] HistoryOverview Look();

private:
    HistoryDatabase& m_database;
};

} // namespace tessa::qt
