#pragma once
#include "common/CommandBar.h"
#include "qt/QtBandMenus.h"
#include "qt/QtToolActions.h"

#include <QMainWindow>
#include <QObject>
#include <QPointer>
#include <functional>
#include <map>

class QToolBar;
class QtAddressBox;

/// Shows a `CommandBar` in a window's menu bar and toolbars. The bar and the window outlive it.
class QtCommandBar final : public QObject {
    Q_OBJECT

public:
    QtCommandBar(CommandBar& bar, QMainWindow& window);
    ~QtCommandBar() override;

    /// The action of a tool that is shown somewhere; nothing for any other.
    [[nodiscard]] QAction* Find(TextView name) const { return m_actions.Find(name); }
    /// The box of a combo tool; nothing while no toolbar shows it.
    [[nodiscard]] QtAddressBox* Box(TextView tool) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Show();
    void ShowMenuBar(Band& band);
    void ShowToolBar(Band& band);
    void Fill(QToolBar& bar, const Band& band);
    void AddTool(QToolBar& bar, const BandEntry& entry);
    void FocusTool(const Tool& tool);

    CommandBar& m_bar;
    QMainWindow& m_window;
    QtToolActions m_actions;
    QtBandMenus m_menus;
    std::map<Text, QToolBar*> m_toolBars;           ///< by the band's name
    std::map<Text, QPointer<QtAddressBox>> m_boxes; ///< by the tool's name
};
