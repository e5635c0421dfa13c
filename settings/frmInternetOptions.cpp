#include "settings/frmInternetOptions.h"

#include "base/Captions.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

constexpr std::int64_t kHour = 3600;
constexpr std::array<std::int64_t, 4> kSince{kHour, 24 * kHour, 7 * 24 * kHour, 0};

// The first items of what is there at the start; the groups follow.
constexpr std::size_t kLastSitesAtStart = 1, kFirstStartGroup = 2;

Text Trimmed(TextView text) {
    return Text(TrimmedOf(text, [](char16_t each) { return each <= u' '; }));
}

// Nothing for what is no such number.
std::optional<std::int32_t> NumberWithin(const Text& text, std::int32_t least, std::int32_t most) {
    const auto number = WholeNumber(Trimmed(text));
    return number && *number >= least && *number <= most ? number : std::nullopt;
}

std::optional<std::int32_t> Port(const Text& text) { return NumberWithin(text, 1, 65535); }

std::optional<std::int32_t> Minutes(const Text& text) {
    return NumberWithin(text, 1, InternetValues::kMostSleepMinutes);
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
    for (auto* box :
         {&chkClearCookies, &chkClearSiteData, &chkClearCache, &chkClearVisited, &chkClearHistory, &chkClearTyped})
        box->Value.Change.ConnectForLife([this] { chkClear_Click(); });
    chkSleep.Value.Change.ConnectForLife([this] { chkSleep_Click(); });
    for (auto* box : {&chkHistoryNothing, &chkHistoryTexts})
        box->Value.Change.ConnectForLife([this] { chkHistory_Click(); });
    cboProxy.Index.Change.ConnectForLife([this] { cboProxy_Click(); });
    cmdOK.Click.ConnectForLife([this] { cmdOK_Click(); });
    cmdCancel.Click.ConnectForLife([this] { cmdCancel_Click(); });
}

void frmInternetOptions::Form_Load() {
    ShowValues(InternetSettings(m_settings).Get());
    ShowHistory(HistorySettings(m_settings).Get());
    const SettingsStore store(m_settings);
    txtSearch.Value = store.SearchService.Get();
    txtShop.Value = store.ShopService.Get();
    txtFind.Value = store.FindService.Get();
    m_mailShown = store.MailClient.HasValue() ? store.MailClient.Get() : m_outside.mailProgram;
    m_newsShown = store.NewsClient.HasValue() ? store.NewsClient.Get() : m_outside.newsProgram;
    txtMail.Value = m_mailShown;
    txtNews.Value = m_newsShown;
    ShowStart(InternetSettings(m_settings).StartGroup.Get(), store.RememberLastSites.Get());
    cmdUseCurrent.Enabled = !m_outside.currentPage.empty();
    cmdBrowse.Enabled = static_cast<bool>(m_outside.chooseFolder);
    ShowSites(0);
    chkClear_Click();
    chkSleep_Click();
    cboProxy_Click();
}

// A group that has gone meanwhile may come back; the choice is not lost.
void frmInternetOptions::ShowStart(const Text& group, bool lastSites) {
    m_startGroups = m_outside.groups;
    if (!group.empty() && std::ranges::find(m_startGroups, group) == m_startGroups.end())
        m_startGroups.push_back(group);
    for (const Text& each : m_startGroups) cboStart.Items.push_back(u"TessaGroup " + OneLine(each));
    const auto chosen = std::ranges::find(m_startGroups, group);
    if (chosen != m_startGroups.end())
        cboStart.Index = kFirstStartGroup + static_cast<std::size_t>(chosen - m_startGroups.begin());
    else
        cboStart.Index = lastSites ? kLastSitesAtStart : 0;
    m_startShown = cboStart.Index();
}

Text frmInternetOptions::StartGroup() const {
    return cboStart.Index() < kFirstStartGroup ? Text() : m_startGroups.at(cboStart.Index() - kFirstStartGroup);
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
    txtArchive.Value = values.archive;
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
            .drawing = static_cast<DrawingWish>(cboDrawing.Index()),
            .startGroup = StartGroup(),
            .archive = Trimmed(txtArchive.Value())};
}

BrowsingData frmInternetOptions::Chosen() const {
    return {.cookies = chkClearCookies.Ticked(),
            .siteData = chkClearSiteData.Ticked(),
            .cache = chkClearCache.Ticked(),
            .visitedLinks = chkClearVisited.Ticked(),
            .typed = chkClearTyped.Ticked(),
            .history = chkClearHistory.Ticked(),
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
    for (auto* box :
         {&chkClearCookies, &chkClearSiteData, &chkClearCache, &chkClearVisited, &chkClearHistory, &chkClearTyped})
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
    cboSince.Enabled = chosen.cookies || chosen.visitedLinks || chosen.history;
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

void frmInternetOptions::ShowHistory(const HistoryValues& values) {
    chkHistoryNothing.Tick(values.nothing);
    chkHistoryTexts.Tick(values.texts);
    txtHistoryDays.Value = Decimal(values.days);
    txtHistoryMegabytes.Value = Decimal(values.megabytes);
    txtHistoryLeftOut.Value = values.leftOut;
    chkHistory_Click();
}

HistoryValues frmInternetOptions::History() const {
    const HistoryValues byDesign;
    return {.nothing = chkHistoryNothing.Ticked(),
            .texts = chkHistoryTexts.Ticked(),
            .days = NumberWithin(txtHistoryDays.Value(), 1, HistoryValues::kMostDays).value_or(byDesign.days),
            .megabytes =
                NumberWithin(txtHistoryMegabytes.Value(), HistoryValues::kLeastMegabytes, HistoryValues::kMostMegabytes)
                    .value_or(byDesign.megabytes),
            .leftOut = Trimmed(txtHistoryLeftOut.Value())};
}

void frmInternetOptions::chkHistory_Click() {
    const bool any = !chkHistoryNothing.Ticked();
    chkHistoryTexts.Enabled = any;
    for (auto* box : {&txtHistoryDays, &txtHistoryMegabytes, &txtHistoryLeftOut}) box->Enabled = any;
    lblHistoryBad.Caption = Text();
}

bool frmInternetOptions::HistoryIsWhole() {
    if (chkHistoryNothing.Ticked()) return true;
    TextBox* bad = nullptr;
    const std::int32_t least = HistoryValues::kLeastMegabytes, most = HistoryValues::kMostMegabytes;
    if (!NumberWithin(txtHistoryMegabytes.Value(), least, most)) {
        lblHistoryBad.Caption = u"The history takes " + Decimal(least) + u" to " + Decimal(most) + u" megabytes.";
        bad = &txtHistoryMegabytes;
    }
    if (!NumberWithin(txtHistoryDays.Value(), 1, HistoryValues::kMostDays)) {
        lblHistoryBad.Caption = u"Pages are forgotten after 1 to " + Decimal(HistoryValues::kMostDays) + u" days.";
        bad = &txtHistoryDays;
    }
    if (bad) bad->SetFocus();
    return bad == nullptr;
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
    if (!SleepIsWhole() || !ProxyIsWhole() || !HistoryIsWhole()) return;
    InternetSettings(m_settings).Set(Values());
    HistorySettings(m_settings).Set(History());
    Blocking.Keep();
    {
        SettingsStore store(m_settings);
        ResumeNext(store.SearchService.Set(Trimmed(txtSearch.Value())));
        ResumeNext(store.ShopService.Set(Trimmed(txtShop.Value())));
        ResumeNext(store.FindService.Set(Trimmed(txtFind.Value())));
        // What was not touched stays as the other settings have it.
        if (cboStart.Index() != m_startShown)
            ResumeNext(store.RememberLastSites.Set(cboStart.Index() == kLastSitesAtStart));
        Keep(store.MailClient, txtMail.Value(), m_mailShown);
        Keep(store.NewsClient, txtNews.Value(), m_newsShown);
    }
    Apply = true;
    Form.Visible = false;
}

void frmInternetOptions::cmdCancel_Click() { Form.Visible = false; }

} // namespace tessa
