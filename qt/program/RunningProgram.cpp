#include "qt/program/RunningProgram.h"

#include "qt/base/Icons.h"
#include "qt/base/Palette.h"
#include "qt/base/Strings.h"
#include "qt/dialogs/DesktopDialogs.h"
#include "qt/dialogs/Forms.h"
#include "qt/dialogs/Splash.h"
#include "qt/dialogs/TaskViewPresenter.h"
#include "qt/program/BarAssembly.h"
#include "qt/program/BlockingAssembly.h"
#include "qt/program/Clocks.h"
#include "qt/program/DesktopAssembly.h"
#include "qt/program/DesktopInput.h"
#include "qt/program/DesktopWindowTools.h"
#include "qt/program/DownloadAssembly.h"
#include "qt/program/EngineAssembly.h"
#include "qt/program/HistoryAssembly.h"
#include "qt/program/KeyboardAssembly.h"
#include "qt/program/PageBarsAssembly.h"
#include "qt/program/ReportSource.h"
#include "qt/program/StripAssembly.h"
#include "qt/program/TabPanelAssembly.h"
#include "qt/program/TileAssembly.h"
#include "qt/program/WindowAssembly.h"
#include "qt/script/GroupPrint.h"
#include "qt/script/NetworkProbe.h"
#include "qt/script/ScriptBus.h"
#include "qt/window/MainWindowFrame.h"
#include "window/frmMain.h"

#include <QApplication>
#include <QTimer>
#include <cstdlib>

namespace tessa::qt {

namespace {

/// Runs the event loop. Qt 6.8 ends the process from inside it when its display breaks off. Then nothing can be torn
/// down in order, so the process ends at once.
int RunEventLoop() {
    static bool s_runs = false;
    std::atexit([] {
        if (s_runs) std::_Exit(EXIT_FAILURE);
    });
    s_runs = true;
    const int result = QApplication::exec();
    s_runs = false;
    return result;
}

} // namespace

/// In the order in which they are made: what a part needs stands before it.
struct RunningProgram::Parts {
    Parts(int& argc, char** argv);
    [[nodiscard]] MainWindowPlatform Outside();
    void FollowGroups();

    DesktopAssembly desktop;
    DesktopMessageBoxes messages;
    DesktopFileDialogs files;
    Splash splash;
    // Tests say by files of their own what the kernel would say.
    std::unique_ptr<MemoryReader> memory = SystemMemory(qgetenv("TESSAVIEW_MEMORY").toStdString());
    DesktopInput input;
    MainWindowFrame window;
    PageBarsAssembly bars{window.PageArea(), desktop.clock};
    BlockingAssembly blocking{desktop.settings, desktop.folders.state + QStringLiteral("/blocking"), desktop.clock};
    TileAssembly tiles{window.PageArea(), messages};
    EngineAssembly engine{desktop, window, bars, tiles.area, blocking};
    DownloadAssembly downloads{engine.engine};
    HistoryAssembly history{desktop};
    Forms forms{window, splash};
    ReportSource report{desktop.log};
    DesktopWindowTools tools{engine.engine, bars.findBar, engine.devTools};
    const AcceptedCertificates& accepted = engine.engine.Profiles().Accepted(Privacy::Ordinary);
    NetworkProbe probe{accepted};
    frmMain main{Outside()};
    StripAssembly strip{main, engine.engine};
    WindowAssembly frame{main, window, strip.strip};
    TabPanelAssembly tabPanel{main, engine.engine, window, tiles.area};
    BarAssembly bar{main, window, {strip.strip, frame.statusBar, bars, engine.engine}};
    KeyboardAssembly keyboard{main, window, bar, tiles.area};
    TaskViewPresenter taskView{main.TaskView(), window};
    ScriptedWindow scripted{main, window};
    ScriptBus scripts{scripted, engine.engine, history.store, accepted};
    GroupPrint print{scripts.Output(), engine.engine.Output(), window};
    Clocks clocks{main, engine.engine.Schedule()};
};

RunningProgram::Parts::Parts(int& argc, char** argv) : desktop(argc, argv) {
    main.TaskView().TellDrawing(DrawingChoice::InSoftware() ? DrawingWay::Software : DrawingWay::Graphics);
    engine.Serve(main);
    downloads.Serve(main, window);
    history.Serve(main, engine.engine, window);
    bars.Serve(main);
    tiles.Serve(main, engine.engine, strip.strip);
    tiles.Link(bars.findBar);
    blocking.Serve(main, frame.statusBar, window);
    frame.FollowPages(engine.engine, desktop.OwnProfile());
    tools.ListsTabs.ConnectForLife([this] { strip.List(); });
    tools.MovesDividers.ConnectForLife([this] { tiles.area.MoveDividers(); });
    tools.Customizes.ConnectForLife([this] { bar.Customize(); });
    desktop.settings.SetReport([this](const Text& message) { main.sbStatus.Complaint(message); });
    FollowGroups();
    scripts.Foreground().ConnectForLife([this](const QByteArray& token) { window.BringToForeground(token); });
    desktop.channel.Foreground.ConnectForLife([this](const QByteArray& token) { window.BringToForeground(token); });
}

void RunningProgram::Parts::FollowGroups() {
    main.Groups().Write.ConnectForLife([this](const GroupCommands::Writing& writing) {
        const auto written = [ended = writing.ended](const GroupOutput::Result& result) {
            std::vector<Text> left;
            for (const QString& each : result.left) left.push_back(FromQt(each));
            ended(FromQt(result.refusal), left);
        };
        const auto progress = [writing](const GroupOutput::Progress& so) {
            so.making ? writing.made(static_cast<int>(so.done)) : writing.fetched(so.done, so.all);
        };
        const bool tabs = writing.group.empty();
        const auto pages = tabs ? GroupOutput::Pages() : GroupOutput::UnopenedPages(writing.group);
        const GroupOutput::Told told{written, progress, writing.stop};
        switch (writing.what) {
        case GroupCommands::Writes::Pdf:
            return scripts.Output().Pdf(pages, ToQt(writing.path), told);
        case GroupCommands::Writes::Offline:
            return scripts.Output().Keep(pages, ToQt(writing.path), told);
        case GroupCommands::Writes::Print:
            return print.Print(pages, told);
        }
    });
}

MainWindowPlatform RunningProgram::Parts::Outside() {
    return {.window = window,
            .views = engine.engine,
            .settings = desktop.settings,
            .messages = messages,
            .files = files,
            .splash = splash,
            .sessions = desktop.sessions,
            .layout = desktop.layout,
            .defaultBrowser = desktop.defaultBrowser,
            .shell = desktop.shell,
            .folderWatch = desktop.folderWatch,
            .trash = desktop.trash,
            .downloads = downloads.downloads,
            .forms = forms,
            .clock = desktop.clock,
            .steady = desktop.steady,
            .memory = *memory,
            .offer = bars.offer,
            .engineOptions = engine.options,
            .report = report,
            .tools = tools,
            .input = input,
            .visits = history.store,
            .probe = probe,
            .programPath = FromQt(QCoreApplication::applicationFilePath()),
            .groupFolder = FromQt(desktop.folders.GroupFolder()),
            .favoritesFolder = FromQt(desktop.folders.favorites),
            .downloadsFile = FromQt(desktop.folders.state + QStringLiteral("/downloads")),
            .siteChoices = engine.Sites(),
            .blocking = &blocking};
}

RunningProgram::RunningProgram(int& argc, char** argv) : m(std::make_unique<Parts>(argc, argv)) {
    if (const QPalette mended = Palette::Mended(QGuiApplication::palette()); mended != QGuiApplication::palette())
        QApplication::setPalette(mended);
    // Questions may be asked before there is a window.
    QApplication::setWindowIcon(Icons::Application());
    Icons::ChooseTheme(QApplication::palette());
    // The program ends with its main window; dialogs and the splash have no say in it.
    QApplication::setQuitOnLastWindowClosed(false);
    FollowEnds();
}

RunningProgram::~RunningProgram() = default;

Startup::Program RunningProgram::Platform() {
    return {m->desktop.application, m->desktop.settings, m->desktop.channel, m->splash, m->window, m->main};
}

void RunningProgram::FollowEnds() {
    m->window.Unloads.ConnectForLife([this] {
        // Before the next start can no longer be handed over to this one.
        m->desktop.OwnProfile().Leave();
        m->engine.devTools.Close();
        m->main.Form_Unload();
        m_unloaded = true;
        // Not quit(), which any window that does not want to close, a dialog say, can refuse.
        QCoreApplication::exit();
    });
}

int RunningProgram::Run() {
    // The window is on the screen before the engine, which takes long to load, is.
    QTimer::singleShot(0, &m->engine.engine, [this] {
        m->engine.Start();
        m->scripts.Start(m->desktop.folders.state);
        // Known now, it can still be mended; at the end it would be too late.
        m->desktop.settings.TrySaving();
    });
    // Before this there is nothing to save: a start that is still asking the user something ends as it is.
    // Whoever ends the session waits for no answer.
    m->desktop.FollowSignals().Quit.ConnectForLife([this] { m->window.Unload(); });
    const int result = RunEventLoop();
    // Qt 6.4 ends the event loop when its display breaks off. The session is on disk; the next start offers it.
    if (!m_unloaded) std::_Exit(EXIT_FAILURE);
    m->scripts.Shutdown();
    m->downloads.Shutdown();
    if (!m->engine.Shutdown()) m->desktop.SkipEndOfEngine(result);
    return result;
}

} // namespace tessa::qt
