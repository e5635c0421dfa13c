#include "groups/frmRenameGroup.h"

#include "base/Captions.h"
#include "base/os/FreeNames.h"
#include "favorites/FavoriteFiles.h"
#include "groups/TessaGroups.h"

namespace tessa {

frmRenameGroup::frmRenameGroup(TextView path) : m_path(path) {
    m_name = path.substr(path.rfind(u'/') + 1);
    m_name.resize(m_name.size() - TessaGroups::kExtension.size());
    txtName.Value.Change.ConnectForLife([this] { txtName_Change(); });
    cmdOK.Click.ConnectForLife([this] { cmdOK_Click(); });
    cmdCancel.Click.ConnectForLife([this] { Form.Visible = false; });
    txtName.Value = OneLine(m_name);
    txtName_Change();
}

void frmRenameGroup::txtName_Change() {
    cmdOK.Enabled = txtName.Value().find_first_not_of(u' ') != Text::npos;
    lblMessage.Caption = Text();
}

void frmRenameGroup::cmdOK_Click() {
    // A name whose bytes are no text is shown otherwise than it is.
    const bool same = txtName.Value() == OneLine(m_name);
    const Text name = Favorites::FileNameOf(txtName.Value());
    const Text to = Favorites::FolderOf(m_path) + u"/" + name + Text(TessaGroups::kExtension);
    const Named named = same ? Named::Done : RenameToFree(PathToBytes(m_path), PathToBytes(to));
    if (named != Named::Done) {
        lblMessage.Caption = named == Named::Taken ? u"There is a TessaGroup of that name already."
                                                   : u"The TessaGroup could not be renamed.";
        return;
    }
    if (!same) Renamed = name;
    Form.Visible = false;
}

} // namespace tessa
