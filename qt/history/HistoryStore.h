#pragma once
#include "base/Signal.h"
#include "platform/VisitStore.h"

#include <QObject>
#include <QThread>
#include <memory>

namespace tessa::qt {

class HistoryReader;
class HistoryWriter;

/// The store of what was read: one thread writes into its database, another one searches in it. The file is opened when
/// the store is first used.
class HistoryStore final : public QObject, public VisitStore {
    Q_OBJECT

public:
    /// `folder` is for the history alone, and is made when it is missing.
    explicit HistoryStore(QString folder);
    /// What was kept is written.
    ~HistoryStore() override;

    void Keep(HistoryVisit visit) override;
    void Find(const HistoryQuery& query, std::function<void(HistoryFound)> answer) override;
    void Load(std::vector<Text> addresses, std::function<void(std::vector<HistoryEntry>)> answer) override;
    void Look(std::function<void(HistoryOverview)> answer) override;
    void Remove(HistoryRemoval removal, std::function<void(std::int64_t)> done) override;
    void Limit(std::int32_t days, std::int32_t megabytes) override;
    [[nodiscard]] bool Works() const override { return m_works; }

    /// What the user has to know: each thing once.
    Signal<void(const QString& words)> Say;

private:
    void Begin();
    template<typename Work>
    void OnWriter(Work work);
    /// Once all that was told the writer before is written.
    template<typename Work>
    void OnReader(Work work);

    const QString m_folder;
    QThread m_writing, m_searching;
    std::unique_ptr<HistoryWriter> m_writer;
    std::unique_ptr<HistoryReader> m_reader;
    bool m_works = true; ///< until it is known that it does not
};

} // namespace tessa::qt
