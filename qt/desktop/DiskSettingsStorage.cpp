#include "qt/desktop/DiskSettingsStorage.h"

#include "base/os/AtomicFile.h"
#include "base/os/FileLock.h"
#include "base/os/Log.h"
#include "qt/base/PathBytes.h"
#include "qt/base/Strings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tessa::qt {

namespace {

constexpr auto kUserFolder = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
constexpr int kMostDamagedFiles = 10000;

void Change(SettingsValues& values, const Text& name, const ListChange& change) {
    values.insert_or_assign(name, change(ListIn(values, name).value_or(std::vector<Text>())));
}

} // namespace

/// One use of the settings: the values as they were when it was opened, and what was written since.
class DiskSettingsStorage::Storage : public SettingsStorage {
public:
    Storage(DiskSettingsStorage& owner, SettingsValues values) : m_owner(owner), m_values(std::move(values)) {}

    ~Storage() override {
        const bool changed = !m_changes.empty() || !m_listChanges.empty();
        if (changed && !m_owner.Save(m_changes, m_listChanges)) m_owner.SayNotSaved();
    }

    std::optional<Text> Read(TextView name) const override {
        const Text* text = TextIn(m_values, name);
        return text ? std::optional(*text) : std::nullopt;
    }

    std::optional<std::vector<Text>> ReadList(TextView name) const override { return ListIn(m_values, name); }

    Outcome Write(TextView name, TextView value) override { return Keep(name, Text(value)); }
    Outcome WriteList(TextView name, const std::vector<Text>& values) override { return Keep(name, values); }

    Outcome ChangeList(TextView name, ListChange change) override {
        if (!Takes()) return Outcome::Failed;
        Change(m_values, Text(name), change);
        m_listChanges.emplace_back(name, std::move(change));
        return Outcome::Done;
    }

private:
    bool Takes() {
        if (!m_takes) m_takes = m_owner.HasRoomFor(m_values);
        if (!*m_takes) m_owner.SayNotSaved();
        return *m_takes;
    }

    Outcome Keep(TextView name, SettingsValue value) {
        if (!Takes()) return Outcome::Failed;
        m_values.insert_or_assign(Text(name), value);
        m_changes.insert_or_assign(Text(name), std::move(value));
        return Outcome::Done;
    }

    DiskSettingsStorage& m_owner;
    SettingsValues m_values;
    SettingsValues m_changes;
    std::vector<NamedChange> m_listChanges;
    std::optional<bool> m_takes; // asked on the first write
};

DiskSettingsStorage::DiskSettingsStorage(QString folder, Damaged damaged)
    : m_folder(std::move(folder)), m_file(m_folder + QStringLiteral("/settings.ini")), m_damaged(damaged) {}

std::unique_ptr<SettingsStorage> DiskSettingsStorage::Open() {
    Loaded loaded = Load();
    if (loaded.trouble != Trouble::None) {
        const FileLock lock = Lock();
        // Another process may have put the file aside by now.
        loaded.values = LoadSound().value_or(SettingsValues());
    }
    return std::make_unique<Storage>(*this, std::move(loaded.values));
}

DiskSettingsStorage::Loaded DiskSettingsStorage::Load() const {
    const QFileInfo info(m_file);
    if (!info.exists() && !info.isSymLink()) return {};
    QFile file(m_file);
    // Only a regular file: opening a pipe would wait for its other end.
    if (!info.isFile() || !file.open(QIODevice::ReadOnly)) return {{}, Trouble::Unreadable};
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) return {{}, Trouble::Unreadable};
    auto values = ParseSettings({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    if (!values) return {{}, Trouble::Damaged};
    return {*std::move(values), Trouble::None};
}

std::optional<SettingsValues> DiskSettingsStorage::LoadSound() {
    Loaded loaded = Load();
    if (loaded.trouble == Trouble::None) {
        m_saidUnreadable = false;
        return std::move(loaded.values);
    }
    if (m_damaged == Damaged::LeftAlone) return std::nullopt;
    if (loaded.trouble == Trouble::Damaged && PutAside()) return SettingsValues();
    Log::Note(LogLevel::Error, LogPart::Settings, "could not be read");
    if (!m_saidUnreadable) Say(QStringLiteral("The settings could not be read."));
    m_saidUnreadable = true;
    return std::nullopt;
}

bool DiskSettingsStorage::PutAside() {
    for (int number = 1; number <= kMostDamagedFiles; ++number) {
        const QString aside = m_file + QStringLiteral(".damaged-%1").arg(number);
        // Renaming never replaces a file that is there.
        if (QFileInfo::exists(aside) || !QFile(m_file).rename(aside)) {
            if (QFileInfo::exists(aside)) continue;
            return false;
        }
        Log::Note(LogLevel::Error, LogPart::Settings, "were damaged");
        Say(QStringLiteral("The settings were damaged and start afresh. The damaged file is kept as %1.").arg(aside));
        return true;
    }
    return false;
}

bool DiskSettingsStorage::MakeFolder() const {
    if (QFileInfo(m_folder).isDir()) return true;
    if (!QDir().mkpath(QFileInfo(m_folder).path())) return false;
    return QDir().mkdir(m_folder, kUserFolder) || QFileInfo(m_folder).isDir();
}

bool DiskSettingsStorage::HasRoomFor(const SettingsValues& values) const {
    return MakeFolder() && TryWholeFile(PathBytes(m_file), SettingsBytes(values)) == Outcome::Done;
}

FileLock DiskSettingsStorage::Lock() const { return FileLock(PathBytes(m_file + QStringLiteral(".lock"))); }

bool DiskSettingsStorage::Save(const SettingsValues& changes, const std::vector<NamedChange>& listChanges) {
    const FileLock lock = Lock();
    if (!lock.Held()) return false;
    auto values = LoadSound();
    if (!values) return false;
    for (const auto& [name, value] : changes) values->insert_or_assign(name, value);
    for (const auto& [name, change] : listChanges) Change(*values, name, change);
    if (WriteWholeFile(PathBytes(m_file), SettingsBytes(*values), Readers::UserAlone) == Outcome::Failed) return false;
    // Under the lock such a file is in use only to try the disk, and then it may go too.
    RemoveLeftovers(PathBytes(m_file));
    m_saidNotSaved = false;
    return true;
}

void DiskSettingsStorage::SetReport(std::function<void(Text)> report) {
    m_report = std::move(report);
    if (!m_report) return;
    for (Text& message : std::exchange(m_unsaid, {})) m_report(std::move(message));
}

void DiskSettingsStorage::TrySaving() {
    const Loaded loaded = Load();
    if (loaded.trouble == Trouble::None && !HasRoomFor(loaded.values)) SayNotSaved();
}

void DiskSettingsStorage::Say(const QString& message) {
    if (m_report) {
        m_report(FromQt(message));
    } else {
        m_unsaid.push_back(FromQt(message));
    }
}

void DiskSettingsStorage::SayNotSaved() {
    Log::Note(LogLevel::Error, LogPart::Settings, "could not be saved");
    if (!std::exchange(m_saidNotSaved, true)) Say(QStringLiteral("The settings could not be saved."));
}

} // namespace tessa::qt
