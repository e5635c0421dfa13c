#pragma once
#include "platform/InstanceChannel.h"
#include "window/frmMain.h"

namespace tessa {

/// Receives what later starts of the program hand over. Messages that come before the hook is installed are answered
/// and ignored.
namespace Hook {

/// Attaches the main window, which stands on the screen as `window`, to the channel. The hook goes when the window
/// unloads.
void Install(InstanceChannel& instances, MainWindow& window, frmMain& main);

} // namespace Hook

} // namespace tessa
