#include "qt/program/QtProgram.h"

#include "qt/base/QtIcons.h"
#include "qt/base/QtPalette.h"
#include "qt/base/QtText.h"
#include "qt/dialogs/QtDialogs.h"
#include "qt/dialogs/QtForms.h"
#include "qt/dialogs/QtSplash.h"
#include "qt/dialogs/QtTaskView.h"
#include "qt/program/QtBarAssembly.h"
#include "qt/program/QtClocks.h"
#include "qt/program/QtDesktopAssembly.h"
#include "qt/program/QtDownloadAssembly.h"
#include "qt/program/QtEngineAssembly.h"
#include "qt/program/QtKeyboardAssembly.h"
#include "qt/program/QtPageBarsAssembly.h"
#include "qt/program/QtReportSource.h"
#include "qt/program/QtStripAssembly.h"
#include "qt/program/QtUserInput.h"
#include "qt/program/QtWindowAssembly.h"
#include "qt/program/QtWindowTools.h"
#include "qt/window/QtMainWindow.h"
#include "window/frmMain.h"

#include <QApplication>
#include <QTimer>
#include <cstdlib>

namespace tessa::qt {

/// In the order in which they are made: what a part needs stands before it.
struct QtProgram::Parts {
    Parts(int& argc, char** argv);
    [[nodiscard]] MainWindowPlatform Outside();

    QtDesktopAssembly desktop;
    QtMessageBoxes messages;
    QtFileDialogs files;
    QtSplash splash;
    // Tests say by files of their own what the kernel would say.
    std::unique_ptr<MemoryReader> memory = SystemMemory(qgetenv("TESSAVIEW_MEMORY").toStdString());
    QtUserInput input;
    QtMainWindow window;
    QtPageBarsAssembly bars{window.PageArea(), desktop.clock};
    QtEngineAssembly engine{desktop, window, bars};
    QtDownloadAssembly downloads{engine.engine};
    QtForms forms{window, splash};
    QtReportSource report{desktop.log};
    QtWindowTools tools{engine.engine, bars.findBar, engine.devTools};
    frmMain main{Outside()};
    QtStripAssembly strip{main, engine.engine};
    QtWindowAssembly frame{main, window, strip.strip};
    QtBarAssembly bar{main, window, engine.engine};
    QtKeyboardAssembly keyboard{main, window, bar};
    QtTaskView taskView{main.TaskView(), window};
    QtClocks clocks{main, engine.engine.Schedule(), *memory};
};

QtProgram::Parts::Parts(int& argc, char** argv) : desktop(argc, argv) {
    main.TaskView().TellDrawing(QtDrawing::InSoftware() ? DrawingWay::Software : DrawingWay::Graphics);
    engine.Serve(main);
    downloads.Serve(main, window);
    bars.Serve(main);
    bar.LeadTo(strip.strip, frame.statusBar, bars);
    frame.FollowPages(engine.engine, desktop.OwnProfile());
    tools.ListsTabs.ConnectForLife([this] { strip.List(); });
    tools.Customizes.ConnectForLife([this] { bar.Customize(); });
    desktop.settings.SetReport([this](const Text& message) { main.sbStatus.Complaint(message); });
    desktop.channel.Foreground.ConnectForLife([this](const QByteArray& token) { window.BringToForeground(token); });
}

MainWindowPlatform QtProgram::Parts::Outside() {
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
            .offer = bars.offer,
            .engineOptions = engine.options,
            .report = report,
            .tools = tools,
            .input = input,
            .programPath = FromQt(QCoreApplication::applicationFilePath()),
            .groupFolder = FromQt(desktop.folders.GroupFolder()),
            .favoritesFolder = FromQt(desktop.folders.favorites),
            .downloadsFile = FromQt(desktop.folders.state + QStringLiteral("/downloads")),
            .siteChoices = engine.Sites()};
}

QtProgram::QtProgram(int& argc, char** argv) : m(std::make_unique<Parts>(argc, argv)) {
    if (const QPalette mended = QtPalette::Mended(QGuiApplication::palette()); mended != QGuiApplication::palette())
        QApplication::setPalette(mended);
    // Questions may be asked before there is a window.
    QApplication::setWindowIcon(QtIcons::Application());
    QtIcons::ChooseTheme(QApplication::palette());
    // The program ends with its main window; dialogs and the splash have no say in it.
    QApplication::setQuitOnLastWindowClosed(false);
    FollowEnds();
}

QtProgram::~QtProgram() = default;

Startup::Program QtProgram::Platform() {
    return {m->desktop.application, m->desktop.settings, m->desktop.channel, m->splash, m->window, m->main};
}

void QtProgram::FollowEnds() {
    m->window.Unload.ConnectForLife([this] {
        // Before the next start can no longer be handed over to this one.
        m->desktop.OwnProfile().Leave();
        m->engine.devTools.Close();
        m->main.Form_Unload();
        m_unloaded = true;
        // Not quit(), which any window that does not want to close, a dialog say, can refuse.
        QCoreApplication::exit();
    });
}

int QtProgram::Run() {
    // The window is on the screen before the engine, which takes long to load, is.
    QTimer::singleShot(0, &m->engine.engine, [this] {
        m->engine.Start();
        // Known now, it can still be mended; at the end it would be too late.
        m->desktop.settings.TrySaving();
    });
    // Before this there is nothing to save: a start that is still asking the user something ends as it is.
    m->desktop.FollowSignals().Quit.ConnectForLife([this] {
        // Whoever ends the session waits for no answer.
        m->window.QueryUnload = {};
        m->window.Close();
    });
    const int result = QApplication::exec();
    // Qt ends the event loop when its display breaks off. Without it nothing can be torn down in order; the session is
    // on disk, and is offered by the next start.
    if (!m_unloaded) std::_Exit(EXIT_FAILURE);
    m->downloads.Shutdown();
    m->engine.Shutdown();
    return result;
}

} // namespace tessa::qt
