#pragma once
#include "bar/CommandBar.h"
#include "base/Signal.h"
#include "qt/bar/BandMenus.h"
#include "qt/bar/BarDocking.h"
#include "qt/bar/FocusRing.h"
#include "qt/bar/ToolActions.h"
#include "qt/bar/ToolBars.h"

#include <QMainWindow>
#include <QObject>

class QContextMenuEvent;

namespace tessa::qt {

/// Shows a `CommandBar` in a window's menu bar, toolbars and menus. What it is given outlives it.
class CommandBarView final : public QObject {
    Q_OBJECT

public:
    CommandBarView(CommandBar& bar, QMainWindow& window, EntryGestures& gestures = EntryGestures::None(),
                   FocusRing::Neighbours& neighbours = FocusRing::Neighbours::None());

    /// The action of a tool that is shown somewhere; nothing for any other.
    [[nodiscard]] QAction* Find(TextView name) const { return m_actions.Find(name); }
    /// The box of a combo tool; nothing while no toolbar shows it.
    [[nodiscard]] ComboBox* Box(TextView tool) const { return m_toolBars.Box(tool); }
    /// The menus that drop down from the bar's tools.
    [[nodiscard]] BandMenus& Menus() { return m_menus; }
    /// The keyboard's way round the window.
    [[nodiscard]] FocusRing& Ring() { return m_ring; }
    /// The bars are to be in sight, for one of them is to have the keyboard.
    Signal<void()> Reveal;
    /// The toolbar of a band; nothing for any other band.
    [[nodiscard]] QToolBar* ToolBar(TextView band) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Listen();
    void Follow();
    void ShowMenuBar(Band& band);
    void FillMenuBar(const Band& band);
    void ShowIcons();
    bool ShowToolBarsMenu(const QObject* watched, const QContextMenuEvent& event);

    CommandBar& m_bar;
    QMainWindow& m_window;
    ToolActions m_actions;
    BandMenus m_menus;
    ToolBars m_toolBars;
    BarDocking m_docking;
    FocusRing m_ring;
    Connections m_menuBar;
    Connections m_connections;
};

} // namespace tessa::qt
