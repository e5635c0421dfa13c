#pragma once
#include "app/Startup.h"

#include <QPoint>
#include <memory>
#include <vector>

struct QtProgramParts;
struct QtTabListEntry;

/// The program on Qt: makes everything outside the core, hands it to the start, and runs the windows' events.
class QtProgram {
public:
    /// `argc` and `argv` as the system gave them; both outlive the program.
    QtProgram(int& argc, char** argv);
    ~QtProgram();

    [[nodiscard]] Startup::Program Platform();
    /// Runs until the main window is closed; the exit code of the process.
    int Run();

private:
    void WireWindow();
    void WireKeys();
    void WireEngine();
    void WirePages();
    void WireStartPage();
    void WireStrip();
    void ListTabs(QPoint corner);
    void MakeTabList();
    [[nodiscard]] std::vector<QtTabListEntry> TabLines() const;
    void WireSession();
    void WireSleep();
    void WireRelief();

    std::unique_ptr<QtProgramParts> m;
};
