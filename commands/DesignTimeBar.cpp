#include "commands/DesignTimeBar.h"

#include "address/Endpoints.h"
#include "base/Captions.h"
#include "commands/CommandTable.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

struct BandRow {
    BandName name;
    TextView caption;
    BandKind kind;
    Docking dock;
};

constexpr Docking At(std::int32_t row, std::int32_t place) { return {DockSide::Top, row, place, {}, {}}; }

constexpr std::array kBands{
    BandRow{u"bndMenu"_band, u"Menu Bar", BandKind::MenuBar, {}},
    BandRow{u"bndFile"_band, u"File", BandKind::Toolbar, At(1, 0)},
    BandRow{u"bndNew"_band, u"", BandKind::Menu, {}},
    BandRow{u"bndGo"_band, u"Go", BandKind::Toolbar, At(1, 1)},
    BandRow{u"bndFileMenu"_band, u"File", BandKind::Menu, {}},
    BandRow{u"bndEditMenu"_band, u"Edit", BandKind::Menu, {}},
    BandRow{u"bndAddress"_band, u"Address", BandKind::Toolbar, At(2, 0)},
    BandRow{u"bndViewMenu"_band, u"View", BandKind::Menu, {}},
    BandRow{u"bndGoMenu"_band, u"Go", BandKind::Menu, {}},
    BandRow{u"bndFavorites"_band, u"Favorites", BandKind::Menu, {}},
    BandRow{u"bndTabPopup"_band, u"Tab Popup", BandKind::Popup, {}},
    BandRow{u"bndSearch"_band, u"Search", BandKind::Toolbar, At(2, 1)},
    BandRow{u"bndOptions"_band, u"Options", BandKind::Menu, {}},
    BandRow{u"bndHelpMenu"_band, u"Help", BandKind::Menu, {}},
    BandRow{u"bndTessaGroupsMenu"_band, u"TessaGroups", BandKind::Menu, {}},
    BandRow{u"bndMail"_band, u"Mail", BandKind::Menu, {}},
    BandRow{u"bndMisc"_band, u"Misc", BandKind::Toolbar, At(1, 2)},
    BandRow{u"bndFont"_band, u"Font", BandKind::Menu, {}},
    BandRow{u"bndShopMenu"_band, u"Shop", BandKind::Menu, {}},
    BandRow{u"bndFindLinks"_band, u"Find", BandKind::Menu, {}},
    // Additions of our own, beside the product's bands.
    BandRow{u"bndMore"_band, u"More", BandKind::Toolbar, At(2, 2)},
    BandRow{u"bndMoreMenu"_band, u"More", BandKind::Menu, {}},
    BandRow{u"bndTabMore"_band, u"More for the Tab", BandKind::Menu, {}},
    BandRow{u"bndTabGroup"_band, u"Tab Group", BandKind::Menu, {}},
    BandRow{u"bndTabGroupColour"_band, u"Colour of the Tab Group", BandKind::Menu, {}},
    BandRow{u"bndMoreBookmarks"_band, u"Import and Export", BandKind::Menu, {}},
    BandRow{u"bndFavoriteFolder"_band, u"Favorites Folder Popup", BandKind::Popup, {}},
    BandRow{u"bndFavoriteLink"_band, u"Favorites Link Popup", BandKind::Popup, {}},
    BandRow{u"bndGroupEntry"_band, u"TessaGroup Popup", BandKind::Popup, {}},
    BandRow{u"bndNewTab"_band, u"New Tab Popup", BandKind::Popup, {}},
    BandRow{u"bndTileMenu"_band, u"Side by Side", BandKind::Menu, {}},
    BandRow{u"bndChosenTabs"_band, u"Selected Tabs", BandKind::Menu, {}},
    BandRow{u"bndTabPanel"_band, u"Tabs at the Side", BandKind::Popup, {}},
};

static_assert(std::ranges::all_of(DesignedNames::kBands,
                                  [](TextView name) { return std::ranges::count(kBands, name, &BandRow::name) == 1; }),
              "a band of the design has no row, or several");

/// A tool on a band.
struct EntryRow {
    BandName band;
    ToolName tool;
    BeginGroup group = BeginGroup::No;
};

constexpr BeginGroup kGroup = BeginGroup::Yes;

constexpr std::array kEntries{
    EntryRow{u"bndMenu"_band, u"mnuFile"_tool},
    EntryRow{u"bndMenu"_band, u"mnuEdit"_tool},
    EntryRow{u"bndMenu"_band, u"mnuView"_tool},
    EntryRow{u"bndMenu"_band, u"mnuGo"_tool},
    EntryRow{u"bndMenu"_band, u"mnuFavorites"_tool},
    EntryRow{u"bndMenu"_band, u"mnuTessaGroups"_tool},
    EntryRow{u"bndMenu"_band, u"mnuFindLinks"_tool},
    EntryRow{u"bndMenu"_band, u"mnuShop"_tool},
    EntryRow{u"bndMenu"_band, u"mnuOptions"_tool},
    EntryRow{u"bndMenu"_band, u"mnuHelp"_tool},

    EntryRow{u"bndFile"_band, u"tbNew"_tool},
    EntryRow{u"bndFile"_band, u"mnuOpen"_tool},
    EntryRow{u"bndFile"_band, u"mnuClose"_tool},
    EntryRow{u"bndFile"_band, u"mnuCloseAll"_tool},

    EntryRow{u"bndNew"_band, u"mnuNewBlank"_tool},
    EntryRow{u"bndNew"_band, u"mnuNewSearch"_tool},
    EntryRow{u"bndNew"_band, u"mnuNewHome"_tool},
    EntryRow{u"bndNew"_band, u"mnuNewCurrent"_tool},

    EntryRow{u"bndGo"_band, u"mnuGoBack"_tool},
    EntryRow{u"bndGo"_band, u"mnuGoForward"_tool},
    EntryRow{u"bndGo"_band, u"mnuStop"_tool},
    EntryRow{u"bndGo"_band, u"mnuRefresh"_tool},
    EntryRow{u"bndGo"_band, u"mnuHome"_tool},
    EntryRow{u"bndGo"_band, u"mnuSearch"_tool},

    EntryRow{u"bndFileMenu"_band, u"mnuNewBlank"_tool},
    EntryRow{u"bndFileMenu"_band, u"mnuNewSearch"_tool},
    EntryRow{u"bndFileMenu"_band, u"mnuNewHome"_tool},
    EntryRow{u"bndFileMenu"_band, u"mnuNewCurrent"_tool},
    EntryRow{u"bndFileMenu"_band, u"mnuOpen"_tool, kGroup},
    EntryRow{u"bndFileMenu"_band, u"mnuClose"_tool, kGroup},
    EntryRow{u"bndFileMenu"_band, u"mnuCloseAll"_tool},
    EntryRow{u"bndFileMenu"_band, u"mnuSaveAs"_tool, kGroup},
    EntryRow{u"bndFileMenu"_band, u"mnuPrint"_tool, kGroup},
    EntryRow{u"bndFileMenu"_band, u"mnuPageSetup"_tool},
    EntryRow{u"bndFileMenu"_band, u"mnuExit"_tool, kGroup},

    EntryRow{u"bndEditMenu"_band, u"mnuCut"_tool},
    EntryRow{u"bndEditMenu"_band, u"mnuCopy"_tool},
    EntryRow{u"bndEditMenu"_band, u"mnuPaste"_tool},
    EntryRow{u"bndEditMenu"_band, u"mnuSelectAll"_tool, kGroup},
    EntryRow{u"bndEditMenu"_band, u"mnuFind"_tool, kGroup},

    EntryRow{u"bndAddress"_band, u"mnuAddress"_tool},
    EntryRow{u"bndAddress"_band, u"cboAddress"_tool},

    EntryRow{u"bndViewMenu"_band, u"mnuViewStatusbar"_tool},
    EntryRow{u"bndViewMenu"_band, u"mnuViewToolbars"_tool},
    EntryRow{u"bndViewMenu"_band, u"mnuStop"_tool, kGroup},
    EntryRow{u"bndViewMenu"_band, u"mnuRefresh"_tool},
    EntryRow{u"bndViewMenu"_band, u"mnuViewSource"_tool, kGroup},
    EntryRow{u"bndViewMenu"_band, u"mnuViewInternetOptions"_tool},
    EntryRow{u"bndViewMenu"_band, u"mnuClearAddresses"_tool, kGroup},
    EntryRow{u"bndViewMenu"_band, u"mnuClearSearches"_tool},
    EntryRow{u"bndViewMenu"_band, u"mnuResizeAddress"_tool, kGroup},
    EntryRow{u"bndViewMenu"_band, u"mnuResizeSearch"_tool},

    EntryRow{u"bndGoMenu"_band, u"mnuGoBack"_tool},
    EntryRow{u"bndGoMenu"_band, u"mnuGoForward"_tool},
    EntryRow{u"bndGoMenu"_band, u"mnuHome"_tool, kGroup},
    EntryRow{u"bndGoMenu"_band, u"mnuSearch"_tool},
    EntryRow{u"bndGoMenu"_band, u"mnuPreviousBrowserTab"_tool, kGroup},
    EntryRow{u"bndGoMenu"_band, u"mnuNextBrowserTab"_tool},

    EntryRow{u"bndFavorites"_band, u"mnuAddToFavorites"_tool},
    EntryRow{u"bndFavorites"_band, u"mnuOrganizeFavorites"_tool},

    EntryRow{u"bndTabPopup"_band, u"mnuTabStop"_tool},
    EntryRow{u"bndTabPopup"_band, u"mnuTabRefresh"_tool},
    EntryRow{u"bndTabPopup"_band, u"mnuTabClose"_tool, kGroup},
    EntryRow{u"bndTabPopup"_band, u"xtrTabMore"_tool, kGroup},

    EntryRow{u"bndTabMore"_band, u"xtrTabCloseOthers"_tool},
    EntryRow{u"bndTabMore"_band, u"xtrTabCloseRight"_tool},
    EntryRow{u"bndTabMore"_band, u"xtrReopenTab"_tool},
    EntryRow{u"bndTabMore"_band, u"xtrTabShowWhatIsNew"_tool, kGroup},
    EntryRow{u"bndTabMore"_band, u"xtrTabCloseWithoutNews"_tool},
    EntryRow{u"bndTabMore"_band, u"xtrTabCloseRead"_tool},
    EntryRow{u"bndTabMore"_band, u"xtrTabDuplicate"_tool, kGroup},
    EntryRow{u"bndTabMore"_band, u"xtrTabPin"_tool},
    EntryRow{u"bndTabMore"_band, u"xtrTabBeside"_tool},
    EntryRow{u"bndTabMore"_band, u"xtrTabMute"_tool},
    EntryRow{u"bndTabMore"_band, u"xtrTabSleep"_tool},
    EntryRow{u"bndTabMore"_band, u"xtrTabRename"_tool},
    EntryRow{u"bndTabMore"_band, u"xtrTabInGroup"_tool, kGroup},
    EntryRow{u"bndTabMore"_band, u"xtrTabGroupMenu"_tool},
    EntryRow{u"bndTabMore"_band, u"xtrTabAddToTessaGroup"_tool},
    EntryRow{u"bndTabMore"_band, u"xtrTabCopyAddress"_tool},
    EntryRow{u"bndTabMore"_band, u"xtrChosenTabs"_tool, kGroup},

    EntryRow{u"bndTabGroup"_band, u"xtrTabGroupFold"_tool},
    EntryRow{u"bndTabGroup"_band, u"xtrTabGroupSave"_tool, kGroup},
    EntryRow{u"bndTabGroup"_band, u"xtrTabGroupEdit"_tool},
    EntryRow{u"bndTabGroup"_band, u"xtrTabGroupReload"_tool, kGroup},
    EntryRow{u"bndTabGroup"_band, u"xtrTabGroupSleep"_tool},
    EntryRow{u"bndTabGroup"_band, u"xtrTabGroupMute"_tool},
    EntryRow{u"bndTabGroup"_band, u"xtrTabGroupColour"_tool, kGroup},
    EntryRow{u"bndTabGroup"_band, u"xtrTabGroupToEnd"_tool},
    EntryRow{u"bndTabGroup"_band, u"xtrTabGroupOut"_tool, kGroup},
    EntryRow{u"bndTabGroup"_band, u"xtrTabGroupDissolve"_tool},
    EntryRow{u"bndTabGroup"_band, u"xtrTabGroupClose"_tool},

    EntryRow{u"bndTabGroupColour"_band, u"xtrTabGroupRed"_tool},
    EntryRow{u"bndTabGroupColour"_band, u"xtrTabGroupOrange"_tool},
    EntryRow{u"bndTabGroupColour"_band, u"xtrTabGroupYellow"_tool},
    EntryRow{u"bndTabGroupColour"_band, u"xtrTabGroupGreen"_tool},
    EntryRow{u"bndTabGroupColour"_band, u"xtrTabGroupBlue"_tool},
    EntryRow{u"bndTabGroupColour"_band, u"xtrTabGroupPurple"_tool},
    EntryRow{u"bndTabGroupColour"_band, u"xtrTabGroupGrey"_tool},

    EntryRow{u"bndSearch"_band, u"mnuSearchLabel"_tool},
    EntryRow{u"bndSearch"_band, u"cboSearch"_tool},

    EntryRow{u"bndOptions"_band, u"mnuLoadImages"_tool},
    EntryRow{u"bndOptions"_band, u"mnuLoadVideos"_tool},
    EntryRow{u"bndOptions"_band, u"mnuLoadSounds"_tool},
    EntryRow{u"bndOptions"_band, u"mnuLoadAnimations"_tool},
    EntryRow{u"bndOptions"_band, u"mnuSettings"_tool, kGroup},

    EntryRow{u"bndHelpMenu"_band, u"mnuHelp"_tool},
    EntryRow{u"bndHelpMenu"_band, u"xtrCopyReport"_tool},
    EntryRow{u"bndHelpMenu"_band, u"mnuAbout"_tool, kGroup},

    EntryRow{u"bndTessaGroupsMenu"_band, u"mnuAddToTessaGroup"_tool},
    EntryRow{u"bndTessaGroupsMenu"_band, u"mnuSaveAsTessaGroup"_tool},
    EntryRow{u"bndTessaGroupsMenu"_band, u"mnuOrganizeTessaGroups"_tool},

    EntryRow{u"bndMail"_band, u"mnuReadMail"_tool},
    EntryRow{u"bndMail"_band, u"mnuNewMessage"_tool},
    EntryRow{u"bndMail"_band, u"mnuSendLink"_tool},
    EntryRow{u"bndMail"_band, u"mnuMailQuorvaneSoftware"_tool, kGroup},
    EntryRow{u"bndMail"_band, u"mnuFeatureRequest"_tool},
    EntryRow{u"bndMail"_band, u"mnuMailBugReport"_tool},
    EntryRow{u"bndMail"_band, u"mnuReadNews"_tool, kGroup},

    EntryRow{u"bndMisc"_band, u"mnuAddToFavorites"_tool},
    EntryRow{u"bndMisc"_band, u"mnuOrganizeFavorites"_tool},
    EntryRow{u"bndMisc"_band, u"mnuPrint"_tool, kGroup},
    EntryRow{u"bndMisc"_band, u"mnuViewSource"_tool},
    EntryRow{u"bndMisc"_band, u"mnuLoadImages"_tool},
    EntryRow{u"bndMisc"_band, u"mnuMail"_tool, kGroup},
    EntryRow{u"bndMisc"_band, u"mnuFont"_tool},

    EntryRow{u"bndFont"_band, u"mnuFontLargest"_tool},
    EntryRow{u"bndFont"_band, u"mnuFontLarger"_tool},
    EntryRow{u"bndFont"_band, u"mnuFontMedium"_tool},
    EntryRow{u"bndFont"_band, u"mnuFontSmaller"_tool},
    EntryRow{u"bndFont"_band, u"mnuFontSmallest"_tool},

    EntryRow{u"bndMore"_band, u"xtrMore"_tool},

    EntryRow{u"bndMoreMenu"_band, u"xtrPrivateTab"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrReopenTab"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrTabList"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrTabPanel"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrChosenTabs"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrSessions"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrDownloads"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrHistory"_tool, kGroup},
    EntryRow{u"bndMoreMenu"_band, u"xtrSearchOpenPages"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrShowWhatIsNew"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrNextUnread"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrStopAll"_tool, kGroup},
    EntryRow{u"bndMoreMenu"_band, u"mnuFind"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrTextLarger"_tool, kGroup},
    EntryRow{u"bndMoreMenu"_band, u"xtrTextSmaller"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrTextUsual"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrTiles"_tool, kGroup},
    EntryRow{u"bndMoreMenu"_band, u"xtrFullScreen"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrPrintPreview"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrBookmarks"_tool, kGroup},
    EntryRow{u"bndMoreMenu"_band, u"xtrGroupPdf"_tool, kGroup},
    EntryRow{u"bndMoreMenu"_band, u"xtrGroupPrint"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrGroupKeepOffline"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrGroupCheckAll"_tool},
    EntryRow{u"bndMoreMenu"_band, u"xtrDevTools"_tool, kGroup},
    EntryRow{u"bndMoreMenu"_band, u"xtrTaskView"_tool},

    EntryRow{u"bndTileMenu"_band, u"xtrTileColumns"_tool},
    EntryRow{u"bndTileMenu"_band, u"xtrTileRows"_tool},
    EntryRow{u"bndTileMenu"_band, u"xtrTileGrid"_tool},
    EntryRow{u"bndTileMenu"_band, u"xtrTileMain"_tool},
    EntryRow{u"bndTileMenu"_band, u"xtrTileNone"_tool, kGroup},
    EntryRow{u"bndTileMenu"_band, u"xtrTileLink"_tool, kGroup},
    EntryRow{u"bndTileMenu"_band, u"xtrTileHeaders"_tool},
    EntryRow{u"bndTileMenu"_band, u"xtrTileDividers"_tool},

    EntryRow{u"bndChosenTabs"_band, u"xtrChosenClose"_tool},
    EntryRow{u"bndChosenTabs"_band, u"xtrChosenMute"_tool},
    EntryRow{u"bndChosenTabs"_band, u"xtrChosenSleep"_tool},
    EntryRow{u"bndChosenTabs"_band, u"xtrChosenSaveAsTessaGroup"_tool, kGroup},
    EntryRow{u"bndChosenTabs"_band, u"xtrChosenAddToTessaGroup"_tool},
    EntryRow{u"bndChosenTabs"_band, u"xtrChosenCopyAddresses"_tool},
    EntryRow{u"bndChosenTabs"_band, u"xtrTileColumns"_tool, kGroup},
    EntryRow{u"bndChosenTabs"_band, u"xtrTileRows"_tool},
    EntryRow{u"bndChosenTabs"_band, u"xtrTileGrid"_tool},
    EntryRow{u"bndChosenTabs"_band, u"xtrChosenAll"_tool, kGroup},
    EntryRow{u"bndChosenTabs"_band, u"xtrChosenNone"_tool},

    EntryRow{u"bndTabPanel"_band, u"xtrTabStripHidden"_tool},
    EntryRow{u"bndTabPanel"_band, u"xtrTabPanelRight"_tool},
    EntryRow{u"bndTabPanel"_band, u"xtrChosenAll"_tool, kGroup},
    EntryRow{u"bndTabPanel"_band, u"xtrChosenTabs"_tool},

    EntryRow{u"bndMoreBookmarks"_band, u"xtrImportFavorites"_tool},
    EntryRow{u"bndMoreBookmarks"_band, u"xtrImportTessaGroups"_tool},
    EntryRow{u"bndMoreBookmarks"_band, u"xtrExportFavorites"_tool, kGroup},
    EntryRow{u"bndMoreBookmarks"_band, u"xtrExportTessaGroups"_tool},

    EntryRow{u"bndFavoriteFolder"_band, u"xtrFolderOpen"_tool},
    EntryRow{u"bndFavoriteFolder"_band, u"xtrFolderOpenBelow"_tool},
    EntryRow{u"bndFavoriteFolder"_band, u"xtrFolderSave"_tool},

    EntryRow{u"bndFavoriteLink"_band, u"xtrLinkNewTab"_tool},

    EntryRow{u"bndGroupEntry"_band, u"xtrGroupOpen"_tool},
    EntryRow{u"bndGroupEntry"_band, u"xtrGroupOrganize"_tool},
    EntryRow{u"bndGroupEntry"_band, u"xtrGroupCheck"_tool},
    EntryRow{u"bndGroupEntry"_band, u"xtrGroupPagesPdf"_tool, kGroup},
    EntryRow{u"bndGroupEntry"_band, u"xtrGroupPagesPrint"_tool},
    EntryRow{u"bndGroupEntry"_band, u"xtrGroupPagesOffline"_tool},
    EntryRow{u"bndGroupEntry"_band, u"xtrGroupRename"_tool, kGroup},
    EntryRow{u"bndGroupEntry"_band, u"xtrGroupDelete"_tool, kGroup},

    EntryRow{u"bndNewTab"_band, u"mnuNewBlank"_tool},
    EntryRow{u"bndNewTab"_band, u"xtrPrivateTab"_tool},
    EntryRow{u"bndNewTab"_band, u"xtrReopenTab"_tool, kGroup},
    EntryRow{u"bndNewTab"_band, u"xtrTabList"_tool},
};

constexpr std::int32_t kFirstOwnId = 198;

Text CaptionOf(const Command& row) {
    Text caption(row.caption);
    // The label says who searches.
    if (row.tool == u"mnuSearchLabel"_tool) caption += u" " + Text(Endpoints::kSearchServiceName);
    return caption;
}

Text TooltipOf(const Command& row) {
    // Deliberate: the slip of the pen is part of the product.
    if (row.tool == u"shpHomesLoans"_tool) return u"Homes & Loads";
    return WithoutAccessKey(row.caption);
}

std::unique_ptr<Tool> EmptyTool(const Command& row, std::int32_t id) {
    if (row.kind == ToolKind::Combo) return std::make_unique<ComboTool>(id, Text(row.tool), CaptionOf(row));
    return std::make_unique<Tool>(id, Text(row.tool), CaptionOf(row), row.kind);
}

std::unique_ptr<Tool> NewTool(const Command& row, std::int32_t id) {
    auto tool = EmptyTool(row, id);
    tool->TooltipText = TooltipOf(row);
    tool->Category = row.category;
    tool->Description = row.description;
    tool->Image = {Text(row.icon)};
    tool->Visible = row.onBar == CommandTraits::OnBar::Shown;
    if (!row.subBand) return tool;
    tool->SubBand = TextView(*row.subBand);
    tool->ClickWithSubBand = row.Runs();
    return tool;
}

void AddTools(CommandBar& bar) {
    std::int32_t id = 1, ownId = kFirstOwnId;
    for (const Command& row : CommandTable()) {
        if (row.onBar == CommandTraits::OnBar::MadeLater) continue;
        id = row.countsFrom.value_or(id);
        if (row.onlyOn)
            bar.AddOwn(Text(*row.onlyOn), NewTool(row, ownId++));
        else
            bar.Add(NewTool(row, id++));
    }
}

std::shared_ptr<Tool> ToolFor(const CommandBar& bar, const EntryRow& row) {
    auto own = bar.ShareOwn(row.band, row.tool);
    return own ? own : bar.Share(row.tool);
}

std::vector<BandEntry> EntriesOf(const CommandBar& bar, BandName band) {
    std::vector<BandEntry> entries;
    for (const EntryRow& row : kEntries) {
        if (row.band == band) entries.push_back({ToolFor(bar, row), row.group});
    }
    if (band == u"bndShopMenu"_band || band == u"bndFindLinks"_band) {
        for (const Command& row : band == u"bndShopMenu"_band ? ShopLinks() : FindLinks())
            entries.push_back({bar.Share(row.tool)});
    }
    return entries;
}

} // namespace

namespace DesignTimeBar {

void Make(CommandBar& bar) {
    AddTools(bar);
    ResetWidths(bar);
    bar.SetShortcuts({DesignedShortcuts().begin(), DesignedShortcuts().end()});
    for (const BandRow& row : kBands) ResetBand(bar, row.name);
}

void ResetWidths(CommandBar& bar) {
    if (auto* address = bar.FindCombo(u"cboAddress"_tool)) {
        address->Width = Pixels{520};
        address->FillsRow = true;
    }
    if (auto* search = bar.FindCombo(u"cboSearch"_tool)) search->Width = Pixels{240};
}

bool ResetBand(CommandBar& bar, TextView name) {
    const auto* row = std::ranges::find(kBands, name, &BandRow::name);
    if (row == kBands.end()) return false;
    Band* band = bar.FindBand(name);
    if (!band) band = bar.AddBand(Text(row->name), Text(row->caption), row->kind);
    band->Caption = Text(row->caption);
    band->Visible = true;
    band->Dock = row->dock;
    band->SetEntries(EntriesOf(bar, row->name));
    return true;
}

bool IsDesigned(TextView band) { return std::ranges::find(kBands, band, &BandRow::name) != kBands.end(); }

} // namespace DesignTimeBar

} // namespace tessa
