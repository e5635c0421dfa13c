#pragma once
#include "commands/CommandContext.h"
#include "favorites/frmAddFavorite.h"
#include "favorites/frmOrganizeFavorites.h"
#include "forms/FormHost.h"

/// What the main window does with Favorites beside the menu. Owned by the main window.
class FavoriteCommands {
public:
    struct Outside {
        Trash& trash;
        FormHost& forms;
    };

    /// The context outlives this object, whose operations its host gets.
    FavoriteCommands(CommandContext& context, Outside outside);

    /// Opens every shortcut that lies in a folder in a tab of its own, the last one in front. Asks before it opens
    /// very many; leaves out what a click would not open without a question.
    void OpenAll(TextView folder);
    /// Asks for a file and saves the addresses of a folder's shortcuts as a TessaGroup, but for those that a click
    /// would not open without a question; what to tell the user of it, nothing when there is nothing to say.
    Text SaveAsGroup(TextView folder);

private:
    bool AddFavorite(TextView address, TextView title);
    void RepairFavorites();
    void OrganizeFavorites();
    bool MayOpenLink(TextView address);

    CommandContext& m_context;
    Outside m_outside;
};
