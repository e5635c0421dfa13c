#pragma once
#include "commands/FavoriteActions.h"
#include "commands/WindowCommands.h"
#include "forms/FormHost.h"
#include "groups/GroupCommands.h"
#include "platform/Dialogs.h"
#include "platform/Downloads.h"
#include "platform/Shell.h"
#include "platform/Trash.h"
#include "platform/UserInput.h"
#include "platform/WindowTools.h"
#include "tabs/ChosenTabs.h"
#include "tabs/ClosedTabs.h"
#include "tabs/PageOptions.h"
#include "tabs/TabChoice.h"
#include "tabs/TabStripInput.h"
#include "tiles/Tiles.h"

namespace tessa {

class ReadPages;
class TabSleep;

/// What the commands work on. Owned by the main window; everything in it outlives it.
struct CommandContext {
    TabSet& tabs;
    TabStrip& pcPage;
    TabStripInput& strip;
    CommandBar& actBar;
    PageOptions& pages;
    GroupCommands& groups;
    TabGroups& tabGroups;
    ClosedTabs& closed;
    Tiles& tiles;
    TabChoice& choice;
    const ChosenTabs& chosen;
    FileDialogs& files;
    MessageBoxes& messages;
    FormHost& forms;
    SettingsStorageFactory& settings;
    Shell& shell;
    Trash& trash;
    DownloadDesktop& downloads;
    WindowTools& tools;
    UserInput& input;
    Text groupFolder;     ///< with the separator at the end
    Text favoritesFolder; ///< without one; empty when there is none
    // What both do is up to the objects that the main window makes after this one.
    WindowCommands* window = nullptr;
    FavoriteActions* favorites = nullptr;
    ReadPages* reads = nullptr;
    TabSleep* sleep = nullptr;
    /// What the menu of a page was asked for on, and the view.
    std::int32_t menuView = 0;
    PageContext menuPage{};
    /// The Favorites or TessaGroups menu is out of date, because a command may have changed its folder.
    bool favoritesMenuStale = true;
    bool groupsMenuStale = true;
    /// What the pop-up of a menu's entry was opened on: a folder of Favorites, a link's address, a TessaGroup's file.
    Text menuEntry{};
};

} // namespace tessa
