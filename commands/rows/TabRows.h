#pragma once
#include "commands/effects/ChosenCommands.h"
#include "commands/effects/PageMenu.h"
#include "commands/effects/TabGroupCommands.h"
#include "commands/rows/RowParts.h"

#include <array>

namespace tessa::CommandRows {

namespace GroupTabs = TabGroupCommands;

/// The list of tabs at the side, several tabs at once, tab groups and pins.
inline constexpr std::array kTabRows{
    // The list of tabs at the side, and several tabs at once.
    Command{u"xtrTabPanel"_tool, u"Tabs at the Side", u"More", u"Shows the tabs as a list at the side of the window",
            u"sidebar-show", CommandTraits::CountsFrom{300}, Key{'E', kCtrl | kShift},
            kRuns<&WindowCommands::ToggleTabPanel>},
    Command{u"xtrTabStripHidden"_tool, u"&Hide Tab Strip", u"More",
            u"Hides the strip of tabs as long as the tabs are at the side", u"",
            kRuns<&WindowCommands::ToggleTabStrip>},
    Command{u"xtrTabPanelRight"_tool, u"At the &Right", u"More", u"Moves the list of tabs to the other side", u"",
            kRuns<&WindowCommands::MoveTabPanel>},
    Command{u"xtrChosenTabs"_tool, u"Selected Tabs", u"More", u"Works on all tabs that are selected", u"",
            Opens{u"bndChosenTabs"_band}},
    Command{u"xtrChosenClose"_tool, u"Clos&e", u"More", u"Closes the selected tabs", u"view-close",
            ChosenCommands::Close},
    Command{u"xtrChosenMute"_tool, u"&Mute", u"More", u"Silences the selected tabs or lets them be heard again",
            u"audio-volume-muted", ChosenCommands::Mute},
    Command{u"xtrChosenSleep"_tool, u"&Sleep", u"More",
            u"Gives up the pages of the selected tabs until they are looked at again", u"", ChosenCommands::Sleep},
    Command{u"xtrChosenSaveAsTessaGroup"_tool, u"Sa&ve as TessaGroup...", u"More",
            u"Saves the selected tabs as a TessaGroup", u"document-save", ChosenCommands::SaveAsTessaGroup},
    Command{u"xtrChosenAddToTessaGroup"_tool, u"Add to &TessaGroup...", u"More",
            u"Adds the pages of the selected tabs to a TessaGroup", u"list-add", ChosenCommands::AddToTessaGroup},
    Command{u"xtrChosenCopyAddresses"_tool, u"Copy &Addresses", u"More",
            u"Copies the addresses of the selected tabs to the clipboard, a line for each", u"edit-copy",
            ChosenCommands::CopyAddresses},
    Command{u"xtrChosenAll"_tool, u"Select A&ll Tabs", u"More", u"Selects all tabs", u"edit-select-all",
            ChosenCommands::All},
    Command{u"xtrChosenNone"_tool, u"Select &None", u"More", u"Ends the selection of tabs", u"edit-select-none",
            ChosenCommands::None},
    Command{u"xtrTabSleep"_tool, u"S&leep", u"", u"Gives up the page of this tab until it is looked at again", u"",
            ChosenCommands::PopupSleep},
    Command{u"xtrTabRename"_tool, u"Rena&me...", u"", u"Gives this tab a name of your own", u"edit-rename",
            ChosenCommands::PopupRename},
    // Tab groups and pins.
    Command{u"xtrTabPin"_tool, u"&Pin", u"", u"Keeps this tab at the left, as an icon, or no longer", u"window-pin",
            CountsFrom{330}, GroupTabs::Pin},
    Command{u"xtrTabInGroup"_tool, u"In the &Group", u"",
            u"Takes this tab out of its group, or puts it into that beside it", u"", GroupTabs::InGroup},
    Command{u"xtrTabGroupMenu"_tool, u"Group M&enu", u"", u"Shows what can be done with the group of this tab", u"",
            Opens{u"bndTabGroup"_band}},
    Command{u"xtrTabGroupFold"_tool, u"&Fold", u"", u"Hides the tabs of this group or shows them again", u"",
            GroupTabs::Fold},
    Command{u"xtrTabGroupSave"_tool, u"&Save Back", u"", u"Writes into the group's file what its tabs show",
            u"document-save", GroupTabs::SaveBack},
    Command{u"xtrTabGroupEdit"_tool, u"&Edit...", u"", u"Opens the editor of the group's file", u"document-edit",
            GroupTabs::Edit},
    Command{u"xtrTabGroupReload"_tool, u"&Reload All", u"", u"Loads the pages of this group again", u"view-refresh",
            GroupTabs::ReloadAll},
    Command{u"xtrTabGroupSleep"_tool, u"Let Slee&p", u"",
            u"Puts the tabs of this group to sleep that nothing keeps awake", u"system-suspend", GroupTabs::SleepAll},
    Command{u"xtrTabGroupMute"_tool, u"&Mute", u"", u"Silences the tabs of this group or lets them be heard again",
            u"audio-volume-muted", GroupTabs::MuteAll},
    Command{u"xtrTabGroupColour"_tool, u"&Colour", u"", u"Marks the tabs of this group with another colour",
            u"color-picker", Opens{u"bndTabGroupColour"_band}},
    Command{u"xtrTabGroupRed"_tool, u"&Red", u"", u"Marks the tabs of this group with that colour", u"",
            GroupTabs::Paint},
    Command{u"xtrTabGroupOrange"_tool, u"&Orange", u"", u"Marks the tabs of this group with that colour", u"",
            GroupTabs::Paint},
    Command{u"xtrTabGroupYellow"_tool, u"&Yellow", u"", u"Marks the tabs of this group with that colour", u"",
            GroupTabs::Paint},
    Command{u"xtrTabGroupGreen"_tool, u"&Green", u"", u"Marks the tabs of this group with that colour", u"",
            GroupTabs::Paint},
    Command{u"xtrTabGroupBlue"_tool, u"&Blue", u"", u"Marks the tabs of this group with that colour", u"",
            GroupTabs::Paint},
    Command{u"xtrTabGroupPurple"_tool, u"&Purple", u"", u"Marks the tabs of this group with that colour", u"",
            GroupTabs::Paint},
    Command{u"xtrTabGroupGrey"_tool, u"Gr&ey", u"", u"Marks the tabs of this group with that colour", u"",
            GroupTabs::Paint},
    Command{u"xtrTabGroupToEnd"_tool, u"Move to E&nd", u"", u"Puts the tabs of this group behind all others",
            u"go-last", GroupTabs::MoveToEnd},
    Command{u"xtrTabGroupOut"_tool, u"Take Tab in Front &Out", u"",
            u"Takes the tab in front out of this group; it stays open", u"", GroupTabs::TakeFrontOut},
    Command{u"xtrTabGroupDissolve"_tool, u"&Ungroup", u"", u"Makes the tabs of this group tabs like any others", u"",
            GroupTabs::Dissolve},
    Command{u"xtrTabGroupClose"_tool, u"C&lose All", u"", u"Closes the tabs of this group", u"tab-close",
            GroupTabs::CloseAll},
    Command{u"xtrTileDividers"_tool, u"Move Di&viders", u"More",
            u"Arrow keys move what lies between the panes, Home makes them equal", u"",
            kRunsTool<&WindowTools::MoveDividers>},

    // Made for the words of one page.
    Command{u"xtrReplaceWord"_tool, u"", u"", u"", u"", OnBar::MadeLater, PageMenu::ReplaceWord},
};

} // namespace tessa::CommandRows
