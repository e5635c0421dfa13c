#pragma once
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

namespace tessa::qt {

/// The database file of what was read, as one thread uses it. It lies in a folder of its own and is for the user alone.
/// A damaged one is set aside under another name, and a new one begun; one that a newer version of the program has made
/// is left alone.
class HistoryDatabase {
public:
    enum class State {
        Closed,
        Ready,
        Newer,    ///< it is of a newer version
        Unusable, ///< there can be no such file, or Qt cannot read it
    };
    enum class Trouble { None, Damaged, Full, Busy, Other };

    /// `connection` names it in the process.
    HistoryDatabase(QString folder, QString connection);
    ~HistoryDatabase();
    HistoryDatabase(const HistoryDatabase&) = delete;
    HistoryDatabase& operator=(const HistoryDatabase&) = delete;

    /// Opens the file, or makes it. A damaged one is set aside first, which `TakeSetAside` then says.
    State Open();
    /// Opens a file that is there, to read.
    State OpenToRead();
    void Close();
    /// Sets the file aside and begins a new one. Of several processes only one does.
    State BeginAnew();

    [[nodiscard]] State Now() const { return m_state; }
    /// Whether a damaged file was set aside since this was asked last.
    [[nodiscard]] bool TakeSetAside();

    /// Runs a statement with its values; an inactive query when it has failed.
    QSqlQuery Run(const QString& statement, const QVariantList& values = {});
    /// What was wrong with the statements run since this was asked last.
    [[nodiscard]] Trouble TakeTrouble();
    /// What a query, stepped through, has met.
    void Note(const QSqlQuery& query);

    [[nodiscard]] QString File() const;
    [[nodiscard]] QString SetAsideFile() const;

private:
    State OpenFile(bool toRead);
    State CheckTables(bool toRead);
    bool MakeTables();
    [[nodiscard]] int Number(const QString& statement);
    [[nodiscard]] int Version();
    void MoveAside() const;

    const QString m_folder, m_connection;
    State m_state = State::Closed;
    Trouble m_trouble = Trouble::None;
    bool m_setAside = false;
};

} // namespace tessa::qt
