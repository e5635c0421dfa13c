#include "ctl/StartProgram.h"

#include "base/os/Paths.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tessa {

namespace {

constexpr int kNoProgram = 127;

// Whoever waits for the end of our output must not wait for the program's.
void LeaveOutput() {
    const int nowhere = ::open("/dev/null", O_RDWR);
    for (const int each : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::dup2(nowhere, each);
}

[[noreturn]] void Become(const std::string& program, const std::optional<std::string>& home) {
    ::setsid();
    LeaveOutput();
    ::setenv("TESSAVIEW_START", "blank", 1);
    if (home) ::setenv("TESSAVIEW_HOME", home->c_str(), 1);
    ::execlp(program.c_str(), "tessaview", static_cast<char*>(nullptr));
    ::_exit(kNoProgram);
}

} // namespace

StartedProgram::StartedProgram(const std::optional<std::string>& home) {
    const std::string beside = FolderAbove(RealPath("/proc/self/exe").value_or("")) + "/tessaview";
    const std::string program = ::access(beside.c_str(), X_OK) == 0 ? beside : "tessaview";
    m_process = ::fork();
    if (m_process == 0) Become(program, home);
}

std::string StartedProgram::Trouble() {
    if (m_process < 0) return "TessaView could not be started.";
    int status = 0;
    if (m_process == 0 || ::waitpid(m_process, &status, WNOHANG) != m_process) return {};
    m_process = 0;
    // Another instance was there after all, and has taken the start over.
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return {};
    if (WIFEXITED(status) && WEXITSTATUS(status) == kNoProgram) return "TessaView was not found.";
    m_process = -1;
    return "TessaView could not be started; what tessaview says by itself tells more.";
}

} // namespace tessa
