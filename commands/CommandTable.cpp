#include "commands/CommandTable.h"

#include "commands/BookmarkCommands.h"
#include "commands/ChosenCommands.h"
#include "commands/CollectionCommands.h"
#include "commands/HistoryCommands.h"
#include "commands/MenuEntryCommands.h"
#include "commands/PageCommands.h"
#include "commands/PageMenu.h"
#include "commands/ReadingCommands.h"
#include "commands/TabCommands.h"
#include "commands/TabGroupCommands.h"
#include "commands/TabMoreCommands.h"
#include "commands/TileCommands.h"

#include <algorithm>
#include <array>
#include <functional>
#include <numeric>

namespace tessa {

namespace {

void StopAll(CommandContext& context) { context.groups.StopAll(); }

void ToggleStatusBar(CommandContext& context) { context.tabs.ToggleStatusBar(); }

template<auto operation>
void OfWindow(CommandContext& context) {
    (context.window->*operation)();
}
template<auto operation>
void OfTools(CommandContext& context) {
    (context.tools.*operation)();
}

/// Runs an operation of the main window, or of what its view has besides the pages.
template<auto operation>
constexpr WindowEffect kRuns = OfWindow<operation>;
template<auto operation>
constexpr WindowEffect kRunsTool = OfTools<operation>;

namespace Pages = PageCommands;
namespace Tabs = TabCommands;
namespace TabMore = TabMoreCommands;
namespace Keep = CollectionCommands;
namespace MenuEntry = MenuEntryCommands;
namespace GroupTabs = TabGroupCommands;

using CommandTraits::ByFamily, CommandTraits::CountsFrom, CommandTraits::Key, CommandTraits::KeyOfOthers,
    CommandTraits::OnBar, CommandTraits::OnlyOn, CommandTraits::Opens;

constexpr std::int32_t kShift = Keys::kShift, kCtrl = Keys::kCtrl, kAlt = Keys::kAlt;

constexpr Command Shop(ToolName name, TextView caption, TextView keyword) {
    return {name, caption, u"Shop", keyword, u"", ByFamily{}};
}
constexpr Command Find(ToolName name, TextView caption, TextView keyword) {
    return {name, caption, u"Find", keyword, u"", ByFamily{}};
}

constexpr std::array kCommands{
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

    Shop(u"shpAirlineTickets"_tool, u"&Airline Tickets", u"airlinetickets"),
    Shop(u"shpAuctions"_tool, u"A&uctions", u"auctions"),
    Shop(u"shpAudioBooks"_tool, u"Au&dio Books", u"audiobooks"),
    Shop(u"shpBooks"_tool, u"&Books", u"book"),
    Shop(u"shpCars"_tool, u"&Cars", u"cars"),
    Shop(u"shpComputers"_tool, u"C&omputers", u"computers"),
    Shop(u"shpCreditCards"_tool, u"Cr&edit Cards", u"creditcards"),
    Shop(u"shpEventTickets"_tool, u"E&vent Tickets", u"eventtickets"),
    Shop(u"shpFlowers"_tool, u"&Flowers", u"flowers"),
    Shop(u"shpHomesLoans"_tool, u"&Homes && Loans", u"homesloans"),
    Shop(u"shpHotelReservations"_tool, u"Hotel Reservations", u"hotelreservations"),
    Shop(u"shpMagazines"_tool, u"&Magazines", u"magazines"),
    Shop(u"shpMusic"_tool, u"Mus&ic", u"cds"),
    Shop(u"shpSoftware"_tool, u"&Software", u"software"),
    Shop(u"shpSportingGoods"_tool, u"S&porting Goods", u"sportinggoods"),
    Shop(u"shpStocks"_tool, u"St&ocks", u"stocks"),
    Shop(u"shpSunglasses"_tool, u"Su&nglasses", u"sunglasses"),
    Shop(u"shpToys"_tool, u"&Toys", u"toys"),
    Shop(u"shpTravel"_tool, u"T&ravel", u"travel"),
    Shop(u"shpVideos"_tool, u"&Videos", u"videos"),
    Shop(u"shpHosting"_tool, u"&Web Site Hosting", u"hosting"),

    Find(u"fndWebSites"_tool, u"&Web Sites", u"websites"),
    Find(u"fndNewsgroups"_tool, u"&Newsgroups", u"newsgroups"),
    Find(u"fndPeople"_tool, u"&People", u"people"),
    Find(u"fndBusinesses"_tool, u"&Businesses", u"business"),
    Find(u"fndMaps"_tool, u"&Maps && Directions", u"maps"),
    Find(u"fndWeather"_tool, u"&Weather", u"weather"),
    Find(u"fndReference"_tool, u"&Reference", u"reference"),
    Find(u"fndStockQuotes"_tool, u"&Stock Quotes", u"stockquotes"),

    Command{u"mnuAddress"_tool, u"A&ddress", u"Address", u"The address of the page", u"", ToolKind::Label},
    Command{u"cboAddress"_tool, u"Address", u"Address", u"The address of the page", u"", ToolKind::Combo,
            Key{'L', kCtrl}},
    Command{u"mnuSearchLabel"_tool, u"Sea&rch", u"Search", u"Words to search for", u"", ToolKind::Label},
    Command{u"cboSearch"_tool, u"Search", u"Search", u"Words to search for", u"", ToolKind::Combo, Key{'K', kCtrl}},

    Command{u"xtrMore"_tool, u"&More", u"More", u"Shows more commands", u"application-menu", Opens{u"bndMoreMenu"_band},
            Key{'M', kAlt}},
    Command{u"xtrReopenTab"_tool, u"&Reopen Closed Tab", u"More", u"Brings back what was closed last", u"edit-undo",
            Key{'T', kCtrl | kShift}, TabMore::Reopen},
    Command{u"xtrTabList"_tool, u"&List Tabs", u"More", u"Lists all tabs and searches them", u"view-list-text",
            Key{'A', kCtrl | kShift}, kRunsTool<&WindowTools::ShowTabList>},
    Command{u"xtrTabMore"_tool, u"&More", u"", u"Shows more commands for this tab", u"", Opens{u"bndTabMore"_band}},
    Command{u"xtrTabCloseOthers"_tool, u"Close &Others", u"", u"Closes all tabs but this one", u"",
            TabMore::CloseOthers},
    Command{u"xtrTabCloseRight"_tool, u"Close to the R&ight", u"", u"Closes the tabs to the right of this one", u"",
            TabMore::CloseToTheRight},
    Command{u"xtrTabDuplicate"_tool, u"&Duplicate", u"", u"Opens this page once more beside its tab", u"tab-duplicate",
            TabMore::Duplicate},
    Command{u"xtrTabMute"_tool, u"M&ute", u"", u"Silences this tab or lets it be heard again", u"audio-volume-muted",
            ChosenCommands::PopupMute},
    Command{u"xtrTabAddToTessaGroup"_tool, u"Add to &TessaGroup...", u"", u"Adds this page to a TessaGroup",
            u"list-add", ChosenCommands::PopupAddToTessaGroup},
    Command{u"xtrTabCopyAddress"_tool, u"Copy &Address", u"", u"Copies the address of this page to the clipboard",
            u"edit-copy", ChosenCommands::PopupCopyAddress},
    Command{u"xtrSessions"_tool, u"Earlier &Sessions...", u"More", u"Opens pages of earlier sessions again",
            u"view-history", kRuns<&WindowCommands::ShowSessions>},
    Command{u"xtrDownloads"_tool, u"Do&wnloads", u"More", u"Shows the files that are being saved and those that were",
            u"folder-download", Key{'J', kCtrl}, kRuns<&WindowCommands::ToggleDownloads>},
    Command{u"xtrHistory"_tool, u"&History", u"More", u"Shows what you have read, and searches in it", u"view-history",
            Key{'H', kCtrl}, kRuns<&WindowCommands::ShowHistory>},
    Command{u"xtrSearchOpenPages"_tool, u"Search in &Open Pages", u"More", u"Searches in all open tabs at once",
            u"edit-find", Key{'F', kCtrl | kShift}, kRuns<&WindowCommands::SearchOpenPages>},
    Command{u"xtrShowWhatIsNew"_tool, u"Show What Is &New", u"More",
            u"Marks what is new on the page since you read it, and goes from one to the next", u"", Key{Keys::kF7},
            ReadingCommands::ShowWhatIsNew},
    Command{u"xtrNextUnread"_tool, u"Ne&xt Unread Tab", u"More", u"Shows the next tab that you have not read yet",
            u"go-next-view", ReadingCommands::NextUnread},
    Command{u"xtrTabShowWhatIsNew"_tool, u"Show What Is &New", u"",
            u"Marks what is new on the page of this tab since you read it", u"", ReadingCommands::TabShowWhatIsNew},
    Command{u"xtrTabCloseWithoutNews"_tool, u"Close Tabs &Without News", u"",
            u"Closes the tabs that say what they said when you read them", u"", ReadingCommands::CloseWithoutNews},
    Command{u"xtrTabCloseRead"_tool, u"Clo&se What Was Read", u"", u"Closes the tabs that you have read", u"",
            ReadingCommands::CloseRead},
    Command{u"xtrStopAll"_tool, u"Stop &All Pages", u"More", u"Stops every page that is loading", u"process-stop",
            Key{Keys::kEscape, kShift}, StopAll},
    Command{u"xtrTextLarger"_tool, u"Lar&ger Text", u"More", u"Shows the text of the page one size larger",
            u"format-font-size-more", Key{Keys::kPlus, kCtrl}, Key{Keys::kPlus, kCtrl | kShift}, Pages::LargerText},
    Command{u"xtrTextSmaller"_tool, u"S&maller Text", u"More", u"Shows the text of the page one size smaller",
            u"format-font-size-less", Key{Keys::kMinus, kCtrl}, Pages::SmallerText},
    Command{u"xtrTextUsual"_tool, u"&Usual Text", u"More", u"Shows the text of the page at its usual size", u"",
            Key{'0', kCtrl}, Pages::MediumTextSize},
    Command{u"xtrFullScreen"_tool, u"Full S&creen", u"More", u"Shows pages on the whole screen", u"view-fullscreen",
            Key{Keys::kF11}, kRuns<&WindowCommands::ToggleFullScreen>},
    Command{u"xtrPrintPreview"_tool, u"Print Pre&view", u"More", u"Shows in a tab how the page will look on paper",
            u"document-print-preview", Pages::Exec<BrowserCommand::PrintPreview>},
    Command{u"xtrDevTools"_tool, u"&Developer Tools", u"More", u"Shows how the current page is made", u"tools",
            Key{Keys::kF12}, kRunsTool<&WindowTools::ToggleDevTools>},
    Command{u"xtrTaskView"_tool, u"&Task View", u"More",
            u"Shows what each tab uses of memory and processor, and ends pages", u"utilities-system-monitor",
            Key{Keys::kEscape, kCtrl | kShift}, kRuns<&WindowCommands::ShowTaskView>},
    Command{u"xtrTiles"_tool, u"Side &by Side", u"More", u"Shows several tabs at once", u"view-split-left-right",
            Opens{u"bndTileMenu"_band}},
    Command{u"xtrTileColumns"_tool, u"&Columns", u"More", u"Shows the tabs one beside the other",
            u"view-split-left-right", TileCommands::Columns},
    Command{u"xtrTileRows"_tool, u"&Rows", u"More", u"Shows the tabs one above the other", u"view-split-top-bottom",
            TileCommands::Rows},
    Command{u"xtrTileGrid"_tool, u"&Grid", u"More", u"Shows the tabs in rows and columns", u"view-grid",
            TileCommands::Grid},
    Command{u"xtrTileMain"_tool, u"&One Large", u"More", u"Shows this tab large and the others small beside it",
            u"view-right-new", TileCommands::Main},
    Command{u"xtrTileNone"_tool, u"&Alone", u"More", u"Shows this tab alone again; all tabs stay open",
            u"view-right-close", TileCommands::None},
    Command{u"xtrTileLink"_tool, u"&Link Panes", u"More", u"Scrolls, sizes, searches and loads all panes together",
            u"link", TileCommands::Link},
    Command{u"xtrTileHeaders"_tool, u"Show &Titles", u"More", u"Shows or hides the title above each pane", u"",
            TileCommands::ToggleHeaders},
    Command{u"xtrTabBeside"_tool, u"Show &Beside", u"", u"Shows this tab beside the one in front, or no longer",
            u"view-split-left-right", TileCommands::TabBeside},
    Command{u"xtrCopyReport"_tool, u"&Copy Report", u"More",
            u"Copies version, settings and log for a message to the makers; no address or title is in it", u"edit-copy",
            kRuns<&WindowCommands::CopyReport>},
    Command{u"xtrPrivateTab"_tool, u"New &Private Tab", u"More",
            u"Opens a tab whose page, cookies and history are forgotten with the last private tab", u"view-private",
            Key{'N', kCtrl | kShift}, Tabs::NewPrivate},

    // The menu of a page.
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

/// How many rows of that kind each name of the design has, in the order of the names.
constexpr auto CountRows(bool (*isOfThatKind)(const Command&)) {
    std::array<int, DesignedNames::kTools.size()> rows{};
    for (const Command& row : kCommands) {
        const auto name = std::ranges::find(DesignedNames::kTools, TextView(row.tool));
        if (isOfThatKind(row)) ++rows.at(static_cast<std::size_t>(name - DesignedNames::kTools.begin()));
    }
    return rows;
}
static_assert(std::ranges::min(CountRows([](const Command&) { return true; })) == 1, "a tool of the design has no row");
static_assert(std::ranges::max(CountRows([](const Command& row) { return !row.onlyOn; })) == 1,
              "two rows are about the same tool of the master list");
static_assert(std::ranges::max(CountRows([](const Command& row) { return row.onlyOn.has_value(); })) == 1,
              "two rows are about the same tool of one band");
static_assert(std::ranges::max(CountRows([](const Command& row) { return row.Runs(); })) == 1,
              "a name has two effects");

constexpr bool IsOfAFamily(TextView name) {
    return name.starts_with(DesignedNames::kShopLinks) || name.starts_with(DesignedNames::kFindLinks) ||
           name.starts_with(DesignedNames::kResizeCommands);
}
static_assert(std::ranges::all_of(kCommands,
                                  [](const Command& row) {
                                      return IsOfAFamily(row.tool) == std::holds_alternative<ByFamily>(row.effect);
                                  }),
              "a family's effect is that of all its names, and of no other");

constexpr std::span<const Command> Family(TextView begins) {
    const auto isOf = [&](const Command& row) { return TextView(row.tool).starts_with(begins); };
    const auto first = std::ranges::find_if(kCommands, isOf);
    return {first, std::find_if_not(first, kCommands.end(), isOf)};
}
constexpr bool StandsTogether(TextView family) {
    const auto isOf = [&](TextView name) { return name.starts_with(family); };
    return std::ssize(Family(family)) == std::ranges::count_if(DesignedNames::kTools, isOf);
}
static_assert(StandsTogether(DesignedNames::kShopLinks) && StandsTogether(DesignedNames::kFindLinks));

constexpr std::span<const KeyStroke> KeysOfOthers(const Command& row) {
    return row.keyOfOthers ? std::span(&*row.keyOfOthers, 1) : std::span<const KeyStroke>();
}
constexpr std::span<const KeyStroke> KeysOfTheBar(const Command& row) { return row.Keys(); }

/// The keys that all rows have by one of the functions above.
template<auto keysOf>
constexpr auto AllKeys() {
    constexpr std::size_t count = std::transform_reduce(kCommands.begin(), kCommands.end(), std::size_t{0}, std::plus(),
                                                        [](const Command& row) { return keysOf(row).size(); });
    std::array<Shortcut, count> all{};
    std::size_t at = 0;
    for (const Command& row : kCommands) {
        for (const KeyStroke& key : keysOf(row)) all.at(at++) = {row.tool, key};
    }
    return all;
}
constexpr auto kShortcuts = AllKeys<KeysOfTheBar>();
constexpr auto kShortcutsOfOthers = AllKeys<KeysOfOthers>();

} // namespace

std::span<const Command> CommandTable() { return kCommands; }

std::span<const Command> ShopLinks() { return Family(DesignedNames::kShopLinks); }

std::span<const Command> FindLinks() { return Family(DesignedNames::kFindLinks); }

std::span<const Shortcut> DesignedShortcuts() { return kShortcuts; }

std::span<const Shortcut> ShortcutsOfOthers() { return kShortcutsOfOthers; }

} // namespace tessa
