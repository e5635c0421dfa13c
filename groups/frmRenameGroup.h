#pragma once
#include "forms/Controls.h"

namespace tessa {

/// The question what a TessaGroup is to be called, as data. Made afresh for every show.
class frmRenameGroup {
public:
    /// `path` is the group's file.
    explicit frmRenameGroup(TextView path);
    frmRenameGroup(const frmRenameGroup&) = delete;
    frmRenameGroup& operator=(const frmRenameGroup&) = delete;

    FormState Form;
    Text Caption = u"Rename TessaGroup";
    Label lblName{u"&Name:"};
    TextBox txtName;
    Label lblMessage{u""}; ///< why the group was not renamed
    Button cmdOK{u"&Rename"};
    Button cmdCancel{u"Cancel"};
    Text Renamed; ///< what the group is called now; empty when it is called as before

private:
    void txtName_Change();
    void cmdOK_Click();

    Text m_path;
    Text m_name; ///< what it is called before
};

} // namespace tessa
