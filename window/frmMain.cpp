#include "window/frmMain.h"

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
#include "startpage/StartPage.h"
#include "tabs/TabKeys.h"
#include "window/MainLoad.h"
#include "window/MainUnload.h"

#include <algorithm>
#include <memory>

namespace {

/// Of the pages that hold their user, as many as anybody reads, and as much of their names.
constexpr std::size_t kMostHolders = 8;
constexpr std::size_t kLongestHolder = 80;

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
      m_commands(*this),
      m_dispatcher(Commands) {
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
    MainLoad::Prepare(*this);
    if (auto* view = Tabs.PrepareFirstTab()) OpenCommandLine(*view, commandLine);
    MainLoad::Restore(*this);
    Downloads.Load();
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
    if (RememberLastSites && !m_openedFromCommandLine) MainLoad::ReopenLastSites(*this);
    OfferSession();
}

void frmMain::OfferSession() {
    if (const auto session = Sessions.ToOffer())
        Platform.offer.Offer(session->first, session->second);
    else
        Platform.offer.Withdraw();
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
    MainUnload::Save(*this);
    Sessions.End();
    Downloads.End();
    Browser.UnloadAll();
    Menus.ReleasePictures();
    Unloaded();
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
