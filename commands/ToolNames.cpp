#include "commands/ToolNames.h"

#include <array>

namespace {

constexpr std::array kTools{
    // The menu bar. Its Help entry shares the name of a command, so the menu bar has a tool of its own for it.
    ToolRow{u"mnuFile", u"&File", u"Menu", u"Open, save, print and close pages", u"", u"bndFileMenu"},
    ToolRow{u"mnuEdit", u"&Edit", u"Menu", u"Cut, copy, paste and find text", u"", u"bndEditMenu"},
    ToolRow{u"mnuView", u"&View", u"Menu", u"Change how the window and the page look", u"", u"bndViewMenu"},
    ToolRow{u"mnuGo", u"&Go", u"Menu", u"Go to other pages and tabs", u"", u"bndGoMenu"},
    ToolRow{u"mnuFavorites", u"F&avorites", u"Menu", u"Open and keep your favorite pages", u"", u"bndFavorites"},
    ToolRow{u"mnuTessaGroups", u"&TessaGroups", u"Menu", u"Open and keep groups of pages", u"", u"bndTessaGroupsMenu"},
    ToolRow{u"mnuFindLinks", u"F&ind", u"Menu", u"Find things on the Internet", u"", u"bndFindLinks"},
    ToolRow{u"mnuShop", u"Sho&p", u"Menu", u"Shop the Internet", u"", u"bndShopMenu"},
    ToolRow{u"mnuOptions", u"&Options", u"Menu", u"Choose what pages load and how TessaView works", u"", u"bndOptions"},

    ToolRow{u"tbNew", u"&New", u"File", u"Opens a new browser tab at your home page", u"tab-new", u"bndNew"},
    ToolRow{u"mnuNewBlank", u"New &Blank", u"File", u"Opens a new blank tab", u"tab-new", u""},
    ToolRow{u"mnuNewSearch", u"New &Search", u"File", u"Opens a new tab at the search page", u"edit-find", u""},
    ToolRow{u"mnuNewHome", u"New &Home", u"File", u"Opens a new tab at your home page", u"go-home", u""},
    ToolRow{u"mnuNewCurrent", u"New &Current", u"File", u"Opens the current page once more in a new tab",
            u"tab-duplicate", u""},
    ToolRow{u"mnuOpen", u"&Open", u"File", u"Opens a file in the current tab", u"document-open", u""},
    ToolRow{u"mnuClose", u"&Close", u"File", u"Closes the current tab", u"view-close", u""},
    ToolRow{u"mnuCloseAll", u"Close &All", u"File", u"Closes all tabs but the first", u"project-development-close-all",
            u""},
    ToolRow{u"mnuSaveAs", u"&Save As", u"File", u"Saves the current page to a file", u"document-save-as", u""},
    ToolRow{u"mnuPrint", u"&Print", u"File", u"Prints the current page", u"document-print", u""},
    ToolRow{u"mnuPageSetup", u"Page Set&up...", u"File", u"Changes paper, orientation and margins for printing",
            u"document-page-setup", u""},
    ToolRow{u"mnuExit", u"E&xit", u"File", u"Closes all tabs and ends TessaView", u"application-exit", u""},

    ToolRow{u"mnuCut", u"C&ut", u"Edit", u"Moves the selection to the clipboard", u"edit-cut", u""},
    ToolRow{u"mnuCopy", u"&Copy", u"Edit", u"Copies the selection to the clipboard", u"edit-copy", u""},
    ToolRow{u"mnuPaste", u"&Paste", u"Edit", u"Inserts what is on the clipboard", u"edit-paste", u""},
    ToolRow{u"mnuSelectAll", u"&Select All", u"Edit", u"Selects everything on the current page", u"edit-select-all",
            u""},
    ToolRow{u"mnuFind", u"&Find (on this page)...", u"Edit", u"Finds text on the current page", u"edit-find", u""},

    ToolRow{u"mnuViewStatusbar", u"S&tatus Bar", u"View", u"Shows or hides the status bar", u"", u""},
    ToolRow{u"mnuViewToolbars", u"&Toolbars...", u"View", u"Arranges toolbars and menus as you like them",
            u"configure-toolbars", u""},
    ToolRow{u"mnuStop", u"&Stop", u"View", u"Stops loading the current page", u"process-stop", u""},
    ToolRow{u"mnuRefresh", u"&Refresh", u"View", u"Loads the current page again", u"view-refresh", u""},
    ToolRow{u"mnuViewSource", u"S&ource", u"View", u"Shows the source of the current page", u"code-context", u""},
    ToolRow{u"mnuViewInternetOptions", u"&Internet Options...", u"View",
            u"Changes the home page, search, privacy and connection", u"preferences-system-network", u""},
    ToolRow{u"mnuClearAddresses", u"&Clear Addresses", u"View", u"Empties the list of the address box",
            u"edit-clear-history", u""},
    ToolRow{u"mnuClearSearches", u"C&lear Searches", u"View", u"Empties the list of the search box",
            u"edit-clear-history", u""},
    ToolRow{u"mnuResizeAddress", u"&Resize Address Bar", u"View", u"Resize the address bar", u"", u""},
    ToolRow{u"mnuResizeSearch", u"R&esize Search Bar", u"View", u"Resize the search bar", u"", u""},

    ToolRow{u"mnuGoBack", u"&Back", u"Go", u"Goes back to the page before", u"go-previous", u""},
    ToolRow{u"mnuGoForward", u"&Forward", u"Go", u"Goes forward to the page after", u"go-next", u""},
    ToolRow{u"mnuHome", u"&Home", u"Go", u"Goes to your home page", u"go-home", u""},
    ToolRow{u"mnuSearch", u"&Search", u"Go", u"Goes to the search page", u"system-search", u""},
    ToolRow{u"mnuPreviousBrowserTab", u"&Previous Tab", u"Go", u"Shows the tab to the left", u"go-previous-view", u""},
    ToolRow{u"mnuNextBrowserTab", u"&Next Tab", u"Go", u"Shows the tab to the right", u"go-next-view", u""},

    ToolRow{u"mnuAddToFavorites", u"&Add to Favorites...", u"Favorites", u"Adds the current page to your Favorites",
            u"bookmark-new", u""},
    ToolRow{u"mnuOrganizeFavorites", u"&Organize Favorites...", u"Favorites", u"Sorts, renames and deletes Favorites",
            u"bookmarks-organize", u""},

    ToolRow{u"mnuTabStop", u"&Stop", u"Popup", u"Stops loading the page of this tab", u"process-stop", u""},
    ToolRow{u"mnuTabRefresh", u"&Refresh", u"Popup", u"Loads the page of this tab again", u"view-refresh", u""},
    ToolRow{u"mnuTabClose", u"&Close", u"Popup", u"Closes this tab", u"view-close", u""},

    ToolRow{u"mnuLoadImages", u"&Load Images", u"Options", u"Whether pages load images", u"view-preview", u""},
    ToolRow{u"mnuLoadVideos", u"Load &Videos", u"Options", u"Whether pages load videos", u"", u""},
    ToolRow{u"mnuLoadSounds", u"Load &Sounds", u"Options", u"Whether pages load sounds", u"", u""},
    ToolRow{u"mnuLoadAnimations", u"Load &Animations", u"Options", u"Whether pages show moving images", u"", u""},
    ToolRow{u"mnuSettings", u"&Settings...", u"Options", u"Changes how TessaView works", u"configure", u""},

    ToolRow{u"mnuHelp", u"&Help Topics", u"Help", u"Shows how to use TessaView", u"help-contents", u""},
    ToolRow{u"mnuAbout", u"About...", u"Help", u"Shows the version of TessaView", u"help-about", u""},

    ToolRow{u"mnuAddToTessaGroup", u"Add to TessaGroup...", u"TessaGroups", u"Adds the current page to a TessaGroup",
            u"list-add", u""},
    ToolRow{u"mnuSaveAsTessaGroup", u"&Save as TessaGroup...", u"TessaGroups", u"Saves all open tabs as a TessaGroup",
            u"document-save", u""},
    ToolRow{u"mnuOrganizeTessaGroups", u"&Organize TessaGroups...", u"TessaGroups",
            u"Changes the addresses of a TessaGroup", u"document-edit", u""},

    ToolRow{u"mnuMail", u"&Mail", u"Mail", u"Reads and writes mail", u"mail-message", u"bndMail"},
    ToolRow{u"mnuReadMail", u"&Read Mail...", u"Mail", u"Starts your mail program", u"mail-read", u""},
    ToolRow{u"mnuNewMessage", u"Ne&w Message...", u"Mail", u"Writes a new message", u"mail-message-new", u""},
    ToolRow{u"mnuSendLink", u"Send a &Link...", u"Mail", u"Sends the address of the current page to somebody",
            u"mail-forward", u""},
    ToolRow{u"mnuMailQuorvaneSoftware", u"&Quorvane Software", u"Mail", u"Writes to the makers of TessaView", u"", u""},
    ToolRow{u"mnuFeatureRequest", u"&Feature Request", u"Mail", u"Tells the makers what you miss in TessaView", u"",
            u""},
    ToolRow{u"mnuMailBugReport", u"&Bug Report", u"Mail", u"Tells the makers what went wrong", u"tools-report-bug",
            u""},
    ToolRow{u"mnuReadNews", u"Read &News...", u"Mail", u"Starts your news program", u"view-pim-news", u""},

    ToolRow{u"mnuFont", u"&Font", u"Font", u"Changes the size of the text on the page", u"font", u"bndFont"},
    ToolRow{u"mnuFontLargest", u"Lar&gest", u"Font", u"Shows the text at the largest size", u"", u""},
    // Deliberate: the master list spells this name so; the font menu has a tool of its own, spelled otherwise.
    ToolRow{u"mnFontLarge", u"&Large", u"Font", u"Shows the text at a large size", u"", u""},
    ToolRow{u"mnuFontMedium", u"&Medium", u"Font", u"Shows the text at its usual size", u"", u""},
    ToolRow{u"mnuFontSmaller", u"&Smaller", u"Font", u"Shows the text at a small size", u"", u""},
    ToolRow{u"mnuFontSmallest", u"Sm&allest", u"Font", u"Shows the text at the smallest size", u"", u""},
};

// Not arranged by the user, they only carry the pictures of menus that are built while the program runs.
constexpr std::array kPictureHolders{
    ToolRow{u"mnuLinkImage", u"Link Image", u"", u"Link image holder", u"text-html", u""},
    ToolRow{u"mnuFolderImage", u"Folder Image", u"", u"Folder image holder", u"folder", u""},
    ToolRow{u"mnuTessaGroupsImage", u"TessaGroups Image", u"", u"TessaGroups image holder", u"view-list-icons", u""},
};

constexpr auto Joined() {
    std::array<ToolRow, kTools.size() + kPictureHolders.size()> all{};
    std::size_t at = 0;
    for (const ToolRow& row : kTools) all[at++] = row;
    for (const ToolRow& row : kPictureHolders) all[at++] = row;
    return all;
}
constexpr auto kDesigned = Joined();

constexpr ToolRow Shop(TextView name, TextView caption, TextView keyword) {
    return {name, caption, u"Shop", keyword, u"", u""};
}
constexpr ToolRow Find(TextView name, TextView caption, TextView keyword) {
    return {name, caption, u"Find", keyword, u"", u""};
}

constexpr std::array kShop{
    Shop(u"shpAirlineTickets", u"&Airline Tickets", u"airlinetickets"),
    Shop(u"shpAuctions", u"A&uctions", u"auctions"),
    Shop(u"shpAudioBooks", u"Au&dio Books", u"audiobooks"),
    Shop(u"shpBooks", u"&Books", u"book"),
    Shop(u"shpCars", u"&Cars", u"cars"),
    Shop(u"shpComputers", u"C&omputers", u"computers"),
    Shop(u"shpCreditCards", u"Cr&edit Cards", u"creditcards"),
    Shop(u"shpEventTickets", u"E&vent Tickets", u"eventtickets"),
    Shop(u"shpFlowers", u"&Flowers", u"flowers"),
    Shop(u"shpHomesLoans", u"&Homes && Loans", u"homesloans"),
    Shop(u"shpHotelReservations", u"Hotel Reservations", u"hotelreservations"),
    Shop(u"shpMagazines", u"&Magazines", u"magazines"),
    Shop(u"shpMusic", u"Mus&ic", u"cds"),
    Shop(u"shpSoftware", u"&Software", u"software"),
    Shop(u"shpSportingGoods", u"S&porting Goods", u"sportinggoods"),
    Shop(u"shpStocks", u"St&ocks", u"stocks"),
    Shop(u"shpSunglasses", u"Su&nglasses", u"sunglasses"),
    Shop(u"shpToys", u"&Toys", u"toys"),
    Shop(u"shpTravel", u"T&ravel", u"travel"),
    Shop(u"shpVideos", u"&Videos", u"videos"),
    Shop(u"shpHosting", u"&Web Site Hosting", u"hosting"),
};

constexpr std::array kFind{
    Find(u"fndWebSites", u"&Web Sites", u"websites"),   Find(u"fndNewsgroups", u"&Newsgroups", u"newsgroups"),
    Find(u"fndPeople", u"&People", u"people"),          Find(u"fndBusinesses", u"&Businesses", u"business"),
    Find(u"fndMaps", u"&Maps && Directions", u"maps"),  Find(u"fndWeather", u"&Weather", u"weather"),
    Find(u"fndReference", u"&Reference", u"reference"), Find(u"fndStockQuotes", u"&Stock Quotes", u"stockquotes"),
};

constexpr std::array kOwnTools{
    ToolRow{u"xtrMore", u"&More", u"More", u"Shows more commands", u"application-menu", u"bndMoreMenu"},
    ToolRow{u"xtrReopenTab", u"&Reopen Closed Tab", u"More", u"Brings back what was closed last", u"edit-undo", u""},
    ToolRow{u"xtrTabList", u"&List Tabs", u"More", u"Lists all tabs and searches them", u"view-list-text", u""},
    ToolRow{u"xtrTabMore", u"&More", u"", u"Shows more commands for this tab", u"", u"bndTabMore"},
    ToolRow{u"xtrTabCloseOthers", u"Close &Others", u"", u"Closes all tabs but this one", u"", u""},
    ToolRow{u"xtrTabCloseRight", u"Close to the R&ight", u"", u"Closes the tabs to the right of this one", u"", u""},
    ToolRow{u"xtrTabDuplicate", u"&Duplicate", u"", u"Opens this page once more beside its tab", u"tab-duplicate", u""},
    ToolRow{u"xtrTabMute", u"M&ute", u"", u"Silences this tab or lets it be heard again", u"audio-volume-muted", u""},
    ToolRow{u"xtrTabAddToTessaGroup", u"Add to &TessaGroup...", u"", u"Adds this page to a TessaGroup", u"list-add",
            u""},
    ToolRow{u"xtrTabCopyAddress", u"Copy &Address", u"", u"Copies the address of this page to the clipboard",
            u"edit-copy", u""},
    ToolRow{u"xtrSessions", u"Earlier &Sessions...", u"More", u"Opens pages of earlier sessions again", u"view-history",
            u""},
    ToolRow{u"xtrDownloads", u"Do&wnloads", u"More", u"Shows the files that are being saved and those that were",
            u"folder-download", u""},
    ToolRow{u"xtrStopAll", u"Stop &All Pages", u"More", u"Stops every page that is loading", u"process-stop", u""},
    ToolRow{u"xtrTextLarger", u"Lar&ger Text", u"More", u"Shows the text of the page one size larger",
            u"format-font-size-more", u""},
    ToolRow{u"xtrTextSmaller", u"S&maller Text", u"More", u"Shows the text of the page one size smaller",
            u"format-font-size-less", u""},
    ToolRow{u"xtrTextUsual", u"&Usual Text", u"More", u"Shows the text of the page at its usual size", u"", u""},
    ToolRow{u"xtrFullScreen", u"Full S&creen", u"More", u"Shows pages on the whole screen", u"view-fullscreen", u""},
    ToolRow{u"xtrPrintPreview", u"Print Pre&view", u"More", u"Shows in a tab how the page will look on paper",
            u"document-print-preview", u""},
    ToolRow{u"xtrDevTools", u"&Developer Tools", u"More", u"Shows how the current page is made", u"tools", u""},
    ToolRow{u"xtrTaskView", u"&Task View", u"More", u"Shows what each tab uses of memory and processor, and ends pages",
            u"utilities-system-monitor", u""},
    ToolRow{u"xtrCopyReport", u"&Copy Report", u"More",
            u"Copies version, settings and log for a message to the makers; no address or title is in it", u"edit-copy",
            u""},
    ToolRow{u"xtrPrivateTab", u"New &Private Tab", u"More",
            u"Opens a tab whose page, cookies and history are forgotten with the last private tab", u"view-private",
            u""},

    // The menu of a page.
    ToolRow{u"xtrLinkOpen", u"&Open Link in New Tab", u"", u"Opens the link in a new tab", u"tab-new", u""},
    ToolRow{u"xtrLinkOpenOther", u"Open Link &Behind This Tab", u"", u"Opens the link in a new tab, the other way", u"",
            u""},
    ToolRow{u"xtrLinkOpenPrivate", u"Open Link in Pri&vate Tab", u"", u"Opens the link in a tab that is forgotten",
            u"view-private", u""},
    ToolRow{u"xtrLinkSave", u"Save Lin&k As...", u"", u"Saves what the link leads to", u"document-save-as", u""},
    ToolRow{u"xtrLinkCopy", u"Copy Link A&ddress", u"", u"Copies the address of the link to the clipboard",
            u"edit-copy", u""},
    ToolRow{u"xtrLinkAddToTessaGroup", u"Add Link to &TessaGroup...", u"", u"Adds the link to a TessaGroup",
            u"list-add", u""},
    ToolRow{u"xtrImageOpen", u"Open Image in Ne&w Tab", u"", u"Shows the image alone in a new tab", u"view-preview",
            u""},
    ToolRow{u"xtrImageSave", u"Save I&mage As...", u"", u"Saves the image to a file", u"document-save-as", u""},
    ToolRow{u"xtrImageCopy", u"Copy Ima&ge", u"", u"Copies the image to the clipboard", u"edit-copy", u""},
    ToolRow{u"xtrMediaPlay", u"Pla&y", u"", u"Plays or halts", u"media-playback-start", u""},
    ToolRow{u"xtrMediaMute", u"&Mute", u"", u"Silences this or lets it be heard again", u"", u""},
    ToolRow{u"xtrMediaLoop", u"&Loop", u"", u"Begins again at the end", u"", u""},
    ToolRow{u"xtrMediaControls", u"Sho&w Controls", u"", u"Shows the buttons for playing", u"", u""},
    ToolRow{u"xtrMediaSave", u"&Save Media As...", u"", u"Saves the sound or film to a file", u"document-save-as", u""},
    ToolRow{u"xtrMediaCopyAddress", u"Copy Media &Address", u"", u"Copies the address of this to the clipboard",
            u"edit-copy", u""},
    ToolRow{u"xtrUndo", u"U&ndo", u"", u"Takes the last change back", u"edit-undo", u""},
    ToolRow{u"xtrRedo", u"&Redo", u"", u"Makes the change again", u"edit-redo", u""},
    ToolRow{u"xtrPasteAsText", u"Paste as Plain Te&xt", u"", u"Inserts the text of the clipboard without its looks",
            u"edit-paste", u""},
    ToolRow{u"xtrSearchSelection", u"S&earch for Selection", u"", u"Searches the web for the selected words",
            u"edit-find", u""},
    ToolRow{u"xtrOpenSelectedLinks", u"O&pen Selected Links", u"", u"Opens every selected link in a tab of its own",
            u"tab-new", u""},
    ToolRow{u"xtrInspect", u"&Inspect", u"", u"Shows how this part of the page is made", u"tools", u""},
    ToolRow{u"xtrBookmarks", u"&Import and Export", u"More", u"Takes over and hands on bookmarks of other browsers",
            u"document-import", u"bndMoreBookmarks"},
    ToolRow{u"xtrImportFavorites", u"Import &Favorites...", u"More",
            u"Adds the bookmarks of another browser to your Favorites", u"document-import", u""},
    ToolRow{u"xtrImportTessaGroups", u"Import &TessaGroups...", u"More",
            u"Makes a TessaGroup of each folder of another browser's bookmarks", u"document-import", u""},
    ToolRow{u"xtrExportFavorites", u"&Export Favorites...", u"More",
            u"Writes your Favorites to a file for other browsers", u"document-export", u""},
    ToolRow{u"xtrFolderOpen", u"&Open All in Tabs", u"", u"Opens every page of this folder in a tab of its own",
            u"tab-new", u""},
    ToolRow{u"xtrFolderSave", u"Save as &TessaGroup...", u"", u"Makes a TessaGroup of the pages of this folder",
            u"document-save-as", u""},
    ToolRow{u"xtrLinkNewTab", u"Open in &New Tab", u"", u"Opens this Favorite in a tab of its own", u"tab-new", u""},
    ToolRow{u"xtrGroupOpen", u"&Open", u"", u"Opens every page of this TessaGroup in a tab of its own", u"tab-new",
            u""},
    ToolRow{u"xtrGroupOrganize", u"O&rganize...", u"", u"Changes the addresses of this TessaGroup", u"document-edit",
            u""},
    ToolRow{u"xtrGroupRename", u"Re&name...", u"", u"Gives this TessaGroup another name", u"edit-rename", u""},
    ToolRow{u"xtrGroupDelete", u"&Delete...", u"", u"Moves this TessaGroup to the trash", u"edit-delete", u""},
    ToolRow{u"xtrExportTessaGroups", u"E&xport TessaGroups...", u"More",
            u"Writes your TessaGroups to a file for other browsers", u"document-export", u""},
};

constexpr std::int32_t kCtrl = Keys::kCtrl, kAlt = Keys::kAlt;
constexpr std::array kShortcuts{
    Shortcut{u"mnuNewBlank", {'T', kCtrl}},
    Shortcut{u"mnuClose", {'W', kCtrl}},
    Shortcut{u"mnuOpen", {'O', kCtrl}},
    Shortcut{u"mnuSaveAs", {'S', kCtrl}},
    Shortcut{u"mnuPrint", {'P', kCtrl}},
    Shortcut{u"mnuFind", {'F', kCtrl}},
    Shortcut{u"mnuRefresh", {Keys::kF5, 0}},
    Shortcut{u"mnuRefresh", {'R', kCtrl}},
    Shortcut{u"mnuStop", {Keys::kEscape, 0}},
    Shortcut{u"xtrStopAll", {Keys::kEscape, Keys::kShift}},
    Shortcut{u"mnuGoBack", {Keys::kLeft, kAlt}},
    Shortcut{u"mnuGoForward", {Keys::kRight, kAlt}},
    Shortcut{u"mnuHome", {Keys::kHome, kAlt}},
    Shortcut{u"cboAddress", {'L', kCtrl}},
    Shortcut{u"cboSearch", {'K', kCtrl}},
    Shortcut{u"mnuAddToFavorites", {'D', kCtrl}},
    Shortcut{u"mnuViewSource", {'U', kCtrl}},
    Shortcut{u"mnuExit", {'Q', kCtrl}},
    Shortcut{u"xtrTabList", {'A', kCtrl | Keys::kShift}},
    Shortcut{u"xtrReopenTab", {'T', kCtrl | Keys::kShift}},
    Shortcut{u"mnuHelp", {Keys::kF1, 0}},
    Shortcut{u"xtrMore", {'M', kAlt}},
    Shortcut{u"xtrTextLarger", {Keys::kPlus, kCtrl}},
    Shortcut{u"xtrTextLarger", {Keys::kPlus, kCtrl | Keys::kShift}},
    Shortcut{u"xtrTextSmaller", {Keys::kMinus, kCtrl}},
    Shortcut{u"xtrTextUsual", {'0', kCtrl}},
    Shortcut{u"xtrPrivateTab", {'N', kCtrl | Keys::kShift}},
    Shortcut{u"xtrDownloads", {'J', kCtrl}},
    Shortcut{u"xtrFullScreen", {Keys::kF11, 0}},
    Shortcut{u"xtrDevTools", {Keys::kF12, 0}},
    Shortcut{u"xtrTaskView", {Keys::kEscape, kCtrl | Keys::kShift}},
};

constexpr std::array kOthers{
    Shortcut{u"mnuCut", {'X', kCtrl}},
    Shortcut{u"mnuCopy", {'C', kCtrl}},
    Shortcut{u"mnuPaste", {'V', kCtrl}},
    Shortcut{u"mnuSelectAll", {'A', kCtrl}},
    Shortcut{u"mnuNextBrowserTab", {Keys::kTab, kCtrl}},
    Shortcut{u"mnuPreviousBrowserTab", {Keys::kTab, kCtrl | Keys::kShift}},
};

} // namespace

std::span<const ToolRow> DesignedTools() { return kDesigned; }
std::span<const ToolRow> ShopLinks() { return kShop; }
std::span<const ToolRow> FindLinks() { return kFind; }
std::span<const ToolRow> OwnTools() { return kOwnTools; }
std::span<const Shortcut> DesignedShortcuts() { return kShortcuts; }
std::span<const Shortcut> ShortcutsOfOthers() { return kOthers; }
