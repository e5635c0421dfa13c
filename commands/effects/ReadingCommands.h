#pragma once
#include "commands/effects/CommandContext.h"

/// Commands about what was read, and what is new in the open pages.
namespace tessa::ReadingCommands {

/// Marks what is new in the page in front, and brings the next new passage into sight.
void ShowWhatIsNew(CommandContext& context);
/// The same of the tab that the pop-up was opened on, which comes to the front.
void TabShowWhatIsNew(CommandContext& context);
/// Brings the next tab to the front that was not read, and says how many are left.
void NextUnread(CommandContext& context);
/// Closes the tabs whose pages say what they said when they were read before.
void CloseWithoutNews(CommandContext& context);
/// Closes the tabs that were read.
void CloseRead(CommandContext& context);

/// Enables the tools of the tab's pop-up.
void ShowState(CommandContext& context);

} // namespace tessa::ReadingCommands
