#pragma once
#include "base/Version.h"
#include "forms/Controls.h"

namespace tessa {

/// The window that says which program this is, as data. It is shown at the start without a button, and as the About
/// box. Made afresh for every show: it is loaded when constructed.
class frmSplash {
public:
    frmSplash();
    frmSplash(const frmSplash&) = delete;
    frmSplash& operator=(const frmSplash&) = delete;

    /// Makes the close button visible. Called before the form is shown as the About box.
    void ShowButton();
    /// Shows nothing anywhere; there for callers that report the progress of a start.
    void SetMessage(TextView Message);

    FormState Form;
    Text Caption = u"About TessaView";
    Text Image1 = u"splash"; ///< the picture's name in the program's resources
    Label Label1{Text(Version::kProduct)};
    Label Label2{u"Version " + Text(Version::kNumber)};
    Label Label3{u"Copyright \u00A9 2026 The TessaView developers. Free software under the MIT license."};
    Button Command1{u"&Close"};

private:
    void Form_Load();
    void Command1_Click();
};

} // namespace tessa
