#include "settings/frmSettings.h"

#include "settings/Numeric.h"

namespace tessa {

frmSettings::frmSettings(SettingsStorageFactory& settings) : m_settings(settings) {
    TabStrip1.SetCaption(TabStrip1.Add(1, u"General"), u"General");
    chkLimitTitleLength.Value.Change.ConnectForLife([this] { chkLimitTitleLength_Click(); });
    Text1.Value.Change.ConnectForLife([this] { Text1_Change(); });
    cmdOK.Click.ConnectForLife([this] { cmdOK_Click(); });
    cmdCancel.Click.ConnectForLife([this] { cmdCancel_Click(); });
    Form_Load();
}

void frmSettings::Form_Load() {
    Apply = false;
    const SettingsStore store(m_settings);
    chkOpenNew.Tick(store.OpenNewInFront.Get());
    chkRememberAndOpenLastSites.Tick(store.RememberLastSites.Get());
    chkAskDefaultBrowser.Tick(store.AskDefaultBrowser.Get());
    chkTabsUp.Tick(store.TabsUp.Get());
    chkAllowMultipleInstances.Tick(store.AllowMultipleInstances.Get());
    Text1.Value = Decimal(store.TitleLengthLimit.Get());
    chkCloseTessaGroups.Tick(store.TGCloseOthersFirst.Get());

    const bool limited = RoundedNumber(Text1.Value()) != 0;
    chkLimitTitleLength.Tick(limited);
    Text1.Enabled = limited;
}

void frmSettings::chkLimitTitleLength_Click() {
    if (!chkLimitTitleLength.Ticked()) Text1.Value = u"0";
    Text1.Enabled = chkLimitTitleLength.Ticked();
}

void frmSettings::Text1_Change() {
    if (!IsNumeric(Text1.Value())) Text1.Value = u"0";
}

void frmSettings::cmdOK_Click() {
    {
        SettingsStore store(m_settings);
        ResumeNext(store.TabsUp.Set(chkTabsUp.Ticked()));
        ResumeNext(store.AskDefaultBrowser.Set(chkAskDefaultBrowser.Ticked()));
        ResumeNext(store.RememberLastSites.Set(chkRememberAndOpenLastSites.Ticked()));
        ResumeNext(store.OpenNewInFront.Set(chkOpenNew.Ticked()));
        if (const auto limit = RoundedNumber(Text1.Value())) ResumeNext(store.TitleLengthLimit.Set(*limit));
        ResumeNext(store.TGCloseOthersFirst.Set(chkCloseTessaGroups.Ticked()));
        ResumeNext(store.AllowMultipleInstances.Set(chkAllowMultipleInstances.Ticked()));
    }
    Apply = true;
    Form.Visible = false;
}

void frmSettings::cmdCancel_Click() { Form.Visible = false; }

} // namespace tessa
