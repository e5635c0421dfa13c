#pragma once
#include "bar/EntryGestures.h"
#include "bar/ToolName.h"
#include "base/Signal.h"
#include "commands/effects/CommandContext.h"
#include "favorites/Favorites.h"
#include "platform/FolderWatch.h"

#include <functional>
#include <vector>

namespace tessa {

/// Brings changing menus up to date when they open: Favorites, TessaGroups, and the check mark of the text size. The
/// ids it gives count on for the whole run. Owned by the main window.
class RuntimeMenus final : public EntryGestures {
public:
    /// Both outlive this object. A change in a folder that a menu shows makes that menu stale.
    RuntimeMenus(CommandContext& context, FolderWatch& watch);

    /// From here on, `FoldersChanged` tells of changes in the folders of TessaGroups and Favorites, also when no menu
    /// shows them.
    void WatchFolders();
    /// Something in the folder of TessaGroups or Favorites has changed.
    Signal<void()> FoldersChanged;
    /// A band is about to be shown. Only a stale menu is built anew, only an empty folder is filled.
    void BandOpen(Band& band);
    bool EntryPopup(const Tool& tool) override;
    [[nodiscard]] std::function<void()> EntryMiddleClick(const Tool& tool) override;
    [[nodiscard]] std::function<void()> EntryDelete(const Tool& tool) override;
    /// Takes the entries' pictures from the hidden tools that are there to carry them.
    void KeepPictures();
    /// Lets the pictures of Favorites go. Deliberate: that of TessaGroups stays.
    void ReleasePictures();

    Picture TessaGroupsPicture; ///< of the entries of the TessaGroups menu

private:
    void RebuildFavorites(Band& band);
    void RebuildGroups(Band& band);
    void ScanFolder(TextView folder, Band& band, BeginGroup first);
    void RemoveFolderBands();
    [[nodiscard]] Picture PictureOf(ToolName holder) const;
    void List(Band& band, ToolName tool) { band.Append(m_context.actBar.Share(tool)); }

    CommandContext& m_context;
    FolderWatch& m_watch;
    Favorites::Menu m_favorites;
    std::vector<Text> m_watched; ///< the folders of Favorites that were read since the last rebuild
    std::int32_t m_nextGroup = 0;
};

} // namespace tessa
