#pragma once
#include "address/AddressBoxes.h"
#include "bar/LayoutKeeper.h"
#include "bar/ToolName.h"
#include "base/Signal.h"
#include "commands/Dispatcher.h"
#include "commands/FavoriteCommands.h"
#include "commands/RuntimeMenus.h"
#include "downloads/frmDownloads.h"
#include "groups/GroupCommands.h"
#include "sessions/SessionJournal.h"
#include "tabs/BrowserEvents.h"
#include "tabs/MemoryRelief.h"
#include "tabs/TabSleep.h"
#include "tabs/frmTaskView.h"
#include "window/LiveSettings.h"
#include "window/MainCommands.h"
#include "window/MainKeyboard.h"
#include "window/MainLayout.h"
#include "window/MainWindowPlatform.h"

/// The main window: owns its controls and parts, and forwards to them.
class frmMain {
public:
    explicit frmMain(MainWindowPlatform platform);

    /// Builds the window while it is hidden and opens the command line: nothing (the home page), a TessaGroup, or
    /// an address. Runs once.
    void Form_Load(TextView commandLine);
    /// The first activation reopens the last sites; later ones do nothing.
    void Form_Activate();
    /// Lays out the tab strip and the selected view.
    void Form_Resize();
    /// Whether the window may close; asks the user when pages hold unsent text, and while downloads run. Pages answer
    /// in a while: the window then stays, and closes itself.
    [[nodiscard]] bool Form_QueryUnload();
    /// Saves what the next start needs and ends the views. Runs once.
    void Form_Unload();

    BrowserView* GetNewBrowser(InFront inFront) { return Tabs.GetNewBrowser(inFront); }
    /// Goes to what the program was started with, or what a later start hands over; not to what is no page.
    void OpenGiven(BrowserView& view, TextView text);
    void OpenTessaGroup(TextView TessaGroup) { Groups.OpenTessaGroup(TessaGroup); }
    void AddToTessaGroup(TextView URL, TextView SGFile) { Groups.AddToTessaGroup(URL, SGFile); }
    void OrganizeTessaGroup(TextView sFileName) { Groups.OrganizeTessaGroup(sFileName); }
    /// Follows a link of the home page, which opens a TessaGroup or searches. Any other address does nothing.
    void OpenStartLink(std::string_view link);
    /// Writes again what could not be written; when a while has gone by since `RetryLater` asked for it.
    void RetryWrites();
    void CloseBrowserTab(std::int32_t Index) { Tabs.CloseBrowserTab(Index); }
    /// The address box and the search box.
    [[nodiscard]] ComboTool* AddressCombo() const { return Tabs.AddressCombo(); }
    [[nodiscard]] ComboTool* SearchCombo() const { return actBar.FindCombo(u"cboSearch"_tool); }
    void actBar_Click(const Tool& tool) { m_dispatcher.actBar_Click(tool); }
    /// Every key goes down here first; one that was used is no longer for the control that has the keyboard.
    KeyUsed Form_KeyDown(KeyStroke key) { return m_keyboard.Form_KeyDown(key); }
    KeyUsed Form_KeyUp(KeyStroke key) { return m_keyboard.Form_KeyUp(key); }
    /// Something is typed while the page in front has the keyboard. Over a blank page that is meant for the address
    /// box, which then gets the keyboard.
    void Form_Type() { m_keyboard.Form_Type(); }

    MainWindowPlatform Platform;
    TabStrip pcPage;
    StatusBar sbStatus;
    CommandBar actBar;
    BrowserEvents Events;
    ViewArray Browser;
    TabSet Tabs;
    GroupCommands Groups;
    ClosedTabs Closed;
    TabStripInput StripInput;
    PageOptions Pages;
    AddressBoxes Boxes;
    CommandContext Commands;
    SessionJournal Sessions;
    LayoutKeeper Layout;
    RuntimeMenus Menus;
    FavoriteCommands Favorite;
    ::Downloads Downloads;
    frmDownloads DownloadPanel;
    TabSleep Sleep;
    MemoryRelief Relief;
    frmTaskView TaskView;
    LiveSettings Settings;
    /// Live copies of settings, where they take effect.
    bool& RememberLastSites = Settings.RememberLastSites;
    bool& OpenNewInFront = Tabs.OpenNewInFront;
    bool& TGCloseOthersFirst = Groups.TGCloseOthersFirst;
    /// The window's views have ended.
    Signal<void()> Unloaded;
    /// Has `RetryWrites` called in a while.
    Signal<void()> RetryLater;

private:
    enum class Stage { New, Loaded, Unloaded };

    void WireParts();
    void WireGroups();
    void WireDownloads();
    void WireSleep();
    void Prepare();
    void Restore();
    void Save();
    void SaveSettings();
    [[nodiscard]] MainLayout::Inputs LayoutInputs() const;
    void PlaceView(ArrayView& view);
    void OpenCommandLine(BrowserView& view, TextView commandLine);
    [[nodiscard]] bool PagesLetGo();
    [[nodiscard]] bool UserLeaves(const std::vector<std::int32_t>& holders);

    MainCommands m_commands;
    Dispatcher m_dispatcher;
    MainKeyboard m_keyboard;
    Stage m_stage = Stage::New;
    bool m_left = false; ///< all pages have let their user go, or he has left them
    bool m_activated = false;
    bool m_openedFromCommandLine = false;
};
