#include "favorites/frmOrganizeFavorites.h"

#include "base/Captions.h"
#include "base/os/AtomicFile.h"
#include "favorites/Favorites.h"
#include "favorites/QuotedTitle.h"

#include <algorithm>

namespace tessa {

frmOrganizeFavorites::frmOrganizeFavorites(Text root, Outside outside)
    : m_root(std::move(root)), m_outside(std::move(outside)) {
    Selected.Change.ConnectForLife([this] { Selected_Change(); });
    cmdNewFolder.Click.ConnectForLife([this] { cmdNewFolder_Click(); });
    cmdRename.Click.ConnectForLife([this] { EditName(Selected()); });
    cmdMove.Click.ConnectForLife([this] { cmdMove_Click(); });
    cmdDelete.Click.ConnectForLife([this] { cmdDelete_Click(); });
    cmdUndo.Click.ConnectForLife([this] { cmdUndo_Click(); });
    cmdUndo.Enabled = false;
    cmdOpenAll.Click.ConnectForLife([this] {
        txtAddress_LostFocus();
        const Text folder = SelectedFolder();
        Form.Visible = false;
        if (m_outside.OpenAll) m_outside.OpenAll(folder);
    });
    cmdSaveGroup.Click.ConnectForLife([this] { cmdSaveGroup_Click(); });
    cmdClose.Click.ConnectForLife([this] {
        txtAddress_LostFocus();
        Form.Visible = false;
    });
    Selected = m_root;
}

Text frmOrganizeFavorites::SelectedFolder() const {
    return Favorites::IsFolder(Selected()) || Selected() == m_root ? Selected() : Favorites::FolderOf(Selected());
}

void frmOrganizeFavorites::Selected_Change() {
    const bool below = Selected() != m_root && FileExists(PathToBytes(Selected()));
    cmdRename.Enabled = below;
    cmdMove.Enabled = below;
    cmdDelete.Enabled = below;
    const bool shortcut = below && !Favorites::IsFolder(Selected());
    m_address = shortcut ? OneLine(Favorites::ReadAddress(PathToBytes(Selected()))) : Text();
    txtAddress.Enabled = shortcut;
    txtAddress.Value = m_address;
    const Text folder = SelectedFolder();
    const auto items = Favorites::Items(folder);
    const bool any = std::ranges::any_of(items, [](const auto& item) { return !item.IsFolder; });
    cmdOpenAll.Enabled = any && m_outside.OpenAll;
    cmdSaveGroup.Enabled = any && m_outside.SaveAsGroup;
    lblMessage.Caption = Text();
}

void frmOrganizeFavorites::Tell(const Text& folder) const { FolderChanged(folder); }

void frmOrganizeFavorites::cmdNewFolder_Click() {
    const Text parent = SelectedFolder();
    const auto made = Favorites::MakeFolder(parent, Favorites::kNewFolder);
    if (!made) return void(lblMessage.Caption = u"The folder could not be made.");
    Tell(parent);
    Selected = *made;
    EditName(*made);
}

std::optional<Text> frmOrganizeFavorites::treFavorites_AfterLabelEdit(TextView path, TextView title) {
    auto renamed = path == m_root ? std::nullopt : Favorites::Rename(path, title);
    if (renamed) Selected = *renamed;
    lblMessage.Caption = renamed ? Text() : Text(u"The Favorite could not be renamed.");
    return renamed;
}

void frmOrganizeFavorites::cmdMove_Click() {
    const Text path = Selected();
    AskFolder(path);
}

void frmOrganizeFavorites::MoveTo(Text path, const Text& folder) {
    const auto moved = path == m_root ? std::nullopt : Favorites::Move(path, folder);
    if (!moved) return void(lblMessage.Caption = u"The Favorite could not be moved.");
    Tell(Favorites::FolderOf(path));
    Tell(folder);
    Selected = *moved;
}

void frmOrganizeFavorites::txtAddress_LostFocus() {
    const Text typed = txtAddress.Value();
    if (typed == m_address || !txtAddress.Enabled()) return;
    const bool any = typed.find_first_not_of(u' ') != Text::npos;
    const bool written = any && Favorites::SetAddress(Selected(), typed) == Outcome::Done;
    if (written) m_address = typed;
    txtAddress.Value = m_address;
    lblMessage.Caption = written ? u"The address has been changed."
                         : any   ? u"The address was not changed: it is too long, or the file cannot be written."
                                 : u"A Favorite needs an address.";
}

bool frmOrganizeFavorites::txtAddress_Escape() {
    const bool typed = txtAddress.Value() != m_address;
    txtAddress.Value = m_address;
    return typed;
}

bool frmOrganizeFavorites::MayDelete() const {
    return m_outside.messages.AskOwn({u"This Favorite cannot be moved to the trash",
                                      u"Deleted, it cannot be brought back.", u"&Keep It", u"&Delete for Good"});
}

void frmOrganizeFavorites::cmdDelete_Click() {
    const Text path = Selected();
    if (path == m_root) return;
    const Text title = Favorites::TitleAt(path), beside = LineBeside(path);
    const bool kept = m_outside.trash.Take(path) == Outcome::Done;
    if (kept) m_trashed.push_back({path, title});
    const bool failed = !kept && MayDelete() && Favorites::Delete(path) == Outcome::Failed;
    cmdUndo.Enabled = !m_trashed.empty();
    if (!FileExists(PathToBytes(path))) {
        Tell(Favorites::FolderOf(path));
        Selected = beside;
        lblMessage.Caption = Favorites::Quoted(title) + (kept ? u" is in the trash." : u" has been deleted.");
    }
    if (failed) lblMessage.Caption = u"The Favorite could not be deleted.";
}

Text frmOrganizeFavorites::LineBeside(TextView path) const {
    const auto items = Favorites::Items(Favorites::FolderOf(path));
    const auto at = std::ranges::find(items, path, &Favorites::Item::Path);
    if (at == items.end()) return m_root;
    if (std::next(at) != items.end()) return std::next(at)->Path;
    // Not the folder above: who presses Delete once more would lose that. The topmost line cannot be deleted.
    return at != items.begin() ? std::prev(at)->Path : m_root;
}

void frmOrganizeFavorites::cmdUndo_Click() {
    if (m_trashed.empty()) return;
    const auto [path, title] = m_trashed.back();
    m_trashed.pop_back();
    cmdUndo.Enabled = !m_trashed.empty();
    const bool back = m_outside.trash.Restore(path) == Outcome::Done;
    if (back) {
        Tell(Favorites::FolderOf(path));
        Selected = path;
    }
    lblMessage.Caption =
        Favorites::Quoted(title) + (back ? u" is back." : u" could not be brought back. It is still in the trash.");
}

void frmOrganizeFavorites::cmdSaveGroup_Click() {
    const Text result = m_outside.SaveAsGroup ? m_outside.SaveAsGroup(SelectedFolder()) : Text();
    lblMessage.Caption = result;
}

} // namespace tessa
