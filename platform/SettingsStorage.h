#pragma once
#include "base/ResumeNext.h"
#include "base/Text.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tessa {

/// Makes one list out of another.
using ListChange = std::function<std::vector<Text>(std::vector<Text>)>;

/// Where settings are kept: named texts and lists of texts, shared by all processes of the user. An object is made
/// for one use; what it wrote is on disk, whole, once it is released.
class SettingsStorage {
public:
    virtual ~SettingsStorage() = default;

    /// Nothing when the name was never written.
    [[nodiscard]] virtual std::optional<Text> Read(TextView name) const = 0;
    [[nodiscard]] virtual std::optional<std::vector<Text>> ReadList(TextView name) const = 0;
    virtual Outcome Write(TextView name, TextView value) = 0;
    virtual Outcome WriteList(TextView name, const std::vector<Text>& values) = 0;
    /// For a list that several processes change at once. When this object is released, the stored list becomes what
    /// `change` makes of it, while no other process writes. A missing list is an empty one. `change` is called more
    /// than once.
    virtual Outcome ChangeList(TextView name, ListChange change) = 0;
};

/// Opens the storage afresh for every use. Owned by the program's entry.
class SettingsStorageFactory {
public:
    virtual ~SettingsStorageFactory() = default;
    virtual std::unique_ptr<SettingsStorage> Open() = 0;
};

} // namespace tessa
