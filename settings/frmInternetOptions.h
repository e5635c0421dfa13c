#pragma once
#include "base/ResumeNext.h"
#include "forms/Choice.h"
#include "forms/Controls.h"
#include "forms/ListBox.h"
#include "settings/BrowsingData.h"
#include "settings/HistorySettings.h"
#include "settings/InternetSettings.h"
#include "settings/SiteChoice.h"
#include "settings/frmBlocking.h"

#include <functional>
#include <memory>

namespace tessa {

/// The dialog of the Internet Options as data, made afresh for every show. Nothing is written before OK; "Clear Now"
/// and what is revoked take effect at once.
class frmInternetOptions {
public:
    /// What the form needs of the world outside; all may be empty.
    struct Outside {
        /// Asks for a folder, beginning at the one given; empty when the user changed his mind.
        std::function<Text(TextView folder)> chooseFolder{};
        SiteChoices siteChoices{};
        std::function<void(const BrowsingData&, Forgotten done)> clear{};
        /// The address of the page in front.
        Text currentPage{};
        /// The names of the TessaGroups in the user's folder.
        std::vector<Text> groups{};
        /// The programs that the desktop has; used while no other was ever set.
        Text mailProgram{};
        Text newsProgram{};
        BlockingOutside* blocking = nullptr;
        /// Asks for a list of what is to be blocked; empty when the user changed his mind.
        std::function<Text()> chooseList{};
    };

    /// The factory must outlive the form.
    frmInternetOptions(SettingsStorageFactory& settings, Outside outside);
    frmInternetOptions(const frmInternetOptions&) = delete;
    frmInternetOptions& operator=(const frmInternetOptions&) = delete;

    /// False while the dialog is open, true after OK.
    bool Apply = false;

    FormState Form;
    Text Caption = u"Internet Options";

    /// The first page.
    frmBlocking Blocking;

    Label lblHomePage{u"Home page (empty for TessaView's own)"};
    TextBox txtHomePage;
    Button cmdUseCurrent{u"Use Current"};
    Button cmdUseDefault{u"Use Default"};
    Choice cboStart{u"At start", {u"Home page", u"The pages that were open last"}};
    Label lblSearch{u"Search service (%s stands for the words)"};
    TextBox txtSearch;
    Label lblShop{u"Shop links lead to (%s stands for the link)"};
    TextBox txtShop;
    Label lblFind{u"Find links lead to (%s stands for the link)"};
    TextBox txtFind;
    CheckBox chkSleep{u"Let tabs that were not looked at for"};
    TextBox txtSleepMinutes;
    Label lblSleepMinutes{u"minutes sleep"};
    Label lblSleepBad{u""};
    Choice cboDrawing{
        u"Drawing, from the next start on",
        {u"As this computer does it best", u"With the graphics processor", u"Without the graphics processor"}};

    Label lblMail{u"Mail program"};
    TextBox txtMail;
    Label lblNews{u"News program"};
    TextBox txtNews;
    Label lblArchive{u"Archived copies of pages (%s stands for the address)"};
    TextBox txtArchive;
    Label lblDownloads{u"Download folder (empty for the desktop's)"};
    TextBox txtDownloads;
    Button cmdBrowse{u"Browse..."};

    CheckBox chkJavaScript{u"Pages may run JavaScript"};
    Choice cboCookies{u"Cookies", {u"From all sites", u"From the site of the page only", u"None"}};
    CheckBox chkDoNotTrack{u"Tell sites not to track me"};
    CheckBox chkGlobalPrivacyControl{u"Tell sites not to sell or share what they know of me"};

    CheckBox chkHistoryNothing{u"Remember nothing of the pages that I read"};
    CheckBox chkHistoryTexts{u"Remember pages' text, to find it again and to tell what is new"};
    Label lblHistoryDays{u"Forget pages after so many days"};
    TextBox txtHistoryDays;
    Label lblHistoryMegabytes{u"Take no more room on the disk than so many megabytes"};
    TextBox txtHistoryMegabytes;
    Label lblHistoryLeftOut{u"Sites that are never remembered"};
    TextBox txtHistoryLeftOut;
    Label lblHistoryBad{u""};

    Label lblSites{u"What you allow and refuse sites"};
    ListBox lstSites;
    Button cmdRevoke{u"Revoke"};
    Button cmdRevokeAll{u"Revoke All"};
    Label lblSitesHint{u""};

    CheckBox chkClearCookies{u"Cookies: sites forget you and log you out"};
    CheckBox chkClearSiteData{u"What sites have stored on this computer besides cookies"};
    CheckBox chkClearCache{u"Stored copies of pages and pictures, which load faster from there"};
    CheckBox chkClearVisited{u"Visited links: pages show all links in the colour of new ones"};
    CheckBox chkClearHistory{u"The history: the pages that you have read, and what they said"};
    CheckBox chkClearTyped{u"The lists of the address box and the search box"};
    Choice cboSince{u"Of these three, clear what is from",
                    {u"the last hour", u"the last day", u"the last week", u"all time"}};
    Button cmdClear{u"Clear Now"};
    Label lblCleared{u""};
    Label lblClearNote{u"The rest is cleared whole, however old it is. TessaView knows when you visited a link only "
                       u"since it was started. When you choose a time before that, all visited links are cleared."};

    Choice cboProxy{u"Proxy", {u"As the desktop has it", u"None", u"HTTP proxy", u"SOCKS 5 proxy"}};
    Label lblProxyHost{u"Host"};
    TextBox txtProxyHost;
    Label lblProxyPort{u"Port"};
    TextBox txtProxyPort;
    Label lblProxyBad{u""};

    Button cmdOK{u"OK"};
    Button cmdCancel{u"Cancel"};

private:
    void Form_Load();
    void WireClicks();
    void ShowStart(const Text& group, bool lastSites);
    [[nodiscard]] Text StartGroup() const;
    void ShowValues(const InternetValues& values);
    [[nodiscard]] InternetValues Values() const;
    [[nodiscard]] BrowsingData Chosen() const;
    void cmdBrowse_Click();
    /// Reads the list anew and selects the entry at that place, or the last one.
    void ShowSites(std::size_t selected);
    void lstSites_Click();
    void cmdRevoke_Click();
    void cmdRevokeAll_Click();
    void cmdClear_Click();
    void chkClear_Click();
    void ShowCleared(Cleared cleared);
    void cboProxy_Click();
    void chkSleep_Click();
    void chkHistory_Click();
    void ShowHistory(const HistoryValues& values);
    [[nodiscard]] HistoryValues History() const;
    /// Whether days and megabytes are such; says so and leads there otherwise.
    [[nodiscard]] bool HistoryIsWhole();
    /// Whether that is a time; says so and leads there otherwise.
    [[nodiscard]] bool SleepIsWhole();
    /// Whether the proxy can be used; says so and leads to what is missing otherwise.
    [[nodiscard]] bool ProxyIsWhole();
    void cmdOK_Click();
    void cmdCancel_Click();

    SettingsStorageFactory& m_settings;
    Outside m_outside;
    Text m_mailShown, m_newsShown; ///< what the boxes showed at first
    /// Ends with the form, which may not wait for what it has cleared.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    std::vector<SiteChoice> m_sites;
    std::vector<Text> m_startGroups; ///< that can be chosen, by name
    std::size_t m_startShown = 0;
};

} // namespace tessa
