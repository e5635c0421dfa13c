#include "commands/DesignTimeBar.h"

#include "address/Endpoints.h"
#include "base/Captions.h"
#include "commands/ToolNames.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace {

struct BandRow {
    TextView name;
    TextView caption;
    BandKind kind;
    Docking dock;
};

constexpr Docking At(std::int32_t row, std::int32_t place) { return {DockSide::Top, row, place, {}, {}}; }

constexpr std::array kBands{
    BandRow{u"bndMenu", u"Menu Bar", BandKind::MenuBar, {}},
    BandRow{u"bndFile", u"File", BandKind::Toolbar, At(1, 0)},
    BandRow{u"bndNew", u"", BandKind::Menu, {}},
    BandRow{u"bndGo", u"Go", BandKind::Toolbar, At(1, 1)},
    BandRow{u"bndFileMenu", u"File", BandKind::Menu, {}},
    BandRow{u"bndEditMenu", u"Edit", BandKind::Menu, {}},
    BandRow{u"bndAddress", u"Address", BandKind::Toolbar, At(2, 0)},
    BandRow{u"bndViewMenu", u"View", BandKind::Menu, {}},
    BandRow{u"bndGoMenu", u"Go", BandKind::Menu, {}},
    BandRow{u"bndFavorites", u"Favorites", BandKind::Menu, {}},
    BandRow{u"bndTabPopup", u"Tab Popup", BandKind::Popup, {}},
    BandRow{u"bndSearch", u"Search", BandKind::Toolbar, At(2, 1)},
    BandRow{u"bndOptions", u"Options", BandKind::Menu, {}},
    BandRow{u"bndHelpMenu", u"Help", BandKind::Menu, {}},
    BandRow{u"bndTessaGroupsMenu", u"TessaGroups", BandKind::Menu, {}},
    BandRow{u"bndMail", u"Mail", BandKind::Menu, {}},
    BandRow{u"bndMisc", u"Misc", BandKind::Toolbar, At(1, 2)},
    BandRow{u"bndFont", u"Font", BandKind::Menu, {}},
    BandRow{u"bndShopMenu", u"Shop", BandKind::Menu, {}},
    BandRow{u"bndFindLinks", u"Find", BandKind::Menu, {}},
    // Additions of our own, beside the product's bands.
    BandRow{u"bndMore", u"More", BandKind::Toolbar, At(2, 2)},
    BandRow{u"bndMoreMenu", u"More", BandKind::Menu, {}},
    BandRow{u"bndTabMore", u"More for the Tab", BandKind::Menu, {}},
    BandRow{u"bndMoreBookmarks", u"Import and Export", BandKind::Menu, {}},
    BandRow{u"bndFavoriteFolder", u"Favorites Folder Popup", BandKind::Popup, {}},
    BandRow{u"bndFavoriteLink", u"Favorites Link Popup", BandKind::Popup, {}},
    BandRow{u"bndGroupEntry", u"TessaGroup Popup", BandKind::Popup, {}},
    BandRow{u"bndNewTab", u"New Tab Popup", BandKind::Popup, {}},
};

/// A tool on a band.
struct EntryRow {
    TextView band;
    TextView tool;
    BeginGroup group = BeginGroup::No;
};

constexpr BeginGroup kGroup = BeginGroup::Yes;

constexpr std::array kEntries{
    EntryRow{u"bndMenu", u"mnuFile"},
    EntryRow{u"bndMenu", u"mnuEdit"},
    EntryRow{u"bndMenu", u"mnuView"},
    EntryRow{u"bndMenu", u"mnuGo"},
    EntryRow{u"bndMenu", u"mnuFavorites"},
    EntryRow{u"bndMenu", u"mnuTessaGroups"},
    EntryRow{u"bndMenu", u"mnuFindLinks"},
    EntryRow{u"bndMenu", u"mnuShop"},
    EntryRow{u"bndMenu", u"mnuOptions"},
    EntryRow{u"bndMenu", u"mnuHelp"},

    EntryRow{u"bndFile", u"tbNew"},
    EntryRow{u"bndFile", u"mnuOpen"},
    EntryRow{u"bndFile", u"mnuClose"},
    EntryRow{u"bndFile", u"mnuCloseAll"},

    EntryRow{u"bndNew", u"mnuNewBlank"},
    EntryRow{u"bndNew", u"mnuNewSearch"},
    EntryRow{u"bndNew", u"mnuNewHome"},
    EntryRow{u"bndNew", u"mnuNewCurrent"},

    EntryRow{u"bndGo", u"mnuGoBack"},
    EntryRow{u"bndGo", u"mnuGoForward"},
    EntryRow{u"bndGo", u"mnuStop"},
    EntryRow{u"bndGo", u"mnuRefresh"},
    EntryRow{u"bndGo", u"mnuHome"},
    EntryRow{u"bndGo", u"mnuSearch"},

    EntryRow{u"bndFileMenu", u"mnuNewBlank"},
    EntryRow{u"bndFileMenu", u"mnuNewSearch"},
    EntryRow{u"bndFileMenu", u"mnuNewHome"},
    EntryRow{u"bndFileMenu", u"mnuNewCurrent"},
    EntryRow{u"bndFileMenu", u"mnuOpen", kGroup},
    EntryRow{u"bndFileMenu", u"mnuClose", kGroup},
    EntryRow{u"bndFileMenu", u"mnuCloseAll"},
    EntryRow{u"bndFileMenu", u"mnuSaveAs", kGroup},
    EntryRow{u"bndFileMenu", u"mnuPrint", kGroup},
    EntryRow{u"bndFileMenu", u"mnuPageSetup"},
    EntryRow{u"bndFileMenu", u"mnuExit", kGroup},

    EntryRow{u"bndEditMenu", u"mnuCut"},
    EntryRow{u"bndEditMenu", u"mnuCopy"},
    EntryRow{u"bndEditMenu", u"mnuPaste"},
    EntryRow{u"bndEditMenu", u"mnuSelectAll", kGroup},
    EntryRow{u"bndEditMenu", u"mnuFind", kGroup},

    EntryRow{u"bndAddress", u"mnuAddress"},
    EntryRow{u"bndAddress", u"cboAddress"},

    EntryRow{u"bndViewMenu", u"mnuViewStatusbar"},
    EntryRow{u"bndViewMenu", u"mnuViewToolbars"},
    EntryRow{u"bndViewMenu", u"mnuStop", kGroup},
    EntryRow{u"bndViewMenu", u"mnuRefresh"},
    EntryRow{u"bndViewMenu", u"mnuViewSource", kGroup},
    EntryRow{u"bndViewMenu", u"mnuViewInternetOptions"},
    EntryRow{u"bndViewMenu", u"mnuClearAddresses", kGroup},
    EntryRow{u"bndViewMenu", u"mnuClearSearches"},
    EntryRow{u"bndViewMenu", u"mnuResizeAddress", kGroup},
    EntryRow{u"bndViewMenu", u"mnuResizeSearch"},

    EntryRow{u"bndGoMenu", u"mnuGoBack"},
    EntryRow{u"bndGoMenu", u"mnuGoForward"},
    EntryRow{u"bndGoMenu", u"mnuHome", kGroup},
    EntryRow{u"bndGoMenu", u"mnuSearch"},
    EntryRow{u"bndGoMenu", u"mnuPreviousBrowserTab", kGroup},
    EntryRow{u"bndGoMenu", u"mnuNextBrowserTab"},

    EntryRow{u"bndFavorites", u"mnuAddToFavorites"},
    EntryRow{u"bndFavorites", u"mnuOrganizeFavorites"},

    EntryRow{u"bndTabPopup", u"mnuTabStop"},
    EntryRow{u"bndTabPopup", u"mnuTabRefresh"},
    EntryRow{u"bndTabPopup", u"mnuTabClose", kGroup},
    EntryRow{u"bndTabPopup", u"xtrTabMore", kGroup},

    EntryRow{u"bndTabMore", u"xtrTabCloseOthers"},
    EntryRow{u"bndTabMore", u"xtrTabCloseRight"},
    EntryRow{u"bndTabMore", u"xtrReopenTab"},
    EntryRow{u"bndTabMore", u"xtrTabDuplicate", kGroup},
    EntryRow{u"bndTabMore", u"xtrTabMute"},
    EntryRow{u"bndTabMore", u"xtrTabAddToTessaGroup", kGroup},
    EntryRow{u"bndTabMore", u"xtrTabCopyAddress"},

    EntryRow{u"bndSearch", u"mnuSearchLabel"},
    EntryRow{u"bndSearch", u"cboSearch"},

    EntryRow{u"bndOptions", u"mnuLoadImages"},
    EntryRow{u"bndOptions", u"mnuLoadVideos"},
    EntryRow{u"bndOptions", u"mnuLoadSounds"},
    EntryRow{u"bndOptions", u"mnuLoadAnimations"},
    EntryRow{u"bndOptions", u"mnuSettings", kGroup},

    EntryRow{u"bndHelpMenu", u"mnuHelp"},
    EntryRow{u"bndHelpMenu", u"xtrCopyReport"},
    EntryRow{u"bndHelpMenu", u"mnuAbout", kGroup},

    EntryRow{u"bndTessaGroupsMenu", u"mnuAddToTessaGroup"},
    EntryRow{u"bndTessaGroupsMenu", u"mnuSaveAsTessaGroup"},
    EntryRow{u"bndTessaGroupsMenu", u"mnuOrganizeTessaGroups"},

    EntryRow{u"bndMail", u"mnuReadMail"},
    EntryRow{u"bndMail", u"mnuNewMessage"},
    EntryRow{u"bndMail", u"mnuSendLink"},
    EntryRow{u"bndMail", u"mnuMailQuorvaneSoftware", kGroup},
    EntryRow{u"bndMail", u"mnuFeatureRequest"},
    EntryRow{u"bndMail", u"mnuMailBugReport"},
    EntryRow{u"bndMail", u"mnuReadNews", kGroup},

    EntryRow{u"bndMisc", u"mnuAddToFavorites"},
    EntryRow{u"bndMisc", u"mnuOrganizeFavorites"},
    EntryRow{u"bndMisc", u"mnuPrint", kGroup},
    EntryRow{u"bndMisc", u"mnuViewSource"},
    EntryRow{u"bndMisc", u"mnuLoadImages"},
    EntryRow{u"bndMisc", u"mnuMail", kGroup},
    EntryRow{u"bndMisc", u"mnuFont"},

    EntryRow{u"bndFont", u"mnuFontLargest"},
    EntryRow{u"bndFont", u"mnuFontLarger"},
    EntryRow{u"bndFont", u"mnuFontMedium"},
    EntryRow{u"bndFont", u"mnuFontSmaller"},
    EntryRow{u"bndFont", u"mnuFontSmallest"},

    EntryRow{u"bndMore", u"xtrMore"},

    EntryRow{u"bndMoreMenu", u"xtrPrivateTab"},
    EntryRow{u"bndMoreMenu", u"xtrReopenTab"},
    EntryRow{u"bndMoreMenu", u"xtrTabList"},
    EntryRow{u"bndMoreMenu", u"xtrSessions"},
    EntryRow{u"bndMoreMenu", u"xtrDownloads"},
    EntryRow{u"bndMoreMenu", u"xtrStopAll", kGroup},
    EntryRow{u"bndMoreMenu", u"mnuFind"},
    EntryRow{u"bndMoreMenu", u"xtrTextLarger", kGroup},
    EntryRow{u"bndMoreMenu", u"xtrTextSmaller"},
    EntryRow{u"bndMoreMenu", u"xtrTextUsual"},
    EntryRow{u"bndMoreMenu", u"xtrFullScreen", kGroup},
    EntryRow{u"bndMoreMenu", u"xtrPrintPreview"},
    EntryRow{u"bndMoreMenu", u"xtrBookmarks", kGroup},
    EntryRow{u"bndMoreMenu", u"xtrDevTools", kGroup},
    EntryRow{u"bndMoreMenu", u"xtrTaskView"},

    EntryRow{u"bndMoreBookmarks", u"xtrImportFavorites"},
    EntryRow{u"bndMoreBookmarks", u"xtrImportTessaGroups"},
    EntryRow{u"bndMoreBookmarks", u"xtrExportFavorites", kGroup},
    EntryRow{u"bndMoreBookmarks", u"xtrExportTessaGroups"},

    EntryRow{u"bndFavoriteFolder", u"xtrFolderOpen"},
    EntryRow{u"bndFavoriteFolder", u"xtrFolderSave"},

    EntryRow{u"bndFavoriteLink", u"xtrLinkNewTab"},

    EntryRow{u"bndGroupEntry", u"xtrGroupOpen"},
    EntryRow{u"bndGroupEntry", u"xtrGroupOrganize"},
    EntryRow{u"bndGroupEntry", u"xtrGroupRename"},
    EntryRow{u"bndGroupEntry", u"xtrGroupDelete", kGroup},

    EntryRow{u"bndNewTab", u"mnuNewBlank"},
    EntryRow{u"bndNewTab", u"xtrPrivateTab"},
    EntryRow{u"bndNewTab", u"xtrReopenTab", kGroup},
    EntryRow{u"bndNewTab", u"xtrTabList"},
};

/// Tools of one band alone, which share a name with another tool or are spelled otherwise than in the master list.
struct OwnRow {
    TextView band;
    TextView tool;
    TextView caption;
    TextView category;
    TextView description;
    TextView subBand;
};

constexpr std::array kOwn{
    OwnRow{u"bndMenu", u"mnuHelp", u"&Help", u"Menu", u"Help and information on TessaView", u"bndHelpMenu"},
    OwnRow{u"bndFont", u"mnuFontLarger", u"&Large", u"Font", u"Shows the text at a large size", u""},
};

constexpr std::int32_t kFirstOwnId = 180;

Text TooltipOf(const ToolRow& row) {
    // Deliberate: the slip of the pen is part of the product.
    if (row.name == u"shpHomesLoans") return u"Homes & Loads";
    return WithoutAccessKey(row.caption);
}

void AddTools(CommandBar& bar, std::span<const ToolRow> rows, std::int32_t& id) {
    for (const ToolRow& row : rows) {
        auto* tool = bar.Add(std::make_unique<Tool>(id++, Text(row.name), Text(row.caption)));
        tool->TooltipText = TooltipOf(row);
        tool->Category = row.category;
        tool->Description = row.description;
        tool->Image = {Text(row.icon)};
        tool->SubBand = row.subBand;
        tool->ClickWithSubBand = !row.subBand.empty() && row.category != u"Menu";
    }
}

void AddLabelAndBox(CommandBar& bar, std::int32_t& id, TextView category, TextView label, Text caption, TextView box,
                    TextView description) {
    auto* text = bar.Add(std::make_unique<Tool>(id++, Text(label), caption, ToolKind::Label));
    auto* combo = bar.Add(std::make_unique<ComboTool>(id++, Text(box), Text(category)));
    for (Tool* tool : {text, static_cast<Tool*>(combo)}) {
        tool->Category = category;
        tool->Description = description;
        tool->TooltipText = category;
    }
}

void AddOwnTools(CommandBar& bar) {
    std::int32_t id = kFirstOwnId;
    for (const OwnRow& row : kOwn) {
        const auto tool = bar.AddOwn(Text(row.band), std::make_unique<Tool>(id++, Text(row.tool), Text(row.caption)));
        tool->TooltipText = WithoutAccessKey(row.caption);
        tool->Category = row.category;
        tool->Description = row.description;
        tool->SubBand = row.subBand;
    }
}

std::shared_ptr<Tool> ToolFor(const CommandBar& bar, const EntryRow& row) {
    auto own = bar.ShareOwn(row.band, row.tool);
    return own ? own : bar.Share(row.tool);
}

std::vector<BandEntry> EntriesOf(const CommandBar& bar, TextView band) {
    std::vector<BandEntry> entries;
    for (const EntryRow& row : kEntries) {
        if (row.band == band) entries.push_back({ToolFor(bar, row), row.group});
    }
    if (band == u"bndShopMenu" || band == u"bndFindLinks") {
        for (const ToolRow& row : band == u"bndShopMenu" ? ShopLinks() : FindLinks())
            entries.push_back({bar.Share(row.name)});
    }
    return entries;
}

} // namespace

namespace DesignTimeBar {

void Make(CommandBar& bar) {
    std::int32_t id = 1;
    AddTools(bar, DesignedTools(), id);
    AddTools(bar, ShopLinks(), id);
    AddTools(bar, FindLinks(), id);
    AddOwnTools(bar);
    AddLabelAndBox(bar, id, u"Address", u"mnuAddress", u"A&ddress", u"cboAddress", u"The address of the page");
    AddLabelAndBox(bar, id, u"Search", u"mnuSearchLabel", u"Sea&rch " + Text(Endpoints::kSearchServiceName),
                   u"cboSearch", u"Words to search for");
    AddTools(bar, OwnTools(), id);
    // They do nothing but open their menus.
    for (const TextView opener : {u"xtrMore", u"xtrTabMore", u"xtrBookmarks"})
        bar.Find(opener)->ClickWithSubBand = false;
    for (const TextView holder : {u"mnuLinkImage", u"mnuFolderImage", u"mnuTessaGroupsImage"})
        bar.Find(holder)->Visible = false;
    ResetWidths(bar);
    bar.SetShortcuts({DesignedShortcuts().begin(), DesignedShortcuts().end()});
    for (const BandRow& row : kBands) ResetBand(bar, row.name);
}

void ResetWidths(CommandBar& bar) {
    if (auto* address = bar.FindCombo(u"cboAddress")) {
        address->Width = Pixels{520};
        address->FillsRow = true;
    }
    if (auto* search = bar.FindCombo(u"cboSearch")) search->Width = Pixels{240};
}

bool ResetBand(CommandBar& bar, TextView name) {
    const auto* row = std::ranges::find(kBands, name, &BandRow::name);
    if (row == kBands.end()) return false;
    Band* band = bar.FindBand(name);
    if (!band) band = bar.AddBand(Text(row->name), Text(row->caption), row->kind);
    band->Caption = Text(row->caption);
    band->Visible = true;
    band->Dock = row->dock;
    band->SetEntries(EntriesOf(bar, name));
    return true;
}

bool IsDesigned(TextView band) { return std::ranges::find(kBands, band, &BandRow::name) != kBands.end(); }

} // namespace DesignTimeBar
