#include "favorites/frmAddFavorite.h"

#include "common/Captions.h"

frmAddFavorite::frmAddFavorite(Text root, TextView address, TextView title)
    : m_root(std::move(root)), m_address(address) {
    txtName.Value.Change = [this] { txtName_Change(); };
    cmdNewFolder.Click = [this] { cmdNewFolder_Click(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { Form.Visible = false; };
    Folder = m_root;
    txtName.Value = OneLine(title.empty() ? address : title);
    txtName_Change();
}

void frmAddFavorite::txtName_Change() {
    cmdOK.Enabled = txtName.Value().find_first_not_of(u' ') != Text::npos;
    lblMessage.Caption = Text();
}

void frmAddFavorite::cmdNewFolder_Click() {
    const Text parent = Folder();
    const auto made = Favorites::MakeFolder(parent, Favorites::kNewFolder);
    lblMessage.Caption = made ? Text() : Text(u"The folder could not be made.");
    if (!made) return;
    Folder = *made;
    if (NewFolder) NewFolder(parent, *made);
}

std::optional<Text> frmAddFavorite::treFolders_AfterLabelEdit(TextView path, TextView name) {
    auto renamed = path == m_root ? std::nullopt : Favorites::Rename(path, name);
    lblMessage.Caption = renamed ? Text() : Text(u"The folder could not be renamed.");
    if (renamed && Folder() == path) Folder = *renamed;
    return renamed;
}

void frmAddFavorite::cmdOK_Click() {
    if (Favorites::AddShortcut(Folder(), txtName.Value(), m_address)) {
        Form.Visible = false;
    } else {
        lblMessage.Caption = u"The page could not be added: the folder cannot be written to.";
    }
}
