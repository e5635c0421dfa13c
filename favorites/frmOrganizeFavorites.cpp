#include "favorites/frmOrganizeFavorites.h"

#include "common/AtomicFile.h"
#include "common/Captions.h"
#include "favorites/Favorites.h"

#include <algorithm>
#include <filesystem>

namespace {} // namespace

frmOrganizeFavorites::frmOrganizeFavorites(Text root, Outside outside)
    : m_root(std::move(root)), m_outside(std::move(outside)) {
    Selected.Change = [this] { Selected_Change(); };
    cmdNewFolder.Click = [this] { cmdNewFolder_Click(); };
    cmdRename.Click = [this] {
        if (EditName) EditName(Selected());
    };
    cmdMove.Click = [this] { cmdMove_Click(); };
    cmdDelete.Click = [this] { cmdDelete_Click(); };
    cmdOpenAll.Click = [this] {
        const Text folder = SelectedFolder();
        Form.Visible = false;
        if (m_outside.OpenAll) m_outside.OpenAll(folder);
    };
    cmdSaveGroup.Click = [this] { cmdSaveGroup_Click(); };
    cmdClose.Click = [this] { Form.Visible = false; };
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
    lblAddress.Caption = shortcut ? OneLine(Favorites::ReadAddress(PathToBytes(Selected()))) : Text();
    const Text folder = SelectedFolder();
    const auto items = Favorites::Items(folder);
    const bool any = std::ranges::any_of(items, [](const auto& item) { return !item.IsFolder; });
    cmdOpenAll.Enabled = any && m_outside.OpenAll;
    cmdSaveGroup.Enabled = any && m_outside.SaveAsGroup;
    lblMessage.Caption = Text();
}

void frmOrganizeFavorites::Tell(const Text& folder) const {
    if (FolderChanged) FolderChanged(folder);
}

void frmOrganizeFavorites::cmdNewFolder_Click() {
    const Text parent = SelectedFolder();
    const auto made = Favorites::MakeFolder(parent, Favorites::kNewFolder);
    if (!made) return void(lblMessage.Caption = u"The folder could not be made.");
    Tell(parent);
    Selected = *made;
    if (EditName) EditName(*made);
}

std::optional<Text> frmOrganizeFavorites::treFavorites_AfterLabelEdit(TextView path, TextView title) {
    auto renamed = path == m_root ? std::nullopt : Favorites::Rename(path, title);
    if (renamed) Selected = *renamed;
    lblMessage.Caption = renamed ? Text() : Text(u"The Favorite could not be renamed.");
    return renamed;
}

void frmOrganizeFavorites::cmdMove_Click() {
    const Text path = Selected();
    const Text folder = AskFolder ? AskFolder() : Text();
    if (!folder.empty()) MoveTo(path, folder);
}

void frmOrganizeFavorites::MoveTo(Text path, const Text& folder) {
    const auto moved = path == m_root ? std::nullopt : Favorites::Move(path, folder);
    if (!moved) return void(lblMessage.Caption = u"The Favorite could not be moved.");
    Tell(Favorites::FolderOf(path));
    Tell(folder);
    Selected = *moved;
}

bool frmOrganizeFavorites::MayDelete(TextView path) {
    if (m_outside.trash.Take(path) == Outcome::Done) return false;
    return m_outside.messages.AskOwn({u"This Favorite cannot be moved to the trash",
                                      u"Deleted, it cannot be brought back.", u"&Keep It", u"&Delete for Good"});
}

void frmOrganizeFavorites::cmdDelete_Click() {
    const Text path = Selected();
    if (path == m_root) return;
    const bool failed = MayDelete(path) && Favorites::Delete(path) == Outcome::Failed;
    if (!FileExists(PathToBytes(path))) {
        const Text folder = Favorites::FolderOf(path);
        Tell(folder);
        Selected = folder;
    }
    if (failed) lblMessage.Caption = u"The Favorite could not be deleted.";
}

void frmOrganizeFavorites::cmdSaveGroup_Click() {
    const Text result = m_outside.SaveAsGroup ? m_outside.SaveAsGroup(SelectedFolder()) : Text();
    lblMessage.Caption = result;
}
