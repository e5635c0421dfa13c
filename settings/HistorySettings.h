#pragma once
#include "settings/SettingsStore.h"

namespace tessa {

/// What the user wants to have remembered of the pages that he reads, as values.
struct HistoryValues {
    bool nothing = false; ///< no page at all
    bool texts = true;    ///< what pages say, too
    std::int32_t days = 90;
    std::int32_t megabytes = 500;
    Text leftOut{}; ///< sites that are never remembered, as the user types them

    static constexpr std::int32_t kMostDays = 3650, kLeastMegabytes = 10, kMostMegabytes = 100'000;

    friend bool operator==(const HistoryValues&, const HistoryValues&) = default;
};

/// Where these are kept. Made for one use and released right after it.
class HistorySettings {
    std::unique_ptr<SettingsStorage> m_storage;

public:
    /// The factory must outlive this object.
    explicit HistorySettings(SettingsStorageFactory& factory);

    /// What cannot be understood counts as never written.
    [[nodiscard]] HistoryValues Get() const;
    /// Each value on its own: one that cannot be written leaves the others alone.
    void Set(const HistoryValues& values);

    Setting<bool> Nothing;
    Setting<bool> Texts;
    Setting<std::int32_t> Days;
    Setting<std::int32_t> Megabytes;
    Setting<Text> LeftOut;

    /// The `Difference` of each that has one.
    [[nodiscard]] std::vector<Text> Differences() const;
};

} // namespace tessa
