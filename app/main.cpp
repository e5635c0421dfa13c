#include "app/Startup.h"
#include "qt/QtProgram.h"
#include "qt/QtText.h"

#include <cstdio>
#include <unistd.h>

namespace {

// What stands behind the program's name, as one text.
Text CommandLine(int argc, char** argv) {
    std::string all;
    for (int i = 1; i < argc; ++i) all += (i > 1 ? " " : "") + std::string(argv[i]);
    return FromBytes(all);
}

// The engine would end the program without a word a person understands.
bool SandboxRefused() {
    const char* disabled = ::getenv("QTWEBENGINE_DISABLE_SANDBOX");
    return ::geteuid() == 0 && !(disabled && std::string(disabled) == "1");
}

} // namespace

int main(int argc, char** argv) {
    const Text commandLine = CommandLine(argc, argv);
    if (SandboxRefused()) {
        std::fputs("TessaView does not show pages as root, because the page engine's sandbox does not work for root.\n"
                   "Start it as an ordinary user, or set QTWEBENGINE_DISABLE_SANDBOX=1 if you know what you do.\n",
                   stderr);
        return 1;
    }
    QtProgram program(argc, argv);
    if (Startup::Main(program.Platform(), commandLine) == Startup::Result::HandedOff) ::_exit(0);
    return program.Run();
}
