#pragma once
#include "platform/VisitStore.h"
#include "qt/history/HistoryDatabase.h"
#include "qt/history/HistoryRecords.h"

#include <QObject>
#include <QTimer>
#include <chrono>
#include <memory>

namespace tessa::qt {

/// Writes what was read into the database, in batches. Lives on a thread of its own. What cannot be written for want of
/// room is tried again. When there is too much of it, it is given up.
class HistoryWriter final : public QObject {
    Q_OBJECT

public:
    /// So many pages at most are lost when the program is killed, or those of so many milliseconds.
    static constexpr std::size_t kBatch = 32;
    static constexpr int kBatchTime = 1000;
    /// More than these do not wait for room on the disk.
    static constexpr std::size_t kMostWaiting = 200;

    explicit HistoryWriter(QString folder) : m_folder(std::move(folder)) {}

    // All of it on its own thread.
    void Open();
    void Close();
    void Keep(HistoryVisit visit);
    /// Writes what waits. Whatever is read must see it.
    void Flush();
    [[nodiscard]] std::vector<HistoryEntry> Load(const std::vector<Text>& addresses);
    [[nodiscard]] std::int64_t Remove(const HistoryRemoval& removal);
    void Limit(std::int32_t days, std::int32_t megabytes);
    /// The reader has met damage.
    void OnDamage();

Q_SIGNALS:
    /// The database can be used, or not; `words` say what the user has to know, once, and are empty otherwise.
    void Opened(bool works, const QString& words);
    /// There is another file now, which readers have to open.
    void Renewed();
    void Said(const QString& words);

private:
    void Tell();
    /// Runs that as one transaction; false when nothing of it was done.
    bool InOne(const std::function<void(HistoryRecords&)>& work);
    void OnTrouble(HistoryDatabase::Trouble trouble);
    void LimitNow();
    /// Sweeps what was removed out of the index, for so long; goes on later when that is not enough.
    void SweepFor(std::chrono::milliseconds time);

    const QString m_folder;
    std::unique_ptr<HistoryDatabase> m_database;
    std::vector<HistoryVisit> m_waiting;
    std::unique_ptr<QTimer> m_batch, m_limit, m_sweep;
    std::int32_t m_days = 0, m_megabytes = 0; ///< 0 until they are known
    bool m_saidFull = false, m_saidDamaged = false, m_told = false;
};

} // namespace tessa::qt
