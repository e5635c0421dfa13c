#pragma once
#include "app/Startup.h"

#include <memory>

namespace tessa::qt {

/// The program on Qt: makes everything outside the core, hands it to the start, and runs the windows' events. Its parts
/// are assemblies, one for each room; what ties several of them stands here.
class RunningProgram {
public:
    /// `argc` and `argv` as the system gave them; both outlive the program.
    RunningProgram(int& argc, char** argv);
    ~RunningProgram();

    [[nodiscard]] Startup::Program Platform();
    /// Runs until the main window is closed; the exit code of the process.
    int Run();

private:
    struct Parts;

    void FollowEnds();

    std::unique_ptr<Parts> m;
    bool m_unloaded = false;
};

} // namespace tessa::qt
