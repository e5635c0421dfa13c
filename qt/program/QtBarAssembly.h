#pragma once
#include "qt/bar/QtBarLook.h"
#include "qt/bar/QtCommandBar.h"
#include "qt/bar/customize/QtCustomizeDialog.h"

namespace tessa {
class frmMain;
} // namespace tessa

namespace tessa::qt {

class QtEngine;
class QtMainWindow;
class QtPageBarsAssembly;

/// The command bar and the dialog in which it is arranged, and the keyboard's way round the window.
class QtBarAssembly {
public:
    /// All outlive it.
    QtBarAssembly(frmMain& main, QtMainWindow& window, QtEngine& engine);

    /// The keyboard goes round these, too; they end before it or leave by themselves.
    void LeadTo(QWidget& strip, QWidget& statusBar, QtPageBarsAssembly& bars);
    /// Whether a tool has the keyboard.
    [[nodiscard]] bool HasKeyboard() { return m_commandBar.Ring().HasKeyboard(); }
    void Customize() { m_customize.Open(); }

private:
    void FollowMenus(frmMain& main);
    void FollowRing(frmMain& main, QtEngine& engine);

    QtBarLook m_look;
    QtCommandBar m_commandBar;
    QtCustomize m_customize;
    Connections m_connections;
};

} // namespace tessa::qt
