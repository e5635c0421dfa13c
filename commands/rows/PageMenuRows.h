#pragma once
#include "commands/effects/PageMenu.h"
#include "commands/rows/RowParts.h"

#include <array>

namespace tessa::CommandRows {

/// The menu of a page.
inline constexpr std::array kPageMenuRows{
    Command{u"xtrLinkOpen"_tool, u"&Open Link in New Tab", u"", u"Opens the link in a new tab", u"tab-new",
            PageMenu::OpenLink},
    Command{u"xtrLinkOpenOther"_tool, u"Open Link &Behind This Tab", u"", u"Opens the link in a new tab, the other way",
            u"", PageMenu::OpenLinkOtherWay},
    Command{u"xtrLinkOpenPrivate"_tool, u"Open Link in Pri&vate Tab", u"", u"Opens the link in a tab that is forgotten",
            u"view-private", PageMenu::OpenLinkPrivate},
    Command{u"xtrLinkSave"_tool, u"Save Lin&k As...", u"", u"Saves what the link leads to", u"document-save-as",
            PageMenu::SaveLink},
    Command{u"xtrLinkCopy"_tool, u"Copy Link A&ddress", u"", u"Copies the address of the link to the clipboard",
            u"edit-copy", PageMenu::CopyLink},
    Command{u"xtrLinkAddToTessaGroup"_tool, u"Add Link to &TessaGroup...", u"", u"Adds the link to a TessaGroup",
            u"list-add", PageMenu::AddLinkToTessaGroup},
    Command{u"xtrImageOpen"_tool, u"Open Image in Ne&w Tab", u"", u"Shows the image alone in a new tab",
            u"view-preview", PageMenu::OpenMedia},
    Command{u"xtrImageSave"_tool, u"Save I&mage As...", u"", u"Saves the image to a file", u"document-save-as",
            PageMenu::SaveMedia},
    Command{u"xtrImageCopy"_tool, u"Copy Ima&ge", u"", u"Copies the image to the clipboard", u"edit-copy",
            PageMenu::Run},
    Command{u"xtrMediaPlay"_tool, u"Pla&y", u"", u"Plays or halts", u"media-playback-start", PageMenu::Run},
    Command{u"xtrMediaMute"_tool, u"&Mute", u"", u"Silences this or lets it be heard again", u"", PageMenu::Run},
    Command{u"xtrMediaLoop"_tool, u"&Loop", u"", u"Begins again at the end", u"", PageMenu::Run},
    Command{u"xtrMediaControls"_tool, u"Sho&w Controls", u"", u"Shows the buttons for playing", u"", PageMenu::Run},
    Command{u"xtrMediaSave"_tool, u"&Save Media As...", u"", u"Saves the sound or film to a file", u"document-save-as",
            PageMenu::SaveMedia},
    Command{u"xtrMediaCopyAddress"_tool, u"Copy Media &Address", u"", u"Copies the address of this to the clipboard",
            u"edit-copy", PageMenu::CopyMediaAddress},
    Command{u"xtrUndo"_tool, u"U&ndo", u"", u"Takes the last change back", u"edit-undo", PageMenu::Run},
    Command{u"xtrRedo"_tool, u"&Redo", u"", u"Makes the change again", u"edit-redo", PageMenu::Run},
    Command{u"xtrPasteAsText"_tool, u"Paste as Plain Te&xt", u"",
            u"Inserts the text of the clipboard without its looks", u"edit-paste", PageMenu::Run},
    Command{u"xtrSearchSelection"_tool, u"S&earch for Selection", u"", u"Searches the web for the selected words",
            u"edit-find", PageMenu::SearchForSelection},
    Command{u"xtrOpenSelectedLinks"_tool, u"O&pen Selected Links", u"",
            u"Opens every selected link in a tab of its own", u"tab-new", PageMenu::OpenSelectedLinks},
    Command{u"xtrInspect"_tool, u"&Inspect", u"", u"Shows how this part of the page is made", u"tools", PageMenu::Run},
};

} // namespace tessa::CommandRows
