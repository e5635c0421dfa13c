#pragma once
#include "base/Signal.h"
#include "qt/window/QtFileDrop.h"
#include "qt/window/QtStatusBar.h"

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class QtEngine;
class QtInstanceProfile;
class QtMainWindow;
class QtTabStrip;

/// What stands in the main window's frame beside bars and pages, and what the window tells.
class QtWindowAssembly {
public:
    /// All outlive it, or the window is told that the strip goes.
    QtWindowAssembly(frmMain& main, QtMainWindow& window, QtTabStrip& strip);

    /// Says what the engine's pages have to say, and which profile they have. Both outlive it.
    void FollowPages(QtEngine& engine, const QtInstanceProfile& ownProfile);

    QtStatusBar statusBar;

private:
    void FollowWindow(QtTabStrip& strip);
    void TellProfile(int number);

    frmMain& m_main;
    QtMainWindow& m_window;
    QtFileDrop m_fileDrop;
    Connections m_connections;
};

} // namespace tessa::qt
