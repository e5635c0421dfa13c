#pragma once
#include "bar/CommandBar.h"
#include "qt/bar/ComboBoxes.h"

#include <QMainWindow>
#include <QObject>
#include <QProxyStyle>
#include <map>
#include <vector>

class QLabel;
class QToolBar;

namespace tessa::qt {

class BandMenus;
class ToolActions;

/// The toolbars of a command bar: makes one for each band of that kind and fills it. `BarDocking` places them.
class ToolBars final : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    ToolBars(CommandBar& bar, QMainWindow& window, ToolActions& actions, BandMenus& menus)
        : m_bar(bar), m_window(window), m_actions(actions), m_menus(menus), m_boxes(bar) {}
    ~ToolBars() override;

    /// Makes the toolbars of new bands and ends those of bands that are no more. True if there was any.
    bool Follow();
    [[nodiscard]] QToolBar* Find(const Band& band) const;
    [[nodiscard]] ComboBox* Box(TextView tool) const { return m_boxes.Find(tool); }
    /// Gives the keyboard to a tool, which selects a box's text.
    void FocusTool(const Band& band, const Tool& tool);
    /// Drops down the menu of a tool, from its button or, where that is hidden, from the toolbars' end.
    void OpenMenu(const Tool& tool);
    /// The visible docked toolbars, from top to bottom and from left to right.
    [[nodiscard]] std::vector<QToolBar*> InOrder() const;

private:
    /// The desktop's style without animations. In Qt 6.11 a toolbar dropped on a side floats until its animation ends,
    /// even in a window without animations.
    class Still final : public QProxyStyle {
    public:
        int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                      QStyleHintReturn* data) const override;
    };

    void Make(Band& band);
    void Fill(QToolBar& bar, const Band& band);
    void AddBox(QToolBar& bar, const BandEntry& entry, QLabel* label);
    QLabel* AddLabel(QToolBar& bar, const BandEntry& entry);
    void AddButton(QToolBar& bar, const BandEntry& entry);
    void ReportPointer(QWidget& widget, const Tool& tool);

    CommandBar& m_bar;
    QMainWindow& m_window;
    ToolActions& m_actions;
    BandMenus& m_menus;
    ComboBoxes m_boxes;
    Still m_style;
    std::map<Text, QToolBar*> m_toolBars; ///< by the band's name
    Connections m_connections;
};

} // namespace tessa::qt
