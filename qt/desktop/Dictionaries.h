#pragma once
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <vector>

class QWebEngineProfile;

namespace tessa::qt {

/// The dictionaries with which the engine checks what the user writes into pages. They are of the user's languages, as
/// far as the desktop has them. The engine reads only a format of its own. Its own tool, where that is installed,
/// converts dictionaries of other programs, which are kept.
class Dictionaries final : public QObject {
public:
    /// Where dictionaries lie.
    struct Places {
        QStringList ready;     ///< folders with files that the engine reads
        QStringList hunspell;  ///< folders with pairs of ".dic" and ".aff"
        QString converter;     ///< the engine's tool
        QString kept;          ///< the folder for converted ones
        QStringList languages; ///< of the user, as in "de-AT", best first
    };
    /// What this computer has; converted ones lie in `cacheFolder`.
    [[nodiscard]] static Places OfThisComputer(const QString& cacheFolder);

    /// Tells the engine where dictionaries are; before its first profile comes into being.
    explicit Dictionaries(Places places);

    /// Has the profile check by them, as soon as they are there.
    void Follow(QWebEngineProfile& profile);
    /// The names of those that are there now, as in "de_AT".
    [[nodiscard]] const QStringList& Names() const { return m_names; }

private:
    void Convert();
    void Apply();
    /// The names of files with that ending for the user's languages.
    [[nodiscard]] QStringList Matching(const QString& folder, const QString& ending) const;

    Places m_places;
    QStringList m_names;
    std::vector<QPointer<QWebEngineProfile>> m_profiles;
};

} // namespace tessa::qt
