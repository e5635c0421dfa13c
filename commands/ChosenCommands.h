#pragma once
#include "commands/CommandContext.h"

/// Commands on several tabs: on those that the user has chosen, or on what the pop-up of a tab is about. These are all
/// chosen tabs when it is one of them, else that tab alone.
namespace tessa::ChosenCommands {

/// Closes the tabs of these views as one command, the one in front last.
void CloseTabs(CommandContext& context, std::vector<std::int32_t> indexes);

// The chosen tabs.
/// Closes them as one command.
void Close(CommandContext& context);
/// Silences them, or lets them be heard again when all are silent.
void Mute(CommandContext& context);
/// Puts those to sleep that may, and says how many that were.
void Sleep(CommandContext& context);
void SaveAsTessaGroup(CommandContext& context);
void AddToTessaGroup(CommandContext& context);
/// A line for each.
void CopyAddresses(CommandContext& context);
void All(CommandContext& context);
void None(CommandContext& context);

// What the pop-up is about.
[[nodiscard]] std::vector<std::int32_t> OfPopup(const CommandContext& context);
void PopupStop(CommandContext& context);
void PopupRefresh(CommandContext& context);
void PopupClose(CommandContext& context);
void PopupMute(CommandContext& context);
void PopupSleep(CommandContext& context);
void PopupAddToTessaGroup(CommandContext& context);
void PopupCopyAddress(CommandContext& context);
/// Asks what the tab is to be called.
void PopupRename(CommandContext& context);

/// Enables the tools of the chosen tabs.
void ShowState(CommandContext& context);
/// Enables and marks those of the pop-up.
void ShowPopupState(CommandContext& context);

} // namespace tessa::ChosenCommands
