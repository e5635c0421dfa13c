#pragma once
#include "base/Text.h"

namespace tessa {

/// What commands do with Favorites. Owned by the main window.
class FavoriteActions {
public:
    virtual ~FavoriteActions() = default;

    /// Adds a page, by address and title. False when there is no way to add any.
    [[nodiscard]] virtual bool AddFavorite(TextView address, TextView title) = 0;
    virtual void OrganizeFavorites() = 0;
    /// Makes adding possible again, and tells the user what it did.
    virtual void RepairFavorites() = 0;
    /// Opens every shortcut that lies in a folder in a tab of its own, the last one in front. Asks before it opens
    /// very many; leaves out what a click would not open without a question.
    virtual void OpenAll(TextView folder) = 0;
    /// The same, and behind them the shortcuts of its sub-folders.
    virtual void OpenAllBelow(TextView folder) = 0;
    /// Asks for a file and saves the addresses of a folder's shortcuts as a TessaGroup. Those that a click would not
    /// open without a question are left out. Returns what to tell the user, or nothing.
    [[nodiscard]] virtual Text SaveAsGroup(TextView folder) = 0;
    /// Whether a link may be opened; asks the user where that is in doubt.
    [[nodiscard]] virtual bool MayOpenLink(TextView address) = 0;
};

} // namespace tessa
