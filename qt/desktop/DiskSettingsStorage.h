#pragma once
#include "base/os/FileLock.h"
#include "platform/SettingsStorage.h"
#include "settings/SettingsText.h"

#include <QString>

#include <functional>
#include <utility>
#include <vector>

namespace tessa::qt {

/// Settings in the file "settings.ini" of one folder, readable by the user alone. Every opened storage reads the file
/// afresh. At its release, what was written to it is merged into the file, under a lock that all processes share. The
/// file is replaced as a whole. So readers find the old or the new one, also when a writer dies. A file that cannot be
/// understood is kept as "settings.ini.damaged-1" and so on.
///
/// QSettings would not do. It takes a file of the same size and time stamp for unchanged. So it misses and overwrites a
/// value that another process wrote within one clock tick.
class DiskSettingsStorage : public SettingsStorageFactory {
public:
    /// A start that cannot tell its user leaves a damaged file to one that can. It reads nothing then, and what it
    /// writes is not kept.
    enum class Damaged { PutAside, LeftAlone };
    /// The folder is made on the first write.
    explicit DiskSettingsStorage(QString folder, Damaged damaged = Damaged::PutAside);

    /// The storage must not outlive this factory. Never null.
    std::unique_ptr<SettingsStorage> Open() override;

    /// Who tells the user that the settings were damaged or cannot be read or saved. Each is said once until it is
    /// over. What happened before this was called is said at once.
    void SetReport(std::function<void(Text)> report);
    /// Finds out whether settings can be saved, and says so if not. Changes nothing.
    void TrySaving();

private:
    class Storage;
    using NamedChange = std::pair<Text, ListChange>;
    enum class Trouble { None, Damaged, Unreadable };
    struct Loaded {
        SettingsValues values;
        Trouble trouble = Trouble::None;
    };

    [[nodiscard]] Loaded Load() const;
    /// As Load, but without the damage: what is damaged is put aside. Nothing when the file must not be replaced.
    [[nodiscard]] std::optional<SettingsValues> LoadSound();
    [[nodiscard]] bool PutAside();
    [[nodiscard]] bool MakeFolder() const;
    /// Whether the folder takes a file that holds these values.
    [[nodiscard]] bool HasRoomFor(const SettingsValues& values) const;
    [[nodiscard]] bool Save(const SettingsValues& changes, const std::vector<NamedChange>& listChanges);
    [[nodiscard]] FileLock Lock() const;

    void Say(const QString& message);
    void SayNotSaved();

    QString m_folder;
    QString m_file;
    Damaged m_damaged;
    std::function<void(Text)> m_report;
    std::vector<Text> m_unsaid;
    bool m_saidUnreadable = false;
    bool m_saidNotSaved = false;
};

} // namespace tessa::qt
