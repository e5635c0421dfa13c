#pragma once

class frmMain;

/// The main window's shut-down.
namespace MainUnload {

/// Saves the addresses of the open tabs, the window's place, the option values that live on the window, and the layout
/// of the command bar. A value that cannot be written is skipped.
void Save(frmMain& main);

} // namespace MainUnload
