#pragma once
#include "base/Signal.h"
#include "qt/window/FileDrop.h"
#include "qt/window/FullScreen.h"
#include "qt/window/StatusBarView.h"

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class Engine;
class InstanceProfile;
class MainWindowFrame;
class TabStripView;

/// What stands in the main window's frame beside bars and pages, and what the window tells.
class WindowAssembly final : private FullScreenFacts {
public:
    /// All outlive it, or the window is told that the strip goes.
    WindowAssembly(frmMain& main, MainWindowFrame& window, TabStripView& strip);

    /// Says what the engine's pages have to say, and which profile they have. Both outlive it.
    void FollowPages(Engine& engine, const InstanceProfile& ownProfile);

    StatusBarView statusBar;

private:
    [[nodiscard]] bool PageFills() const override;
    [[nodiscard]] QString Keys() const override;
    void FollowWindow(TabStripView& strip);
    void TellProfile(int number);

    frmMain& m_main;
    MainWindowFrame& m_window;
    Engine* m_engine = nullptr;
    FileDrop m_fileDrop;
    Connections m_connections;
};

} // namespace tessa::qt
