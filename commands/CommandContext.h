#pragma once
#include "groups/GroupCommands.h"
#include "platform/Dialogs.h"
#include "tabs/ClosedTabs.h"
#include "tabs/PageOptions.h"
#include "tabs/TabStripInput.h"

#include <functional>

class frmRenameGroup;

/// What the commands need of the layers above, filled in by the main window. A command whose operation is missing is
/// disabled.
struct CommandHost {
    std::function<void()> ShowSettings;
    std::function<void()> ShowAbout;
    std::function<void()> ShowHelp;
    std::function<void()> ShowSessions;
    std::function<void()> Customize;
    std::function<void()> ToggleFullScreen;
    /// Opens the developer tools for the current page, or closes them.
    std::function<void()> ToggleDevTools;
    /// Shows what each tab uses of the machine.
    std::function<void()> ShowTaskView;
    /// Copies what a person sends along who reports an error.
    std::function<void()> CopyReport;
    /// Shows the panel of downloads, or hides it.
    std::function<void()> ToggleDownloads;
    std::function<void()> Exit;
    std::function<void()> ResizeAddress;
    std::function<void()> ResizeSearch;
    std::function<void(BrowserView&)> ShowFind;
    std::function<void()> ShowInternetOptions;
    /// The page to add, by address and title. False when there is no way to add any.
    std::function<bool(TextView address, TextView title)> AddFavorite;
    std::function<void()> OrganizeFavorites;
    /// Makes adding possible again, and tells the user what it did.
    std::function<void()> RepairFavorites;
    std::function<void(TextView URL, TextView SGFile)> AddToTessaGroup;
    std::function<void(TextView path)> SaveAsTessaGroup;
    std::function<void()> OrganizeTessaGroups;
    std::function<void()> LaunchMailClient;
    std::function<void()> LaunchNewsClient;
    /// The address that begins a mail, for the command of that name and the current page.
    std::function<Text(TextView tool, TextView title, TextView address)> MailAddress;
    std::function<void()> ShowTabList;
    /// The folder where downloads go, without a separator at the end.
    std::function<Text()> DownloadFolder;
    /// Puts a text on the clipboard.
    std::function<void(TextView)> CopyText;
    /// Whether the Shift key is held down at this moment.
    std::function<bool()> ShiftHeld;
    /// Opens all shortcuts of a Favorites folder, each in a tab.
    std::function<void(TextView folder)> OpenFavorites;
    /// Saves the shortcuts of a Favorites folder as a TessaGroup; what to tell the user of it.
    std::function<Text(TextView folder)> SaveFavorites;
    /// Edits the TessaGroup of that path.
    std::function<void(TextView path)> OrganizeTessaGroup;
    /// Moves a file to the desktop's trash; fails where there is none for it.
    std::function<Outcome(TextView path)> MoveToTrash;
    /// Whether a Favorites link may be opened; asks the user where that is in doubt.
    std::function<bool(TextView address)> MayOpenLink;
};

/// What the commands work on. Owned by the main window; everything in it outlives it.
struct CommandContext {
    TabSet& tabs;
    TabStrip& pcPage;
    TabStripInput& strip;
    CommandBar& actBar;
    PageOptions& pages;
    GroupCommands& groups;
    ClosedTabs& closed;
    FileDialogs& files;
    MessageBoxes& messages;
    FormHost& forms;
    Text groupFolder;     ///< with the separator at the end
    Text favoritesFolder; ///< without one; empty when there is none
    CommandHost host;
    /// What the menu of a page was asked for on, and the view.
    std::int32_t menuView = 0;
    PageContext menuPage{};
    /// The Favorites or TessaGroups menu is out of date, because a command may have changed its folder.
    bool favoritesMenuStale = true;
    bool groupsMenuStale = true;
    /// What the pop-up of a menu's entry was opened on: a folder of Favorites, a link's address, a TessaGroup's file.
    Text menuEntry{};
};
