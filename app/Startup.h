#pragma once
#include "platform/Application.h"
#include "platform/InstanceChannel.h"
#include "window/frmMain.h"

namespace tessa {

/// The program's entry: decides whether this process runs or hands its command line to the instance that does.
namespace Startup {

/// The main window's title for its whole life; the desktop and other instances know the window by it.
inline constexpr TextView kMainTitle = u"TessaView 3";
inline constexpr TextView kMessageName = u"TESSAVIEW3";
inline constexpr TextView kSecondInstance = u"second instance";

/// What the entry needs; everything outlives it.
struct Program {
    Application& application;
    SettingsStorageFactory& settings;
    InstanceChannel& instances;
    SplashWindow& splash;
    MainWindow& window;
    frmMain& main;
    /// Whether a start without a command line begins with a blank tab alone, for whoever is to drive it.
    bool startsBlank = false;
};

enum class Result {
    Runs,      ///< this process is an instance and goes on with its window's events
    HandedOff, ///< the running instance has the command line; the process ends at once, nothing is unloaded
};

/// Hands the command line over when another instance runs and takes it; false when this process is to run itself.
/// `commandLine` is the text after the program's name, unparsed. A step that fails is skipped.
[[nodiscard]] bool HandsOver(const Program& program, TextView commandLine);

/// `commandLine` is the text after the program's name, unparsed. A step that fails is skipped.
[[nodiscard]] Result Main(const Program& program, TextView commandLine);

} // namespace Startup

} // namespace tessa
