#pragma once

namespace tessa {

class CommandBar;

/// What the user does elsewhere in the window and a tool of the command bar stands for.
namespace BarGestures {

/// The window fills the screen or no longer does: the tick of the command says so.
void FullScreenChanged(CommandBar& bar, bool on);
/// The strip's button for a new tab, or a double click beside the tabs.
void NewTab(CommandBar& bar);
/// The right button on the button for a new tab: what it may show.
void NewTabMenu(CommandBar& bar);
/// The button of the list of tabs at the side: its menu.
void TabPanelMenu(CommandBar& bar);

} // namespace BarGestures

} // namespace tessa
