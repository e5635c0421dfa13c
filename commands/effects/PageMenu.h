#pragma once
#include "commands/effects/CommandContext.h"

namespace tessa {

/// The menu of a page: what can be done with what lies under the pointer.
namespace PageMenu {

inline constexpr TextView kBand = u"zzPageMenu";

/// Fills the menu for what lies there in the page of that view, and shows it.
void Open(CommandContext& context, std::int32_t index, const PageContext& page);

// Commands of the menu. They do nothing once the view is gone.
void OpenLink(CommandContext& context);
void OpenLinkOtherWay(CommandContext& context);
void OpenLinkPrivate(CommandContext& context);
void OpenMedia(CommandContext& context);
void SaveLink(CommandContext& context);
void SaveMedia(CommandContext& context);
void CopyLink(CommandContext& context);
void CopyMediaAddress(CommandContext& context);
void AddLinkToTessaGroup(CommandContext& context);
void SearchForSelection(CommandContext& context);
/// Opens every link that is selected in a tab of its own, behind.
void OpenSelectedLinks(CommandContext& context);
/// Asks for a file and makes a group of the links, each once.
void SaveSelectedLinks(CommandContext& context);
/// Replaces a misspelled word by the tool's caption.
void ReplaceWord(CommandContext& context, const Tool& tool);
/// What the engine does itself, by the tool's name.
void Run(CommandContext& context, const Tool& tool);

} // namespace PageMenu

} // namespace tessa
