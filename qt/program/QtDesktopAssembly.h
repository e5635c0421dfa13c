#pragma once
#include "platform/Application.h"
#include "qt/base/QtDrawing.h"
#include "qt/base/QtLatinKeys.h"
#include "qt/base/QtLog.h"
#include "qt/base/QtScreenFit.h"
#include "qt/desktop/QtDefaultBrowser.h"
#include "qt/desktop/QtFolderWatch.h"
#include "qt/desktop/QtFolders.h"
#include "qt/desktop/QtInstanceChannel.h"
#include "qt/desktop/QtInstanceProfile.h"
#include "qt/desktop/QtLayoutFile.h"
#include "qt/desktop/QtSessionFiles.h"
#include "qt/desktop/QtSettingsStorage.h"
#include "qt/desktop/QtShell.h"
#include "qt/desktop/QtSignals.h"
#include "qt/desktop/QtTrash.h"
#include "qt/desktop/QtWallClock.h"

#include <QApplication>
#include <optional>

namespace tessa::qt {

class QtApplication final : public Application {
public:
    void SetTitle(TextView title) override;
    void DoEvents() override;
};

/// The application object, and what the desktop has for the program: folders, files, other programs and instances. Made
/// in the order in which it stands here.
class QtDesktopAssembly {
public:
    /// `argc` and `argv` as the system gave them; both outlive it.
    QtDesktopAssembly(int& argc, char** argv);
    QtDesktopAssembly(const QtDesktopAssembly&) = delete;
    QtDesktopAssembly& operator=(const QtDesktopAssembly&) = delete;

    /// The engine's profile of this instance.
    [[nodiscard]] QtInstanceProfile& OwnProfile() { return *m_ownProfile; }
    /// From now on the desktop may ask the program to end.
    [[nodiscard]] QtSignals& FollowSignals() { return m_signals.emplace(); }

private:
    /// Chooses how pages are drawn, at its place among the parts.
    struct DrawnAs {
        explicit DrawnAs(SettingsStorageFactory& settings) { QtDrawing::Choose(settings); }
    };

    // Outlives the engine, which ends with the application.
    std::optional<QtInstanceProfile> m_ownProfile;
    QApplication m_qt;
    QtScreenFit m_screenFit;
    // Ends after everything that saves something: a second signal must not cut that short.
    std::optional<QtSignals> m_signals;

public:
    const QtFolders folders;
    QtLog log;
    QtSettingsStorage settings;

private:
    DrawnAs m_drawn{settings};

public:
    QtInstanceChannel channel;
    QtSessionFiles sessions;
    QtLayoutFile layout;
    QtApplication application;
    QtWallClock clock;
    QtDefaultBrowser defaultBrowser;
    QtShell shell;
    QtFolderWatch folderWatch;
    QtTrash trash;

private:
    QtLatinKeys m_latinKeys;
};

} // namespace tessa::qt
