#pragma once
#include "commands/effects/CollectionCommands.h"
#include "commands/effects/HistoryCommands.h"
#include "commands/effects/PageCommands.h"
#include "commands/effects/TabCommands.h"
#include "commands/rows/RowParts.h"

#include <array>

namespace tessa::CommandRows {

namespace Pages = PageCommands;
namespace Tabs = TabCommands;
namespace Keep = CollectionCommands;

inline void ToggleStatusBar(CommandContext& context) { context.tabs.ToggleStatusBar(); }

/// The menus of the menu bar, and what stands in the first of them.
inline constexpr std::array kMenuRows{
    // The menu bar. Its Help entry has the name of a command, so the menu bar has its own tool for it.
    Command{u"mnuFile"_tool, u"&File", u"Menu", u"Open, save, print and close pages", u"", Opens{u"bndFileMenu"_band}},
    Command{u"mnuEdit"_tool, u"&Edit", u"Menu", u"Cut, copy, paste and find text", u"", Opens{u"bndEditMenu"_band}},
    Command{u"mnuView"_tool, u"&View", u"Menu", u"Change how the window and the page look", u"",
            Opens{u"bndViewMenu"_band}},
    Command{u"mnuGo"_tool, u"&Go", u"Menu", u"Go to other pages and tabs", u"", Opens{u"bndGoMenu"_band}},
    Command{u"mnuFavorites"_tool, u"F&avorites", u"Menu", u"Open and keep your favorite pages", u"",
            Opens{u"bndFavorites"_band}},
    Command{u"mnuTessaGroups"_tool, u"&TessaGroups", u"Menu", u"Open and keep groups of pages", u"",
            Opens{u"bndTessaGroupsMenu"_band}},
    Command{u"mnuFindLinks"_tool, u"F&ind", u"Menu", u"Find things on the Internet", u"", Opens{u"bndFindLinks"_band}},
    Command{u"mnuShop"_tool, u"Sho&p", u"Menu", u"Shop the Internet", u"", Opens{u"bndShopMenu"_band}},
    Command{u"mnuOptions"_tool, u"&Options", u"Menu", u"Choose what pages load and how TessaView works", u"",
            Opens{u"bndOptions"_band}},
    Command{u"mnuHelp"_tool, u"&Help", u"Menu", u"Help and information on TessaView", u"", Opens{u"bndHelpMenu"_band},
            OnlyOn{u"bndMenu"_band}},

    Command{u"tbNew"_tool, u"&New", u"File", u"Opens a new browser tab at your home page", u"tab-new",
            Opens{u"bndNew"_band}, Tabs::NewBlank},
    Command{u"mnuNewBlank"_tool, u"New &Blank", u"File", u"Opens a new blank tab", u"tab-new", Key{'T', kCtrl},
            Tabs::NewBlank},
    Command{u"mnuNewSearch"_tool, u"New &Search", u"File", u"Opens a new tab at the search page", u"edit-find",
            Tabs::NewSearch},
    Command{u"mnuNewHome"_tool, u"New &Home", u"File", u"Opens a new tab at your home page", u"go-home", Tabs::NewHome},
    Command{u"mnuNewCurrent"_tool, u"New &Current", u"File", u"Opens the current page once more in a new tab",
            u"tab-duplicate", Tabs::NewCurrent},
    Command{u"mnuOpen"_tool, u"&Open", u"File", u"Opens a file in the current tab", u"document-open", Key{'O', kCtrl},
            Pages::Open},
    Command{u"mnuClose"_tool, u"&Close", u"File", u"Closes the current tab", u"view-close", Key{'W', kCtrl},
            Tabs::Close},
    Command{u"mnuCloseAll"_tool, u"Close &All", u"File", u"Closes all tabs but the first",
            u"project-development-close-all", Tabs::CloseAll},
    Command{u"mnuSaveAs"_tool, u"&Save As", u"File", u"Saves the current page to a file", u"document-save-as",
            Key{'S', kCtrl}, Pages::Exec<BrowserCommand::SaveAs>},
    Command{u"mnuPrint"_tool, u"&Print", u"File", u"Prints the current page", u"document-print", Key{'P', kCtrl},
            Pages::Exec<BrowserCommand::Print>},
    Command{u"mnuPageSetup"_tool, u"Page Set&up...", u"File", u"Changes paper, orientation and margins for printing",
            u"document-page-setup", Pages::Exec<BrowserCommand::PageSetup>},
    Command{u"mnuExit"_tool, u"E&xit", u"File", u"Closes all tabs and ends TessaView", u"application-exit",
            Key{'Q', kCtrl}, kRuns<&WindowCommands::Exit>},

    Command{u"mnuCut"_tool, u"C&ut", u"Edit", u"Moves the selection to the clipboard", u"edit-cut",
            KeyOfOthers{'X', kCtrl}, Pages::Exec<BrowserCommand::Cut>},
    Command{u"mnuCopy"_tool, u"&Copy", u"Edit", u"Copies the selection to the clipboard", u"edit-copy",
            KeyOfOthers{'C', kCtrl}, Pages::Exec<BrowserCommand::Copy>},
    Command{u"mnuPaste"_tool, u"&Paste", u"Edit", u"Inserts what is on the clipboard", u"edit-paste",
            KeyOfOthers{'V', kCtrl}, Pages::Exec<BrowserCommand::Paste>},
    Command{u"mnuSelectAll"_tool, u"&Select All", u"Edit", u"Selects everything on the current page",
            u"edit-select-all", KeyOfOthers{'A', kCtrl}, Pages::SelectAll},
    Command{u"mnuFind"_tool, u"&Find (on this page)...", u"Edit", u"Finds text on the current page", u"edit-find",
            Key{'F', kCtrl}, Pages::Find},

    Command{u"mnuViewStatusbar"_tool, u"S&tatus Bar", u"View", u"Shows or hides the status bar", u"", ToggleStatusBar},
    Command{u"mnuViewToolbars"_tool, u"&Toolbars...", u"View", u"Arranges toolbars and menus as you like them",
            u"configure-toolbars", kRunsTool<&WindowTools::Customize>},
    Command{u"mnuStop"_tool, u"&Stop", u"View", u"Stops loading the current page", u"process-stop", Key{Keys::kEscape},
            Pages::Stop},
    Command{u"mnuRefresh"_tool, u"&Refresh", u"View", u"Loads the current page again", u"view-refresh", Key{Keys::kF5},
            Key{'R', kCtrl}, Pages::Refresh},
    Command{u"mnuViewSource"_tool, u"S&ource", u"View", u"Shows the source of the current page", u"code-context",
            Key{'U', kCtrl}, Pages::Source},
    Command{u"mnuViewInternetOptions"_tool, u"&Internet Options...", u"View",
            u"Changes the home page, search, privacy and connection", u"preferences-system-network",
            Pages::InternetOptions},
    Command{u"mnuClearAddresses"_tool, u"&Clear Addresses", u"View", u"Empties the list of the address box",
            u"edit-clear-history", HistoryCommands::ClearAddresses},
    Command{u"mnuClearSearches"_tool, u"C&lear Searches", u"View", u"Empties the list of the search box",
            u"edit-clear-history", HistoryCommands::ClearSearches},
    Command{u"mnuResizeAddress"_tool, u"&Resize Address Bar", u"View", u"Resize the address bar", u"", ByFamily{}},
    Command{u"mnuResizeSearch"_tool, u"R&esize Search Bar", u"View", u"Resize the search bar", u"", ByFamily{}},

    Command{u"mnuGoBack"_tool, u"&Back", u"Go", u"Goes back to the page before", u"go-previous", Key{Keys::kLeft, kAlt},
            Pages::GoBack},
    Command{u"mnuGoForward"_tool, u"&Forward", u"Go", u"Goes forward to the page after", u"go-next",
            Key{Keys::kRight, kAlt}, Pages::GoForward},
    Command{u"mnuHome"_tool, u"&Home", u"Go", u"Goes to your home page", u"go-home", Key{Keys::kHome, kAlt},
            Pages::Home},
    Command{u"mnuSearch"_tool, u"&Search", u"Go", u"Goes to the search page", u"system-search", Pages::Search},
    Command{u"mnuPreviousBrowserTab"_tool, u"&Previous Tab", u"Go", u"Shows the tab to the left", u"go-previous-view",
            KeyOfOthers{Keys::kTab, kCtrl | kShift}, Tabs::Previous},
    Command{u"mnuNextBrowserTab"_tool, u"&Next Tab", u"Go", u"Shows the tab to the right", u"go-next-view",
            KeyOfOthers{Keys::kTab, kCtrl}, Tabs::Next},

    Command{u"mnuAddToFavorites"_tool, u"&Add to Favorites...", u"Favorites",
            u"Adds the current page to your Favorites", u"bookmark-new", Key{'D', kCtrl}, Keep::AddToFavorites},
    Command{u"mnuOrganizeFavorites"_tool, u"&Organize Favorites...", u"Favorites",
            u"Sorts, renames and deletes Favorites", u"bookmarks-organize", Keep::OrganizeFavorites},
};

} // namespace tessa::CommandRows
