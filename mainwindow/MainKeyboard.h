#pragma once
#include "common/CommandBar.h"

class frmMain;

/// Keys as the main window receives them, before its controls.
namespace MainKeyboard {

/// Runs the window's own combinations, then lets the command bar have the key. Used when the command bar says so.
KeyUsed Form_KeyDown(frmMain& main, KeyStroke key);
KeyUsed Form_KeyUp(frmMain& main, KeyStroke key);

} // namespace MainKeyboard
