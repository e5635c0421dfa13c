#pragma once
#include "commands/effects/ChosenCommands.h"
#include "commands/effects/CollectionCommands.h"
#include "commands/effects/PageCommands.h"
#include "commands/rows/RowParts.h"

#include <array>

namespace tessa::CommandRows {

namespace Pages = PageCommands;
namespace Keep = CollectionCommands;

/// What stands in the menus of tabs, options, help, groups, mail and fonts.
inline constexpr std::array kTopicRows{
    Command{u"mnuTabStop"_tool, u"&Stop", u"Popup", u"Stops loading the page of this tab", u"process-stop",
            ChosenCommands::PopupStop},
    Command{u"mnuTabRefresh"_tool, u"&Refresh", u"Popup", u"Loads the page of this tab again", u"view-refresh",
            ChosenCommands::PopupRefresh},
    Command{u"mnuTabClose"_tool, u"&Close", u"Popup", u"Closes this tab", u"view-close", ChosenCommands::PopupClose},

    Command{u"mnuLoadImages"_tool, u"&Load Images", u"Options", u"Whether pages load images", u"view-preview",
            Pages::ToggleLoadOption},
    Command{u"mnuLoadVideos"_tool, u"Load &Videos", u"Options", u"Whether pages load videos", u"",
            Pages::ToggleLoadOption},
    Command{u"mnuLoadSounds"_tool, u"Load &Sounds", u"Options", u"Whether pages load sounds", u"",
            Pages::ToggleLoadOption},
    Command{u"mnuLoadAnimations"_tool, u"Load &Animations", u"Options", u"Whether pages show moving images", u"",
            Pages::ToggleLoadOption},
    Command{u"mnuSettings"_tool, u"&Settings...", u"Options", u"Changes how TessaView works", u"configure",
            kRuns<&WindowCommands::ShowSettings>},

    Command{u"mnuHelp"_tool, u"&Help Topics", u"Help", u"Shows how to use TessaView", u"help-contents", Key{Keys::kF1},
            kRuns<&WindowCommands::ShowHelp>},
    Command{u"mnuAbout"_tool, u"About...", u"Help", u"Shows the version of TessaView", u"help-about",
            kRuns<&WindowCommands::ShowAbout>},

    Command{u"mnuAddToTessaGroup"_tool, u"Add to TessaGroup...", u"TessaGroups",
            u"Adds the current page to a TessaGroup", u"list-add", Keep::AddToTessaGroup},
    Command{u"mnuSaveAsTessaGroup"_tool, u"&Save as TessaGroup...", u"TessaGroups",
            u"Saves all open tabs as a TessaGroup", u"document-save", Keep::SaveAsTessaGroup},
    Command{u"mnuOrganizeTessaGroups"_tool, u"&Organize TessaGroups...", u"TessaGroups",
            u"Changes the addresses of a TessaGroup", u"document-edit", Keep::OrganizeTessaGroups},

    Command{u"mnuMail"_tool, u"&Mail", u"Mail", u"Reads and writes mail", u"mail-message", Opens{u"bndMail"_band},
            Pages::LaunchMailClient},
    Command{u"mnuReadMail"_tool, u"&Read Mail...", u"Mail", u"Starts your mail program", u"mail-read",
            Pages::LaunchMailClient},
    Command{u"mnuNewMessage"_tool, u"Ne&w Message...", u"Mail", u"Writes a new message", u"mail-message-new",
            Pages::Mail},
    Command{u"mnuSendLink"_tool, u"Send a &Link...", u"Mail", u"Sends the address of the current page to somebody",
            u"mail-forward", Pages::Mail},
    Command{u"mnuMailQuorvaneSoftware"_tool, u"&Quorvane Software", u"Mail", u"Writes to the makers of TessaView", u"",
            Pages::Mail},
    Command{u"mnuFeatureRequest"_tool, u"&Feature Request", u"Mail", u"Tells the makers what you miss in TessaView",
            u"", Pages::Mail},
    Command{u"mnuMailBugReport"_tool, u"&Bug Report", u"Mail", u"Tells the makers what went wrong", u"tools-report-bug",
            Pages::Mail},
    Command{u"mnuReadNews"_tool, u"Read &News...", u"Mail", u"Starts your news program", u"view-pim-news",
            Pages::LaunchNewsClient},

    Command{u"mnuFont"_tool, u"&Font", u"Font", u"Changes the size of the text on the page", u"font",
            Opens{u"bndFont"_band}, Pages::MediumTextSize},
    Command{u"mnuFontLargest"_tool, u"Lar&gest", u"Font", u"Shows the text at the largest size", u"", Pages::TextSize},
    // Deliberate: the master list spells this name so; the font menu has a tool of its own, spelled otherwise.
    Command{u"mnFontLarge"_tool, u"&Large", u"Font", u"Shows the text at a large size", u""},
    Command{u"mnuFontLarger"_tool, u"&Large", u"Font", u"Shows the text at a large size", u"", OnlyOn{u"bndFont"_band},
            Pages::TextSize},
    Command{u"mnuFontMedium"_tool, u"&Medium", u"Font", u"Shows the text at its usual size", u"", Pages::TextSize},
    Command{u"mnuFontSmaller"_tool, u"&Smaller", u"Font", u"Shows the text at a small size", u"", Pages::TextSize},
    Command{u"mnuFontSmallest"_tool, u"Sm&allest", u"Font", u"Shows the text at the smallest size", u"",
            Pages::TextSize},

    // Not arranged by the user, they only carry the pictures of menus that are built while the program runs.
    Command{u"mnuLinkImage"_tool, u"Link Image", u"", u"Link image holder", u"text-html", OnBar::Hidden},
    Command{u"mnuFolderImage"_tool, u"Folder Image", u"", u"Folder image holder", u"folder", OnBar::Hidden},
    Command{u"mnuTessaGroupsImage"_tool, u"TessaGroups Image", u"", u"TessaGroups image holder", u"view-list-icons",
            OnBar::Hidden},
};

} // namespace tessa::CommandRows
