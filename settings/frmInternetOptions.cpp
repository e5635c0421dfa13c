#include "settings/frmInternetOptions.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

constexpr std::int64_t kHour = 3600;
constexpr std::array<std::int64_t, 4> kSince{kHour, 24 * kHour, 7 * 24 * kHour, 0};

Text Trimmed(TextView text) {
    return Text(TrimmedOf(text, [](char16_t each) { return each <= u' '; }));
}

// Nothing for what is no port.
std::optional<std::int32_t> Port(const Text& text) {
    const auto number = WholeNumber(Trimmed(text));
    return number && *number > 0 && *number <= 65535 ? number : std::nullopt;
}

// Nothing for what is no time to sleep after.
std::optional<std::int32_t> Minutes(const Text& text) {
    const auto number = WholeNumber(Trimmed(text));
    return number && *number > 0 && *number <= InternetValues::kMostSleepMinutes ? number : std::nullopt;
}

// A command that was not touched stays unset, so that it follows the desktop.
void Keep(Setting<Text>& setting, const Text& command, const Text& shown) {
    if (command != shown) ResumeNext(setting.Set(command));
}

} // namespace

frmInternetOptions::frmInternetOptions(SettingsStorageFactory& settings, Outside outside)
    : Blocking(settings, outside.blocking, outside.chooseList), m_settings(settings), m_outside(std::move(outside)) {
    WireClicks();
    Form_Load();
}

void frmInternetOptions::WireClicks() {
    cmdUseCurrent.Click.ConnectForLife([this] { txtHomePage.Value = m_outside.currentPage; });
    cmdUseDefault.Click.ConnectForLife([this] { txtHomePage.Value = Text(); });
    cmdBrowse.Click.ConnectForLife([this] { cmdBrowse_Click(); });
    lstSites.ListIndex.Change.ConnectForLife([this] { lstSites_Click(); });
    cmdRevoke.Click.ConnectForLife([this] { cmdRevoke_Click(); });
    cmdRevokeAll.Click.ConnectForLife([this] { cmdRevokeAll_Click(); });
    cmdClear.Click.ConnectForLife([this] { cmdClear_Click(); });
    for (auto* box : {&chkClearCookies, &chkClearSiteData, &chkClearCache, &chkClearVisited, &chkClearTyped})
        box->Value.Change.ConnectForLife([this] { chkClear_Click(); });
    chkSleep.Value.Change.ConnectForLife([this] { chkSleep_Click(); });
    cboProxy.Index.Change.ConnectForLife([this] { cboProxy_Click(); });
    cmdOK.Click.ConnectForLife([this] { cmdOK_Click(); });
    cmdCancel.Click.ConnectForLife([this] { cmdCancel_Click(); });
}

void frmInternetOptions::Form_Load() {
    ShowValues(InternetSettings(m_settings).Get());
    const SettingsStore store(m_settings);
    txtSearch.Value = store.SearchService.Get();
    txtShop.Value = store.ShopService.Get();
    txtFind.Value = store.FindService.Get();
    m_mailShown = store.MailClient.HasValue() ? store.MailClient.Get() : m_outside.mailProgram;
    m_newsShown = store.NewsClient.HasValue() ? store.NewsClient.Get() : m_outside.newsProgram;
    txtMail.Value = m_mailShown;
    txtNews.Value = m_newsShown;
    cmdUseCurrent.Enabled = !m_outside.currentPage.empty();
    cmdBrowse.Enabled = static_cast<bool>(m_outside.chooseFolder);
    ShowSites(0);
    chkClear_Click();
    chkSleep_Click();
    cboProxy_Click();
}

void frmInternetOptions::ShowValues(const InternetValues& values) {
    txtHomePage.Value = values.homePage;
    chkJavaScript.Tick(values.javaScript);
    cboCookies.Index = static_cast<std::size_t>(values.cookies);
    chkDoNotTrack.Tick(values.doNotTrack);
    chkGlobalPrivacyControl.Tick(values.globalPrivacyControl);
    cboProxy.Index = static_cast<std::size_t>(values.proxy);
    txtProxyHost.Value = values.proxyHost;
    txtProxyPort.Value = values.proxyPort > 0 ? Decimal(values.proxyPort) : Text();
    txtDownloads.Value = values.downloadFolder;
    chkSleep.Tick(values.tabsSleep);
    txtSleepMinutes.Value = Decimal(values.sleepMinutes);
    cboDrawing.Index = static_cast<std::size_t>(values.drawing);
}

InternetValues frmInternetOptions::Values() const {
    return {.homePage = Trimmed(txtHomePage.Value()),
            .javaScript = chkJavaScript.Ticked(),
            .cookies = static_cast<CookieRule>(cboCookies.Index()),
            .doNotTrack = chkDoNotTrack.Ticked(),
            .globalPrivacyControl = chkGlobalPrivacyControl.Ticked(),
            .proxy = static_cast<ProxyKind>(cboProxy.Index()),
            .proxyHost = Trimmed(txtProxyHost.Value()),
            .proxyPort = Port(txtProxyPort.Value()).value_or(0),
            .downloadFolder = Trimmed(txtDownloads.Value()),
            .tabsSleep = chkSleep.Ticked(),
            .sleepMinutes = Minutes(txtSleepMinutes.Value()).value_or(InternetValues().sleepMinutes),
            .drawing = static_cast<DrawingWish>(cboDrawing.Index())};
}

BrowsingData frmInternetOptions::Chosen() const {
    return {.cookies = chkClearCookies.Ticked(),
            .siteData = chkClearSiteData.Ticked(),
            .cache = chkClearCache.Ticked(),
            .visitedLinks = chkClearVisited.Ticked(),
            .typed = chkClearTyped.Ticked(),
            .seconds = kSince.at(cboSince.Index())};
}

void frmInternetOptions::cmdBrowse_Click() {
    if (!m_outside.chooseFolder) return;
    const Text folder = m_outside.chooseFolder(txtDownloads.Value());
    if (!folder.empty()) txtDownloads.Value = folder;
}

void frmInternetOptions::ShowSites(std::size_t selected) {
    m_sites = m_outside.siteChoices.All ? m_outside.siteChoices.All() : std::vector<SiteChoice>();
    std::vector<Text> words;
    for (const SiteChoice& each : m_sites) words.push_back(each.Words);
    lstSites.Show(std::move(words));
    if (!m_sites.empty()) lstSites.ListIndex = static_cast<std::int32_t>(std::min(selected, m_sites.size() - 1));
    lstSites_Click();
}

void frmInternetOptions::lstSites_Click() {
    cmdRevoke.Enabled = lstSites.FindSelected() != nullptr;
    cmdRevokeAll.Enabled = lstSites.ListCount() > 0;
    lblSitesHint.Caption = lstSites.ListCount() > 0
                               ? u"When you revoke an answer, the site has to ask you again."
                               : u"There is nothing yet. When a site asks you whether it may do something, your answer "
                                 u"is listed here.";
}

void frmInternetOptions::cmdRevoke_Click() {
    if (!lstSites.FindSelected()) return;
    const auto place = static_cast<std::size_t>(lstSites.ListIndex());
    m_sites.at(place).Revoke();
    ShowSites(place);
}

void frmInternetOptions::cmdRevokeAll_Click() {
    if (m_outside.siteChoices.RevokeAll) m_outside.siteChoices.RevokeAll();
    ShowSites(0);
}

void frmInternetOptions::cmdClear_Click() {
    const BrowsingData chosen = Chosen();
    if (!chosen.Any()) return;
    for (auto* box : {&chkClearCookies, &chkClearSiteData, &chkClearCache, &chkClearVisited, &chkClearTyped})
        box->Tick(false);
    lblCleared.Caption = Text(u"Clearing...");
    const auto done = [this, alive = std::weak_ptr(m_alive)](Cleared cleared) {
        if (!alive.expired()) ShowCleared(cleared);
    };
    if (m_outside.clear) m_outside.clear(chosen, done);
}

void frmInternetOptions::ShowCleared(Cleared cleared) {
    switch (cleared) {
    case Cleared::Yes:
        lblCleared.Caption = u"Cleared.";
        break;
    case Cleared::AtNextStart:
        lblCleared.Caption = u"Cleared. What sites have stored is cleared when TessaView is started the next time.";
        break;
    case Cleared::NotAll:
        lblCleared.Caption = u"Not everything could be cleared.";
        break;
    }
}

void frmInternetOptions::chkClear_Click() {
    const BrowsingData chosen = Chosen();
    cmdClear.Enabled = chosen.Any();
    cboSince.Enabled = chosen.cookies || chosen.visitedLinks;
    if (chosen.Any()) lblCleared.Caption = Text();
}

void frmInternetOptions::cboProxy_Click() {
    const auto kind = static_cast<ProxyKind>(cboProxy.Index());
    const bool own = kind == ProxyKind::Http || kind == ProxyKind::Socks;
    txtProxyHost.Enabled = own;
    txtProxyPort.Enabled = own;
    lblProxyBad.Caption = Text();
}

void frmInternetOptions::chkSleep_Click() {
    txtSleepMinutes.Enabled = chkSleep.Ticked();
    lblSleepBad.Caption = Text();
}

bool frmInternetOptions::SleepIsWhole() {
    if (!chkSleep.Ticked() || Minutes(txtSleepMinutes.Value())) return true;
    lblSleepBad.Caption = u"Tabs sleep after 1 to " + Decimal(InternetValues::kMostSleepMinutes) + u" minutes.";
    txtSleepMinutes.SetFocus();
    return false;
}

bool frmInternetOptions::ProxyIsWhole() {
    const InternetValues values = Values();
    if (values.proxy == ProxyKind::System || values.proxy == ProxyKind::Direct) return true;
    TextBox* missing = values.proxyHost.empty() ? &txtProxyHost : values.proxyPort == 0 ? &txtProxyPort : nullptr;
    if (!missing) return true;
    lblProxyBad.Caption = Text(u"A proxy needs a host and a port from 1 to 65535.");
    missing->SetFocus();
    return false;
}

void frmInternetOptions::cmdOK_Click() {
    if (!SleepIsWhole() || !ProxyIsWhole()) return;
    InternetSettings(m_settings).Set(Values());
    Blocking.Keep();
    {
        SettingsStore store(m_settings);
        ResumeNext(store.SearchService.Set(Trimmed(txtSearch.Value())));
        ResumeNext(store.ShopService.Set(Trimmed(txtShop.Value())));
        ResumeNext(store.FindService.Set(Trimmed(txtFind.Value())));
        Keep(store.MailClient, txtMail.Value(), m_mailShown);
        Keep(store.NewsClient, txtNews.Value(), m_newsShown);
    }
    Apply = true;
    Form.Visible = false;
}

void frmInternetOptions::cmdCancel_Click() { Form.Visible = false; }

} // namespace tessa
