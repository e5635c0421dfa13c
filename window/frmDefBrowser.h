#pragma once
#include "forms/Controls.h"
#include "forms/FormHost.h"
#include "platform/DefaultBrowser.h"
#include "platform/SettingsStorage.h"

namespace tessa {

/// The question at the start whether TessaView shall become the default browser, as data. Made afresh for every show.
class frmDefBrowser {
public:
    /// The name by which the program is known to the desktop's choice of a browser.
    static constexpr TextView kProgramName = u"TessaView3";

    /// `programPath` is the full path of the running program. The other two must outlive the form.
    frmDefBrowser(SettingsStorageFactory& settings, DefaultBrowser& helper, Text programPath);
    frmDefBrowser(const frmDefBrowser&) = delete;
    frmDefBrowser& operator=(const frmDefBrowser&) = delete;

    /// Whether the start may ask, as far as that is known at once.
    [[nodiscard]] static bool MayAsk(SettingsStorageFactory& settings, DefaultBrowser& helper);
    /// Asks by `forms`, unless the program is the default browser already.
    static void Ask(SettingsStorageFactory& settings, DefaultBrowser& helper, const Text& programPath, FormHost& forms);

    FormState Form;
    Text Caption = u"TessaView";
    Label Label1{u"TessaView is not currently your default browser."};
    Label Label2{u"Would you like to make it your default browser?"};
    CheckBox Check1{u"&Always perform this check when starting TessaView."};
    Button cmdYes{u"&Yes"};
    Button cmdNo{u"&No"};

private:
    void cmdYes_Click();
    void cmdNo_Click();
    void StopAskingIfUnchecked();

    SettingsStorageFactory& m_settings;
    DefaultBrowser& m_helper;
    Text m_programPath;
};

} // namespace tessa
