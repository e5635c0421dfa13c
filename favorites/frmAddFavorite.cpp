#include "favorites/frmAddFavorite.h"

#include "base/Captions.h"
#include "favorites/QuotedTitle.h"

#include <algorithm>

namespace tessa {

namespace {

Text AlreadyThere(TextView root, TextView found) {
    const Text folder = Favorites::FolderOf(found);
    const Text where = folder == root ? Text() : u" in " + Favorites::Quoted(Favorites::TitleAt(folder));
    return u"This page is a Favorite already: " + Favorites::Quoted(Favorites::TitleAt(found)) + where + u".";
}

} // namespace

frmAddFavorite::frmAddFavorite(Text root, TextView address, TextView title)
    : m_root(std::move(root)), m_address(address) {
    txtName.Value.Change.ConnectForLife([this] { txtName_Change(); });
    cmdNewFolder.Click.ConnectForLife([this] { cmdNewFolder_Click(); });
    cmdOK.Click.ConnectForLife([this] { cmdOK_Click(); });
    cmdCancel.Click.ConnectForLife([this] { Form.Visible = false; });
    if (const auto found = Favorites::FindAddress(m_root, address)) m_notice = AlreadyThere(m_root, *found);
    Folder = m_root;
    txtName.Value = OneLine(title.empty() ? address : title);
    txtName_Change();
}

void frmAddFavorite::txtName_Change() {
    cmdOK.Enabled = txtName.Value().find_first_not_of(u' ') != Text::npos;
    lblMessage.Caption = m_notice;
}

void frmAddFavorite::cmdNewFolder_Click() {
    const Text parent = Folder();
    const auto made = Favorites::MakeFolder(parent, Favorites::kNewFolder);
    lblMessage.Caption = made ? m_notice : Text(u"The folder could not be made.");
    if (!made) return;
    Folder = *made;
    NewFolder(parent, *made);
}

std::optional<Text> frmAddFavorite::treFolders_AfterLabelEdit(TextView path, TextView name) {
    auto renamed = path == m_root ? std::nullopt : Favorites::Rename(path, name);
    lblMessage.Caption = renamed ? m_notice : Text(u"The folder could not be renamed.");
    if (renamed && Folder() == path) Folder = *renamed;
    return renamed;
}

bool frmAddFavorite::IsThere() const {
    return std::ranges::any_of(Favorites::Items(Folder()), [&](const Favorites::Item& item) {
        return !item.IsFolder && item.Address == m_address && item.Title == Favorites::FileNameOf(txtName.Value());
    });
}

void frmAddFavorite::cmdOK_Click() {
    if (IsThere()) {
        Told = u"This page is a Favorite already. Nothing was added.";
        Form.Visible = false;
    } else if (const auto added = Favorites::AddShortcut(Folder(), txtName.Value(), m_address)) {
        Told = u"Added to Favorites: " + Favorites::Quoted(Favorites::TitleAt(*added)) + u".";
        Form.Visible = false;
    } else {
        lblMessage.Caption = u"The page could not be added: the folder cannot be written to.";
    }
}

} // namespace tessa
