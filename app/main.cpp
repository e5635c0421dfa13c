#include "app/CommandLine.h"
#include "app/Startup.h"
#include "qt/QtProgram.h"
#include "qt/QtStartFailure.h"

#include <cstdio>
#include <unistd.h>

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

std::unique_ptr<QtProgram> MakeProgram(int& argc, char** argv) {
    const QtStartFailure told;
    return std::make_unique<QtProgram>(argc, argv);
}

} // namespace

int main(int argc, char** argv) {
    const CommandLine::Arguments arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    if (const auto information = CommandLine::Information(arguments)) {
        return std::fputs(information->c_str(), stdout) < 0 || std::fflush(stdout) != 0;
    }
    if (const auto refusal = CommandLine::Refusal(arguments, Surroundings())) {
        std::fputs(refusal->c_str(), stderr);
        return 1;
    }
    const auto program = MakeProgram(argc, argv);
    const Text commandLine = CommandLine::AsText(arguments);
    if (Startup::Main(program->Platform(), commandLine) == Startup::Result::HandedOff) ::_exit(0);
    return program->Run();
}
