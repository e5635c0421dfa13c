#pragma once
#include "base/Signal.h"
#include "favorites/FavoriteFiles.h"
#include "forms/Controls.h"

namespace tessa {

/// The question under which name and in which folder a page is kept. Made afresh for every show.
class frmAddFavorite {
public:
    /// `root` is the Favorites folder, which need not exist.
    frmAddFavorite(Text root, TextView address, TextView title);
    frmAddFavorite(const frmAddFavorite&) = delete;
    frmAddFavorite& operator=(const frmAddFavorite&) = delete;

    FormState Form;
    Text Caption = u"Add to Favorites";
    Label lblName{u"&Name:"};
    TextBox txtName;
    Label lblFolder{u"Create &in:"};
    Label lblMessage{u""}; ///< that the page is a Favorite already, or why nothing was added
    Button cmdNewFolder{u"New &Folder"};
    Button cmdOK{u"OK"};
    Button cmdCancel{u"Cancel"};
    Property<Text> Folder; ///< the path of the folder chosen in the tree

    [[nodiscard]] const Text& Root() const { return m_root; }
    /// What to tell the user when the form has closed; empty when nothing was done.
    Text Told;
    /// The user has given a folder of the tree another name; its new path, nothing when that failed.
    std::optional<Text> treFolders_AfterLabelEdit(TextView path, TextView name);
    /// A folder has a new sub-folder, whose name the user may change at once.
    Signal<void(const Text& folder, const Text& made)> NewFolder;

private:
    void txtName_Change();
    void cmdNewFolder_Click();
    void cmdOK_Click();
    /// Whether the very same shortcut lies in the chosen folder.
    [[nodiscard]] bool IsThere() const;

    Text m_root;
    Text m_address;
    Text m_notice; ///< which Favorite leads to the page already; empty when none does
};

} // namespace tessa
