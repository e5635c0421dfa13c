#include "qt/history/HistoryStore.h"

#include "qt/history/HistoryReader.h"
#include "qt/history/HistoryWriter.h"

#include <utility>

namespace tessa::qt {

HistoryStore::HistoryStore(QString folder) : m_folder(std::move(folder)) {}

void HistoryStore::Begin() {
    if (m_writer) return;
    m_writer = std::make_unique<HistoryWriter>(m_folder);
    m_reader = std::make_unique<HistoryReader>(m_folder);
    connect(m_writer.get(), &HistoryWriter::Opened, this, [this](bool works, const QString& words) {
        m_works = works;
        if (!words.isEmpty()) Say(words);
    });
    connect(m_writer.get(), &HistoryWriter::Said, this, [this](const QString& words) { Say(words); });
    connect(m_writer.get(), &HistoryWriter::Renewed, m_reader.get(), &HistoryReader::Close);
    connect(m_reader.get(), &HistoryReader::Damaged, m_writer.get(), &HistoryWriter::OnDamage);
    m_writer->moveToThread(&m_writing);
    m_reader->moveToThread(&m_searching);
    m_writing.start(QThread::LowPriority);
    m_searching.start();
    QMetaObject::invokeMethod(m_writer.get(), &HistoryWriter::Open);
}

HistoryStore::~HistoryStore() {
    if (!m_writer) return;
    // Each on its own thread, behind whatever it was asked before.
    QMetaObject::invokeMethod(m_reader.get(), &HistoryReader::Close, Qt::BlockingQueuedConnection);
    m_searching.quit();
    m_searching.wait();
    QMetaObject::invokeMethod(m_writer.get(), &HistoryWriter::Close, Qt::BlockingQueuedConnection);
    m_writing.quit();
    m_writing.wait();
}

template<typename Work>
void HistoryStore::OnWriter(Work work) {
    Begin();
    QMetaObject::invokeMethod(
        m_writer.get(), [this, work = std::move(work)]() mutable { work(*m_writer); }, Qt::QueuedConnection);
}

template<typename Work>
void HistoryStore::OnReader(Work work) {
    OnWriter([this, work = std::move(work)](HistoryWriter& writer) mutable {
        writer.Flush();
        QMetaObject::invokeMethod(
            m_reader.get(), [this, work = std::move(work)]() mutable { work(*m_reader); }, Qt::QueuedConnection);
    });
}

void HistoryStore::Keep(HistoryVisit visit) {
    OnWriter([visit = std::move(visit)](HistoryWriter& writer) mutable { writer.Keep(std::move(visit)); });
}

void HistoryStore::Find(const HistoryQuery& query, std::function<void(HistoryFound)> answer) {
    OnReader([this, query, answer = std::move(answer)](HistoryReader& reader) {
        QMetaObject::invokeMethod(this, [answer, found = reader.Find(query)] { answer(found); });
    });
}

void HistoryStore::Load(std::vector<Text> addresses, std::function<void(std::vector<HistoryEntry>)> answer) {
    OnWriter([this, addresses = std::move(addresses), answer = std::move(answer)](HistoryWriter& writer) {
        QMetaObject::invokeMethod(this, [answer, entries = writer.Load(addresses)] { answer(entries); });
    });
}

void HistoryStore::Look(std::function<void(HistoryOverview)> answer) {
    OnReader([this, answer = std::move(answer)](HistoryReader& reader) {
        QMetaObject::invokeMethod(this, [answer, overview = reader.Look()] { answer(overview); });
    });
}

void HistoryStore::Remove(HistoryRemoval removal, std::function<void(std::int64_t)> done) {
    OnWriter([this, removal = std::move(removal), done = std::move(done)](HistoryWriter& writer) {
        QMetaObject::invokeMethod(this, [done, count = writer.Remove(removal)] { done(count); });
    });
}

void HistoryStore::Limit(std::int32_t days, std::int32_t megabytes) {
    OnWriter([days, megabytes](HistoryWriter& writer) { writer.Limit(days, megabytes); });
}

} // namespace tessa::qt
