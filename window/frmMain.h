#pragma once
#include "address/AddressBoxes.h"
#include "bar/LayoutKeeper.h"
#include "bar/ToolName.h"
#include "base/Signal.h"
#include "commands/Dispatcher.h"
#include "commands/RuntimeMenus.h"
#include "commands/effects/FavoriteCommands.h"
#include "downloads/frmDownloads.h"
#include "groups/GroupCommands.h"
#include "groups/TabsOfFront.h"
#include "history/frmOpenPages.h"
#include "sessions/SessionJournal.h"
#include "startpage/HistoryPages.h"
#include "startpage/HomeFacts.h"
#include "startpage/HomePages.h"
#include "tabpanel/frmTabPanel.h"
#include "tabs/BrowserEvents.h"
#include "tabs/MemoryRelief.h"
#include "tabs/TabGroups.h"
#include "tabs/TabSleep.h"
#include "tabs/frmTaskView.h"
#include "tiles/Tiles.h"
#include "window/ClosingQuestions.h"
#include "window/LiveSettings.h"
#include "window/MainCommands.h"
#include "window/MainKeyboard.h"
#include "window/MainLayout.h"
#include "window/MainWindowPlatform.h"

namespace tessa {

/// The main window. Owns its controls, which everybody may show and use, and what works on them, which is its own. What
/// happens outside is told to it: to its handlers, or to those of its parts that exist for that. Such a part is handed
/// out whole where all that is public of it is for those outside. Each says below who they are.
class frmMain {
public:
    explicit frmMain(MainWindowPlatform platform);
    frmMain(const frmMain&) = delete;
    frmMain& operator=(const frmMain&) = delete;

    // The window's own events.
    /// Builds the window while it is hidden and opens the command line. Without one that is the home page, else a
    /// TessaGroup or an address. Runs once.
    void Form_Load(TextView commandLine);
    /// The first activation reopens the last sites; later ones do nothing.
    void Form_Activate();
    /// Lays out the tab strip and the selected view.
    void Form_Resize();
    /// Whether the window may close. Pages answer in a while: the window then stays, and closes itself.
    [[nodiscard]] bool Form_QueryUnload();
    /// Saves what the next start needs and ends the views. Runs once.
    void Form_Unload();
    /// Every key goes down here first; one that was used is no longer for the control that has the keyboard.
    KeyUsed Form_KeyDown(KeyStroke key, KeyboardOn keyboard = KeyboardOn::Other) {
        return m_keyboard.Form_KeyDown(key, keyboard);
    }
    KeyUsed Form_KeyUp(KeyStroke key) { return m_keyboard.Form_KeyUp(key); }
    /// Something is typed while the page in front has the keyboard. Over a blank page that is meant for the address
    /// box, which then gets the keyboard.
    void Form_Type() { m_keyboard.Form_Type(); }
    /// A tool is clicked that may be listed nowhere.
    void actBar_Click(const Tool& tool) { m_dispatcher.actBar_Click(tool); }
    /// The window's views have ended.
    Signal<void()> Unloaded;

    // The controls: models that views show.
    TabStrip pcPage;
    StatusBar sbStatus;
    CommandBar actBar;
    // The forms beside the window, each for its own window, which binds all of their controls.
    [[nodiscard]] frmDownloads& DownloadPanel() { return m_downloadPanel; }
    [[nodiscard]] frmTaskView& TaskView() { return m_taskView; }
    [[nodiscard]] frmOpenPages& OpenPagesPanel() { return m_openPages; }
    [[nodiscard]] frmTabPanel& TabPanel() { return m_tabPanel; }

    // Tabs.
    /// What is open, to be read: the strip describes its tabs by it.
    [[nodiscard]] const TabSet& Tabs() const { return m_tabs; }
    BrowserView* GetNewBrowser(InFront inFront, Privacy privacy = Privacy::Ordinary) {
        return m_tabs.GetNewBrowser(inFront, privacy);
    }
    void CloseBrowserTab(std::int32_t Index) { m_tabs.CloseBrowserTab(Index); }
    /// The tabs that lie side by side, for the area that shows them.
    [[nodiscard]] tessa::Tiles& Tiles() { return m_tiles; }
    /// The tabs that are chosen together, for the views in which somebody chooses them.
    [[nodiscard]] TabChoice& Choice() { return m_choice; }
    /// The groups that tabs were opened from, for what shows them.
    [[nodiscard]] tessa::TabGroups& TabGroups() { return m_tabGroups; }
    [[nodiscard]] const tessa::TabGroups& TabGroups() const { return m_tabGroups; }
    /// Gives the page in front the keyboard.
    void FocusPage();
    /// Goes to what the program was started with, or what a later start hands over. Not to what is no page.
    void OpenGiven(BrowserView& view, TextView text);
    /// Follows a link of the home page, which opens a TessaGroup, searches or answers a question. Any other address
    /// does nothing.
    void OpenStartLink(std::string_view link);
    /// Makes the home pages anew that are open.
    HomePages::Shown RefreshHomePages() { return HomePages::Refresh(pcPage, m_browser); }

    // TessaGroups, by the full paths of their files.
    void OpenTessaGroup(TextView TessaGroup) { m_groups.OpenTessaGroup(TessaGroup); }
    void OpenTessaGroups(const std::vector<Text>& groups) { m_groups.OpenTessaGroups(groups); }
    void AddToTessaGroup(TextView URL, TextView SGFile) { m_groups.AddToTessaGroup(URL, SGFile); }
    void OrganizeTessaGroup(TextView sFileName) { m_groups.OrganizeTessaGroup(sFileName); }
    /// For whoever drives the window by a script.
    [[nodiscard]] GroupCommands& Groups() { return m_groups; }
    /// There is nobody to ask: what needs an answer is not opened.
    void AskNobody() { m_groups.MayAsk = false; }

    // What the views of the controls report to.
    /// The pointer, and what is dragged, on the strip; for the strip's view alone.
    [[nodiscard]] TabStripInput& StripInput() { return m_stripInput; }
    /// Entries of menus that show files, for the view of menus. The folders where these lie, for the home page.
    [[nodiscard]] RuntimeMenus& Menus() { return m_menus; }
    /// The user has arranged the command bar.
    void SaveLayout() { m_layout.Save(); }
    /// The user wants to see the earlier sessions.
    void ShowSessions() { m_commands.ShowSessions(); }
    /// The user wants to change what is blocked.
    void ShowInternetOptions() { m_commands.ShowInternetOptions(); }

    // What the engine reports to: the list of downloads, for the engine's side of them.
    [[nodiscard]] tessa::Downloads& Downloads() { return m_downloads; }

    /// The page of the history in that view asks for something.
    void AskHistory(std::int32_t index, TextView message) { m_history.Ask(index, message); }
    /// Somebody wants to read on, at the end of the page in front.
    void ReadOn();
    /// Puts what is known of what was read into the home page. When there is more, it is made anew.
    void AddHomeFacts(StartContent& content);
    /// The home page has to be made anew.
    Signal<void()> HomeFactsChanged;

    // What runs by the clock: each says when it is to be called, and its clock calls it. The journal also opens a
    // session again that the bar above the page offers.
    [[nodiscard]] SessionJournal& Sessions() { return m_sessions; }
    [[nodiscard]] TabSleep& Sleep() { return m_sleep; }
    [[nodiscard]] MemoryRelief& Relief() { return m_relief; }
    [[nodiscard]] ReadPages& Reads() { return m_reads; }
    /// Has `RetryWrites` called in a while.
    Signal<void()> RetryLater;
    /// Writes again what could not be written.
    void RetryWrites();

private:
    enum class Stage { New, Loaded, Unloaded };

    void WireParts();
    void WireBar();
    void WireMenus();
    void WireTabs();
    void WireClosing();
    void WireSaying();
    void AnswerBlocking(bool on);
    void WireGroups();
    void WireDownloads();
    void WireSleep();
    void WireReading();
    void WireChoice();
    void WireTabPanel();
    void ShowTabPanel();
    void AskHomeFacts();
    void Prepare();
    void Restore();
    void Save();
    void SaveSettings();
    [[nodiscard]] MainLayout::Inputs LayoutInputs() const;
    void PlaceView(ArrayView& view);
    void OpenAtStart();
    void OpenStartGroup();
    void OpenCommandLine(BrowserView& view, TextView commandLine);

    MainWindowPlatform m_platform;
    BrowserEvents m_events;
    ViewArray m_browser;
    TabSet m_tabs;
    tessa::Tiles m_tiles;
    tessa::TabGroups m_tabGroups;
    GroupCommands m_groups;
    TabChoice m_choice;
    TabsOfFront m_chosen;
    ClosedTabs m_closed;
    TabStripInput m_stripInput;
    PageOptions m_pages;
    AddressBoxes m_boxes;
    CommandContext m_context;
    SessionJournal m_sessions;
    LayoutKeeper m_layout;
    RuntimeMenus m_menus;
    FavoriteCommands m_favorites;
    tessa::Downloads m_downloads;
    frmDownloads m_downloadPanel;
    TabSleep m_sleep;
    MemoryRelief m_relief;
    frmTaskView m_taskView;
    ReadPages m_reads;
    frmOpenPages m_openPages;
    frmTabPanel m_tabPanel;
    HistoryPages m_history;
    HomeFacts m_homeFacts;
    LiveSettings m_settings;
    MainCommands m_commands;
    Dispatcher m_dispatcher;
    MainKeyboard m_keyboard;
    ClosingQuestions m_closing;
    Stage m_stage = Stage::New;
    bool m_activated = false;
    bool m_stripHidden = false;
    bool m_openedFromCommandLine = false;
    bool m_startedBare = false; ///< without a command line
    Connections m_folderChanges;

public:
    // Settings that live here, as others see them.
    const bool& OpenNewInFront = m_tabs.OpenNewInFront;
    const bool& TGCloseOthersFirst = m_groups.TGCloseOthersFirst;
    const bool& RememberLastSites = m_settings.RememberLastSites;
};

} // namespace tessa
