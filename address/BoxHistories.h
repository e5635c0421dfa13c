#pragma once
#include "bar/CommandBar.h"
#include "settings/SettingsStore.h"

namespace tessa {

/// What was typed into the address box and the search box, from one run to the next.
namespace BoxHistories {

/// Fills the lists of both boxes with what is stored.
void Restore(const CommandBar& actBar, const SettingsStore& store);
/// Stores the lists of both boxes.
void Save(SettingsStore& store, const CommandBar& actBar);
/// Empties both boxes and what is stored of them.
void Forget(const CommandBar& actBar, SettingsStorageFactory& settings);

} // namespace BoxHistories

} // namespace tessa
