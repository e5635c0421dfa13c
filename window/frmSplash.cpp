#include "window/frmSplash.h"

namespace tessa {

frmSplash::frmSplash() {
    Command1.Visible = false;
    Command1.Click.ConnectForLife([this] { Command1_Click(); });
    Form_Load();
}

void frmSplash::Form_Load() { Label2.Caption = Label2.Caption() + u" Build " + Decimal(Version::kRevision); }

void frmSplash::ShowButton() { Command1.Visible = true; }

// Deliberate: a start is too short for messages, and repainting for them would make it longer.
void frmSplash::SetMessage(TextView) {}

void frmSplash::Command1_Click() { Form.Visible = false; }

} // namespace tessa
