#include "app/Startup.h"

#include "app/Hook.h"
#include "base/Address.h"
#include "base/Version.h"
#include "base/os/Log.h"
#include "settings/SettingsStore.h"

namespace tessa {

namespace {

bool AllowsMultipleInstances(SettingsStorageFactory& settings) {
    return SettingsStore(settings).AllowMultipleInstances.Get();
}

void HandOff(const Startup::Program& program, TextView commandLine) {
    Log::Note(LogLevel::Info, LogPart::Instances, "hands over to the instance that runs");
    program.application.SetTitle(Startup::kSecondInstance);
    // Giving the window its caption loads it, as in every instance. It is never shown, so no page comes into being.
    program.window.SetCaption(Startup::kSecondInstance);
    // Nobody sees this window, so it has nobody to ask.
    program.main.AskNobody();
    program.main.Form_Load(commandLine);
    ResumeNext(program.instances.SetForegroundWindow());
    if (commandLine.empty()) return;
    ResumeNext(SettingsStore(program.settings).HandOffCommandLine.Set(Text(commandLine)));
    // With the text in it: the settings may have no room. They may also hold the text of another start by then.
    ResumeNext(program.instances.SendMessage(commandLine));
}

void Run(const Startup::Program& program, TextView commandLine) {
    program.splash.Show();
    program.application.DoEvents();
    program.window.SetCaption(Startup::kMainTitle);
    program.main.Form_Load(program.startsBlank && commandLine.empty() ? Address::kBlank : commandLine);
    Hook::Install(program.instances, program.window, program.main);
    program.window.Show();
    program.splash.Unload();
}

} // namespace

namespace Startup {

bool HandsOver(const Program& program, TextView commandLine) {
    const bool several = AllowsMultipleInstances(program.settings);
    ResumeNext(program.instances.RegisterMessage(kMessageName));
    const bool running = program.instances.PreviousInstance(several ? Instances::Several : Instances::One);
    if (several || !running) return false;
    HandOff(program, commandLine);
    return true;
}

Result Main(const Program& program, TextView commandLine) {
    Log::Note(LogLevel::Info, LogPart::Program, "starts, build", Version::kRevision);
    if (HandsOver(program, commandLine)) return Result::HandedOff;
    Run(program, commandLine);
    return Result::Runs;
}

} // namespace Startup

} // namespace tessa
