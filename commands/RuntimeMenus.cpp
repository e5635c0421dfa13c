#include "commands/RuntimeMenus.h"

#include "bar/RuntimeIds.h"
#include "commands/MenuEntryCommands.h"
#include "groups/TessaGroups.h"

#include <algorithm>
#include <array>

namespace {

/// How the names of bands begin that are laid out by design, or made by the user.
constexpr std::array kNoFolders{TextView(u"bnd"), TextView(u"shp"), TextView(u"gui")};
constexpr TextView kRuntimeBands = u"zz";

bool ShowsFolder(const Band& band) {
    const auto begins = [&](TextView prefix) { return band.Name().starts_with(prefix); };
    return std::ranges::none_of(kNoFolders, begins) && band.Entries().empty();
}

} // namespace

RuntimeMenus::RuntimeMenus(CommandContext& context, FolderWatch& watch)
    : m_context(context), m_watch(watch), m_favorites(context.actBar) {
    m_watch.Changed.ConnectForLife([this](TextView folder) {
        const bool groups = folder == m_context.groupFolder;
        (groups ? m_context.groupsMenuStale : m_context.favoritesMenuStale) = true;
        FoldersChanged();
    });
}

void RuntimeMenus::WatchFolders() {
    m_watch.Watch(m_context.groupFolder);
    m_watch.Watch(m_context.favoritesFolder);
}

void RuntimeMenus::BandOpen(Band& band) {
    if (band.Name() == u"bndFavorites"_band && m_context.favoritesMenuStale) return RebuildFavorites(band);
    if (band.Name() == u"bndTessaGroupsMenu"_band && m_context.groupsMenuStale) return RebuildGroups(band);
    if (band.Name() == u"bndFont"_band) return m_context.pages.MarkTextSize();
    if (ShowsFolder(band)) FillFolder(band);
}

bool RuntimeMenus::EntryPopup(const Tool& tool) {
    const auto entry = MenuEntryCommands::EntryOf(tool);
    if (entry.band.empty()) return false;
    m_context.menuEntry = entry.target;
    m_context.actBar.Popup(entry.band);
    return true;
}

std::function<void()> RuntimeMenus::EntryMiddleClick(const Tool& tool) {
    if (!tool.SubBand.starts_with(Favorites::kBandPrefix) || !m_context.host.OpenFavorites) return {};
    return [this, folder = tool.Description] { m_context.host.OpenFavorites(folder); };
}

std::function<void()> RuntimeMenus::EntryDelete(const Tool& tool) {
    if (RuntimeIds::KindOf(tool.Id()) != RuntimeIds::Kind::Group) return {};
    return [this, path = tool.Description] {
        m_context.menuEntry = path;
        MenuEntryCommands::DeleteGroup(m_context);
    };
}

void RuntimeMenus::RebuildFavorites(Band& band) {
    band.Clear();
    List(band, u"mnuAddToFavorites"_tool);
    List(band, u"mnuOrganizeFavorites"_tool);
    RemoveFolderBands();
    ScanFolder(m_context.favoritesFolder, band, BeginGroup::Yes);
    m_context.favoritesMenuStale = false;
}

void RuntimeMenus::RebuildGroups(Band& band) {
    band.Clear();
    List(band, u"mnuAddToTessaGroup"_tool);
    List(band, u"mnuSaveAsTessaGroup"_tool);
    List(band, u"mnuOrganizeTessaGroups"_tool);
    m_watch.Watch(m_context.groupFolder);
    TessaGroups::FillBand(band, m_context.groupFolder, TessaGroupsPicture, m_nextGroup);
    m_context.groupsMenuStale = false;
}

void RuntimeMenus::KeepPictures() {
    m_favorites.FolderPicture = PictureOf(u"mnuFolderImage"_tool);
    m_favorites.LinkPicture = PictureOf(u"mnuLinkImage"_tool);
    TessaGroupsPicture = PictureOf(u"mnuTessaGroupsImage"_tool);
}

void RuntimeMenus::ReleasePictures() {
    m_favorites.FolderPicture = {};
    m_favorites.LinkPicture = {};
}

Picture RuntimeMenus::PictureOf(ToolName holder) const {
    const Tool* tool = m_context.actBar.Find(holder);
    return tool ? tool->Image : Picture();
}

void RuntimeMenus::FillFolder(Band& band) {
    const auto prefix = std::min(band.Name().size(), Favorites::kBandPrefix.size());
    ScanFolder(TextView(band.Name()).substr(prefix), band, BeginGroup::No);
}

void RuntimeMenus::ScanFolder(TextView folder, Band& band, BeginGroup first) {
    // Before it is read, so that no change falls in between.
    m_watch.Watch(folder);
    m_watched.emplace_back(folder);
    m_favorites.ScanFolder(folder, band, first);
}

void RuntimeMenus::RemoveFolderBands() {
    std::vector<Text> names;
    for (const auto& band : m_context.actBar.Bands()) {
        if (band->Name().starts_with(kRuntimeBands)) names.push_back(band->Name());
    }
    for (const Text& name : names) m_context.actBar.RemoveBand(name);
    for (const Text& folder : m_watched) m_watch.Unwatch(folder);
    m_watched.clear();
}
