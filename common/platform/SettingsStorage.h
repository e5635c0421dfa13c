#pragma once
#include "common/ResumeNext.h"
#include "common/Text.h"

#include <memory>
#include <optional>
#include <vector>

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
};

/// Opens the storage afresh for every use. Owned by the program's entry.
class SettingsStorageFactory {
public:
    virtual ~SettingsStorageFactory() = default;
    virtual std::unique_ptr<SettingsStorage> Open() = 0;
};
