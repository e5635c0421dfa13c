#include "window/frmDefBrowser.h"

#include "settings/SettingsStore.h"

namespace tessa {

frmDefBrowser::frmDefBrowser(SettingsStorageFactory& settings, DefaultBrowser& helper, Text programPath)
    : m_settings(settings), m_helper(helper), m_programPath(std::move(programPath)) {
    // The question comes only while it is wanted at every start.
    Check1.Tick(true);
    cmdYes.Click.ConnectForLife([this] { cmdYes_Click(); });
    cmdNo.Click.ConnectForLife([this] { cmdNo_Click(); });
}

bool frmDefBrowser::MayAsk(SettingsStorageFactory& settings, DefaultBrowser& helper) {
    return SettingsStore(settings).AskDefaultBrowser.Get() && !helper.KnownDefault();
}

void frmDefBrowser::Ask(SettingsStorageFactory& settings, DefaultBrowser& helper, const Text& programPath,
                        FormHost& forms) {
    if (helper.IsDefault(kProgramName, programPath)) return;
    frmDefBrowser form(settings, helper, programPath);
    forms.Show(form);
}

void frmDefBrowser::cmdYes_Click() {
    ResumeNext(m_helper.MakeDefault(kProgramName, m_programPath));
    StopAskingIfUnchecked();
    Form.Visible = false;
}

void frmDefBrowser::cmdNo_Click() {
    StopAskingIfUnchecked();
    Form.Visible = false;
}

void frmDefBrowser::StopAskingIfUnchecked() {
    if (!Check1.Ticked()) ResumeNext(SettingsStore(m_settings).AskDefaultBrowser.Set(false));
}

} // namespace tessa
