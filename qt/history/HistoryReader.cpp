#include "qt/history/HistoryReader.h"

namespace tessa::qt {

bool HistoryReader::Open() {
    if (m_database && m_database->Now() == HistoryDatabase::State::Ready) return true;
    m_database = std::make_unique<HistoryDatabase>(m_folder, QStringLiteral("history reader"));
    return m_database->OpenToRead() == HistoryDatabase::State::Ready;
}

void HistoryReader::LookForDamage() {
    if (m_database->TakeTrouble() == HistoryDatabase::Trouble::Damaged) Q_EMIT Damaged();
}

HistoryFound HistoryReader::Find(const HistoryQuery& query) {
    if (!Open()) return {};
    HistoryFound found = HistorySearch(*m_database).Find(query);
    LookForDamage();
    return found;
}

HistoryOverview HistoryReader::Look() {
    if (!Open()) return {};
    HistoryOverview overview = HistorySearch(*m_database).Look();
    LookForDamage();
    return overview;
}

} // namespace tessa::qt
