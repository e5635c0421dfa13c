#pragma once
#include "platform/Application.h"
#include "qt/base/DrawingChoice.h"
#include "qt/base/LatinKeys.h"
#include "qt/base/ProgramLog.h"
#include "qt/base/ScreenFit.h"
#include "qt/desktop/DesktopClock.h"
#include "qt/desktop/DesktopDefaultBrowser.h"
#include "qt/desktop/DesktopShell.h"
#include "qt/desktop/DesktopTrash.h"
#include "qt/desktop/DiskLayoutFile.h"
#include "qt/desktop/DiskSessionFiles.h"
#include "qt/desktop/DiskSettingsStorage.h"
#include "qt/desktop/EndSignals.h"
#include "qt/desktop/Folders.h"
#include "qt/desktop/InstanceProfile.h"
#include "qt/desktop/KernelFolderWatch.h"
#include "qt/desktop/SocketInstanceChannel.h"
#include "qt/desktop/SystemSteadyClock.h"

#include <QApplication>
#include <cstdlib>
#include <optional>

namespace tessa::qt {

class DesktopApplication final : public Application {
public:
    void SetTitle(TextView title) override;
    void DoEvents() override;
};

/// The application object, and what the desktop has for the program: folders, files, other programs and instances. Made
/// in the order in which it stands here.
class DesktopAssembly {
public:
    /// `argc` and `argv` as the system gave them; both outlive it.
    DesktopAssembly(int& argc, char** argv);
    DesktopAssembly(const DesktopAssembly&) = delete;
    DesktopAssembly& operator=(const DesktopAssembly&) = delete;

    /// The engine's profile of this instance.
    [[nodiscard]] InstanceProfile& OwnProfile() { return *m_ownProfile; }
    /// From now on the desktop may ask the program to end.
    [[nodiscard]] EndSignals& FollowSignals() { return m_signals.emplace(); }
    /// The process will end with that code as soon as everything is saved, and the engine is not torn down.
    void SkipEndOfEngine(int code) { m_earlyEnd.code = code; }

private:
    /// Chooses how pages are drawn, at its place among the parts.
    struct DrawnAs {
        explicit DrawnAs(SettingsStorageFactory& settings) { DrawingChoice::Choose(settings); }
    };
    /// Ends the process at its place among the parts, if that is wanted.
    struct EarlyEnd {
        EarlyEnd() = default;
        EarlyEnd(const EarlyEnd&) = delete;
        EarlyEnd& operator=(const EarlyEnd&) = delete;
        ~EarlyEnd() {
            if (code) std::_Exit(*code);
        }
        std::optional<int> code{};
    };

    // Outlives the engine, which ends with the application.
    std::optional<InstanceProfile> m_ownProfile;
    QApplication m_qt;
    EarlyEnd m_earlyEnd;
    ScreenFit m_screenFit;
    // Ends after everything that saves something: a second signal must not cut that short.
    std::optional<EndSignals> m_signals;

public:
    const Folders folders;
    ProgramLog log;
    DiskSettingsStorage settings;

private:
    DrawnAs m_drawn{settings};

public:
    SocketInstanceChannel channel;
    DiskSessionFiles sessions;
    DiskLayoutFile layout;
    DesktopApplication application;
    DesktopClock clock;
    SystemSteadyClock steady;
    DesktopDefaultBrowser defaultBrowser;
    DesktopShell shell;
    KernelFolderWatch folderWatch;
    DesktopTrash trash;

private:
    LatinKeys m_latinKeys;
};

} // namespace tessa::qt
