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
class BarAssembly final : private FocusRing::Neighbours {
public:
    /// What the keyboard goes round beside the bar.
    struct Around {
        QWidget& strip;
        QWidget& statusBar;
        PageBarsAssembly& bars;
        Engine& engine;
    };
    /// All outlive it.
    BarAssembly(frmMain& main, MainWindowFrame& window, Around around);
    /// Whether a tool has the keyboard.
    [[nodiscard]] bool HasKeyboard() { return m_commandBar.Ring().HasKeyboard(); }
    void Customize() { m_customize.Open(); }

private:
    [[nodiscard]] QWidget* Strip() override { return &m_around.strip; }
    [[nodiscard]] std::vector<QWidget*> PageBars() override;
    [[nodiscard]] std::optional<Asked> Question() override;
    [[nodiscard]] QWidget* StatusBar() override { return &m_around.statusBar; }

    Around m_around;
    ToolBarLook m_look;
    CommandBarView m_commandBar;
    qt::Customize m_customize;
    Connections m_connections;
};

} // namespace tessa::qt
