#pragma once
#include "history/Passages.h"
#include "history/SearchText.h"
#include "qt/base/Strings.h"
#include "qt/history/HistoryStore.h"

#include <QEventLoop>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <optional>

namespace tessa::qt {

/// Pages that are kept and found on a real file, in short words.
class StoredPages {
public:
    explicit StoredPages(QString folder) : m_folder(std::move(folder)) { Begin(); }

    /// As another run of the program would.
    void Begin() {
        m_store.reset();
        m_store = std::make_unique<HistoryStore>(m_folder);
        m_store->Say.ConnectForLife([this](const QString& words) { said << words; });
    }
    void End() { m_store.reset(); }

    void Keep(TextView address, TextView title, TextView words = u"", std::int64_t when = 1'795'000'000) {
        m_store->Keep(VisitOf(address, title, words, when));
    }
    static HistoryVisit VisitOf(TextView address, TextView title, TextView words, std::int64_t when) {
        HistoryVisit visit{Text(address), u"site", Text(title)};
        visit.When = when;
        visit.Passages = Passages::ToBytes({{PassageKind::Words, Text(words)}});
        return visit;
    }

    /// The titles of what is found, in their order: "One Two".
    Text Find(TextView typed, HistoryQuery query = {}) {
        query.Match = SearchText::QueryOf(SearchText::PiecesOf(typed));
        const auto found = FindAll(query);
        Text titles;
        for (const HistoryEntry& each : found.Entries) titles += (titles.empty() ? u"" : u" ") + each.Title;
        return titles;
    }
    HistoryFound FindAll(const HistoryQuery& query) {
        return Wait<HistoryFound>([&](auto answer) { m_store->Find(query, answer); });
    }
    std::vector<HistoryEntry> Load(std::vector<Text> addresses) {
        return Wait<std::vector<HistoryEntry>>([&](auto answer) { m_store->Load(addresses, answer); });
    }
    HistoryOverview Look() {
        return Wait<HistoryOverview>([&](auto answer) { m_store->Look(answer); });
    }
    std::int64_t Remove(const HistoryRemoval& removal) {
        return Wait<std::int64_t>([&](auto answer) { m_store->Remove(removal, answer); });
    }
    HistoryStore& Store() { return *m_store; }
    [[nodiscard]] QString File(const QString& name = QStringLiteral("history.db")) const {
        return m_folder + u'/' + name;
    }

    QStringList said;

private:
    template<typename Answer, typename Ask>
    Answer Wait(Ask ask) {
        // Shared, because an answer may come after all patience.
        const auto given = std::make_shared<std::optional<Answer>>();
        ask([given](Answer answer) { *given = std::move(answer); });
        if (!QTest::qWaitFor([&] { return given->has_value(); }, 60000)) qFatal("The history did not answer.");
        return std::move(**given);
    }

    const QString m_folder;
    std::unique_ptr<HistoryStore> m_store;
};

} // namespace tessa::qt
