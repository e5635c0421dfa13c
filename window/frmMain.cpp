#include "window/frmMain.h"

#include "address/BoxHistories.h"
#include "address/Endpoints.h"
#include "base/Address.h"
#include "base/Captions.h"
#include "base/LinkTrust.h"
#include "base/os/Log.h"
#include "commands/DesignTimeBar.h"
#include "commands/effects/ReadingCommands.h"
#include "commands/effects/TileCommands.h"
#include "groups/TessaGroups.h"
#include "platform/Application.h"
#include "sessions/LastSites.h"
#include "settings/BlockingSettings.h"
#include "startpage/StartPage.h"
#include "window/WindowPlacement.h"
#include "window/frmDefBrowser.h"

#include <array>

namespace tessa {

namespace {

// They have nothing to act on yet.
constexpr std::array kDisabledAtStart{u"mnuGoBack"_tool, u"mnuGoForward"_tool, u"mnuStop"_tool, u"mnuRefresh"_tool};

} // namespace

frmMain::frmMain(MainWindowPlatform platform)
    : m_platform(std::move(platform)),
      m_events(m_tabs, m_browser),
      m_browser(m_platform.views, m_events),
      m_tabs(pcPage, m_browser, actBar, sbStatus, m_platform.messages),
      m_tiles(m_tabs, pcPage),
      m_tabGroups(m_tabs, pcPage, m_browser),
      m_groups({m_tabs, pcPage, m_browser, m_tabGroups, m_tiles, sbStatus, m_platform.messages, m_platform.files,
                m_platform.forms, m_platform.settings, m_platform.probe, m_platform.groupFolder}),
      m_choice(pcPage),
      m_chosen(pcPage, m_choice),
      m_closed(m_tabs, pcPage, m_browser, m_tabGroups),
      m_stripInput(m_tabs, pcPage, m_browser, actBar),
      m_pages(m_tabs, actBar, m_platform.settings),
      m_boxes(m_tabs, actBar),
      m_context{m_tabs,
                pcPage,
                m_stripInput,
                actBar,
                m_pages,
                m_groups,
                m_tabGroups,
                m_closed,
                m_tiles,
                m_choice,
                m_chosen,
                m_platform.files,
                m_platform.messages,
                m_platform.forms,
                m_platform.settings,
                m_platform.shell,
                m_platform.trash,
                m_platform.downloads,
                m_platform.tools,
                m_platform.input,
                m_platform.groupFolder,
                m_platform.favoritesFolder},
      m_sessions(m_platform.sessions, m_platform.clock, {m_tabs, pcPage, m_browser, m_tiles, m_groups}),
      m_layout(actBar, m_platform.layout),
      m_menus(m_context, m_platform.folderWatch),
      m_favorites(m_context, {m_platform.trash, m_platform.forms}),
      m_downloads(m_platform.downloads, m_platform.downloadsFile),
      m_downloadPanel(m_downloads, m_platform.clock),
      m_sleep(pcPage, m_browser, m_platform.steady),
      m_relief({pcPage, m_sleep, m_platform.views, m_platform.memory, m_platform.steady}),
      m_taskView(pcPage, m_browser),
      m_reads({pcPage, m_browser, m_tabGroups, m_platform.visits, m_platform.clock, m_platform.steady}),
      m_openPages(m_reads, pcPage, m_browser, m_platform.visits),
      m_tabPanel({pcPage, m_browser, m_tabs, m_choice, m_tabGroups}),
      m_history({m_tabs, pcPage, m_browser, m_groups, m_platform.messages, m_platform.files, m_platform.visits,
                 m_platform.clock, m_platform.groupFolder}),
      m_homeFacts({m_platform.visits, m_platform.clock, m_closed, m_platform.groupFolder}),
      m_settings({pcPage, m_tabs, m_groups, m_sleep, m_reads}, m_platform.settings),
      m_commands({m_tabs, pcPage, m_browser, actBar, m_context, m_sessions, m_settings, m_reads, m_taskView,
                  m_downloadPanel, m_history, m_openPages, m_tabPanel},
                 m_platform),
      m_dispatcher(m_context),
      m_keyboard(actBar, m_tabs, m_choice, m_dispatcher),
      m_closing({m_tabs, pcPage, m_downloads, m_platform.window, m_platform.messages}) {
    m_context.window = &m_commands;
    m_context.reads = &m_reads;
    m_context.sleep = &m_sleep;
    DesignTimeBar::Make(actBar);
    WireParts();
}

void frmMain::AskHomeFacts() {
    if (!m_reads.Options().Nothing) m_homeFacts.Ask();
}

void frmMain::AddHomeFacts(StartContent& content) {
    m_homeFacts.AddTo(content);
    AskHomeFacts();
}

void frmMain::ReadOn() {
    const auto round = m_reads.Round();
    if (ReadingRound::Next(round, m_tabs.CurrentIndex()) != 0) ReadingCommands::NextUnread(m_context);
}

void frmMain::Form_Load(TextView commandLine) {
    if (m_stage != Stage::New) return;
    m_stage = Stage::Loaded;
    Prepare();
    if (auto* view = m_tabs.PrepareFirstTab()) OpenCommandLine(*view, commandLine);
    Restore();
    m_downloads.Load();
}

// What the first tab finds there.
void frmMain::Prepare() {
    m_layout.Load();
    actBar.RecalcLayout();
    m_pages.ShowLoadOptions();
    m_menus.KeepPictures();
    bool ask = false;
    {
        const SettingsStore store(m_platform.settings);
        m_settings.PlaceTabs(store);
        ask = store.AskDefaultBrowser.Get();
    }
    // No store is held while the question is open: it writes through one of its own.
    if (ask)
        frmDefBrowser::Ask(m_platform.settings, m_platform.defaultBrowser, m_platform.programPath, m_platform.forms);
    const SettingsStore store(m_platform.settings);
    m_settings.RememberLastSites = store.RememberLastSites.Get();
    BoxHistories::Restore(actBar, store);
    m_tabs.ShowStatusBar(store.ShowStatusBar.Get());
    m_tiles.ShowHeaders(store.TileHeaders.Get());
    TileCommands::ShowState(m_context);
    m_tabPanel.Restore(store);
    for (const ToolName name : kDisabledAtStart) actBar.Enable(name, false);
}

void frmMain::Restore() {
    const SettingsStore store(m_platform.settings);
    WindowPlacement::Restore(m_platform.window, store);
    m_settings.Copy(store);
    m_settings.ApplySleep();
    m_settings.ApplyHistory();
}

void frmMain::OpenCommandLine(BrowserView& view, TextView commandLine) {
    m_startedBare = commandLine.empty();
    if (m_startedBare) {
        ResumeNext(view.GoHome());
    } else if (GroupCommands::IsGroupFile(commandLine)) {
        ResumeNext(view.Navigate(Address::kBlank));
        OpenTessaGroup(commandLine);
    } else {
        m_openedFromCommandLine = true;
        OpenGiven(view, commandLine);
    }
}

void frmMain::FocusPage() {
    if (auto* view = m_tabs.CurrentView()) view->Control->SetFocus();
}

void frmMain::OpenGiven(BrowserView& view, TextView text) {
    if (TrustOf(text, LinkSource::HandOver) == LinkTrust::Open) return ResumeNext(view.Navigate(text));
    m_tabs.ShowStatusText(u"What TessaView was to open is no page. It was not opened.");
}

void frmMain::AnswerBlocking(bool on) {
    BlockingValues values = BlockingSettings(m_platform.settings).Get();
    values.on = on;
    values.asked = true;
    BlockingSettings(m_platform.settings).Set(values);
    m_platform.engineOptions.ApplyInternetOptions();
    // The question is gone from the page.
    if (auto* view = m_tabs.CurrentView()) ResumeNext(view->Control->Refresh());
    if (on) sbStatus.Say(u"Advertisements are blocked as soon as the lists have come. Internet Options say more.");
}

void frmMain::OpenStartLink(std::string_view link) {
    if (const auto answer = StartPage::BlockingAnswerOf(link)) return AnswerBlocking(*answer);
    const auto words = StartPage::WordsOf(link);
    auto* view = words ? m_tabs.CurrentView() : nullptr;
    if (view) return ResumeNext(view->Control->Navigate(Text(Endpoints::kSearch) + *words));
    const auto name = StartPage::GroupOf(link);
    // Only what the folder lists is a group: a name is no path.
    CKeyValues groups = name ? TessaGroups::List(m_platform.groupFolder) : CKeyValues();
    const auto* group = name ? groups.FindItem(*name) : nullptr;
    if (group) OpenTessaGroup(Text(group->Value));
}

void frmMain::RetryWrites() {
    m_layout.SaveAgain();
    m_downloads.WriteAgain();
}

void frmMain::Form_Activate() {
    m_platform.splash.Unload();
    if (m_activated || m_stage != Stage::Loaded) return;
    m_activated = true;
    OpenAtStart();
    m_sessions.OfferBy(m_platform.offer);
    // While the engine is loaded, so that the home page need not be made twice.
    if (m_startedBare) AskHomeFacts();
}

void frmMain::OpenAtStart() {
    const std::size_t before = pcPage.Count();
    if (m_settings.RememberLastSites && !m_openedFromCommandLine) {
        const SettingsStore store(m_platform.settings);
        const auto opened = LastSites::Reopen(store.LastSites.Get(), m_tabs, m_browser, m_sessions.CameBack);
        LastSites::Name(store.LastNames.Get(), opened, pcPage);
        m_groups.Restore(KeptGroupsIn(store.LastGroups.Get(), opened.size()), opened);
        m_tiles.Restore(store.LastTiles.Get(), opened);
    }
    if (m_startedBare && pcPage.Count() == before) OpenStartGroup();
}

void frmMain::OpenStartGroup() {
    const Text name = InternetSettings(m_platform.settings).StartGroup.Get();
    if (name.empty()) return;
    const Text file = m_groups.FileOf(name);
    if (!file.empty()) return OpenTessaGroup(file);
    m_tabs.Say(u"There is no TessaGroup " + OneLine(name) + u" to start with.");
}

void frmMain::Form_Resize() {
    m_platform.window.MoveTabStrip(MainLayout::TabStripPlace(LayoutInputs()));
    m_tabs.PlaceShown();
}

bool frmMain::Form_QueryUnload() { return m_stage != Stage::Loaded || m_closing.MayClose(); }

void frmMain::Form_Unload() {
    if (m_stage != Stage::Loaded) return;
    m_stage = Stage::Unloaded;
    Log::Note(LogLevel::Info, LogPart::Program, "ends, tabs", static_cast<std::int64_t>(pcPage.Count()));
    m_taskView.Form.Visible = false;
    m_sleep.SetPatience({});
    m_relief.End();
    Save();
    m_sessions.End();
    m_downloads.End();
    m_browser.UnloadAll();
    m_menus.ReleasePictures();
    Unloaded();
}

// What the next start needs. A value that cannot be written is skipped.
void frmMain::Save() {
    SaveSettings();
    actBar.RemoveRunTimeBands();
    m_layout.Save();
}

void frmMain::SaveSettings() {
    const std::vector<Text> sites = LastSites::Open(pcPage, m_browser);
    const std::vector<Text> tiles = LastSites::OpenTiles(pcPage, m_browser, m_tiles);
    const std::vector<Text> names = LastSites::OpenNames(pcPage, m_browser);
    const Text groups = LastSites::OpenGroups(pcPage, m_browser, m_tabGroups);
    SettingsStore store(m_platform.settings);
    WindowPlacement::Save(store, m_platform.window);
    m_settings.Save(store);
    ResumeNext(store.LastSites.Set(sites));
    BoxHistories::Save(store, actBar);
    ResumeNext(store.ShowStatusBar.Set(sbStatus.Visible()));
    m_tabPanel.Save(store);
    if (tiles != store.LastTiles.Get()) ResumeNext(store.LastTiles.Set(tiles));
    if (names != store.LastNames.Get()) ResumeNext(store.LastNames.Set(names));
    if (groups != store.LastGroups.Get()) ResumeNext(store.LastGroups.Set(groups));
}

MainLayout::Inputs frmMain::LayoutInputs() const {
    const auto& window = m_platform.window;
    return {window.InnerWidth(), window.InnerHeight(), sbStatus.Visible() ? sbStatus.Height : Pixels{0},
            m_tabPanel.HidesStrip() ? Pixels{0} : pcPage.RowHeight, pcPage.Placement()};
}

void frmMain::PlaceView(ArrayView& view) {
    if (m_platform.window.State() == WindowState::Minimized) return;
    view.Place(MainLayout::ViewPlace(LayoutInputs()));
}

} // namespace tessa
