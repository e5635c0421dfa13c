#pragma once
#include "base/Signal.h"
#include "favorites/FavoriteFiles.h"
#include "forms/Controls.h"
#include "platform/Dialogs.h"
#include "platform/Trash.h"

namespace tessa {

/// The dialog that sorts, renames and deletes Favorites. Every change is on disk at once. Made afresh for every show.
class frmOrganizeFavorites {
public:
    /// What the form needs besides the disk. All outlive it.
    struct Outside {
        MessageBoxes& messages;
        Trash& trash;
        /// Opens every shortcut of a folder in a tab of its own.
        std::function<void(TextView folder)> OpenAll{};
        /// Asks for a file and saves the shortcuts of a folder as a TessaGroup. Returns what to tell the user.
        std::function<Text(TextView folder)> SaveAsGroup{};
    };

    frmOrganizeFavorites(Text root, Outside outside);
    frmOrganizeFavorites(const frmOrganizeFavorites&) = delete;
    frmOrganizeFavorites& operator=(const frmOrganizeFavorites&) = delete;

    FormState Form;
    Text Caption = u"Organize Favorites";
    Label lblFavorites{u"F&avorites:"};
    Label lblAddress{u"Addr&ess:"};
    TextBox txtAddress;    ///< where the selected shortcut leads
    Label lblMessage{u""}; ///< what was done, or why it was not
    Button cmdNewFolder{u"New &Folder"};
    Button cmdRename{u"&Rename"};
    Button cmdMove{u"&Move..."};
    Button cmdDelete{u"&Delete"};
    Button cmdUndo{u"&Undo Delete"}; ///< as long as something that was deleted can come back
    Button cmdOpenAll{u"&Open All in Tabs"};
    Button cmdSaveGroup{u"Save as &TessaGroup..."};
    Button cmdClose{u"Close"};
    Property<Text> Selected; ///< the path of the selected line

    [[nodiscard]] const Text& Root() const { return m_root; }
    /// The user has typed another name for a line; its new path, nothing when that failed.
    std::optional<Text> treFavorites_AfterLabelEdit(TextView path, TextView title);
    /// The user has done with the address: a new one is written.
    void txtAddress_LostFocus();
    /// The user gives up what was typed as an address; whether there was any such thing.
    bool txtAddress_Escape();
    /// The user wants a line moved into a folder.
    void MoveTo(Text path, const Text& folder);

    /// What a folder holds has changed.
    Signal<void(const Text& folder)> FolderChanged;
    /// The name of a line is to be edited.
    Signal<void(const Text& path)> EditName;
    /// The user is to say into which folder `MoveTo` moves a line.
    Signal<void(const Text& path)> AskFolder;

private:
    void Selected_Change();
    void cmdNewFolder_Click();
    void cmdMove_Click();
    void cmdDelete_Click();
    void cmdUndo_Click();
    void cmdSaveGroup_Click();
    void Tell(const Text& folder) const;
    [[nodiscard]] Text SelectedFolder() const;
    [[nodiscard]] bool MayDelete() const;
    /// The line that is selected once that of `path` is gone: one beside it.
    [[nodiscard]] Text LineBeside(TextView path) const;

    struct Trashed {
        Text path, title;
    };

    Text m_root;
    Outside m_outside;
    Text m_address;                 ///< of the selected shortcut, as it is shown
    std::vector<Trashed> m_trashed; ///< what can come back, the last one first
};

} // namespace tessa
