#include "commands/RuntimeMenus.h"

#include "commands/effects/MenuEntryCommands.h"
#include "groups/TessaGroups.h"

namespace tessa {

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
    const auto* folder = band.From<MadeFrom::FavoriteFolder>();
    if (folder && band.Entries().empty()) ScanFolder(folder->path, band, BeginGroup::No);
}

bool RuntimeMenus::EntryPopup(const Tool& tool) {
    const auto entry = MenuEntryCommands::EntryOf(tool);
    if (!entry.band) return false;
    m_context.menuEntry = entry.target;
    m_context.actBar.Popup(*entry.band);
    return true;
}

std::function<void()> RuntimeMenus::EntryMiddleClick(const Tool& tool) {
    const auto* folder = tool.From<MadeFrom::FavoriteFolder>();
    if (!folder) return {};
    return [this, path = folder->path] { m_context.favorites->OpenAll(path); };
}

std::function<void()> RuntimeMenus::EntryDelete(const Tool& tool) {
    const auto* group = tool.From<MadeFrom::Group>();
    if (!group) return {};
    return [this, path = group->path] {
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

void RuntimeMenus::ScanFolder(TextView folder, Band& band, BeginGroup first) {
    // Before it is read, so that no change falls in between.
    m_watch.Watch(folder);
    m_watched.emplace_back(folder);
    m_favorites.ScanFolder(folder, band, first);
}

void RuntimeMenus::RemoveFolderBands() {
    m_context.actBar.RemoveRunTimeBands();
    for (const Text& folder : m_watched) m_watch.Unwatch(folder);
    m_watched.clear();
}

} // namespace tessa
