#pragma once
#include "bar/CommandBar.h"

class frmMain;

/// Keys as the main window receives them, before its controls.
namespace MainKeyboard {

/// Runs the window's own combinations, then lets the command bar have the key. Used when the command bar says so.
KeyUsed Form_KeyDown(frmMain& main, KeyStroke key);
KeyUsed Form_KeyUp(frmMain& main, KeyStroke key);
/// Something is typed while the page in front has the keyboard. Over a blank page that is meant for the address box,
/// which then gets the keyboard.
void Form_Type(frmMain& main);

} // namespace MainKeyboard
