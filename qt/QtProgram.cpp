#include "qt/QtProgram.h"

#include "mainwindow/StartPage.h"
#include "pages/DecidedSites.h"
#include "qt/QtAbout.h"
#include "qt/QtAddFavorite.h"
#include "qt/QtBarLook.h"
#include "qt/QtBrowserView.h"
#include "qt/QtBrowsingData.h"
#include "qt/QtCommandBar.h"
#include "qt/QtCustomizeDialog.h"
#include "qt/QtDefBrowserDialog.h"
#include "qt/QtDefaultBrowser.h"
#include "qt/QtDevTools.h"
#include "qt/QtDialogScheme.h"
#include "qt/QtDialogs.h"
#include "qt/QtDictionaries.h"
#include "qt/QtDownloads.h"
#include "qt/QtDownloadsPanel.h"
#include "qt/QtEngine.h"
#include "qt/QtFileDrop.h"
#include "qt/QtFindBar.h"
#include "qt/QtFolderWatch.h"
#include "qt/QtFolders.h"
#include "qt/QtGroupEditor.h"
#include "qt/QtInstanceChannel.h"
#include "qt/QtInternetOptionsDialog.h"
#include "qt/QtKeys.h"
#include "qt/QtLayoutFile.h"
#include "qt/QtMainWindow.h"
#include "qt/QtMediaKeys.h"
#include "qt/QtMiddleClick.h"
#include "qt/QtNotifications.h"
#include "qt/QtOrganizeFavorites.h"
#include "qt/QtPage.h"
#include "qt/QtPageBars.h"
#include "qt/QtPalette.h"
#include "qt/QtRequests.h"
#include "qt/QtResizeDialog.h"
#include "qt/QtSessionFiles.h"
#include "qt/QtSessionOffer.h"
#include "qt/QtSessionsDialog.h"
#include "qt/QtSettingsDialog.h"
#include "qt/QtSettingsStorage.h"
#include "qt/QtShell.h"
#include "qt/QtSignals.h"
#include "qt/QtSplash.h"
#include "qt/QtStartPage.h"
#include "qt/QtStatusBar.h"
#include "qt/QtTabList.h"
#include "qt/QtTabStrip.h"
#include "qt/QtTaskView.h"
#include "qt/QtText.h"
#include "qt/QtTrash.h"
#include "qt/QtWebOptions.h"
#include "settings/SettingsStore.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QPointer>
#include <QTimer>
#include <QWebEngineProfile>
#include <QWebEngineView>
#include <chrono>
#ifdef __GLIBC__
#include <malloc.h>
#endif
#include <optional>

namespace {

// What is written down is never older than a second.
constexpr std::chrono::milliseconds kJournalDelay{700};
constexpr std::chrono::seconds kGiveBackDelay{3};

// What was freed stays with the process otherwise.
void GiveMemoryBack() {
#ifdef __GLIBC__
    ::malloc_trim(0);
#endif
}

class QtApplication final : public Application {
public:
    void SetTitle(TextView title) override { QCoreApplication::setApplicationName(ToQt(title)); }
    void DoEvents() override { QCoreApplication::processEvents(); }
};

// What must be said before the application object exists.
int& BeforeApplication(int& argc) {
    QtStartPage::RegisterScheme();
    QtDialogScheme::RegisterScheme();
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    // Not the display name, which Qt appends to the title of every window.
    QCoreApplication::setApplicationName(QStringLiteral("TessaView"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TESSAVIEW_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("tessaview"));
    return argc;
}

} // namespace

// In the order in which they are made; what a part needs stands before it.
struct QtProgram::Parts {
    Parts(QtProgram& owner, int& argc, char** argv)
        : program(owner),
          qt(BeforeApplication(argc), argv),
          folders(QtFolders::Find(QCoreApplication::applicationFilePath())),
          settings(folders.settings),
          channel(folders.state),
          sessions(folders.state + QStringLiteral("/sessions")),
          layout(folders.program),
          browsingData(folders.data),
          engine(window.PageArea(), folders.data, folders.cache),
          main({.window = window,
                .views = engine,
                .settings = settings,
                .messages = messages,
                .files = files,
                .splash = splash,
                .sessions = sessions,
                .layout = layout,
                .defaultBrowser = defaultBrowser,
                .shell = shell,
                .folderWatch = folderWatch,
                .trash = trash,
                .downloads = downloads,
                .showSettings = [this](frmSettings& form) { ShowModal(form, &window); },
                // Above the splash, which would cover it.
                .showDefBrowser = [this](frmDefBrowser& form) { ShowModal(form, splash.Window()); },
                .showAbout = [this](frmSplash& form) { ShowModal(form, &window); },
                .showResize = [this](frmResize& form) { ShowModal(form, &window); },
                .showAddFavorite = [this](frmAddFavorite& form) { ShowModal(form, &window); },
                .showOrganizeFavorites = [this](frmOrganizeFavorites& form) { ShowModal(form, &window); },
                .programPath = FromQt(QCoreApplication::applicationFilePath()),
                .groupFolder = FromQt(folders.GroupFolder()),
                .favoritesFolder = FromQt(folders.favorites),
                .downloadsFile = FromQt(folders.state + QStringLiteral("/downloads")),
                .commands = Operations(),
                .offerSession = [this](TextView id, const Session& session) { OfferSession(id, session); },
                .withdrawOffer = [this] { offer.Withdraw(); },
                .showSessions = [this](frmSessions& form) { ShowModal(form, &window); },
                .timeText = SessionTimeText,
                .applyLoadOptions = [this] { ApplyLoadOptions(); },
                .showTessaGroup = [this](frmTessaGroup& form) { ShowModal(form, &window); },
                .showInternetOptions = [this](frmInternetOptions& form) { ShowModal(form, &window); },
                .applyInternetOptions = [this] { ApplyInternetOptions(); },
                .siteChoices = DecidedSites(permissions, engine.External()),
                .clearBrowsingData =
                    [this](const BrowsingData& data, std::function<void(Outcome)> done) {
                        if (profile) return browsingData.Clear(data, *profile, std::move(done));
                        done(Outcome::Failed);
                    },
                .chooseFolder = [](TextView folder) { return QtFileDialogs::ChooseFolder(folder); }}),
          strip(main.pcPage),
          statusBar(main.sbStatus),
          look(main.actBar, window),
          commandBar(main.actBar, window),
          customize(main.actBar, window),
          keys(window),
          fileDrop(window),
          tabList(&strip),
          findBar(window.PageArea()),
          offer(window.PageArea()) {}

    void OfferSession(TextView id, const Session& session) {
        offer.Reopen = [this, id = Text(id)] { main.Sessions.Reopen(id); };
        offer.Dismiss = [this, id = Text(id)] { main.Sessions.Settle(id); };
        offer.ShowAll = [this] { main.Commands.host.ShowSessions(); };
        offer.Offer(session.Pages.size());
    }

    CommandHost Operations() {
        CommandHost host;
        host.ShowFind = [this](BrowserView&) { findBar.Open(); };
        host.ShowTabList = [this] { program.ListTabs(strip.mapToGlobal(strip.rect().bottomRight() + QPoint(1, 1))); };
        host.CopyText = [](TextView text) { QGuiApplication::clipboard()->setText(ToQt(text)); };
        host.Customize = [this] { customize.Open(); };
        host.ToggleDevTools = [this] { devTools.Toggle(engine.FrontPage()); };
        // A middle click means the same.
        host.ShiftHeld = [this] {
            return middleClick.Now() || QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ShiftModifier);
        };
        return host;
    }

    void ApplyLoadOptions() {
        const SettingsStore store(settings);
        requests.Loads = {.images = store.LoadImages.Get(),
                          .animations = store.LoadAnimations.Get(),
                          .videos = store.LoadVideos.Get(),
                          .sounds = store.LoadSounds.Get()};
        engine.SetLoadOptions(requests.Loads);
    }

    void ApplyInternetOptions() {
        const InternetValues values = InternetSettings(settings).Get();
        QtWebOptions::ApplyProxy(values, profile);
        QtWebOptions::Apply(values, requests);
        for (const auto& each : {profile, privateProfile}) {
            if (each) QtWebOptions::Apply(values, *each);
        }
    }

    void TakeProfile(QWebEngineProfile& made) {
        made.setUrlRequestInterceptor(&requests);
        browsingData.Watch(made);
        profile = &made;
        ApplyInternetOptions();
        downloads.Follow(made);
        notifications.Follow(made);
        if (dictionaries) dictionaries->Follow(made);
    }

    // Nothing of it is noted anywhere.
    void TakePrivateProfile(QWebEngineProfile& made) {
        made.setUrlRequestInterceptor(&requests);
        privateProfile = &made;
        ApplyInternetOptions();
        downloads.Follow(made);
        notifications.Follow(made);
        if (dictionaries) dictionaries->Follow(made);
    }

    [[nodiscard]] ServiceTemplates Services() {
        const SettingsStore store(settings);
        return {store.SearchService.Get(), store.ShopService.Get(), store.FindService.Get()};
    }

    QtProgram& program;
    QApplication qt;
    // Ends after everything that saves something: a second signal must not cut that short.
    std::optional<QtSignals> signals;
    QtFolders folders;
    QtSettingsStorage settings;
    QtInstanceChannel channel;
    QtSessionFiles sessions;
    QtLayoutFile layout;
    QtApplication application;
    QtMessageBoxes messages;
    QtFileDialogs files;
    QtSplash splash;
    QtDefaultBrowser defaultBrowser;
    QtShell shell;
    QtFolderWatch folderWatch;
    QtTrash trash;
    QtDownloads downloads;
    QtNotifications notifications;
    SitePermissions permissions{settings};
    QtMiddleClick middleClick;
    QtMediaKeys mediaKeys;
    std::optional<QtDictionaries> dictionaries; ///< once the engine is to start
    QtMainWindow window;
    QtDevTools devTools{window};
    QtRequests requests;
    QtBrowsingData browsingData;
    QPointer<QWebEngineProfile> profile, privateProfile;
    QtEngine engine;
    frmMain main;
    QtTabStrip strip;
    QtStatusBar statusBar;
    QtBarLook look;
    QtCommandBar commandBar;
    QtCustomize customize;
    QtKeys keys;
    QtFileDrop fileDrop;
    QtTabList tabList;
    QtFindBar findBar;
    QtSessionOffer offer;
    QtDownloadsPanel downloadsPanel{main.DownloadPanel, window};
    QtTaskView taskView{main.TaskView, window};
    QtPageBars bars;
    QTimer journal, sleep, giveBack;
};

QtProgram::QtProgram(int& argc, char** argv) {
    m = std::make_unique<Parts>(*this, argc, argv);
    if (const QPalette mended = QtPalette::Mended(QGuiApplication::palette()); mended != QGuiApplication::palette())
        QApplication::setPalette(mended);
    // The program ends with its main window; dialogs and the splash have no say in it.
    QApplication::setQuitOnLastWindowClosed(false);
    WireWindow();
    WireEngine();
    WireSession();
    WireSleep();
}

QtProgram::~QtProgram() = default;

Startup::Program QtProgram::Platform() { return {m->application, m->settings, m->channel, m->splash, m->main}; }

int QtProgram::Run() {
    // The window is on the screen before the engine, which takes long to load, is.
    QTimer::singleShot(0, &m->engine, [this] {
        m->dictionaries.emplace(QtDictionaries::OfThisComputer(m->folders.cache));
        // The very first request goes the way that the user wants.
        m->ApplyInternetOptions();
        m->engine.Start();
        // Known now, it can still be mended; at the end it would be too late.
        m->settings.TrySaving();
    });
    // Before this there is nothing to save: a start that is still asking the user something ends as it is.
    m->signals.emplace();
    m->signals->Quit = [this] {
        // Whoever ends the session waits for no answer.
        m->window.QueryUnload = {};
        m->window.Close();
    };
    const int result = QApplication::exec();
    m->downloads.Shutdown();
    m->browsingData.Shutdown();
    m->engine.Shutdown();
    return result;
}

void QtProgram::WireWindow() {
    auto& main = m->main;
    m->main.pcPage.RowHeight = m->strip.RowHeight();
    m->window.SetTabStrip(m->strip);
    m->window.SetStatusBar(m->statusBar);
    m->window.Resized = [this] {
        m->main.pcPage.RowHeight = m->strip.RowHeight();
        m->main.Form_Resize();
    };
    m->window.Activated = [&main] { main.Form_Activate(); };
    m->window.FullScreenChanged = [&main](bool on) {
        if (auto* tool = main.actBar.Find(u"xtrFullScreen")) tool->Checked = on;
    };
    m->window.QueryUnload = [&main] { return main.Form_QueryUnload(); };
    m->window.Unload = [this, &main] {
        m->devTools.Close();
        main.Form_Unload();
        // Not quit(), which any window that does not want to close, a dialog say, can refuse.
        QCoreApplication::exit();
    };
    main.Layout.Say = [this](TextView message) { m->statusBar.Notice(ToQt(message)); };
    m->customize.Closed = [&main] { main.Layout.Save(); };
    m->keys.Down = [&main](KeyStroke key) { return main.Form_KeyDown(key); };
    m->keys.Up = [&main](KeyStroke key) { return main.Form_KeyUp(key); };
    m->settings.SetReport([this](const Text& message) { m->statusBar.Notice(ToQt(message)); });
    auto& menus = m->commandBar.Menus();
    menus.EntryPopup = [&main](const Tool& tool) { return main.Menus.EntryPopup(tool); };
    menus.EntryMiddleClick = [&main](const Tool& tool) { return main.Menus.EntryMiddleClick(tool); };
    menus.EntryDelete = [&main](const Tool& tool) { return main.Menus.EntryDelete(tool); };
    m->fileDrop.Takes = GroupCommands::IsGroupFile;
    m->fileDrop.Dropped = [&main](const std::vector<Text>& files) { main.Groups.OpenTessaGroups(files); };
    m->channel.Foreground = [this](const QByteArray& token) { m->window.BringToForeground(token); };
}

void QtProgram::WireSession() {
    auto& journal = m->main.Sessions;
    m->journal.setSingleShot(true);
    m->journal.setInterval(kJournalDelay);
    m->journal.callOnTimeout([&journal] { journal.Write(); });
    journal.Schedule = [this] { m->journal.start(); };
    journal.Now = [] { return QDateTime::currentSecsSinceEpoch(); };
}

void QtProgram::WireSleep() {
    auto& sleep = m->main.Sleep;
    m->sleep.setSingleShot(true);
    // To the minute is near enough, and saves waking the processor up.
    m->sleep.setTimerType(Qt::VeryCoarseTimer);
    m->sleep.callOnTimeout([&sleep] { sleep.Look(); });
    sleep.Schedule = [this](TabSleep::Time time) { m->sleep.start(time); };
    // Once what the engine still does about them is done: it keeps what a hundred pages had in our own process.
    m->giveBack.setSingleShot(true);
    m->giveBack.setInterval(kGiveBackDelay);
    m->giveBack.callOnTimeout(GiveMemoryBack);
    sleep.Slept = [this] { m->giveBack.start(); };
    sleep.Now = [] {
        return std::chrono::duration_cast<TabSleep::Time>(std::chrono::steady_clock::now().time_since_epoch());
    };
}

void QtProgram::WireStrip() {
    auto& input = m->main.StripInput;
    m->strip.PageIcon = [this](const Tab& tab) { return m->engine.Icon(tab.Tag); };
    m->strip.CloseRequested = [this](Tab& tab) { m->main.CloseBrowserTab(tab.Tag); };
    m->strip.ListRequested = [this](QPoint corner) { ListTabs(corner); };
    m->tabList.Chosen = [&strip = m->main.pcPage](const Text& key) {
        if (auto* tab = strip.Find(key)) strip.UserClick(tab);
    };
    m->strip.MuteRequested = [this](const Tab& tab) {
        if (auto* view = m->main.Browser.Find(tab.Tag)) view->Control->SetMuted(!view->Control->Muted());
    };
    m->strip.ToolTipText = [this](const Tab& tab) { return m->main.Tabs.Describe(tab); };
    m->strip.BlankRequested = [this] {
        if (auto* tool = m->main.actBar.Find(u"mnuNewBlank")) m->main.actBar.UserClick(*tool);
    };
    input.HitTest = [this](Pixels x, Pixels y) {
        const auto* tab = m->strip.FindTabAt({x.value, y.value});
        return static_cast<int>(m->main.pcPage.PositionOf(tab)) - 1;
    };
    m->strip.RightButtonDown = [&input](QPoint point) {
        input.MouseDown(MouseButton::Right, ToTwips({point.x()}), ToTwips({point.y()}));
    };
    m->strip.DragOver = [&input](bool hasText, QPointF point) { input.OLEDragOver(hasText, point.x(), point.y()); };
    m->strip.Drop = [&input](const Text& text) { input.OLEDragDrop(text); };
}

void QtProgram::ListTabs(QPoint corner) {
    std::vector<QtTabListEntry> tabs;
    auto& strip = m->main.pcPage;
    for (std::size_t position = 1; position <= strip.Count(); ++position) {
        const Tab& tab = *strip.FindAt(position);
        const QStringList lines = ToQt(m->main.Tabs.Describe(tab)).split(QLatin1Char('\n'));
        tabs.push_back(
            {tab.Key(), lines.value(0), lines.value(1), m->engine.Icon(tab.Tag), &tab == strip.SelectedItem()});
    }
    m->tabList.Open(tabs, corner);
}

void QtProgram::WireStartPage() {
    m->engine.StartPage = [this] {
        StartContent content = StartPage::Read(m->main.Platform.groupFolder, m->main.Platform.favoritesFolder);
        content.Dark = QtPalette::IsDark(m->window.palette());
        return StartPage::Html(content);
    };
    m->engine.StartLink = [this](const QUrl& url) { m->main.OpenStartLink(url.toEncoded().toStdString()); };
}

void QtProgram::WirePages() {
    m->engine.Permissions = &m->permissions;
    m->permissions.Forgotten = [this](const SiteDecision& forgotten) { m->engine.ForgetDecision(forgotten); };
    m->engine.SaveAddress = [this](QtPage& page, const QUrl& address, const Text& path) {
        m->downloads.Save(page, address, path);
    };
    m->mediaKeys.Page = [this] { return m->engine.MediaPage(); };
    m->engine.FullScreen().WindowIsFull = [this] { return m->window.FullScreen(); };
    m->engine.FullScreen().SetWindowFull = [this](bool on) { m->window.SetFullScreen(on); };
    m->engine.ShowInspector = [this](QtPage& page) { m->devTools.Show(page); };
    m->downloads.List = &m->main.Downloads;
    m->downloads.Profile = [this] { return m->engine.Profile(); };
    m->downloads.MaySave = [this](QWebEnginePage* page, const QUrl& address) {
        auto* view = m->engine.ViewOf(page);
        return !view || view->Questions()->permissions.MaySave(address);
    };
    m->main.Downloads.Say = [this](TextView message) { m->statusBar.Notice(ToQt(message)); };
    m->downloadsPanel.FocusPage = [this] {
        if (auto* view = m->main.Tabs.CurrentView()) view->Control->SetFocus();
    };
    m->notifications.Clicked = [this] { m->window.BringToForeground({}); };
}

void QtProgram::WireEngine() {
    WireStartPage();
    m->requests.Templates = [this] { return m->Services(); };
    m->engine.ProfileMade = [this](QWebEngineProfile& profile) { m->TakeProfile(profile); };
    m->engine.PrivateProfileMade = [this](QWebEngineProfile& profile) { m->TakePrivateProfile(profile); };
    m->engine.Visited = [this](const QUrl& url) { m->browsingData.NoteVisit(url); };
    m->engine.HomeAddress = [this] { return InternetSettings(m->settings).Get().homePage; };
    WirePages();
    m->bars.Add(m->offer, QtPageBars::Side::Above);
    m->bars.Add(m->findBar, QtPageBars::Side::Below);
    m->offer.Changed = [this] { m->engine.Relayout(); };
    m->engine.LayBars = [this](const QRect& whole) { return m->bars.Lay(whole); };
    m->findBar.Page = [this] { return m->engine.FrontPage(); };
    m->findBar.Changed = [this] { m->engine.Relayout(); };
    m->engine.FrontChanged = [this] { m->findBar.OnPageChanged(); };
    m->findBar.FocusPage = [this] {
        if (auto* view = m->main.Tabs.CurrentView()) view->Control->SetFocus();
    };
    WireStrip();
    m->engine.IconChanged = [this](std::int32_t index) { m->strip.RefreshIcons(index); };
}
