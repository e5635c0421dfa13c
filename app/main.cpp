#include "app/CommandLine.h"
#include "app/Startup.h"
#include "qt/desktop/StartFailure.h"
#include "qt/program/HandOver.h"
#include "qt/program/RunningProgram.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace tessa {
namespace {

std::string Variable(const char* name) {
    const char* value = ::getenv(name);
    return value ? value : "";
}

CommandLine::Surroundings Surroundings() {
    return {.root = ::geteuid() == 0,
            .disableSandbox = Variable("QTWEBENGINE_DISABLE_SANDBOX"),
            .display = Variable("DISPLAY"),
            .waylandDisplay = Variable("WAYLAND_DISPLAY"),
            .windowingSystem = Variable("QT_QPA_PLATFORM")};
}

CommandLine::Arguments ArgumentsOf(int argc, char** argv) { return {argv + (argc > 0 ? 1 : 0), argv + argc}; }

/// The exit code.
int Print(const std::string& information) {
    return std::fputs(information.c_str(), stdout) < 0 || std::fflush(stdout) != 0;
}

std::unique_ptr<qt::RunningProgram> MakeProgram(int& argc, char** argv) {
    const qt::StartFailure told;
    return std::make_unique<qt::RunningProgram>(argc, argv);
}

} // namespace
} // namespace tessa

int main(int argc, char** argv) {
    using namespace tessa;
    const CommandLine::Arguments arguments = ArgumentsOf(argc, argv);
    if (const auto information = CommandLine::Information(arguments)) return Print(*information);
    if (const auto refusal = CommandLine::Refusal(arguments, Surroundings())) {
        std::fputs(refusal->c_str(), stderr);
        return 1;
    }
    // What is for the windowing system is taken out by what opens the display.
    const bool plain = std::ranges::none_of(arguments, [](const std::string& each) { return each.starts_with('-'); });
    if (plain && qt::HandOver::TryWithoutWindow(CommandLine::AsText(arguments))) ::_exit(0);
    const auto program = MakeProgram(argc, argv);
    // What was meant for the windowing system has been taken out by now.
    const CommandLine::Arguments ours = ArgumentsOf(argc, argv);
    if (const auto information = CommandLine::Information(ours)) return Print(*information);
    const Text commandLine = CommandLine::AsText(ours);
    Startup::Program started = program->Platform();
    started.startsBlank = Variable("TESSAVIEW_START") == "blank";
    // Not for the programs that this one starts.
    ::unsetenv("TESSAVIEW_START");
    if (Startup::Main(started, commandLine) == Startup::Result::HandedOff) ::_exit(0);
    return program->Run();
}
