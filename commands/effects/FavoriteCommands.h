#pragma once
#include "commands/effects/CommandContext.h"
#include "commands/effects/FavoriteActions.h"
#include "favorites/frmAddFavorite.h"
#include "favorites/frmOrganizeFavorites.h"
#include "forms/FormHost.h"

namespace tessa {

/// What the main window does with Favorites besides the menu. Owned by the main window.
class FavoriteCommands final : public FavoriteActions {
public:
    struct Outside {
        Trash& trash;
        FormHost& forms;
    };

    /// The context outlives this object, and gets it.
    FavoriteCommands(CommandContext& context, Outside outside);

    void OpenAll(TextView folder) override;
    void OpenAllBelow(TextView folder) override;
    [[nodiscard]] Text SaveAsGroup(TextView folder) override;
    [[nodiscard]] bool AddFavorite(TextView address, TextView title) override;
    void RepairFavorites() override;
    void OrganizeFavorites() override;
    [[nodiscard]] bool MayOpenLink(TextView address) override;

private:
    struct WebPages;

    void OpenPages(const WebPages& pages);

    CommandContext& m_context;
    Outside m_outside;
};

} // namespace tessa
