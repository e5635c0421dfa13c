#pragma once
#include "commands/effects/BookmarkCommands.h"
#include "commands/effects/CollectionCommands.h"
#include "commands/effects/MenuEntryCommands.h"
#include "commands/effects/PageMenu.h"
#include "commands/rows/RowParts.h"

#include <array>

namespace tessa::CommandRows {

namespace Keep = CollectionCommands;
namespace MenuEntry = MenuEntryCommands;

/// Bookmarks, folders of Favorites, and groups.
inline constexpr std::array kCollectionRows{
    Command{u"xtrBookmarks"_tool, u"&Import and Export", u"More",
            u"Takes over and hands on bookmarks of other browsers", u"document-import",
            Opens{u"bndMoreBookmarks"_band}},
    Command{u"xtrImportFavorites"_tool, u"Import &Favorites...", u"More",
            u"Adds the bookmarks of another browser to your Favorites", u"document-import",
            BookmarkCommands::ImportFavorites},
    Command{u"xtrImportTessaGroups"_tool, u"Import &TessaGroups...", u"More",
            u"Makes a TessaGroup of each folder of another browser's bookmarks", u"document-import",
            BookmarkCommands::ImportTessaGroups},
    Command{u"xtrExportFavorites"_tool, u"&Export Favorites...", u"More",
            u"Writes your Favorites to a file for other browsers", u"document-export",
            BookmarkCommands::ExportFavorites},
    Command{u"xtrFolderOpen"_tool, u"&Open All in Tabs", u"", u"Opens every page of this folder in a tab of its own",
            u"tab-new", MenuEntry::OpenFolder},
    Command{u"xtrFolderOpenBelow"_tool, u"Open All with &Sub-Folders", u"",
            u"Opens every page of this folder and of the folders in it in a tab of its own", u"tab-new",
            MenuEntry::OpenFolderBelow},
    Command{u"xtrFolderSave"_tool, u"Save as &TessaGroup...", u"", u"Makes a TessaGroup of the pages of this folder",
            u"document-save-as", MenuEntry::SaveFolder},
    Command{u"xtrLinkNewTab"_tool, u"Open in &New Tab", u"", u"Opens this Favorite in a tab of its own", u"tab-new",
            MenuEntry::OpenLink},
    Command{u"xtrGroupOpen"_tool, u"&Open", u"", u"Opens every page of this TessaGroup in a tab of its own", u"tab-new",
            MenuEntry::OpenGroup},
    Command{u"xtrGroupOrganize"_tool, u"O&rganize...", u"", u"Changes the addresses of this TessaGroup",
            u"document-edit", MenuEntry::OrganizeGroup},
    Command{u"xtrGroupCheck"_tool, u"&Check", u"",
            u"Asks for every address of this TessaGroup, and lists what has gone", u"network-connect",
            MenuEntry::CheckGroup},
    Command{u"xtrGroupCheckAll"_tool, u"Chec&k All TessaGroups", u"More",
            u"Asks for every address of your TessaGroups, and lists what has gone", u"network-connect",
            Keep::CheckAllGroups},
    Command{u"xtrGroupPdf"_tool, u"Sav&e All Pages as PDF...", u"More",
            u"Writes the pages of all tabs into one PDF with an outline", u"application-pdf", Keep::SaveAllAsPdf},
    Command{u"xtrGroupPrint"_tool, u"Print All Pages...", u"More",
            u"Prints the pages of all tabs, one behind the other, with numbers and addresses", u"document-print",
            Keep::PrintAll},
    Command{u"xtrGroupKeepOffline"_tool, u"Keep All Pages Offline...", u"More",
            u"Keeps the pages of all tabs, with a TessaGroup that opens them without a network", u"folder-html",
            Keep::KeepOffline},
    Command{u"xtrGroupPagesPdf"_tool, u"Save Pages as PD&F...", u"",
            u"Loads the pages of this TessaGroup and writes them into one PDF with an outline", u"application-pdf",
            MenuEntry::SaveGroupAsPdf},
    Command{u"xtrGroupPagesPrint"_tool, u"&Print Pages...", u"",
            u"Loads the pages of this TessaGroup and prints them, one behind the other", u"document-print",
            MenuEntry::PrintGroup},
    Command{u"xtrGroupPagesOffline"_tool, u"&Keep Pages Offline...", u"",
            u"Loads the pages of this TessaGroup and keeps them, with a TessaGroup that opens them without a network",
            u"folder-html", MenuEntry::KeepGroupOffline},
    Command{u"xtrSaveSelectedLinks"_tool, u"Save Selected &Links as TessaGroup...", u"",
            u"Makes a TessaGroup of the links that are selected", u"document-save-as", PageMenu::SaveSelectedLinks},
    Command{u"xtrGroupRename"_tool, u"Re&name...", u"", u"Gives this TessaGroup another name", u"edit-rename",
            MenuEntry::RenameGroup},
    Command{u"xtrGroupDelete"_tool, u"&Delete...", u"", u"Moves this TessaGroup to the trash", u"edit-delete",
            MenuEntry::DeleteGroup},
    Command{u"xtrExportTessaGroups"_tool, u"E&xport TessaGroups...", u"More",
            u"Writes your TessaGroups to a file for other browsers", u"document-export",
            BookmarkCommands::ExportTessaGroups},
};

} // namespace tessa::CommandRows
