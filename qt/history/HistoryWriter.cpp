#include "qt/history/HistoryWriter.h"

#include "history/VisitClock.h"

#include <QDateTime>
#include <QDeadlineTimer>
#include <chrono>

namespace tessa::qt {

namespace {

using Trouble = HistoryDatabase::Trouble;

constexpr std::chrono::hours kLimitTime{1};
// Others wait for so long while what was removed is swept out, and then it waits for them; at the end all wait.
constexpr std::chrono::milliseconds kSweepTime{30}, kSweepPause{30}, kLastSweep{300};
constexpr std::int64_t kMegabyte = 1'000'000;

std::int64_t Now() { return QDateTime::currentSecsSinceEpoch(); }

QString NewerWords() {
    return QStringLiteral(
        "The history is of a newer version of TessaView. It was left as it is; nothing is remembered.");
}
QString UnusableWords() {
    return QStringLiteral("There can be no history: its file cannot be written, or Qt's module for SQLite is missing.");
}
QString DamagedWords(const QString& file) {
    return QStringLiteral("The history was damaged. It was set aside as %1, and a new one was begun.").arg(file);
}
QString FullWords() { return QStringLiteral("The history could not be written: the disk may be full."); }

} // namespace

void HistoryWriter::Open() {
    m_database = std::make_unique<HistoryDatabase>(m_folder, QStringLiteral("history writer"));
    m_batch = std::make_unique<QTimer>();
    m_batch->setSingleShot(true);
    m_batch->setInterval(kBatchTime);
    m_batch->callOnTimeout(this, &HistoryWriter::Flush);
    m_limit = std::make_unique<QTimer>();
    m_limit->setInterval(kLimitTime);
    m_limit->callOnTimeout(this, &HistoryWriter::LimitNow);
    m_limit->start();
    m_sweep = std::make_unique<QTimer>();
    m_sweep->setSingleShot(true);
    m_sweep->callOnTimeout(this, [this] { SweepFor(kSweepTime); });
    m_database->Open();
    Tell();
}

void HistoryWriter::Tell() {
    const auto state = m_database->Now();
    const bool works = state == HistoryDatabase::State::Ready;
    QString words;
    if (m_database->TakeSetAside() && !std::exchange(m_saidDamaged, true))
        words = DamagedWords(m_database->SetAsideFile());
    if (!works && !std::exchange(m_told, true))
        words = state == HistoryDatabase::State::Newer ? NewerWords() : UnusableWords();
    Q_EMIT Opened(works, words);
}

void HistoryWriter::Close() {
    if (!m_database) return;
    Flush();
    if (m_sweep->isActive()) SweepFor(kLastSweep);
    m_batch.reset();
    m_limit.reset();
    m_sweep.reset();
    m_database.reset();
}

void HistoryWriter::Keep(HistoryVisit visit) {
    if (!m_database || m_database->Now() != HistoryDatabase::State::Ready) return;
    if (m_waiting.size() >= kMostWaiting) m_waiting.erase(m_waiting.begin());
    m_waiting.push_back(std::move(visit));
    if (m_waiting.size() >= kBatch && !m_saidFull) return Flush();
    if (!m_batch->isActive()) m_batch->start();
}

bool HistoryWriter::InOne(const std::function<void(HistoryRecords&)>& work) {
    if (!m_database || m_database->Now() != HistoryDatabase::State::Ready) return false;
    (void)m_database->TakeTrouble();
    m_database->Run(QStringLiteral("BEGIN IMMEDIATE"));
    Trouble trouble = m_database->TakeTrouble();
    if (trouble == Trouble::None) {
        HistoryRecords records(*m_database);
        work(records);
        trouble = m_database->TakeTrouble();
        m_database->Run(trouble == Trouble::None ? QStringLiteral("COMMIT") : QStringLiteral("ROLLBACK"));
        if (trouble == Trouble::None) trouble = m_database->TakeTrouble();
        (void)m_database->TakeTrouble();
    }
    OnTrouble(trouble);
    return trouble == Trouble::None;
}

void HistoryWriter::OnTrouble(Trouble trouble) {
    if (trouble == Trouble::Damaged) OnDamage();
    if (trouble == Trouble::Full && !std::exchange(m_saidFull, true)) Q_EMIT Said(FullWords());
    if (trouble == Trouble::None) m_saidFull = false;
}

void HistoryWriter::OnDamage() {
    if (!m_database) return;
    m_database->BeginAnew();
    Tell();
    Q_EMIT Renewed();
}

void HistoryWriter::Flush() {
    if (m_waiting.empty()) return;
    const bool written = InOne([this](HistoryRecords& records) {
        for (HistoryVisit& each : m_waiting) {
            each.When = VisitClock::VisitTime(each.When, records.LastVisit());
            records.Keep(each);
        }
    });
    if (written)
        m_waiting.clear();
    else if (m_batch)
        m_batch->start();
}

std::vector<HistoryEntry> HistoryWriter::Load(const std::vector<Text>& addresses) {
    Flush();
    if (!m_database || m_database->Now() != HistoryDatabase::State::Ready) return {};
    auto entries = HistoryRecords(*m_database).Load(addresses);
    OnTrouble(m_database->TakeTrouble());
    return entries;
}

std::int64_t HistoryWriter::Remove(const HistoryRemoval& removal) {
    Flush();
    std::int64_t count = 0;
    const bool done = InOne([&](HistoryRecords& records) { count = records.Remove(removal); });
    if (!done) return 0;
    // Who clears a time or a site has nothing of it left in the files by then; single pages follow in a moment.
    if (removal.Ids.empty())
        SweepFor(std::chrono::hours(1));
    else
        m_sweep->start(0);
    return count;
}

void HistoryWriter::SweepFor(std::chrono::milliseconds time) {
    const QDeadlineTimer end(time);
    bool swept = false, works = true;
    while (!swept && works && !end.hasExpired())
        works = InOne([&](HistoryRecords& records) { swept = records.SweepOn(); });
    if (!works || !m_database) return;
    if (!swept) return m_sweep->start(kSweepPause);
    m_database->Run(QStringLiteral("PRAGMA incremental_vacuum"));
    m_database->Run(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
    (void)m_database->TakeTrouble();
}

void HistoryWriter::Limit(std::int32_t days, std::int32_t megabytes) {
    m_days = days;
    m_megabytes = megabytes;
    LimitNow();
}

void HistoryWriter::LimitNow() {
    if (m_days == 0) return;
    Flush();
    if (InOne([this](HistoryRecords& records) { records.Limit(Now(), m_days, m_megabytes * kMegabyte); }))
        m_sweep->start(0);
}

} // namespace tessa::qt
