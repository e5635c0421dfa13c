#include "window/frmMain.h"

#include "address/BoxHistories.h"
#include "address/Endpoints.h"
#include "base/Address.h"
#include "base/Captions.h"
#include "base/LinkTrust.h"
#include "base/os/Log.h"
#include "commands/DesignTimeBar.h"
#include "commands/PageMenu.h"
#include "commands/TabMoreCommands.h"
#include "downloads/DownloadWords.h"
#include "groups/TessaGroups.h"
#include "platform/Application.h"
#include "sessions/LastSites.h"
#include "startpage/StartPage.h"
#include "tabs/TabKeys.h"
#include "window/WindowPlacement.h"
#include "window/frmDefBrowser.h"

#include <algorithm>
#include <array>
#include <memory>

namespace {

/// Of the pages that hold their user, as many as anybody reads, and as much of their names.
constexpr std::size_t kMostHolders = 8;
constexpr std::size_t kLongestHolder = 80;

// They have nothing to act on yet.
constexpr std::array kDisabledAtStart{u"mnuGoBack"_tool, u"mnuGoForward"_tool, u"mnuStop"_tool, u"mnuRefresh"_tool};

} // namespace

frmMain::frmMain(MainWindowPlatform platform)
    : Platform(std::move(platform)),
      Events(Tabs, Browser),
      Browser(Platform.views, Events),
      Tabs(pcPage, Browser, actBar, sbStatus, Platform.messages),
      Groups(
          {Tabs, pcPage, Browser, sbStatus, Platform.messages, Platform.files, Platform.forms, Platform.groupFolder}),
      Closed(Tabs, pcPage, Browser),
      StripInput(Tabs, pcPage, Browser, actBar),
      Pages(Tabs, actBar, Platform.settings),
      Boxes(Tabs, actBar),
      Commands{Tabs,
               pcPage,
               StripInput,
               actBar,
               Pages,
               Groups,
               Closed,
               Platform.files,
               Platform.messages,
               Platform.forms,
               Platform.settings,
               Platform.shell,
               Platform.trash,
               Platform.downloads,
               Platform.tools,
               Platform.input,
               Platform.groupFolder,
               Platform.favoritesFolder},
      Sessions(Platform.sessions, Platform.clock, Tabs, pcPage, Browser),
      Layout(actBar, Platform.layout),
      Menus(Commands, Platform.folderWatch),
      Favorite(Commands, {Platform.trash, Platform.forms}),
      Downloads(Platform.downloads, Platform.downloadsFile),
      DownloadPanel(Downloads, Platform.clock),
      Sleep(pcPage, Browser),
      Relief(pcPage, Sleep),
      TaskView(pcPage, Browser),
      Settings({pcPage, Tabs, Groups, Sleep}, Platform.settings),
      m_commands({Tabs, pcPage, actBar, Commands, Sessions, Settings, TaskView, DownloadPanel}, Platform),
      m_dispatcher(Commands),
      m_keyboard(actBar, Tabs, m_dispatcher) {
    Commands.window = &m_commands;
    DesignTimeBar::Make(actBar);
    WireParts();
}

void frmMain::WireParts() {
    Tabs.PlaceView.ConnectForLife([this](ArrayView& view) { PlaceView(view); });
    Tabs.Resize.ConnectForLife([this] { Form_Resize(); });
    Tabs.CloseWindow.ConnectForLife([this] { Platform.window.Close(); });
    actBar.Click.ConnectForLife([this](Tool& tool) { actBar_Click(tool); });
    actBar.BandOpen.ConnectForLife([this](Band& band) { Menus.BandOpen(band); });
    actBar.MouseOver.ConnectForLife(
        [this](const Tool* tool) { Tabs.ShowStatusText(tool ? OneLine(tool->Description) : Text()); });
    Tabs.Closing.ConnectForLife([this](std::int32_t index) {
        Closed.Remember(index);
        Groups.PageDone(index);
    });
    Tabs.ClosingSeveral = [this](const std::function<void()>& close) {
        Closed.BeginSeveral();
        close();
        Closed.EndSeveral();
    };
    Tabs.Blanking.ConnectForLife([this](std::int32_t index) { Closed.RememberBlanked(index); });
    Closed.Changed.ConnectForLife([this] { TabMoreCommands::ShowReopen(Commands); });
    StripInput.Opening.ConnectForLife([this] { TabMoreCommands::ShowState(Commands); });
    pcPage.Touched.ConnectForLife([this] {
        Sessions.Touch();
        Sleep.Touch();
    });
    Events.ShowMenu.ConnectForLife(
        [this](std::int16_t Index, const PageContext& Context) { PageMenu::Open(Commands, Index, Context); });
    Events.Navigated.ConnectForLife([this] { Sessions.Touch(); });
    Pages.ApplyLoadOptions.ConnectForLife([this] { Platform.engineOptions.ApplyLoadOptions(); });
    Layout.Say.ConnectForLife([this](TextView message) { sbStatus.Complaint(message); });
    Sessions.Say.ConnectForLife([this](TextView message) { sbStatus.Complaint(message); });
    Layout.TryAgain.ConnectForLife([this] { RetryLater(); });
    Downloads.TryAgain.ConnectForLife([this] { RetryLater(); });
    WireGroups();
    WireDownloads();
    WireSleep();
    TabMoreCommands::ShowReopen(Commands);
}

void frmMain::WireGroups() {
    Events.Loaded.ConnectForLife([this](std::int16_t Index) {
        Groups.PageDone(Index);
        Relief.Loaded(Index);
    });
}

void frmMain::WireDownloads() {
    Downloads.Changed.ConnectForLife([this] {
        for (const ToolName name : {u"xtrMore"_tool, u"xtrDownloads"_tool}) {
            if (auto* tool = actBar.Find(name)) tool->Badge = Downloads.CountActive();
        }
        DownloadPanel.Touch();
        sbStatus.Saving.Caption = DownloadWords::Progress(Downloads);
        sbStatus.Saving.Visible = Downloads.CountActive() > 0;
    });
    Downloads.Say.ConnectForLife([this](TextView message) { Tabs.Say(message); });
    Downloads.Complain.ConnectForLife([this](TextView message) { sbStatus.Complaint(message); });
    sbStatus.Saving.Click.ConnectForLife([this] { DownloadPanel.Form.Visible = true; });
    DownloadPanel.Shown.ConnectForLife([this](bool shown) {
        if (auto* tool = actBar.Find(u"xtrDownloads"_tool)) tool->Checked = shown;
    });
}

void frmMain::WireSleep() {
    Tabs.Opened.ConnectForLife([this](std::int32_t index) { Sleep.Opened(index); });
    Relief.Say.ConnectForLife([this](TextView words) { Tabs.Say(words); });
}

void frmMain::Form_Load(TextView commandLine) {
    if (m_stage != Stage::New) return;
    m_stage = Stage::Loaded;
    Prepare();
    if (auto* view = Tabs.PrepareFirstTab()) OpenCommandLine(*view, commandLine);
    Restore();
    Downloads.Load();
}

// What the first tab finds there.
void frmMain::Prepare() {
    Layout.Load();
    actBar.RecalcLayout();
    Pages.ShowLoadOptions();
    Menus.KeepPictures();
    bool ask = false;
    {
        const SettingsStore store(Platform.settings);
        Settings.PlaceTabs(store);
        ask = store.AskDefaultBrowser.Get();
    }
    // No store is held while the question is open: it writes through one of its own.
    if (ask) frmDefBrowser::Ask(Platform.settings, Platform.defaultBrowser, Platform.programPath, Platform.forms);
    const SettingsStore store(Platform.settings);
    Settings.RememberLastSites = store.RememberLastSites.Get();
    BoxHistories::Restore(actBar, store);
    Tabs.ShowStatusBar(store.ShowStatusBar.Get());
    for (const ToolName name : kDisabledAtStart) actBar.Enable(name, false);
}

void frmMain::Restore() {
    const SettingsStore store(Platform.settings);
    WindowPlacement::Restore(Platform.window, store);
    Settings.Copy(store);
    Settings.ApplySleep();
}

void frmMain::OpenCommandLine(BrowserView& view, TextView commandLine) {
    if (commandLine.empty()) {
        ResumeNext(view.GoHome());
    } else if (GroupCommands::IsGroupFile(commandLine)) {
        ResumeNext(view.Navigate(Address::kBlank));
        OpenTessaGroup(commandLine);
    } else {
        m_openedFromCommandLine = true;
        OpenGiven(view, commandLine);
    }
}

void frmMain::OpenGiven(BrowserView& view, TextView text) {
    if (TrustOf(text, LinkSource::HandOver) == LinkTrust::Open) return ResumeNext(view.Navigate(text));
    Tabs.ShowStatusText(u"What TessaView was to open is no page. It was not opened.");
}

void frmMain::OpenStartLink(std::string_view link) {
    const auto words = StartPage::WordsOf(link);
    auto* view = words ? Tabs.CurrentView() : nullptr;
    if (view) return ResumeNext(view->Control->Navigate(Text(Endpoints::kSearch) + *words));
    const auto name = StartPage::GroupOf(link);
    // Only what the folder lists is a group: a name is no path.
    CKeyValues groups = name ? TessaGroups::List(Platform.groupFolder) : CKeyValues();
    const auto* group = name ? groups.FindItem(*name) : nullptr;
    if (group) OpenTessaGroup(Text(group->Value));
}

void frmMain::RetryWrites() {
    Layout.SaveAgain();
    Downloads.WriteAgain();
}

void frmMain::Form_Activate() {
    Platform.splash.Unload();
    if (m_activated || m_stage != Stage::Loaded) return;
    m_activated = true;
    if (Settings.RememberLastSites && !m_openedFromCommandLine) {
        std::vector<Text> sites = SettingsStore(Platform.settings).LastSites.Get();
        LastSites::Reopen(std::move(sites), Tabs, Browser, Sessions.CameBack);
    }
    Sessions.OfferBy(Platform.offer);
}

void frmMain::Form_Resize() {
    Platform.window.MoveTabStrip(MainLayout::TabStripPlace(LayoutInputs()));
    if (auto* view = Tabs.CurrentView()) PlaceView(*view);
}

bool frmMain::Form_QueryUnload() {
    if (m_stage != Stage::Loaded) return true;
    if (!m_left && !PagesLetGo()) return false;
    // When the window stays after all, its pages are asked anew the next time.
    m_left = false;
    const std::size_t running = Downloads.CountActive();
    return running == 0 || Platform.messages.AskOwn(DownloadWords::ExitQuestion(running));
}

bool frmMain::PagesLetGo() {
    // The answer may come when this has long returned.
    const auto atOnce = std::make_shared<bool>(true);
    Tabs.Leaving.FindHolders([this, atOnce](const std::vector<std::int32_t>& holders) {
        m_left = holders.empty() || UserLeaves(holders);
        if (m_left && !*atOnce) Platform.window.Close();
    });
    *atOnce = false;
    return m_left;
}

bool frmMain::UserLeaves(const std::vector<std::int32_t>& holders) {
    const auto count = static_cast<std::int64_t>(holders.size());
    OwnQuestion question{count == 1 ? Text(u"A page holds unsent text") : Decimal(count) + u" pages hold unsent text",
                         {},
                         u"&Stay",
                         u"&Leave"};
    for (std::size_t i = 0; i < std::min(holders.size(), kMostHolders); ++i) {
        const auto* tab = TabOfView(pcPage, holders[i]);
        if (tab) question.Details += OneLine(FirstUnits(tab->Caption(), kLongestHolder)) + u"\n";
    }
    if (holders.size() > kMostHolders) question.Details += u"...";
    if (Platform.messages.AskOwn(question)) return true;
    if (auto* tab = TabOfView(pcPage, holders.front())) pcPage.Select(tab);
    return false;
}

void frmMain::Form_Unload() {
    if (m_stage != Stage::Loaded) return;
    m_stage = Stage::Unloaded;
    Log::Note(LogLevel::Info, LogPart::Program, "ends, tabs", static_cast<std::int64_t>(pcPage.Count()));
    TaskView.Form.Visible = false;
    Sleep.SetPatience({});
    Relief.End();
    Save();
    Sessions.End();
    Downloads.End();
    Browser.UnloadAll();
    Menus.ReleasePictures();
    Unloaded();
}

// What the next start needs. A value that cannot be written is skipped.
void frmMain::Save() {
    SaveSettings();
    actBar.RemoveRunTimeBands();
    Layout.Save();
}

void frmMain::SaveSettings() {
    const std::vector<Text> sites = LastSites::Open(pcPage, Browser);
    SettingsStore store(Platform.settings);
    WindowPlacement::Save(store, Platform.window);
    Settings.Save(store);
    ResumeNext(store.LastSites.Set(sites));
    BoxHistories::Save(store, actBar);
    ResumeNext(store.ShowStatusBar.Set(sbStatus.Visible()));
}

MainLayout::Inputs frmMain::LayoutInputs() const {
    const auto& window = Platform.window;
    return {window.InnerWidth(), window.InnerHeight(), sbStatus.Visible() ? sbStatus.Height : Pixels{0},
            pcPage.RowHeight, pcPage.Placement()};
}

void frmMain::PlaceView(ArrayView& view) {
    if (Platform.window.State() == WindowState::Minimized) return;
    view.Place(MainLayout::ViewPlace(LayoutInputs()));
}
