#pragma once
#include "forms/Controls.h"
#include "forms/TabStrip.h"
#include "settings/SettingsStore.h"

namespace tessa {

/// The settings dialog as data. Made afresh for every show: it is loaded with the stored values when constructed.
/// Nothing is written before OK, and each value on its own: one that cannot be written leaves the others alone.
class frmSettings {
public:
    /// The factory must outlive the form.
    explicit frmSettings(SettingsStorageFactory& settings);
    frmSettings(const frmSettings&) = delete;
    frmSettings& operator=(const frmSettings&) = delete;

    /// False while the dialog is open, true after OK.
    bool Apply = false;

    FormState Form;
    Text Caption = u"Settings";
    TabStrip TabStrip1;
    CheckBox chkAllowMultipleInstances{u"Allow multiple application instances"};
    CheckBox chkTabsUp{u"Align tabs up"};
    CheckBox chkLimitTitleLength{u"Limit Browser Tab Title Length"};
    Label Label1{u"Max characters to display"};
    TextBox Text1;
    CheckBox chkCloseTessaGroups{u"Close other tabs when opening TessaGroups"};
    CheckBox chkOpenNew{u"Open new tabs in foreground"};
    CheckBox chkAskDefaultBrowser{u"Ask to make TessaView the default browser"};
    CheckBox chkRememberAndOpenLastSites{u"Remember and open last sites"};
    Button cmdOK{u"OK"};
    Button cmdCancel{u"Cancel"};

private:
    void Form_Load();
    void chkLimitTitleLength_Click();
    void Text1_Change();
    void cmdOK_Click();
    void cmdCancel_Click();

    SettingsStorageFactory& m_settings;
};

} // namespace tessa
