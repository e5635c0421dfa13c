#pragma once
#include "settings/SettingsStore.h"

namespace tessa {

/// What the user has decided about content blocking.
struct BlockingValues {
    bool on = false;
    bool asked = false;           ///< the home page need not ask whether it is to be on
    std::vector<Text> lists{};    ///< names of the catalogue, addresses and paths, in the order in which they count
    std::vector<Text> offSites{}; ///< hosts on whose pages nothing is blocked
    bool listsChosen = false;     ///< the user has chosen lists; else those by design count

    friend bool operator==(const BlockingValues&, const BlockingValues&) = default;
};

/// Where it is kept. Made for one use and released right after it.
class BlockingSettings {
    std::unique_ptr<SettingsStorage> m_storage;

public:
    /// The factory must outlive this object.
    explicit BlockingSettings(SettingsStorageFactory& factory);

    [[nodiscard]] BlockingValues Get() const;
    /// Each value on its own: one that cannot be written leaves the others alone.
    void Set(const BlockingValues& values);

    Setting<bool> On;
    Setting<bool> Asked;
    Setting<std::vector<Text>> Lists;
    Setting<std::vector<Text>> OffSites;

    /// The `Difference` of each that has one.
    [[nodiscard]] std::vector<Text> Differences() const;
};

/// The host as it is kept among those on whose pages nothing is blocked: of an address or of a host as it is typed.
/// Empty where there is none.
[[nodiscard]] Text OffSiteOf(TextView typed);
/// Whether pages of that address are among them, or of a domain that is.
[[nodiscard]] bool IsOffSite(const std::vector<Text>& offSites, TextView address);

} // namespace tessa
