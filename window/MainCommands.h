#pragma once
#include "commands/CommandContext.h"

class frmMain;

/// Commands whose operations the main window has without asking the platform for more than it was given.
namespace MainCommands {

/// The window outlives the host.
void Fill(CommandHost& host, frmMain& main);

} // namespace MainCommands
