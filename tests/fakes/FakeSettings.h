#pragma once
#include "common/platform/SettingsStorage.h"

#include <map>
#include <set>
#include <string>
#include <vector>

/// Settings in memory. "Processes" that share one object see each other's values as real ones do: an opened storage
/// knows what was released before it was opened plus what it wrote itself, and its own writes reach the others when
/// it is released.
class FakeSettings : public SettingsStorageFactory {
public:
    using Values = std::map<Text, std::vector<Text>, std::less<>>;

    std::unique_ptr<SettingsStorage> Open() override;

    /// A text as a process of another time left it.
    void Put(TextView name, TextView value) { texts[Text(name)] = {Text(value)}; }
    void PutList(TextView name, std::vector<Text> values) { lists[Text(name)] = std::move(values); }
    /// The stored text; "(none)" when there is none.
    [[nodiscard]] Text Stored(TextView name) const;
    /// The stored entries, each in square brackets; "(none)" when no list was stored.
    [[nodiscard]] Text StoredList(TextView name) const;

    Values texts;                       ///< released texts by name, one entry each
    Values lists;                       ///< released lists by name
    std::set<Text, std::less<>> refuse; ///< names whose writes fail
    bool refuseAll = false;             ///< every write fails
    std::vector<Text> written;          ///< names of all writes in order, the refused ones too
    int opened = 0;                     ///< how many storages were opened
    int open = 0;                       ///< how many of them are not released yet
};
