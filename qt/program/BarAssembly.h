#pragma once
#include "qt/bar/CommandBarView.h"
#include "qt/bar/ToolBarLook.h"
#include "qt/bar/customize/CustomizeDialog.h"

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class Engine;
class MainWindowFrame;
class PageBarsAssembly;

/// The command bar and the dialog in which it is arranged, and the keyboard's way round the window.
class BarAssembly {
public:
    /// All outlive it.
    BarAssembly(frmMain& main, MainWindowFrame& window, Engine& engine);

    /// The keyboard goes round these, too; they end before it or leave by themselves.
    void LeadTo(QWidget& strip, QWidget& statusBar, PageBarsAssembly& bars);
    /// Whether a tool has the keyboard.
    [[nodiscard]] bool HasKeyboard() { return m_commandBar.Ring().HasKeyboard(); }
    void Customize() { m_customize.Open(); }

private:
    void FollowRing(frmMain& main, Engine& engine);

    ToolBarLook m_look;
    CommandBarView m_commandBar;
    qt::Customize m_customize;
    Connections m_connections;
};

} // namespace tessa::qt
