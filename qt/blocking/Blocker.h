#pragma once
#include "base/Signal.h"
#include "blocking/CompiledRules.h"
#include "blocking/ListShelf.h"
#include "blocking/RuleSet.h"
#include "blocking/hiding/HidingRules.h"
#include "settings/BlockingSettings.h"

#include <QHash>
#include <QObject>
#include <QString>
#include <QUrl>
#include <array>
#include <memory>
#include <utility>

class QThread;

namespace tessa::qt {

/// What is blocked, and what not: has the rules read when blocking is switched on, and holds requests against them.
/// While it is off there is nothing of them. For the thread of the windows; lists are read in one of their own.
class Blocker final : public QObject {
public:
    /// Lists and rules lie in the folder. The factory outlives this.
    Blocker(SettingsStorageFactory& settings, const QString& folder);
    ~Blocker() override;

    /// Puts the settings into effect, and reads the lists when they are others than before.
    void Apply();
    /// Reads the lists again, which have changed.
    void ReadLists();

    [[nodiscard]] bool IsOn() const { return m_values.on; }
    [[nodiscard]] const BlockingValues& Values() const { return m_values; }
    /// Whether nothing is blocked on pages of that address, because the user wants it so.
    [[nodiscard]] bool IsOffOn(const QUrl& page) const;
    /// The user wants nothing, or all again, blocked on the site of that page.
    void SwitchOn(const QUrl& page, bool on);
    /// Adds a line to the user's own rules. False when it cannot be kept.
    [[nodiscard]] bool AddOwnRule(const QString& rule);

    /// Whether the request is stopped. `asker` is the page or the frame that asks, `page` what the tab shows. The first
    /// request waits a moment for rules that are just being read.
    [[nodiscard]] RuleVerdict VerdictOn(const QUrl& address, const QUrl& asker, const QUrl& page, RequestType type);
    /// The rules; nothing while it is off, or they are not there yet.
    [[nodiscard]] const RuleSet* Rules() const { return m_rules.get(); }
    [[nodiscard]] const HidingRules* Hiding() const { return m_hiding.get(); }
    /// The page of that address as rules see it. Only while there are rules.
    [[nodiscard]] std::shared_ptr<const RulePage> PageOf(const QUrl& address);

    [[nodiscard]] ListShelf& Shelf() { return m_shelf; }
    /// The lists that count, as the settings have them.
    [[nodiscard]] std::vector<Text> Lists() const;
    /// What the list with that number is called.
    [[nodiscard]] QString ListName(std::uint32_t number) const;
    /// What was made of a list; nothing for one that is not among those that were read.
    [[nodiscard]] std::optional<PackedList> CountsOf(TextView chosen) const;

    /// The rules have come, changed, or gone.
    Signal<void()> Changed;

private:
    struct Reading;

    void BeginReading();
    void EndReading();
    void Forget();
    void ForgetPages();
    void WaitAMoment();

    SettingsStorageFactory& m_settings;
    ListShelf m_shelf;
    BlockingValues m_values;
    std::unique_ptr<RuleSet> m_rules;
    std::unique_ptr<HidingRules> m_hiding;
    std::vector<Text> m_readLists; ///< those that the rules were made of
    using KnownPage = std::pair<QUrl, std::shared_ptr<const RulePage>>;
    QHash<QString, std::shared_ptr<const RulePage>> m_pages;
    std::array<KnownPage, 2> m_lastPages; ///< the page and the frame in it that have asked last
    std::shared_ptr<Reading> m_reading;   ///< while lists are read
    bool m_readAgain = false;
};

/// Languages that the user reads, as the desktop says.
[[nodiscard]] std::vector<Text> DesktopLanguages();

} // namespace tessa::qt
