#pragma once
#include "commands/effects/CommandContext.h"

/// What one command does to the tabs of these views: to those that are chosen, to what a pop-up is about, or to a tab
/// group. What happens to one may close others; those that are not open any more are left out.
namespace tessa::SeveralTabs {

using Indexes = std::vector<std::int32_t>;

void Stop(const CommandContext& context, const Indexes& indexes);
void Refresh(const CommandContext& context, const Indexes& indexes);
/// Silences them, or lets them be heard again when all are silent.
void Mute(const CommandContext& context, const Indexes& indexes);
/// Whether there is one, and all are silent.
[[nodiscard]] bool AllMuted(const CommandContext& context, const Indexes& indexes);
/// Whether one loads.
[[nodiscard]] bool AnyBusy(const CommandContext& context, const Indexes& indexes);
/// Whether one does not load.
[[nodiscard]] bool AnyStill(const CommandContext& context, const Indexes& indexes);
/// Puts those to sleep that may, and says how many that were.
void Sleep(CommandContext& context, const Indexes& indexes);
/// Closes them as one command, the one in front last.
void Close(CommandContext& context, Indexes indexes);
/// Says so of the tabs that one command has just closed. Where that can be taken back, it offers to.
void SayClosed(CommandContext& context, TextView words);
/// Adds their addresses to a TessaGroup that the user names. When some of several are private, he is asked before.
void AddToTessaGroup(CommandContext& context, const Indexes& indexes);
/// To the clipboard, a line for each.
void CopyAddresses(CommandContext& context, const Indexes& indexes);

} // namespace tessa::SeveralTabs
