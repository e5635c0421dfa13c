#pragma once
#include "platform/MainWindow.h"
#include "settings/SettingsStore.h"

namespace tessa {

/// Where the main window stands on the screen, from one run to the next.
namespace WindowPlacement {

/// Puts the window where it was, on the screen and no smaller than is useful. One that was never placed gets a size
/// alone.
void Restore(MainWindow& window, const SettingsStore& store);
/// Keeps where it stands. Of a minimized window only that it is not maximized: where it stood before stays stored.
void Save(SettingsStore& store, const MainWindow& window);

} // namespace WindowPlacement

} // namespace tessa
