#include "commands/DesignTimeBar.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <string>

namespace tessa {

namespace {

/// Numbers of the design are below this.
constexpr std::int32_t kIdsByDesign = 1000;

struct DesignedBand {
    const char* name;
    const char* caption;
    const char* tools; ///< separated by blanks; a sub-band stands in brackets behind its tool
};

// The product's own layout, written out once more.
constexpr std::array kDesign{
    DesignedBand{"bndMenu", "Menu Bar",
                 "mnuFile[bndFileMenu] mnuEdit[bndEditMenu] mnuView[bndViewMenu] mnuGo[bndGoMenu] "
                 "mnuFavorites[bndFavorites] mnuTessaGroups[bndTessaGroupsMenu] mnuFindLinks[bndFindLinks] "
                 "mnuShop[bndShopMenu] mnuOptions[bndOptions] mnuHelp[bndHelpMenu]"},
    DesignedBand{"bndFile", "File", "tbNew[bndNew] mnuOpen mnuClose mnuCloseAll"},
    DesignedBand{"bndNew", "", "mnuNewBlank mnuNewSearch mnuNewHome mnuNewCurrent"},
    DesignedBand{"bndGo", "Go", "mnuGoBack mnuGoForward mnuStop mnuRefresh mnuHome mnuSearch"},
    DesignedBand{"bndFileMenu", "File",
                 "mnuNewBlank mnuNewSearch mnuNewHome mnuNewCurrent mnuOpen mnuClose mnuCloseAll mnuSaveAs mnuPrint "
                 "mnuPageSetup mnuExit"},
    DesignedBand{"bndEditMenu", "Edit", "mnuCut mnuCopy mnuPaste mnuSelectAll mnuFind"},
    DesignedBand{"bndAddress", "Address", "mnuAddress cboAddress"},
    DesignedBand{"bndViewMenu", "View",
                 "mnuViewStatusbar mnuViewToolbars mnuStop mnuRefresh mnuViewSource mnuViewInternetOptions "
                 "mnuClearAddresses mnuClearSearches mnuResizeAddress mnuResizeSearch"},
    DesignedBand{"bndGoMenu", "Go", "mnuGoBack mnuGoForward mnuHome mnuSearch mnuPreviousBrowserTab mnuNextBrowserTab"},
    DesignedBand{"bndFavorites", "Favorites", "mnuAddToFavorites mnuOrganizeFavorites"},
    DesignedBand{"bndTabPopup", "Tab Popup", "mnuTabStop mnuTabRefresh mnuTabClose xtrTabMore[bndTabMore]"},
    DesignedBand{"bndSearch", "Search", "mnuSearchLabel cboSearch"},
    DesignedBand{"bndOptions", "Options", "mnuLoadImages mnuLoadVideos mnuLoadSounds mnuLoadAnimations mnuSettings"},
    DesignedBand{"bndHelpMenu", "Help", "mnuHelp xtrCopyReport mnuAbout"},
    DesignedBand{"bndTessaGroupsMenu", "TessaGroups", "mnuAddToTessaGroup mnuSaveAsTessaGroup mnuOrganizeTessaGroups"},
    DesignedBand{"bndMail", "Mail",
                 "mnuReadMail mnuNewMessage mnuSendLink mnuMailQuorvaneSoftware mnuFeatureRequest mnuMailBugReport "
                 "mnuReadNews"},
    DesignedBand{"bndMisc", "Misc",
                 "mnuAddToFavorites mnuOrganizeFavorites mnuPrint mnuViewSource mnuLoadImages mnuMail[bndMail] "
                 "mnuFont[bndFont]"},
    DesignedBand{"bndFont", "Font", "mnuFontLargest mnuFontLarger mnuFontMedium mnuFontSmaller mnuFontSmallest"},
    DesignedBand{"bndShopMenu", "Shop",
                 "shpAirlineTickets shpAuctions shpAudioBooks shpBooks shpCars shpComputers shpCreditCards "
                 "shpEventTickets shpFlowers shpHomesLoans shpHotelReservations shpMagazines shpMusic shpSoftware "
                 "shpSportingGoods shpStocks shpSunglasses shpToys shpTravel shpVideos shpHosting"},
    DesignedBand{"bndFindLinks", "Find",
                 "fndWebSites fndNewsgroups fndPeople fndBusinesses fndMaps fndWeather fndReference fndStockQuotes"},
};

struct DesignedTool {
    const char* name;
    const char* caption;
    const char* description; ///< nothing where the product leaves it to us
};

constexpr std::array kCaptions{
    DesignedTool{"mnuFile", "&File", nullptr},
    DesignedTool{"mnuEdit", "&Edit", nullptr},
    DesignedTool{"mnuView", "&View", nullptr},
    DesignedTool{"mnuGo", "&Go", nullptr},
    DesignedTool{"mnuFavorites", "F&avorites", nullptr},
    DesignedTool{"mnuTessaGroups", "&TessaGroups", nullptr},
    DesignedTool{"mnuFindLinks", "F&ind", nullptr},
    DesignedTool{"mnuShop", "Sho&p", "Shop the Internet"},
    DesignedTool{"mnuOptions", "&Options", nullptr},
    DesignedTool{"tbNew", "&New", "Opens a new browser tab at your home page"},
    DesignedTool{"mnuAddress", "A&ddress", nullptr},
    DesignedTool{"mnuAddToTessaGroup", "Add to TessaGroup...", nullptr},
    DesignedTool{"mnuCloseAll", "Close &All", nullptr},
    DesignedTool{"mnuHelp", "&Help Topics", nullptr},
    DesignedTool{"mnuClearAddresses", "&Clear Addresses", nullptr},
    DesignedTool{"mnuClearSearches", "C&lear Searches", nullptr},
    DesignedTool{"mnuLoadImages", "&Load Images", nullptr},
    DesignedTool{"mnuLoadVideos", "Load &Videos", nullptr},
    DesignedTool{"mnuLoadSounds", "Load &Sounds", nullptr},
    DesignedTool{"mnuLoadAnimations", "Load &Animations", nullptr},
    DesignedTool{"mnuOrganizeTessaGroups", "&Organize TessaGroups...", nullptr},
    DesignedTool{"mnuFontLargest", "Lar&gest", nullptr},
    DesignedTool{"mnFontLarge", "&Large", nullptr},
    DesignedTool{"mnuFontLarger", "&Large", nullptr},
    DesignedTool{"mnuFontMedium", "&Medium", nullptr},
    DesignedTool{"mnuFontSmaller", "&Smaller", nullptr},
    DesignedTool{"mnuFontSmallest", "Sm&allest", nullptr},
    DesignedTool{"mnuFont", "&Font", nullptr},
    DesignedTool{"mnuReadNews", "Read &News...", nullptr},
    DesignedTool{"mnuNewMessage", "Ne&w Message...", nullptr},
    DesignedTool{"mnuSendLink", "Send a &Link...", nullptr},
    DesignedTool{"mnuMailQuorvaneSoftware", "&Quorvane Software", nullptr},
    DesignedTool{"mnuFeatureRequest", "&Feature Request", nullptr},
    DesignedTool{"mnuMailBugReport", "&Bug Report", nullptr},
    DesignedTool{"mnuReadMail", "&Read Mail...", nullptr},
    DesignedTool{"mnuMail", "&Mail", nullptr},
    DesignedTool{"mnuNextBrowserTab", "&Next Tab", nullptr},
    DesignedTool{"mnuPreviousBrowserTab", "&Previous Tab", nullptr},
    DesignedTool{"mnuSettings", "&Settings...", nullptr},
    DesignedTool{"mnuOpen", "&Open", nullptr},
    DesignedTool{"mnuAbout", "About...", nullptr},
    DesignedTool{"mnuSaveAsTessaGroup", "&Save as TessaGroup...", nullptr},
    DesignedTool{"mnuGoBack", "&Back", nullptr},
    DesignedTool{"mnuGoForward", "&Forward", nullptr},
    DesignedTool{"mnuAddToFavorites", "&Add to Favorites...", nullptr},
    DesignedTool{"mnuOrganizeFavorites", "&Organize Favorites...", nullptr},
    DesignedTool{"mnuNewHome", "New &Home", nullptr},
    DesignedTool{"mnuViewStatusbar", "S&tatus Bar", nullptr},
    DesignedTool{"mnuNewSearch", "New &Search", nullptr},
    DesignedTool{"mnuNewBlank", "New &Blank", nullptr},
    DesignedTool{"mnuNewCurrent", "New &Current", nullptr},
    DesignedTool{"mnuClose", "&Close", nullptr},
    DesignedTool{"mnuSearch", "&Search", nullptr},
    DesignedTool{"mnuHome", "&Home", nullptr},
    DesignedTool{"mnuStop", "&Stop", nullptr},
    DesignedTool{"mnuRefresh", "&Refresh", nullptr},
    DesignedTool{"mnuSaveAs", "&Save As", nullptr},
    DesignedTool{"mnuPageSetup", "Page Set&up...", nullptr},
    DesignedTool{"mnuPrint", "&Print", nullptr},
    DesignedTool{"mnuCut", "C&ut", nullptr},
    DesignedTool{"mnuCopy", "&Copy", nullptr},
    DesignedTool{"mnuPaste", "&Paste", nullptr},
    DesignedTool{"mnuSelectAll", "&Select All", nullptr},
    DesignedTool{"mnuFind", "&Find (on this page)...", nullptr},
    DesignedTool{"mnuViewInternetOptions", "&Internet Options...", nullptr},
    DesignedTool{"mnuViewSource", "S&ource", nullptr},
    DesignedTool{"mnuExit", "E&xit", nullptr},
    DesignedTool{"mnuViewToolbars", "&Toolbars...", nullptr},
    DesignedTool{"mnuResizeAddress", "&Resize Address Bar", "Resize the address bar"},
    DesignedTool{"mnuResizeSearch", "R&esize Search Bar", "Resize the search bar"},
    DesignedTool{"mnuTabStop", "&Stop", nullptr},
    DesignedTool{"mnuTabRefresh", "&Refresh", nullptr},
    DesignedTool{"mnuTabClose", "&Close", nullptr},
    DesignedTool{"mnuLinkImage", "Link Image", "Link image holder"},
    DesignedTool{"mnuFolderImage", "Folder Image", nullptr},
    DesignedTool{"mnuTessaGroupsImage", "TessaGroups Image", nullptr},
    DesignedTool{"shpAirlineTickets", "&Airline Tickets", "airlinetickets"},
    DesignedTool{"shpAuctions", "A&uctions", "auctions"},
    DesignedTool{"shpAudioBooks", "Au&dio Books", "audiobooks"},
    DesignedTool{"shpBooks", "&Books", "book"},
    DesignedTool{"shpCars", "&Cars", "cars"},
    DesignedTool{"shpComputers", "C&omputers", "computers"},
    DesignedTool{"shpCreditCards", "Cr&edit Cards", "creditcards"},
    DesignedTool{"shpEventTickets", "E&vent Tickets", "eventtickets"},
    DesignedTool{"shpFlowers", "&Flowers", "flowers"},
    DesignedTool{"shpHomesLoans", "&Homes && Loans", "homesloans"},
    DesignedTool{"shpHotelReservations", "Hotel Reservations", "hotelreservations"},
    DesignedTool{"shpMagazines", "&Magazines", "magazines"},
    DesignedTool{"shpMusic", "Mus&ic", "cds"},
    DesignedTool{"shpSoftware", "&Software", "software"},
    DesignedTool{"shpSportingGoods", "S&porting Goods", "sportinggoods"},
    DesignedTool{"shpStocks", "St&ocks", "stocks"},
    DesignedTool{"shpSunglasses", "Su&nglasses", "sunglasses"},
    DesignedTool{"shpToys", "&Toys", "toys"},
    DesignedTool{"shpTravel", "T&ravel", "travel"},
    DesignedTool{"shpVideos", "&Videos", "videos"},
    DesignedTool{"shpHosting", "&Web Site Hosting", "hosting"},
    DesignedTool{"fndWebSites", "&Web Sites", "websites"},
    DesignedTool{"fndNewsgroups", "&Newsgroups", "newsgroups"},
    DesignedTool{"fndPeople", "&People", "people"},
    DesignedTool{"fndBusinesses", "&Businesses", "business"},
    DesignedTool{"fndMaps", "&Maps && Directions", "maps"},
    DesignedTool{"fndWeather", "&Weather", "weather"},
    DesignedTool{"fndReference", "&Reference", "reference"},
    DesignedTool{"fndStockQuotes", "&Stock Quotes", "stockquotes"},
};

// The menus that the tools were designed for; those of the Shop and Find links are told by their names.
constexpr std::array kCategories{
    std::pair("Menu", "mnuFile mnuEdit mnuView mnuGo mnuFavorites mnuTessaGroups mnuFindLinks mnuShop mnuOptions"),
    std::pair("File", "tbNew mnuNewBlank mnuNewSearch mnuNewHome mnuNewCurrent mnuOpen mnuClose mnuCloseAll mnuSaveAs "
                      "mnuPrint mnuPageSetup mnuExit"),
    std::pair("Edit", "mnuCut mnuCopy mnuPaste mnuSelectAll mnuFind"),
    std::pair("View", "mnuViewStatusbar mnuViewToolbars mnuStop mnuRefresh mnuViewSource mnuViewInternetOptions "
                      "mnuClearAddresses mnuClearSearches mnuResizeAddress mnuResizeSearch"),
    std::pair("Go", "mnuGoBack mnuGoForward mnuHome mnuSearch mnuPreviousBrowserTab mnuNextBrowserTab"),
    std::pair("Favorites", "mnuAddToFavorites mnuOrganizeFavorites"),
    std::pair("Popup", "mnuTabStop mnuTabRefresh mnuTabClose"),
    std::pair("Options", "mnuLoadImages mnuLoadVideos mnuLoadSounds mnuLoadAnimations mnuSettings"),
    std::pair("Help", "mnuHelp mnuAbout"),
    std::pair("TessaGroups", "mnuAddToTessaGroup mnuSaveAsTessaGroup mnuOrganizeTessaGroups"),
    std::pair("Mail", "mnuMail mnuReadMail mnuNewMessage mnuSendLink mnuMailQuorvaneSoftware mnuFeatureRequest "
                      "mnuMailBugReport mnuReadNews"),
    std::pair("Font", "mnuFont mnuFontLargest mnFontLarge mnuFontMedium mnuFontSmaller mnuFontSmallest"),
    std::pair("Address", "mnuAddress cboAddress"),
    std::pair("Search", "mnuSearchLabel cboSearch"),
    // They only carry pictures.
    std::pair("", "mnuLinkImage mnuFolderImage mnuTessaGroupsImage"),
};

class DesignTimeBarTest : public testing::Test {
protected:
    void SetUp() override { DesignTimeBar::Make(bar); }

    static std::string Listed(const Band& band) {
        std::string all;
        for (const BandEntry& entry : band.Entries()) {
            const Tool& tool = *entry.Item;
            all += (all.empty() ? "" : " ") + ToUtf8(tool.Name());
            if (!tool.SubBand.empty()) all += "[" + ToUtf8(tool.SubBand) + "]";
        }
        return all;
    }

    CommandBar bar;
};

TEST_F(DesignTimeBarTest, EveryBandHasItsCaptionAndItsToolsInOrder) {
    std::size_t designed = 0;
    for (const DesignedBand& each : kDesign) {
        const Band* band = bar.FindBand(FromBytes(each.name));
        ASSERT_NE(band, nullptr) << each.name;
        EXPECT_EQ(ToUtf8(band->Caption()), each.caption) << each.name;
        EXPECT_EQ(Listed(*band), each.tools) << each.name;
        ++designed;
    }
    std::size_t own = 0;
    for (const TextView ours : {u"bndMore", u"bndMoreMenu", u"bndTabMore", u"bndMoreBookmarks", u"bndFavoriteFolder",
                                u"bndFavoriteLink", u"bndGroupEntry", u"bndNewTab", u"bndTileMenu", u"bndTabGroup",
                                u"bndTabGroupColour", u"bndChosenTabs", u"bndTabPanel"})
        own += bar.FindBand(ours) ? 1 : 0;
    EXPECT_EQ(bar.Bands().size(), designed + own);
}

TEST_F(DesignTimeBarTest, AnAccessKeyOfOursIsThatOfNoOtherEntryOfItsMenu) {
    for (const auto& band : bar.Bands()) {
        std::map<char, std::vector<std::string>> byKey;
        for (const BandEntry& entry : band->Entries()) {
            const std::string caption = ToUtf8(entry.Item->Caption());
            const std::size_t mark = caption.find('&');
            if (band->Kind() == BandKind::Toolbar || mark == std::string::npos) continue;
            byKey[static_cast<char>(std::tolower(caption.at(mark + 1)))].push_back(ToUtf8(entry.Item->Name()));
        }
        for (const auto& [key, names] : byKey) {
            const bool ours = std::ranges::any_of(names, [](const auto& name) { return name.starts_with("xtr"); });
            EXPECT_TRUE(!ours || names.size() == 1) << ToUtf8(band->Name()) << " " << key << " " << names.front();
        }
    }
}

TEST_F(DesignTimeBarTest, TheKeyOfMoreIsNoAccessKeyOfTheMenuBarOrOfABox) {
    for (const TextView band : {u"bndMenu", u"bndAddress", u"bndSearch"}) {
        for (const BandEntry& entry : bar.FindBand(band)->Entries())
            EXPECT_EQ(entry.Item->Caption().find(u"&M"), Text::npos) << ToUtf8(entry.Item->Name());
    }
}

TEST_F(DesignTimeBarTest, EveryToolHasItsCaptionAndDescription) {
    std::set<std::string> known{"mnuSearchLabel", "cboAddress", "cboSearch"};
    for (const DesignedTool& each : kCaptions) {
        known.insert(each.name);
        const Tool* tool = bar.Find(FromBytes(each.name));
        ASSERT_NE(tool, nullptr) << each.name;
        EXPECT_EQ(ToUtf8(tool->Caption()), each.caption) << each.name;
        if (each.description) {
            EXPECT_EQ(ToUtf8(tool->Description), each.description) << each.name;
        }
        EXPECT_FALSE(tool->Description.empty()) << each.name;
        EXPECT_FALSE(tool->TooltipText.empty()) << each.name;
        EXPECT_GT(tool->Id(), 0);
        EXPECT_LT(tool->Id(), kIdsByDesign) << each.name;
    }
    for (const auto& tool : bar.Tools()) {
        const std::string name = ToUtf8(tool->Name());
        EXPECT_TRUE(known.contains(name) || name.starts_with("xtr")) << name;
    }
}

TEST_F(DesignTimeBarTest, OfOurOwnOnlyWhatAsksFirstHasDots) {
    std::set<std::string> asking;
    for (const auto& tool : bar.Tools()) {
        const Text name = tool->Name();
        if (name.starts_with(u"xtr") && tool->Caption().ends_with(u"...")) asking.insert(ToUtf8(name));
    }
    const std::set<std::string> expected{
        "xtrExportFavorites",      "xtrExportTessaGroups", "xtrFolderSave",        "xtrGroupDelete",
        "xtrGroupKeepOffline",     "xtrGroupPdf",          "xtrGroupPrint",        "xtrGroupPagesPdf",
        "xtrGroupPagesPrint",      "xtrGroupPagesOffline", "xtrSaveSelectedLinks", "xtrGroupOrganize",
        "xtrGroupRename",          "xtrImageSave",         "xtrImportFavorites",   "xtrImportTessaGroups",
        "xtrLinkAddToTessaGroup",  "xtrLinkSave",          "xtrMediaSave",         "xtrSessions",
        "xtrTabAddToTessaGroup",   "xtrTabGroupEdit",      "xtrTabRename",         "xtrChosenSaveAsTessaGroup",
        "xtrChosenAddToTessaGroup"};
    EXPECT_EQ(asking, expected);
}

TEST_F(DesignTimeBarTest, IdsAreGivenOnce) {
    std::set<std::int32_t> ids;
    for (const auto& tool : bar.Tools()) {
        EXPECT_TRUE(ids.insert(tool->Id()).second) << ToUtf8(tool->Name());
        EXPECT_LT(tool->Id(), kIdsByDesign) << ToUtf8(tool->Name());
    }
    // Tools of one band alone.
    for (const auto& [band, name] : {std::pair(u"bndMenu", u"mnuHelp"), std::pair(u"bndFont", u"mnuFontLarger")}) {
        const Tool* own = bar.FindBand(band)->Find(name);
        ASSERT_NE(own, nullptr);
        EXPECT_NE(bar.Share(name).get(), own);
        EXPECT_TRUE(ids.insert(own->Id()).second) << ToUtf8(name) << " has the id " << own->Id();
        EXPECT_GT(own->Id(), 0);
        EXPECT_LT(own->Id(), kIdsByDesign);
    }
}

TEST_F(DesignTimeBarTest, TheSearchLabelNamesTheService) {
    EXPECT_EQ(bar.Find(u"mnuSearchLabel")->Caption(), u"Sea&rch the Web");
}

TEST_F(DesignTimeBarTest, CategoriesAreThoseOfTheMenus) {
    std::map<std::string, std::string> expected;
    for (const auto& [category, tools] : kCategories) {
        std::istringstream names(tools);
        for (std::string name; names >> name;) EXPECT_TRUE(expected.emplace(name, category).second) << name;
    }
    for (const auto& tool : bar.Tools()) {
        const std::string name = ToUtf8(tool->Name()), category = ToUtf8(tool->Category);
        if (name.starts_with("xtr")) {
            EXPECT_TRUE(category == "More" || category.empty()) << name;
            continue;
        }
        if (name.starts_with("shp")) expected[name] = "Shop";
        if (name.starts_with("fnd")) expected[name] = "Find";
        EXPECT_TRUE(expected.contains(name)) << name;
        EXPECT_EQ(category, expected[name]) << name;
    }
    for (const auto& [name, category] : expected) EXPECT_NE(bar.Find(FromBytes(name)), nullptr) << name;
    EXPECT_EQ(bar.FindBand(u"bndMenu")->Find(u"mnuHelp")->Category, u"Menu");
    EXPECT_EQ(bar.FindBand(u"bndFont")->Find(u"mnuFontLarger")->Category, u"Font");
}

TEST_F(DesignTimeBarTest, OneToolTipHasASlipOfThePen_Deliberate) {
    EXPECT_EQ(bar.Find(u"shpHomesLoans")->TooltipText, u"Homes & Loads");
    EXPECT_EQ(bar.Find(u"fndMaps")->TooltipText, u"Maps & Directions");
}

TEST_F(DesignTimeBarTest, TheLargeSizeIsSpelledOtherwiseInTheMasterList_Deliberate) {
    EXPECT_NE(bar.Share(u"mnFontLarge"), nullptr);
    EXPECT_EQ(bar.Share(u"mnuFontLarger"), nullptr);
    EXPECT_NE(bar.FindBand(u"bndFont")->Find(u"mnuFontLarger"), nullptr);
    EXPECT_EQ(bar.Find(u"mnuFontLarge"), nullptr);
}

TEST_F(DesignTimeBarTest, TheHelpMenuAndHelpTopicsShareAName) {
    const Tool* menu = bar.FindBand(u"bndMenu")->Find(u"mnuHelp");
    const Tool* topics = bar.FindBand(u"bndHelpMenu")->Find(u"mnuHelp");
    EXPECT_EQ(ToUtf8(menu->Caption()), "&Help");
    EXPECT_EQ(ToUtf8(topics->Caption()), "&Help Topics");
    EXPECT_EQ(bar.Find(u"mnuHelp"), topics);
}

TEST_F(DesignTimeBarTest, PictureHoldersAreNotShown) {
    for (const TextView name : {u"mnuLinkImage", u"mnuFolderImage", u"mnuTessaGroupsImage"}) {
        EXPECT_FALSE(bar.Find(name)->Visible());
        EXPECT_FALSE(bar.Find(name)->Image.Name.empty());
    }
}

TEST_F(DesignTimeBarTest, EverySubBandIsABand) {
    for (const auto& band : bar.Bands()) {
        for (const BandEntry& entry : band->Entries()) {
            if (entry.Item->SubBand.empty()) continue;
            EXPECT_NE(bar.FindBand(entry.Item->SubBand), nullptr);
        }
    }
}

TEST_F(DesignTimeBarTest, ABandIsResetToItsDesign) {
    Band* band = bar.FindBand(u"bndGo");
    band->Clear();
    band->Visible = false;
    EXPECT_TRUE(DesignTimeBar::ResetBand(bar, u"bndGo"));
    EXPECT_EQ(band->Entries().size(), 6u);
    EXPECT_TRUE(band->Visible());
    bar.RemoveBand(u"bndMisc");
    EXPECT_TRUE(DesignTimeBar::ResetBand(bar, u"bndMisc"));
    EXPECT_EQ(bar.FindBand(u"bndMisc")->Entries().size(), 7u);
    EXPECT_FALSE(DesignTimeBar::ResetBand(bar, u"bndMine"));
}

TEST_F(DesignTimeBarTest, ShortcutsBelongToToolsAndAreGivenOnce) {
    std::set<std::pair<std::int32_t, std::int32_t>> keys;
    for (const Shortcut& each : bar.Shortcuts()) {
        EXPECT_NE(bar.Find(each.ToolName), nullptr) << ToUtf8(each.ToolName);
        EXPECT_TRUE(keys.insert({each.Key.KeyCode, each.Key.Shift}).second) << ToUtf8(each.ToolName);
    }
}

} // namespace

} // namespace tessa
