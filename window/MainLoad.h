#pragma once

class frmMain;

/// The main window's start-up, step by step.
namespace MainLoad {

/// Before the first tab: layout of the command bar, placement of the tabs, the question about the default browser,
/// status bar, tools that have nothing to act on yet.
void Prepare(frmMain& main);
/// After it: the window's place on the screen and the live copies of settings.
void Restore(frmMain& main);
/// Brings settings that were changed in the dialog into effect.
void ApplySettings(frmMain& main);
/// Lets tabs sleep, or not, as the user has set it.
void ApplySleep(frmMain& main);
/// Reopens the addresses of the session before, the first one in the first tab.
void ReopenLastSites(frmMain& main);

} // namespace MainLoad
