#include "qt/program/QtProgram.h"

#include "bar/ToolName.h"
#include "qt/base/QtIcons.h"
#include "qt/base/QtPalette.h"
#include "qt/program/QtProgramParts.h"

#include <QDateTime>
#include <chrono>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

// What is written down is never older than a second.
constexpr std::chrono::milliseconds kJournalDelay{700};
constexpr std::chrono::seconds kRetryDelay{1};
constexpr std::chrono::seconds kGiveBackDelay{3};

// What was freed stays with the process otherwise.
void GiveMemoryBack() {
#ifdef __GLIBC__
    ::malloc_trim(0);
#endif
}

} // namespace

QtProgram::QtProgram(int& argc, char** argv) {
    m = std::make_unique<QtProgramParts>(argc, argv);
    if (const QPalette mended = QtPalette::Mended(QGuiApplication::palette()); mended != QGuiApplication::palette())
        QApplication::setPalette(mended);
    // The program ends with its main window; dialogs and the splash have no say in it.
    // Questions may be asked before there is a window.
    QApplication::setWindowIcon(QtIcons::Application());
    QtIcons::ChooseTheme(QApplication::palette());
    QApplication::setQuitOnLastWindowClosed(false);
    WireWindow();
    WireKeys();
    WireEngine();
    WireSession();
    WireSleep();
}

QtProgram::~QtProgram() = default;

Startup::Program QtProgram::Platform() {
    return {m->application, m->settings, m->channel, m->splash, m->window, m->main};
}

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
    m->signals->Quit.ConnectForLife([this] {
        // Whoever ends the session waits for no answer.
        m->window.QueryUnload = {};
        m->window.Close();
    });
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
    m->window.Resized.ConnectForLife([this] {
        m->main.pcPage.RowHeight = m->strip.RowHeight();
        m->main.Form_Resize();
    });
    m->window.Activated.ConnectForLife([&main] { main.Form_Activate(); });
    m->window.FullScreenChanged.ConnectForLife([&main](bool on) {
        if (auto* tool = main.actBar.Find(u"xtrFullScreen"_tool)) tool->Checked = on;
    });
    m->window.QueryUnload = [&main] { return main.Form_QueryUnload(); };
    m->window.Unload.ConnectForLife([this, &main] {
        // Before the next start can no longer be handed over to this one.
        m->ownProfile->Leave();
        m->devTools.Close();
        main.Form_Unload();
        // Not quit(), which any window that does not want to close, a dialog say, can refuse.
        QCoreApplication::exit();
    });
    m->customize.Closed.ConnectForLife([&main] { main.SaveLayout(); });
    m->settings.SetReport([&main](const Text& message) { main.sbStatus.Complaint(message); });
    auto& menus = m->commandBar.Menus();
    menus.EntryPopup = [&main](const Tool& tool) { return main.Menus().EntryPopup(tool); };
    menus.EntryMiddleClick = [&main](const Tool& tool) { return main.Menus().EntryMiddleClick(tool); };
    menus.EntryDelete = [&main](const Tool& tool) { return main.Menus().EntryDelete(tool); };
    m->fileDrop.Takes = GroupCommands::IsGroupFile;
    m->fileDrop.Dropped.ConnectForLife([&main](const std::vector<Text>& files) { main.OpenTessaGroups(files); });
    m->channel.Foreground.ConnectForLife([this](const QByteArray& token) { m->window.BringToForeground(token); });
}

void QtProgram::WireSession() {
    auto& journal = m->main.Sessions();
    m->journal.setSingleShot(true);
    m->journal.setInterval(kJournalDelay);
    m->journal.callOnTimeout([&journal] { journal.Write(); });
    journal.Schedule.ConnectForLife([this] { m->journal.start(); });
    m->retry.setSingleShot(true);
    m->retry.setInterval(kRetryDelay);
    m->retry.callOnTimeout([this] { m->main.RetryWrites(); });
    m->main.RetryLater.ConnectForLife([this] { m->retry.start(); });
}

void QtProgram::WireSleep() {
    auto& sleep = m->main.Sleep();
    m->sleep.setSingleShot(true);
    // To the minute is near enough, and saves waking the processor up.
    m->sleep.setTimerType(Qt::VeryCoarseTimer);
    m->sleep.callOnTimeout([&sleep] { sleep.Look(); });
    sleep.Schedule.ConnectForLife([this](TabSleep::Time time) { m->sleep.start(time); });
    // Once what the engine still does about them is done: it keeps what a hundred pages had in our own process.
    m->giveBack.setSingleShot(true);
    m->giveBack.setInterval(kGiveBackDelay);
    m->giveBack.callOnTimeout(GiveMemoryBack);
    // Not put off by those that follow: while memory is short some fall asleep every second.
    sleep.Slept.ConnectForLife([this] {
        if (!m->giveBack.isActive()) m->giveBack.start();
    });
    sleep.Now = [] {
        return std::chrono::duration_cast<TabSleep::Time>(std::chrono::steady_clock::now().time_since_epoch());
    };
    WireRelief();
}

void QtProgram::WireRelief() {
    auto& relief = m->main.Relief();
    m->relief.setSingleShot(true);
    m->relief.callOnTimeout([&relief] { relief.Look(); });
    relief.Schedule.ConnectForLife([this](TabSleep::Time time) { m->relief.start(time); });
    relief.Memory = m->memory.get();
    relief.OthersWait = [this] { return m->engine.Schedule().PagesWait(); };
    relief.Changed.ConnectForLife([this](Shortage level) { m->engine.Schedule().SetShortage(level); });
}
